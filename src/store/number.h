// The general reading of a text as a number: blanks around it, a sign, digits, a fraction and an
// exponent are allowed ("12", " 57.", "1e5", "-3.5"); anything else is no number.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace number {

// The text as a floating-point number; nothing when it is no number or too large for one.
std::optional<double> Read(std::string_view text);
// The text as a 32-bit integer, rounded half to even; nothing when it is no number or out of range.
std::optional<std::int32_t> Read_Long(std::string_view text);

}  // namespace number
