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
// The folder part of a path with its last separator ("mod/078.npc" -> "mod/"), empty for a bare
// name; and the path of a name in a folder. A folder that doesn't end in a separator gets the
// last one it uses (on Windows "C:\mods" gives "C:\mods\x.npc"), or "/" where it uses none:
// "mod" gives "mod/x.npc" on every system.
std::string Folder_Of(std::string_view path);
std::string Path_In(std::string_view folder, std::string_view name);

// A path of the file system from its UTF-8 text, and back: the system's own narrow encoding
// (a code page on Windows) is never used.
std::filesystem::path Path(std::string_view utf8);
std::string Text(const std::filesystem::path& path);

// A text from outside (a file name, a decoded speech text) made fit for one line of output that
// is valid UTF-8: each control character (codes 00 to 1F, 7F, 80 to 9F) becomes \xNN, its code in
// two hex digits (a line feed \x0A, an escape \x1B), and so does each byte that is no part of a
// UTF-8 character. Everything else stays as it is.
std::string Printable(std::string_view s);
// Whether a text is valid UTF-8 (no stray byte, no overlong form, no surrogate).
bool Valid_Utf8(std::string_view s);

}  // namespace text
