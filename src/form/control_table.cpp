#include "form/control_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// The table itself is data, src/form/controls.txt, compiled in by the build.
std::string_view Text() { return Controls_Text(); }

// A line the table can't be read from: the program can't make its windows.
[[noreturn]] void Wrong(int line, std::string_view what) {
  throw std::logic_error("control table, line " + std::to_string(line) + ": can't read " + std::string(what));
}

// The words of a line: blanks part them, except within double quotes, which are dropped.
std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words;
  std::size_t at = 0;
  while (true) {
    at = line.find_first_not_of(" \t", at);
    if (at == std::string_view::npos || line[at] == '#') break;
    std::size_t end = at;
    bool quoted = false;
    while (end < line.size() && (quoted || (line[end] != ' ' && line[end] != '\t'))) quoted ^= line[end++] == '"';
    words.push_back(line.substr(at, end - at));
    at = end;
  }
  return words;
}

std::string_view Unquoted(std::string_view value) {
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') return value.substr(1, value.size() - 2);
  return value;
}

// A whole number, in decimal or, behind 0x, in hex; nothing where the text is no number.
std::optional<std::int64_t> Number(std::string_view text) {
  const bool hex = text.starts_with("0x");
  if (hex) text.remove_prefix(2);
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, hex ? 16 : 10);
  if (error != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
  return value;
}

// Numbers parted by a sign: "450,300,4950,4875" by ',' or "0-50" by '-'.
std::vector<std::int64_t> Numbers(std::string_view text, char sign, int line) {
  std::vector<std::int64_t> numbers;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(sign, at), text.size());
    const auto number = Number(text.substr(at, end - at));
    if (!number) Wrong(line, text);
    numbers.push_back(*number);
    at = end + 1;
  }
  return numbers;
}

Control_Kind Kind_Named(std::string_view name, int line) {
  static const std::pair<std::string_view, Control_Kind> kinds[] = {
      {"window", Control_Kind::Window}, {"label", Control_Kind::Label},   {"button", Control_Kind::Button},
      {"option", Control_Kind::Option_Button}, {"check", Control_Kind::Check_Box}, {"text", Control_Kind::Text_Box},
      {"list", Control_Kind::List_Box}, {"slider", Control_Kind::Slider}, {"panel", Control_Kind::Status_Panel},
      {"frame", Control_Kind::Frame},   {"line", Control_Kind::Line},     {"image", Control_Kind::Image},
      {"menu", Control_Kind::Menu_Item}};
  for (const auto& [word, kind] : kinds)
    if (word == name) return kind;
  Wrong(line, name);
}

unsigned Styles_Named(std::string_view names, int line) {
  static const std::pair<std::string_view, unsigned> styles[] = {
      {"fixed", window_style::Fixed_Border}, {"minimize", window_style::Minimize_Button},
      {"borderless", window_style::No_Border}, {"topmost", window_style::Topmost},
      {"owned", window_style::Owned},          {"keypreview", window_style::Key_Preview}};
  unsigned bits = 0;
  for (std::size_t at = 0; at <= names.size();) {
    const std::size_t end = std::min(names.find(',', at), names.size());
    const std::string_view name = names.substr(at, end - at);
    const auto found = std::find_if(std::begin(styles), std::end(styles), [&](const auto& s) { return s.first == name; });
    if (found == std::end(styles)) Wrong(line, name);
    bits |= found->second;
    at = end + 1;
  }
  return bits;
}

// One key=value (or a key alone) of a control's line.
void Apply(Control& c, std::string_view key, std::string_view value, int line) {
  const auto number = [&] {
    const auto n = Number(value);
    if (!n) Wrong(line, value);
    return static_cast<std::int32_t>(*n);
  };
  if (key == "parent") c.Parent = value;
  else if (key == "caption") c.Caption = value;
  else if (key == "align") c.Alignment = value == "right" ? Align::Right : value == "center" ? Align::Center : Align::Left;
  else if (key == "border") c.Border = true;
  else if (key == "wrap") c.Wrap = true;
  else if (key == "font") c.Font.Face = value;
  else if (key == "size") c.Font.Size_Hundredths = number();
  else if (key == "weight") c.Font.Weight = number();
  else if (key == "charset") c.Font.Charset = number();
  else if (key == "back") c.BackColor = number();
  else if (key == "fore") c.ForeColor = number();
  else if (key == "line") c.Line_Width = number();
  else if (key == "tab") c.Tab_Index = number();
  else if (key == "cancel") c.Cancel = true;
  else if (key == "default") c.Default = true;
  else if (key == "hidden") c.Visible = false;
  else if (key == "disabled") c.Enabled = false;
  else if (key == "locked") c.Locked = true;
  else if (key == "name") c.Accessible_Name = value;
  else if (key == "description") c.Accessible_Description = value;
  else if (key == "z") c.Z_Order = number();
  else if (key == "keys") c.Shortcut = value;
  else if (key == "focus") c.Focus = value;
  else if (key == "styles") c.Styles = Styles_Named(value, line);
  else if (key == "range" || key == "step") {
    const auto pair = Numbers(value, key == "range" ? '-' : ',', line);
    if (pair.size() != 2) Wrong(line, value);
    (key == "range" ? c.Min : c.Small_Change) = static_cast<int>(pair[0]);
    (key == "range" ? c.Max : c.Large_Change) = static_cast<int>(pair[1]);
  } else if (key == "ellipse") {
    const auto r = Numbers(value, ',', line);
    if (r.size() != 4) Wrong(line, value);
    c.Ellipse = {static_cast<std::int32_t>(r[0]), static_cast<std::int32_t>(r[1]), static_cast<std::int32_t>(r[2]),
                 static_cast<std::int32_t>(r[3])};
  } else {
    Wrong(line, key);
  }
}

