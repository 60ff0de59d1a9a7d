#include "store/number.h"

#include <cmath>
#include <cstdlib>
#include <string>

namespace number {
namespace {

bool Is_Digit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

std::optional<double> Read(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  // Check the form ourselves: strtod alone would take "inf", "nan", hex and locale forms.
  std::size_t i = 0;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digits = 0;
  while (i < text.size() && Is_Digit(text[i])) ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    ++i;
    while (i < text.size() && Is_Digit(text[i])) ++i, ++digits;
  }
  if (digits == 0) return std::nullopt;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    std::size_t exponent_digits = 0;
    while (i < text.size() && Is_Digit(text[i])) ++i, ++exponent_digits;
    if (exponent_digits == 0) return std::nullopt;
  }
  if (i != text.size()) return std::nullopt;
  const std::string copy(text);
  const double value = std::strtod(copy.c_str(), nullptr);
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<std::int32_t> Read_Long(std::string_view text) {
  const auto value = Read(text);
  if (!value) return std::nullopt;
  const double rounded = std::nearbyint(*value);  // the default rounding mode is half to even
  if (rounded < -2147483648.0 || rounded > 2147483647.0) return std::nullopt;
  return static_cast<std::int32_t>(rounded);
}

}  // namespace number
