#include "form/registry.h"

#include <type_traits>

namespace {

template <class... Ts>
struct Overloaded : Ts... {
  using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

// The state at start of one control.
void Initialise(const Control& row, const Model& model) {
  std::visit(Overloaded{
                 [](std::monostate) {},
                 [&](Form_Window* w) { w->Caption = std::string(row.Caption); },
                 [&](Label* c) {
                   c->Caption = std::string(row.Caption);
                   c->BackColor = row.BackColor;
                 },
                 [&](Button* c) {
                   c->Caption = std::string(row.Caption);
                   c->Enabled = row.Enabled;
                 },
                 [&](Option_Button* c) { c->Caption = std::string(row.Caption); },
                 [&](Check_Box* c) { c->Enabled = row.Enabled; },
                 [](Text_Box*) {},
                 [](List_Box*) {},
                 [&](Slider_Control* c) {
                   c->Min = row.Min;
                   c->Max = row.Max;
                   c->SmallChange = row.Small_Change;
                   c->LargeChange = row.Large_Change;
                 },
                 [](Status_Bar*) {},
                 [&](Frame* c) { c->Caption = std::string(row.Caption); },
                 [](Line*) {},
                 [](Image*) {},
                 [&](Menu_Item* c) {
                   c->Caption = std::string(row.Caption);
                   c->Enabled = row.Enabled;
                 },
             },
             model);
}

// Copies a property into what is shown when it differs, and marks it.
template <class T, class U>
void Note(T& shown, const U& now, unsigned bit, unsigned& what) {
  if (shown == now) return;
  shown = now;
  what |= bit;
}

}  // namespace

Model Form_Window::Control(std::string_view name) const {
  const int i = Row_Index(*this, name);
  return i < 0 ? Model{} : Models[static_cast<std::size_t>(i)];
}

void Bind_Controls(Form_Window& form, std::string_view window,
                   const std::vector<std::pair<std::string_view, Model>>& named) {
  form.Name = controls::Window_Row(window).Name;
  form.Models.clear();
  for (const Control& row : controls::Of(window)) {
    Model model;
    for (const auto& [name, bound] : named)
      if (name == row.Name) model = bound;
    form.Models.push_back(model);
    Initialise(row, model);
  }
}

void Focus_At_Start(Form_Window& form) { form.SetFocus(std::string(controls::Window_Row(form.Name).Focus)); }

int Row_Index(const Form_Window& form, std::string_view name) {
  const std::span<const Control> rows = controls::Of(form.Name);
  for (std::size_t i = 0; i < rows.size() && i < form.Models.size(); ++i)
    if (rows[i].Name == name) return static_cast<int>(i);
  return -1;
}

std::span<const Control> Render_Cache::Rows_Of(const Form_Window& form) { return controls::Of(form.Name); }

unsigned Render_Cache::Compare(const Control& row, const Model& model, std::optional<Shown>& shown) {
  unsigned what = 0;
  if (!shown) {
    shown.emplace();
    what = changed::All;
  }
  Shown& s = *shown;
  std::visit(Overloaded{
                 [](std::monostate) {},
                 [&](const Form_Window* w) {
                   Note(s.Text, w->Caption, changed::Text, what);
                   Note(s.Enabled, w->Enabled, changed::Enabled, what);
                   Note(s.Focus, w->Focus_Serial, changed::Focus, what);
                 },
                 [&](const Label* c) {
                   Note(s.Text, c->Caption, changed::Text, what);
                   Note(s.Back_Colour, c->BackColor, changed::Back_Colour, what);
                   Note(s.Text_Colour, Text_Colour(c->BackColor, row.ForeColor), changed::Text_Colour, what);
                   Note(s.Tip, c->ToolTipText, changed::Tip, what);
                 },
                 [&](const Button* c) {
                   Note(s.Text, c->Caption, changed::Text, what);
                   Note(s.Enabled, c->Enabled, changed::Enabled, what);
                 },
                 [&](const Option_Button* c) {
                   Note(s.Text, c->Caption, changed::Text, what);
                   Note(s.Value, c->Value ? 1 : 0, changed::Value, what);
                 },
                 [&](const Check_Box* c) {
                   Note(s.Value, c->Value, changed::Value, what);
                   Note(s.Enabled, c->Enabled, changed::Enabled, what);
                 },
                 [&](const Text_Box* c) {
                   Note(s.Text, c->Text, changed::Text, what);
                   if (s.Sel_Start != c->SelStart || s.Sel_Length != c->SelLength) {
                     s.Sel_Start = c->SelStart, s.Sel_Length = c->SelLength;
                     what |= changed::Selection;
                   }
                 },
                 [&](const List_Box* c) {
                   // A refill shows no row selected until the index is set again.
                   if (s.Items != c->Revision) s.Index = -2;
                   Note(s.Items, c->Revision, changed::Items, what);
                   Note(s.Index, c->ListIndex, changed::Index, what);
                   Note(s.Tip, c->ToolTipText, changed::Tip, what);
                 },
                 [&](const Slider_Control* c) { Note(s.Value, c->Value, changed::Value, what); },
                 [&](const Status_Bar* c) {
                   Note(s.Text, c->SimpleText, changed::Text, what);
                   Note(s.Tip, c->ToolTipText, changed::Tip, what);
                 },
                 [&](const Frame* c) { Note(s.Text, c->Caption, changed::Text, what); },
                 [](const Line*) {},
                 [](const Image*) {},
                 [&](const Menu_Item* c) {
                   Note(s.Text, c->Caption, changed::Text, what);
                   Note(s.Enabled, c->Enabled, changed::Enabled, what);
                 },
             },
             model);
  return what;
}

void Render_Cache::Made_At_Start(const Form_Window& form, unsigned made) {
  const std::span<const Control> rows = Rows_Of(form);
  shown_.assign(rows.size(), std::nullopt);
  stale_.assign(rows.size(), changed::All & ~made);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Shown& s = shown_[i].emplace();
    s.Text = rows[i].Caption;
    s.Back_Colour = rows[i].BackColor;
    s.Text_Colour = Text_Colour(rows[i].BackColor, rows[i].ForeColor);
    s.Enabled = rows[i].Enabled;
  }
}

void Render_Cache::Take(const Form_Window& form, std::size_t i) {
  if (i >= shown_.size() || !shown_[i]) return;
  Compare(Rows_Of(form)[i], form.Models[i], shown_[i]);
}
