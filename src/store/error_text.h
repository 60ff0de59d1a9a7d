// The program's error messages, and the two roads on which they are shown.
#pragma once

#include <string>

class Platform;

namespace Position {

// An error code ("1" .. "8") to the message the user reads, in place. An unknown code stays.
void Error_Text(std::string& text);

}  // namespace Position

// The message road: the code goes into `text` (the window's scratch text), Error_Text turns it
// into its message, and a box shows it with this style and title, `suffix` behind the message.
// Returns the button pressed.
int Show_Error(Platform& platform, std::string& text, const char* code, int style, const std::string& title,
               const std::string& suffix = {});

// The fatal road: the message of the code, shown in a critical box with this title, and the
// program ends at once. Nothing behind the call runs.
[[noreturn]] void End_With_Error(std::string& text, const char* code, const std::string& title);
