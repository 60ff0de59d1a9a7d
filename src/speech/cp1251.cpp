// Windows-1251, the code page of the games' Russian speech texts, decoded to UTF-8.
#include <array>
#include <string>
#include <string_view>

#include "speech/cp1251.h"

namespace cp1251 {
namespace {

// The characters of the codes 0x80 .. 0xFF; below 0x80 the code page is ASCII. 0x98 has no
// character in this code page: it keeps the control character of the same number, as the
// system's own conversion does. 0xA0 is the no-break space and 0xAD the soft hyphen.
constexpr std::array<std::string_view, 128> Upper_Half{
    // 0x80
    "Ђ",
    "Ѓ",
    "‚",
    "ѓ",
    "„",
    "…",
    "†",
    "‡",
    "€",
    "‰",
    "Љ",
    "‹",
    "Њ",
    "Ќ",
    "Ћ",
    "Џ",
    // 0x90
    "ђ",
    "‘",
    "’",
    "“",
    "”",
    "•",
    "–",
    "—",
    "\u0098",
    "™",
    "љ",
    "›",
    "њ",
    "ќ",
    "ћ",
    "џ",
    // 0xA0
    "\u00A0",
    "Ў",
    "ў",
    "Ј",
    "¤",
    "Ґ",
    "¦",
    "§",
    "Ё",
    "©",
    "Є",
    "«",
    "¬",
    "\u00AD",
    "®",
    "Ї",
    // 0xB0
    "°",
    "±",
    "І",
    "і",
    "ґ",
    "µ",
    "¶",
    "·",
    "ё",
    "№",
    "є",
    "»",
    "ј",
    "Ѕ",
    "ѕ",
    "ї",
    // 0xC0
    "А",
    "Б",
    "В",
    "Г",
    "Д",
    "Е",
    "Ж",
    "З",
    "И",
    "Й",
    "К",
    "Л",
    "М",
    "Н",
    "О",
    "П",
    // 0xD0
    "Р",
    "С",
    "Т",
    "У",
    "Ф",
    "Х",
    "Ц",
    "Ч",
    "Ш",
    "Щ",
    "Ъ",
    "Ы",
    "Ь",
    "Э",
    "Ю",
    "Я",
    // 0xE0
    "а",
    "б",
    "в",
    "г",
    "д",
    "е",
    "ж",
    "з",
    "и",
    "й",
    "к",
    "л",
    "м",
    "н",
    "о",
    "п",
    // 0xF0
    "р",
    "с",
    "т",
    "у",
    "ф",
    "х",
    "ц",
    "ч",
    "ш",
    "щ",
    "ъ",
    "ы",
    "ь",
    "э",
    "ю",
    "я",
};

// All 256 characters, made once. Code 0 stays empty: the text being decoded ends at a zero code,
// so appending it adds nothing.
std::array<std::string, 256> Make_Characters() {
  std::array<std::string, 256> characters;
  for (std::size_t code = 1; code < 0x80; ++code) characters[code] = std::string(1, static_cast<char>(code));
  for (std::size_t i = 0; i < Upper_Half.size(); ++i) characters[0x80 + i] = std::string(Upper_Half[i]);
  return characters;
}

}  // namespace

const std::string& Character(unsigned char code) {
  static const std::array<std::string, 256> characters = Make_Characters();
  return characters[code];
}

}  // namespace cp1251
