#include "store/hex.h"

#include <cmath>

#include "system/failure.h"

namespace {

// One character of a hex pair as its digit value, or -1 when it is none.
int Digit_Value(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

namespace Position {

void Sub_DeCode(std::string& text) {
  const int first = text.empty() ? -1 : Digit_Value(text.front());
  const int last = text.empty() ? -1 : Digit_Value(text.back());
  if (first < 0 || last < 0)
    throw Fatal_Error{"Неустранимая ошибка в Sub_DeCode(vForm) X Module(1) X Line 126", 16, "ERROR"};
  text = std::to_string(first * 16 + last);
}

void Pad_Hex(std::string& text) {
  if (text.size() == 1) text.insert(0, "0");
}

}  // namespace Position

namespace hex {

std::string Bare(long value) {
  static const char digits[] = "0123456789ABCDEF";
  if (value == 0) return "0";
  std::string out;
  for (unsigned long v = static_cast<unsigned long>(value); v != 0; v >>= 4) out.insert(out.begin(), digits[v & 15]);
  return out;
}

std::string Pair(int value) {
  // A byte, as every load writes 1600 of them: its two digits at once.
  static const char digits[] = "0123456789ABCDEF";
  if (value >= 0 && value <= 255) return {digits[value >> 4], digits[value & 15]};
  std::string text = Bare(value);
  Position::Pad_Hex(text);
  return text;
}

int Byte_Value(std::string pair) {
  // What Sub_DeCode makes of it, without the round trip through decimal text: the explanations
  // read every field's bytes this way.
  const int first = pair.empty() ? -1 : Digit_Value(pair.front());
  const int last = pair.empty() ? -1 : Digit_Value(pair.back());
  if (first < 0 || last < 0) Position::Sub_DeCode(pair);  // its fatal failure
  return first * 16 + last;
}

long Word_Value(const std::string& low, const std::string& high) {
  return static_cast<long>(Byte_Value(high)) * 256 + Byte_Value(low);
}

std::string Word_Pairs(long value) {
  const long high = value / 256;
  const long low = value - high * 256;
  return Pair(static_cast<int>(low)) + " " + Pair(static_cast<int>(high));
}

namespace {

// The encodings take whole numbers from 0 up; a fraction or a negative number counts as over the
// limit, so that nothing else can reach a byte.
bool Whole_Up_To(double number, double limit) { return number >= 0 && number <= limit && number == std::floor(number); }

}  // namespace

std::string Encode_Byte(double number) {
  if (!Whole_Up_To(number, 255)) return "";
  return Pair(static_cast<int>(number));
}

std::string Encode_Word(double number) {
  if (!Whole_Up_To(number, 65535)) return "";
  return Word_Pairs(static_cast<long>(number));
}

}  // namespace hex
