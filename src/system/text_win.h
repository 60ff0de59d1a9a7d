// Texts at the boundary of the Windows API: the program keeps UTF-8, Windows takes UTF-16.
#pragma once

#include <string>
#include <string_view>

namespace text {

std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view wide);

}  // namespace text
