#include "bench_files.h"

#include <unistd.h>

#include <fstream>

namespace fs = std::filesystem;

Bytes Typical_Record(int k) {
  const auto byte = [](int value) { return static_cast<std::uint8_t>(value & 0xFF); };
  const int held = (7 * k) % 351;
  const int given = (11 * k + 40) % 351;
  const int reactions[] = {0, 4, 23, 24};
  return {
      0x02, 0x00,                             // fires once
      byte(held), byte(held >> 8),            // the NPC must hold this item
      byte(3 * k), 0x00,                      // this trigger must be TRUE
      0xFF, 0xFF,                             // no FALSE trigger
      byte(k % 30),                           // a quest the player has
      0x00, 0xFF,                             // any day
      0x06,                                   // the player hands over an item
      byte(k % 3 * 10),                       // least leadership
      byte(k), 0x01,                          // message k, one message
      byte((k + 7) % 30), 0xFF,               // gives a quest, takes none
      byte(57 + k), byte(k - 1),              // control to another NPC and record
      0x00,
      byte(3 * k + 1), 0x00,                  // sets a trigger
      byte(given), byte(given >> 8),          // hands over an item
      0xFF, 0xFF,                             // no move
      byte(reactions[k % 4]), 0x00,           // the NPC's reaction
      0x00, 0x00, 0x00, 0x00,
  };
}

Bytes Typical_File() {
  Bytes file;
  for (int k = 1; k <= 50; ++k) {
    const Bytes record = Typical_Record(k);
    file.insert(file.end(), record.begin(), record.end());
  }
  return file;
}

namespace {

// UTF-8 Latin and Cyrillic to Windows-1251 codes.
std::vector<unsigned> Cp1251(const std::string& utf8) {
  std::vector<unsigned> codes;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto c = static_cast<unsigned char>(utf8[i]);
    if (c < 0x80) {
      codes.push_back(c);
      ++i;
    } else {
      const unsigned point = ((c & 0x1Fu) << 6) | (static_cast<unsigned char>(utf8[i + 1]) & 0x3Fu);
      codes.push_back(point - 0x410 + 0xC0);  // А .. я
      i += 2;
    }
  }
  return codes;
}

}  // namespace

Bytes Speech_File() {
  const std::string sentence =
      "Привет, наемник. Я давно тебя жду: в городе неспокойно, и мне нужна помощь. "
      "Принеси мне ключ от склада, и я расскажу, где прячется королева.";
  const std::vector<unsigned> codes = Cp1251(sentence);
  constexpr std::size_t entry = 480;
  Bytes file(entry * 60, 0);
  for (std::size_t n = 0; n < 60; ++n) {
    std::size_t p = n * entry;
    // Each character is its code plus 1 in the low byte of a little-endian word.
    for (const unsigned code : codes) {
      const unsigned stored = code + 1;
      file[p++] = static_cast<std::uint8_t>(stored & 0xFF);
      file[p++] = static_cast<std::uint8_t>(stored >> 8);
    }
  }
  return file;
}

Bench_Folder::Bench_Folder() {
  root_ = fs::temp_directory_path() / ("vorlane-bench-" + std::to_string(::getpid()));
  fs::create_directories(root_);
}

Bench_Folder::~Bench_Folder() {
  std::error_code ec;
  fs::remove_all(root_, ec);
}

std::string Bench_Folder::Write(const std::string& name, const Bytes& bytes) const {
  const std::string path = Path(name);
  std::ofstream(path, std::ios::binary | std::ios::trunc)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  return path;
}