std::vector<Control> Parse(std::string_view text) {
  std::vector<Control> rows;
  int line = 0;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::vector<std::string_view> words = Words(text.substr(at, end - at));
    at = end + 1;
    ++line;
    if (words.empty()) continue;
    if (words.size() < 7) Wrong(line, "a control without its window, name, kind and rectangle");
    Control c{.Window = words[0], .Name = words[1], .Kind = Kind_Named(words[2], line)};
    std::array<std::int32_t, 4> place{};
    for (std::size_t i = 0; i < 4; ++i) {
      const auto n = Number(words[3 + i]);
      if (!n) Wrong(line, words[3 + i]);
      place[i] = static_cast<std::int32_t>(*n);
    }
    c.Place = {place[0], place[1], place[2], place[3]};
    for (std::size_t i = 7; i < words.size(); ++i) {
      const std::size_t equals = words[i].find('=');
      const std::string_view key = words[i].substr(0, equals);
      Apply(c, key, equals == std::string_view::npos ? std::string_view() : Unquoted(words[i].substr(equals + 1)), line);
    }
    rows.push_back(c);
  }
  return rows;
}

const std::vector<Control>& Table() {
  static const std::vector<Control> table = Parse(Text());
  return table;
}

}  // namespace

namespace controls {

std::span<const Control> All() { return Table(); }

std::span<const Control> Of(std::string_view window) {
  const std::vector<Control>& table = Table();
  std::size_t first = 0;
  while (first < table.size() && table[first].Window != window) ++first;
  std::size_t last = first;
  while (last < table.size() && table[last].Window == window) ++last;
  return std::span<const Control>(table).subspan(first, last - first);
}

const Control* Find(std::string_view window, std::string_view name) {
  for (const Control& row : Of(window))
    if (row.Name == name) return &row;
  return nullptr;
}

const Control& Window_Row(std::string_view window) { return Of(window).front(); }

const Control& Cell(int n) { return *Find(window::Main, "L_" + std::to_string(n)); }

const Control* Cancel_Button(std::string_view window) {
  for (const Control& row : Of(window))
    if (row.Cancel) return &row;
  return nullptr;
}

bool Has_Submenu(const Control& item) {
  for (const Control& row : Of(item.Window))
    if (row.Kind == Control_Kind::Menu_Item && row.Parent == item.Name) return true;
  return false;
}

bool Clicked_On_Release(const Control& row) {
  return row.Kind == Control_Kind::Label || row.Kind == Control_Kind::Image;
}

}  // namespace controls

Keys Shortcut_Keys(std::string_view shortcut) {
  Keys keys;
  if (shortcut.starts_with("Ctrl+")) {
    keys.Ctrl = true;
    shortcut.remove_prefix(5);
  }
  if (shortcut.size() == 1 && ((shortcut[0] >= 'A' && shortcut[0] <= 'Z') || (shortcut[0] >= '0' && shortcut[0] <= '9'))) {
    keys.Key = shortcut[0];
  } else if (shortcut.starts_with('F')) {
    const std::optional<std::int64_t> n = Number(shortcut.substr(1));
    if (n && *n >= 1 && *n <= 24) keys.Key = 111 + static_cast<int>(*n);  // F1 is 112
  }
  return keys;
}

std::int32_t Text_Colour(std::int32_t back, std::int32_t fore) {
  return back == colour::Active_Title_Bar ? colour::Active_Title_Text : fore;
}

namespace Position {

void Place_Controls(Form_Window& vForm, const Screen_Size& screen) {
  const auto top = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Height) - vForm.Height)) / 3;
  const auto left = static_cast<std::int32_t>(std::lround(static_cast<double>(screen.Width) - vForm.Width)) / 2;
  vForm.Left = left;
  vForm.Top = top;
}

}  // namespace Position
