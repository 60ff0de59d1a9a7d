// What assistive technology reads of a control beyond the text it shows: a name for a control
// that shows none (a slider, a check box without caption, a list), and a description.
#pragma once

#include <windows.h>

#include <string_view>

namespace win32 {

void Set_Accessible_Name(HWND control, std::string_view name);
void Set_Accessible_Description(HWND control, std::string_view description);
// Starts COM on this thread and makes the annotations that waited until the windows were up, and
// from now on each at once. COM's first users, this service and the file dialogs, come only once
// the windows are up, so its libraries are not loaded before.
void Start_Accessible_Annotations();
// Lets the service go and ends COM on this thread, if they were started.
void End_Accessible_Annotations();

}  // namespace win32
