// The two kinds of failure that travel up the call stack.
#pragma once

#include <stdexcept>
#include <string>

// A run-time failure (a file that can't be read, a dialog that was cancelled, ...). The
// procedure that owns the failure road catches it and takes that road.
struct Run_Time_Error : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// A failure that shows one message and ends the program at once. Nothing between the place that
// raises it and the event dispatch catches it, so nothing behind it runs.
struct Fatal_Error {
  std::string Text;
  int Style;
  std::string Title;
};
