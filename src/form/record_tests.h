// Tests of the record on show and sweeps over all 32 byte cells.
#pragma once

struct Vorlane;

// Work_Text_2 "error" when all 32 captions read "00" (an empty record), else "ok".
void Record_Exsist(Vorlane& vForm);
// Work_Text_2 "error" when any caption is empty (no record, or the Buka stump), else "ok".
void Record_Exsist_1(Vorlane& vForm);
// All cells back to Color_Normal.
void All_L_Color_Back(Vorlane& vForm);
// All captions empty.
void L_All_Cls(Vorlane& vForm);
// The gate of the byte grid: Work_Text "ok" when a file is open, a record chosen and no cell
// empty, else "error".
void Move_L(Vorlane& vForm);
