// Small pieces shared by the views: the colour values of the window objects on a Qt palette,
// and a render cache for labels, so that only what changed is touched.
#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QListWidget>
#include <QPalette>

class QAbstractButton;
#include <QString>

#include <functional>
#include <optional>
#include <string_view>

#include <climits>
#include <cstdint>
#include <string>

#include "form/controls.h"
#include "ui/events.h"
#include "form/layout.h"
#include "form/platform.h"

namespace qtview {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }

// The window's font: "MS Sans Serif" 8.25 points, or the default sans where it is missing.
QFont Default_Font();

// Twips to pixels.
inline int Px(std::int32_t twips) { return twips / layout::Twips_Per_Pixel; }

// A colour of the window objects: a plain 0x00BBGGRR value, or one of the system's scheme
// mapped to the application palette's role a user recognises (button face, title bar, window,
// 3D light).
QColor Colour(std::int32_t value);
// The text colour that reads on that background.
QColor Text_Colour(std::int32_t back);
// Gives a widget that back colour (and the text colour that reads on it).
void Set_Back_Colour(QWidget* widget, std::int32_t back);

// A label of the window objects on a QLabel: sets caption, back colour and tool tip only when
// they changed since the last render. The accessible name follows the caption, so a screen
// reader reads what the user sees.
class Label_View {
 public:
  explicit Label_View(QLabel* widget = nullptr) : widget_(widget) {}
  void Render(const Label& model);

 private:
  QLabel* widget_;
  std::string caption_;
  std::int32_t back_ = INT32_MIN;
  std::string tip_;
  QString description_;  // what the widget says of itself while it has no tool tip
  bool first_ = true;
};

// A list box of the window objects on a QListWidget: refilled only when the model's revision
// changed, the selection and tool tip set only when they changed.
class List_View {
 public:
  explicit List_View(QListWidget* widget = nullptr) : widget_(widget) {}
  void Render(const List_Box& model);

 private:
  QListWidget* widget_;
  std::optional<unsigned> revision_;
  std::optional<int> index_;
  std::optional<std::string> tip_;
};

// Where the views send what the user does: the logic's handler of the event runs, then every
// window shows the model. Returns whether the control has a handler for the event.
class Event_Sink {
 public:
  virtual ~Event_Sink() = default;
  virtual bool Raise(std::string_view window, std::string_view control, Event on, Event_Args& args) = 0;
  bool Raise(std::string_view window, std::string_view control, Event on) {
    Event_Args args;
    return Raise(window, control, on, args);
  }
};

// A widget that stands for a control of the logic carries the control's name as objectName and
// in this property; the parts a widget is made of (a list's viewport) are found through it.
void Mark_Control(QWidget* widget, std::string_view name);
// The control a widget belongs to, or the empty text.
std::string Control_Of(const QObject* object);

// Places a window of the logic on the screen by the logic's rule, from the window's real outer
// size: the frame that the window manager draws round it, menu bar included, once that frame is
// known; before (and with no window manager at all) the window itself stands for its frame. The
// window is kept above `owner` if one is given.
void Place_Window(QWidget* window, Form_Window& form, const Screen_Size& screen, QWidget* owner = nullptr);

// Sends the clicks of every button under `root` on, by mouse, key or assistive technology: a
// push button's click; a check box's new state, as Value; an option button's click, which is
// its turning on (it shows no state of its own, so it is always off before).
void Wire_Buttons(QWidget* root, std::function<void(std::string_view control, int value)> click);
// The row that is selected in a list, or -1: a user selects by mouse, by key, or through
// assistive technology, which selects without moving the current row.
int Selected_Row(const QListWidget* list);

// A control that takes input by the mouse alone (a byte cell, the About picture) made workable
// through assistive technology: it shows with this role, its press action does what a click
// does and, with `edit`, an "Edit" action what a double click does.
void Make_Pressable(QWidget* widget, int role, bool edit = false);
// An option button that shows as one to assistive technology, whose press and toggle actions do
// what a click does.
void Make_Option(QAbstractButton* button);

// Sets a property of a widget only when the model's value differs from the one rendered last.
// The cache starts empty (a std::optional) or at a value the model never has.
template <class Cache, class Value, class Setter>
void Set_If_Changed(Cache& cache, const Value& value, Setter&& set) {
  if (cache == value) return;
  cache = value;
  set(value);
}

}  // namespace qtview
