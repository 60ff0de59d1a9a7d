// Sub_DeCode on arbitrary text.
//
// Invariant: when the first and the last character are digits or capitals A-F, the text becomes
// the decimal text of first x 16 + last (0 .. 255); anything else is the fatal road with its one
// message, and nothing else ever comes out.
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "store/convert.h"

namespace {

int Digit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  const int first = input.empty() ? -1 : Digit(input.front());
  const int last = input.empty() ? -1 : Digit(input.back());
  std::string text = input;
  try {
    Position::Sub_DeCode(text);
  } catch (const Fatal_Error& failure) {
    Require(first < 0 || last < 0, "fatal for a good pair: " + input);
    Require(failure.Text == "Неустранимая ошибка в Sub_DeCode(vForm) X Module(1) X Line 126" && failure.Style == 16 &&
                failure.Title == "ERROR",
            "the fatal road's message");
    return 0;
  } catch (...) {
    Broken("Sub_DeCode let out a failure of another kind");
  }
  Require(first >= 0 && last >= 0, "no fatal road for a bad text");
  Require(text == std::to_string(first * 16 + last), "the value of the pair");
  return 0;
}
