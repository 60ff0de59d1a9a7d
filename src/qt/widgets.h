// The Qt side of the control table: one factory and one setter per kind of control, the colours
// and fonts of the window objects on a Qt palette, the pixels of the screen, and the placing of
// a window by the logic's rule.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

#include "form/control_table.h"
#include "form/registry.h"

class QWidget;
class QKeyEvent;

namespace qtview {

inline QString Q(const std::string& s) { return QString::fromStdString(s); }
inline QString Q(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

// Dots per inch of the screen the windows are on, in the widgets' own coordinates.
int Dpi();
// Twips to pixels and back, at that resolution.
inline int Px(std::int32_t twips) { return To_Pixels(twips, Dpi()); }
inline std::int32_t Twips(int pixels) { return To_Twips(pixels, Dpi()); }

// A font of the control table; where its face is missing, a sans of the same width, so that
// captions fit their cells.
QFont Font_Of(const Control_Font& font);

// A colour of the window objects: a plain 0x00BBGGRR value, or one of the system's scheme
// mapped to the palette role a user recognises (button face and text, title bar and its text,
// window and its text, 3D light).
QColor Colour(std::int32_t value);

// A widget that stands for a control carries its name as objectName and in the property
// "control"; the parts a widget is made of (a list's viewport) are found through it. A window
// carries its name in the property "window".
void Mark_Control(QWidget* widget, std::string_view name);
// The control a widget belongs to, or the empty text; and the window of the control table that
// it lies in.
std::string Control_Of(const QObject* object);
std::string Window_Of(const QWidget* widget);

// Makes the widget of a row (a label, button, ... ; not a window, line or menu item) in its
// parent, at its place, with everything of the row that doesn't change while the program runs.
QWidget* Make_Widget(const Control& row, QWidget* parent);
// Shows on the widget of a row what changed of its model.
void Set_Widget(QWidget* widget, const Control& row, const Model& model, const Shown& shown, unsigned what);

// The row shown by a list widget that is selected, or -1: a user selects by mouse, by key, or
// through assistive technology, which selects without moving the current row.
int Selected_Row(const QWidget* list);

// The system's key code of a key (107 the keypad's +, 109 its -, 27 Esc), 0 for one that the
// program has no use for.
int Key_Code(const QKeyEvent* key);

// Places a window of the logic on the screen by the logic's rule, from the window's real outer
// size: the frame that the window manager draws round it, menu bar included, once that frame is
// known; before (and with no window manager at all) the window itself stands for its frame. The
// window is kept above `owner` if one is given.
void Place_Window(QWidget* window, Form_Window& form, const Screen_Size& screen, QWidget* owner = nullptr);

}  // namespace qtview
