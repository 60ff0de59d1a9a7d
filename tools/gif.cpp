#include "gif.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

namespace gif {
namespace {

constexpr int Max_Code_Width = 12;
constexpr int Table_Size = 1 << Max_Code_Width;

void Put_16(std::vector<std::uint8_t>& out, int value) {
  out.push_back(static_cast<std::uint8_t>(value & 0xFF));
  out.push_back(static_cast<std::uint8_t>((value >> 8) & 0xFF));
}

// Codes packed least significant bit first, as GIF wants them.
class Bit_Writer {
 public:
  void Put(int code, int width) {
    buffer_ |= static_cast<std::uint32_t>(code) << filled_;
    filled_ += width;
    while (filled_ >= 8) {
      bytes_.push_back(static_cast<std::uint8_t>(buffer_ & 0xFF));
      buffer_ >>= 8;
      filled_ -= 8;
    }
  }
  std::vector<std::uint8_t> Finish() {
    if (filled_ > 0) bytes_.push_back(static_cast<std::uint8_t>(buffer_ & 0xFF));
    buffer_ = 0;
    filled_ = 0;
    return std::move(bytes_);
  }

 private:
  std::vector<std::uint8_t> bytes_;
  std::uint32_t buffer_ = 0;
  int filled_ = 0;
};

// The LZW code stream of the pixels. The table is indexed by (prefix code, next pixel); when it
// is full a clear code starts it afresh.
std::vector<std::uint8_t> Compress(std::span<const std::uint8_t> pixels, int min_code_size, int colours) {
  const int clear = 1 << min_code_size;
  const int end = clear + 1;
  std::vector<std::int16_t> table;
  int width = 0;
  int next = 0;
  Bit_Writer bits;
  const auto reset = [&] {
    bits.Put(clear, width == 0 ? min_code_size + 1 : width);
    table.assign(static_cast<std::size_t>(Table_Size) * static_cast<std::size_t>(colours), -1);
    width = min_code_size + 1;
    next = end + 1;
  };
  // After a code goes out, the decoder adds an entry and widens its codes once `next` reaches
  // the next power of two; this keeps the writer in step with it.
  const auto emit = [&](int code) {
    bits.Put(code, width);
    if (next >= (1 << width) && width < Max_Code_Width) ++width;
  };

  reset();
  if (!pixels.empty()) {
    int prefix = pixels[0];
    for (std::size_t i = 1; i < pixels.size(); ++i) {
      const int pixel = pixels[i];
      std::int16_t& slot =
          table[static_cast<std::size_t>(prefix) * static_cast<std::size_t>(colours) + static_cast<std::size_t>(pixel)];
      if (slot >= 0) {
        prefix = slot;
        continue;
      }
      emit(prefix);
      slot = static_cast<std::int16_t>(next++);
      if (next == Table_Size) reset();
      prefix = pixel;
    }
    emit(prefix);
  }
  bits.Put(end, width);
  return bits.Finish();
}

}  // namespace

std::vector<std::uint8_t> Encode(int width, int height, std::span<const Colour> palette,
                                 std::span<const std::uint8_t> pixels) {
  int depth = 1;
  while ((1u << depth) < palette.size()) ++depth;
  if (palette.size() != (1u << depth) || depth > 8)
    throw std::invalid_argument("a GIF palette has 2, 4, .. 256 colours");
  if (width <= 0 || height <= 0 || width > 0xFFFF || height > 0xFFFF ||
      pixels.size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    throw std::invalid_argument("pixels do not match the picture's size");
  if (std::any_of(pixels.begin(), pixels.end(), [&](std::uint8_t p) { return p >= palette.size(); }))
    throw std::invalid_argument("a pixel is no index of the palette");

  std::vector<std::uint8_t> out;
  for (const char c : std::string_view("GIF89a")) out.push_back(static_cast<std::uint8_t>(c));
  // Logical screen: the picture's size, a global table of 2^depth colours, background 0.
  Put_16(out, width);
  Put_16(out, height);
  out.push_back(static_cast<std::uint8_t>(0x80 | ((depth - 1) << 4) | (depth - 1)));
  out.push_back(0);
  out.push_back(0);
  for (const Colour& c : palette) out.insert(out.end(), {c.R, c.G, c.B});

  // One image over the whole screen, not interlaced, no table of its own.
  out.push_back(0x2C);
  Put_16(out, 0);
  Put_16(out, 0);
  Put_16(out, width);
  Put_16(out, height);
  out.push_back(0);

  const int min_code_size = std::max(2, depth);
  out.push_back(static_cast<std::uint8_t>(min_code_size));
  const std::vector<std::uint8_t> data = Compress(pixels, min_code_size, static_cast<int>(palette.size()));
  for (std::size_t p = 0; p < data.size(); p += 255) {
    const std::size_t n = std::min<std::size_t>(255, data.size() - p);
    out.push_back(static_cast<std::uint8_t>(n));
    out.insert(out.end(), data.begin() + static_cast<std::ptrdiff_t>(p),
               data.begin() + static_cast<std::ptrdiff_t>(p + n));
  }
  out.push_back(0);
  out.push_back(0x3B);
  return out;
}

bool Pad_To(std::vector<std::uint8_t>& file, std::size_t size) {
  if (file.empty() || file.back() != 0x3B || file.size() > size) return false;
  const std::size_t missing = size - file.size();
  if (missing == 0) return true;
  // A comment block is 0x21 0xFE, sub-blocks of 1 .. 255 bytes behind their length, and 0.
  if (missing == 1 || missing == 2 || missing == 4) return false;
  std::vector<std::uint8_t> block{0x21, 0xFE};
  std::size_t data = missing - 3;  // what the sub-blocks take, length bytes included
  static constexpr std::string_view text = "Vorlane. ";
  std::size_t written = 0;
  while (data > 0) {
    // Never leave a single byte behind: a sub-block needs at least one byte of data.
    std::size_t n = std::min<std::size_t>(255, data - 1);
    if (data - (n + 1) == 1) --n;
    block.push_back(static_cast<std::uint8_t>(n));
    for (std::size_t i = 0; i < n; ++i, ++written)
      block.push_back(static_cast<std::uint8_t>(text[written % text.size()]));
    data -= n + 1;
  }
  block.push_back(0);
  file.insert(file.end() - 1, block.begin(), block.end());
  return true;
}

}  // namespace gif
