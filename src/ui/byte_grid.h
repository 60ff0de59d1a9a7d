// The byte cells as a reading surface: hover lights a field, a click pins it, a double click
// opens the editor. The state lives in the cells' back colours and in Selected_Field.
#pragma once

struct Vorlane;

// Mouse events of byte cell n, 1 .. 32; the cells of a field share their field's steps.
void L_MouseMove(Vorlane& vForm, int n);
void L_Click(Vorlane& vForm, int n);
// A double click arrives as a click and then this.
void L_DblClick(Vorlane& vForm, int n);

// After a change of record: explains the lit field anew for the new bytes. Returns whether a
// field was lit.
bool Renew_Lit_Field(Vorlane& vForm);
