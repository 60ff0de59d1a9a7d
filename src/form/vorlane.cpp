#include "form/vorlane.h"

#include "form/about_form.h"
#include "form/edit_form.h"
#include "form/layout.h"

Vorlane::Vorlane(Platform& platform_, Files& files_) : platform(platform_), files(files_) {
  Caption = "Vorlane";
  L_NLine.Caption = "Record #0";
  L_NByte.Caption = "Byte 0";
  Help.BackColor = colour::Light_3D;
  L_Edt.BackColor = colour::Light_3D;
  Check.Enabled = false;
  L_Fix.Caption = "Show NPC speech dialogs";
  L_Fix_1.Caption = "№_";
  L_Message.Caption = "0";
  Com1 = {"<<", false};
  Com2 = {">>", false};
  for (const auto& entry : layout::Main_Menu()) {
    Menu_Item* item = Menu(entry.Name);
    item->Caption = std::string(entry.Caption);
    item->Enabled = entry.Enabled;
  }
}

Vorlane::~Vorlane() = default;

Menu_Item* Vorlane::Menu(std::string_view name) {
  static constexpr std::pair<std::string_view, Menu_Item Vorlane::*> items[] = {
      {"nFile", &Vorlane::nFile},       {"nOpen", &Vorlane::nOpen},     {"nNew", &Vorlane::nNew},
      {"nSave", &Vorlane::nSave},       {"nSaveas", &Vorlane::nSaveas}, {"n1", &Vorlane::n1},
      {"nExit", &Vorlane::nExit},       {"nView", &Vorlane::nView},     {"nKey_2", &Vorlane::nKey_2},
      {"nKey_1", &Vorlane::nKey_1},     {"nItem", &Vorlane::nItem},     {"nNPC_Names", &Vorlane::nNPC_Names},
      {"nQests", &Vorlane::nQests},     {"nQuests", &Vorlane::nQuests}, {"nTrigers", &Vorlane::nTrigers},
      {"nTools", &Vorlane::nTools},     {"nEdit", &Vorlane::nEdit},     {"nType", &Vorlane::nType},
      {"nCurrent", &Vorlane::nCurrent}, {"nChaing", &Vorlane::nChaing}, {"nRecord", &Vorlane::nRecord},
      {"nNext", &Vorlane::nNext},       {"nBack", &Vorlane::nBack},     {"nAbout", &Vorlane::nAbout},
  };
  for (const auto& [item_name, member] : items)
    if (item_name == name) return &(this->*member);
  return nullptr;
}
