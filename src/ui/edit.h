// The Edit window: the one place where the bytes of a record change. It works on a private
// copy of the 32 byte captions of the main window for as long as it is open.
#pragma once

#include "form/edit_form.h"

// The way in: a double click on any byte cell, and the menu item nEdit. Through the gate only.
void Dbl_Click_All_L(Vorlane& vForm);
void nEdit_Click(Vorlane& vForm);

// Events of the Edit window.
void Edit_Load(Edit_Form& vForm);
void Edit_List_Click(Edit_Form& vForm);
void Txt_1_GotFocus(Edit_Form& vForm);
// The key filter: the code to let through, or 0 to swallow the key.
int Only_Num(int key_ascii);
void Txt_1_KeyPress(Edit_Form& vForm, int& key_ascii);
void O_1_Click(Edit_Form& vForm);
void O_2_Click(Edit_Form& vForm);
void ComApply_Click(Edit_Form& vForm);
void ComOK_Click(Edit_Form& vForm);
void ComCl_Click(Edit_Form& vForm);
// The copy of the main window's captions.
void Old_Data(Edit_Form& vForm);
// Closes the window by any road; its unload event gives the main window back its input and
// the slider its focus. The form is gone when this returns.
void Unload_Edit(Vorlane& main);
