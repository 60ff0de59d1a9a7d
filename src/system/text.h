// Texts are UTF-8. Where the program counts or cuts a text that can hold Cyrillic letters or a
// path, it counts characters, not bytes; these helpers do that.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace text {

// Number of characters (code points) in a UTF-8 text.
std::size_t Length(std::string_view s);
// The first / last n characters (the whole text when it is shorter).
std::string Left(std::string_view s, std::size_t n);
std::string Right(std::string_view s, std::size_t n);
// Capitals, for Latin and Cyrillic letters; everything else unchanged.
std::string Upper(std::string_view s);
// The bare name of a path: what follows the last folder separator (on Windows also "\\" and the
// colon of a drive).
std::string File_Title(std::string_view path);

// A path of the file system from its UTF-8 text, and back: the system's own narrow encoding
// (a code page on Windows) is never used.
std::filesystem::path Path(std::string_view utf8);
std::string Text(const std::filesystem::path& path);

}  // namespace text
