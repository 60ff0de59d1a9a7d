// A PNG file of RGB pixels, written without a compression library: the image data goes into
// stored (uncompressed) deflate blocks, which every PNG reader takes.
#pragma once

#include <array>
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace png {

inline std::uint32_t Crc(const std::vector<std::uint8_t>& bytes, std::size_t from) {
  static const std::array<std::uint32_t, 256> table = [] {
    std::array<std::uint32_t, 256> t{};
    for (std::uint32_t n = 0; n < 256; ++n) {
      std::uint32_t c = n;
      for (int k = 0; k < 8; ++k) c = c & 1 ? 0xEDB88320u ^ (c >> 1) : c >> 1;
      t[n] = c;
    }
    return t;
  }();
  std::uint32_t c = 0xFFFFFFFFu;
  for (std::size_t i = from; i < bytes.size(); ++i) c = table[(c ^ bytes[i]) & 0xFF] ^ (c >> 8);
  return c ^ 0xFFFFFFFFu;
}

inline void Put32(std::vector<std::uint8_t>& out, std::uint32_t v) {
  for (int shift = 24; shift >= 0; shift -= 8) out.push_back(static_cast<std::uint8_t>(v >> shift));
}

inline void Chunk(std::vector<std::uint8_t>& out, const char* type, const std::vector<std::uint8_t>& data) {
  Put32(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t start = out.size();
  out.insert(out.end(), type, type + 4);
  out.insert(out.end(), data.begin(), data.end());
  Put32(out, Crc(out, start));
}

// Writes the image: `rgb` holds height rows of width pixels, three bytes each.
inline bool Write(const std::wstring& path, int width, int height, const std::vector<std::uint8_t>& rgb) {
  std::vector<std::uint8_t> raw;  // each row behind its filter byte, 0: none
  for (int y = 0; y < height; ++y) {
    raw.push_back(0);
    const auto row = rgb.begin() + static_cast<std::ptrdiff_t>(y) * width * 3;
    raw.insert(raw.end(), row, row + width * 3);
  }
  std::vector<std::uint8_t> zlib{0x78, 0x01};
  std::uint32_t a = 1, b = 0;
  for (std::uint8_t byte : raw) a = (a + byte) % 65521, b = (b + a) % 65521;
  for (std::size_t at = 0; at < raw.size() || at == 0;) {
    const std::size_t size = std::min<std::size_t>(raw.size() - at, 65535);
    zlib.push_back(at + size == raw.size() ? 1 : 0);
    zlib.push_back(static_cast<std::uint8_t>(size)), zlib.push_back(static_cast<std::uint8_t>(size >> 8));
    zlib.push_back(static_cast<std::uint8_t>(~size)), zlib.push_back(static_cast<std::uint8_t>(~size >> 8));
    zlib.insert(zlib.end(), raw.begin() + static_cast<std::ptrdiff_t>(at),
                raw.begin() + static_cast<std::ptrdiff_t>(at + size));
    at += size;
    if (raw.empty()) break;
  }
  Put32(zlib, (b << 16) | a);

  std::vector<std::uint8_t> file{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
  std::vector<std::uint8_t> header;
  Put32(header, static_cast<std::uint32_t>(width));
  Put32(header, static_cast<std::uint32_t>(height));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, no filter choice, no interlace
  Chunk(file, "IHDR", header);
  Chunk(file, "IDAT", zlib);
  Chunk(file, "IEND", {});
  std::ofstream out(std::filesystem::path(path), std::ios::binary);
  out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  return static_cast<bool>(out);
}

}  // namespace png
