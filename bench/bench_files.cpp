#include "bench_files.h"

#include "edt_text.h"

Bytes Typical_Record(int k) {
  const auto byte = [](int value) { return static_cast<std::uint8_t>(value & 0xFF); };
  const int held = (7 * k) % 351;
  const int given = (11 * k + 40) % 351;
  const int reactions[] = {0, 4, 23, 24};
  return {
      0x02,
      0x00,  // fires once
      byte(held),
      byte(held >> 8),  // the NPC must hold this item
      byte(3 * k),
      0x00,  // this trigger must be TRUE
      0xFF,
      0xFF,          // no FALSE trigger
      byte(k % 30),  // a quest the player has
      0x00,
      0xFF,              // any day
      0x06,              // the player hands over an item
      byte(k % 3 * 10),  // least leadership
      byte(k),
      0x01,  // message k, one message
      byte((k + 7) % 30),
      0xFF,  // gives a quest, takes none
      byte(57 + k),
      byte(k - 1),  // control to another NPC and record
      0x00,
      byte(3 * k + 1),
      0x00,  // sets a trigger
      byte(given),
      byte(given >> 8),  // hands over an item
      0xFF,
      0xFF,  // no move
      byte(reactions[k % 4]),
      0x00,  // the NPC's reaction
      0x00,
      0x00,
      0x00,
      0x00,
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

Bytes Speech_File() {
  const std::string sentence =
      "Привет, наемник. Я давно тебя жду: в городе неспокойно, и мне нужна помощь. "
      "Принеси мне ключ от склада, и я расскажу, где прячется королева.";
  const Bytes entry = Edt_Entry(sentence, 480);
  Bytes file;
  for (int n = 0; n < 60; ++n) file.insert(file.end(), entry.begin(), entry.end());
  return file;
}
