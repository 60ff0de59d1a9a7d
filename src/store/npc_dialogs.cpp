#include "store/npc_dialogs.h"

namespace {

const char* const Npc_Filter = "*.npc|*.npc|все файлы (*.*)|*.*";

}  // namespace

void Set_Npc_Open(Common_Dialog& cd, const char* title) {
  cd.Flags = dialog_flag::Open;
  cd.FileName.clear();
  cd.Filter = Npc_Filter;
  cd.FilterIndex = 1;
  cd.DialogTitle = title;
}

void Set_Npc_Save(Common_Dialog& cd) {
  cd.Flags = dialog_flag::Save;
  cd.Filter = Npc_Filter;
  cd.DialogTitle = "VORLANE - SAVE AS...";
  cd.FilterIndex = 1;
  cd.FileName.clear();
}

void Set_Npc_Type(Common_Dialog& cd, bool buka) {
  cd.Flags = dialog_flag::Save;
  cd.Filter = "Buka:АВ|*.npc|Ja2:eng.,UB:eng.&rus.|*.npc";
  if (buka) {
    cd.DialogTitle = "VORLANE - CURRENT TYPE: BUKA: АВ. SAVE AS...";
    cd.FilterIndex = npc_type::Standard;
  } else {
    cd.DialogTitle = "VORLANE - CURRENT TYPE: JA2:ENG.,UB:ENG.&RUS. SAVE AS...";
    cd.FilterIndex = npc_type::Buka;
  }
}
