#pragma once

#include <string>

namespace Position {

// An error code ("1" .. "8") to the message the user reads, in place. An unknown code stays.
void Error_Text(std::string& text);

}  // namespace Position
