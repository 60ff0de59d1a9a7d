// The file dialogs of .npc files: opening one, saving under a name, and the choice of the type
// a file is converted to.
#pragma once

#include "form/controls.h"

// The entries of the conversion's list of types, by filter index.
namespace npc_type {
constexpr int Buka = 1;
constexpr int Standard = 2;
}  // namespace npc_type

// Open a .npc file: no name proposed, the .npc entry first.
void Set_Npc_Open(Common_Dialog& cd, const char* title);
// Save under a name: no name proposed, the .npc entry first.
void Set_Npc_Save(Common_Dialog& cd);
// The conversion's target: the file name stays as it is, the title names the type the file has
// and the list starts on the other one.
void Set_Npc_Type(Common_Dialog& cd, bool buka);
