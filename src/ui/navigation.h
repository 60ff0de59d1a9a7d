// Moving through the records: every way of moving only sets the slider's value, and its change
// event does the work.
#pragma once

struct Vorlane;

namespace key {
constexpr int Keypad_Plus = 107;
constexpr int Keypad_Minus = 109;
}  // namespace key

// The change event: stores the record on show, fetches the new one, renews the labels.
void Slider_Change(Vorlane& vForm);
void Slider_MouseMove(Vorlane& vForm);
void nNext_Click(Vorlane& vForm);
void nBack_Click(Vorlane& vForm);
// The window's key-up event, whatever control has the focus.
void Form_KeyUp(Vorlane& vForm, int key_code);
