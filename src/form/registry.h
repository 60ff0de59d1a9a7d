// The window objects walked by name: each window binds its controls to the rows of the control
// table once, takes their state at start from there, and can then be rendered row by row. A
// front end renders with one loop and one setter per kind; the render tells each setter what
// changed since the widget was last set, so that only that is touched.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "form/control_table.h"
#include "form/controls.h"

// Binds the models of a window to its rows in the control table, the window itself first, and
// gives each the state the table says it has at start: caption, back colour, enabled, range.
// `named` lists every control of the window object by its name.
void Bind_Controls(Form_Window& form, std::string_view window,
                   const std::vector<std::pair<std::string_view, Model>>& named);

// Gives the focus to the control that the window's row names: the one that has it at opening.
void Focus_At_Start(Form_Window& form);

// What a widget shows of its control, property by property: the render keeps the last of these
// that it set, and compares the model with it.
struct Shown {
  std::string Text;  // a caption, a text box's text, a status panel's text, a window's title
  std::int32_t Back_Colour = 0;
  std::int32_t Text_Colour = 0;
  std::string Tip;
  bool Enabled = true;
  int Value = 0;       // a slider's, a check box's, an option button's
  unsigned Items = 0;  // a list's revision
  int Index = -1;      // a list's selected row
  int Sel_Start = 0, Sel_Length = 0;
  unsigned Focus = 0;  // a window's focus serial
};

// Bits of what changed since the last render.
namespace changed {
constexpr unsigned Text = 0x1;
constexpr unsigned Back_Colour = 0x2;
constexpr unsigned Text_Colour = 0x4;
constexpr unsigned Tip = 0x8;
constexpr unsigned Enabled = 0x10;
constexpr unsigned Value = 0x20;
constexpr unsigned Items = 0x40;
constexpr unsigned Index = 0x80;
constexpr unsigned Selection = 0x100;
constexpr unsigned Focus = 0x200;
constexpr unsigned All = 0x3FF;
}  // namespace changed

// The last render of one window's widgets, row by row.
class Render_Cache {
 public:
  // Calls set(row, index of the row, model, shown, what changed) for each control whose model
  // differs from what its widget shows, and for every control at the first render.
  template <class Setter>
  void Render(const Form_Window& form, Setter&& set) {
    const std::span<const Control> rows = Rows_Of(form);
    shown_.resize(rows.size());
    stale_.resize(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const unsigned what = Compare(rows[i], form.Models[i], shown_[i]) | std::exchange(stale_[i], 0u);
      if (what) set(rows[i], i, form.Models[i], *shown_[i], what);
    }
  }
  // The widget of row i may no longer show these properties of its model (an option button the
  // user checked, a text box that took the focus): they are set at the next render.
  void Forget(std::size_t i, unsigned what) {
    if (i < stale_.size()) stale_[i] |= what;
  }
  // The widget of row i already shows what the model holds (the user typed it there).
  void Take(const Form_Window& form, std::size_t i);
  // The widgets were just made as their rows say the controls are at start: the caption, the
  // colours, enabled or not, no tip, an empty list with no row selected, no selection in a text.
  // Of the properties in `made`, the first render sets only what the model holds otherwise by
  // now; the others it sets all.
  void Made_At_Start(const Form_Window& form, unsigned made);

 private:
  static std::span<const Control> Rows_Of(const Form_Window& form);
  // Brings `shown` up to the model and tells what differed: everything when it was empty.
  static unsigned Compare(const Control& row, const Model& model, std::optional<Shown>& shown);

  std::vector<std::optional<Shown>> shown_;
  std::vector<unsigned> stale_;
};

// The row of a window's control by its model; -1 for a model that isn't the window's.
int Row_Index(const Form_Window& form, std::string_view name);
