#include "form/vorlane.h"

#include "form/about_form.h"
#include "form/edit_form.h"
#include "form/registry.h"

Vorlane::Vorlane(std::span<const Route> events, Platform& platform_, Files& files_)
    : Events(events), platform(platform_), files(files_) {
  std::vector<std::pair<std::string_view, Model>> named{
      {window::Main, static_cast<Form_Window*>(this)},
      {"Slider", &Slider},
      {"L_Info_Line", &L_Info_Line},
      {"L_NLine", &L_NLine},
      {"Line1", &Line1},
      {"Line2", &Line2},
      {"L_Info_User", &L_Info_User},
      {"L_NByte", &L_NByte},
      {"Help", &Help},
      {"List", &List},
      {"L_Edt", &L_Edt},
      {"Check", &Check},
      {"L_Fix", &L_Fix},
      {"L_Fix_1", &L_Fix_1},
      {"L_Message", &L_Message},
      {"Com1", &Com1},
      {"Com2", &Com2},
      {"SBar_1", &SBar_1},
      {"SBar_2", &SBar_2},
      {"SBar_3", &SBar_3},
      {"ComExit", &ComExit},
      {"Txt_Free", &Txt_Free},
      {"nFile", &nFile},
      {"nOpen", &nOpen},
      {"nNew", &nNew},
      {"nSave", &nSave},
      {"nSaveas", &nSaveas},
      {"n1", &n1},
      {"nExit", &nExit},
      {"nView", &nView},
      {"nKey_2", &nKey_2},
      {"nKey_1", &nKey_1},
      {"nItem", &nItem},
      {"nNPC_Names", &nNPC_Names},
      {"nQests", &nQests},
      {"nQuests", &nQuests},
      {"nTrigers", &nTrigers},
      {"nTools", &nTools},
      {"nEdit", &nEdit},
      {"nType", &nType},
      {"nCurrent", &nCurrent},
      {"nChaing", &nChaing},
      {"nRecord", &nRecord},
      {"nNext", &nNext},
      {"nBack", &nBack},
      {"nAbout", &nAbout},
  };
  for (int n = 1; n <= 32; ++n) named.emplace_back(controls::Cell(n).Name, &L(n));
  Bind_Controls(*this, window::Main, named);
}

Vorlane::~Vorlane() = default;

Menu_Item* Vorlane::Menu(std::string_view name) {
  const Model model = Control(name);
  Menu_Item* const* item = std::get_if<Menu_Item*>(&model);
  return item ? *item : nullptr;
}
