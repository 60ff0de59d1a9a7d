// What the user or the program does to a control, and the shape of the table that says which
// handler answers it. A window object is made with that table; the table itself lives with the
// handlers, above the window objects.
#pragma once

#include <string_view>

struct Vorlane;

enum class Event { Load, Unload, Click, Dbl_Click, Mouse_Move, Change, Got_Focus, Key_Press, Key_Up };

// What comes with an event: the key code of a key press or key up. A key-press handler may
// change Key: 0 swallows the key.
struct Event_Args {
  int Key = 0;
  int Index = 0;  // set from the route: the byte cell's number
};

using Handler = void (*)(Vorlane& main, Event_Args& args);

// One line of the table. Window is one of window::Main, window::Edit, window::About; a window's
// own events have the window's name as control.
struct Route {
  std::string_view Window;
  std::string_view Control;
  Event On;
  Handler Run;
  int Index = 0;
};
