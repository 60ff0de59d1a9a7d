#include "ui/events.h"

#include <vector>

#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/file_commands.h"
#include "store/conversion.h"
#include "store/type_report.h"
#include "ui/about.h"
#include "ui/byte_grid.h"
#include "ui/edit.h"
#include "form/layout.h"
#include "ui/navigation.h"
#include "ui/reference_lists.h"
#include "ui/shell.h"

namespace {

// The handlers in the table's one shape.
template <void (*F)(Vorlane&)>
void Main(Vorlane& main, Event_Args&) {
  F(main);
}
template <void (*F)(Vorlane&, int)>
void Cell(Vorlane& main, Event_Args& args) {
  F(main, args.Index);
}
template <void (*F)(Edit_Form&)>
void In_Edit(Vorlane& main, Event_Args&) {
  F(*main.Edit);
}

void Key_Up(Vorlane& main, Event_Args& args) { Form_KeyUp(main, args.Key); }
void Unload(Vorlane& main, Event_Args&) { Unload_Main(main); }
void Txt_1_Key(Vorlane& main, Event_Args& args) { Txt_1_KeyPress(*main.Edit, args.Key); }
void Edit_Unload(Vorlane& main, Event_Args&) { Unload_Edit(main); }
void About_Key(Vorlane& main, Event_Args& args) { About_KeyPress(*main.About, args.Key); }
void Img1_Clicked(Vorlane& main, Event_Args&) { Img1_Click(*main.About); }

std::vector<Route> Make_Routes() {
  std::vector<Route> routes{
      {"Vorlane", "Vorlane", Event::Load, Main<Form_Load>},
      {"Vorlane", "Vorlane", Event::Unload, Unload},
      {"Vorlane", "Vorlane", Event::Key_Up, Key_Up},
      {"Vorlane", "Slider", Event::Change, Main<Slider_Change>},
      {"Vorlane", "Slider", Event::Mouse_Move, Main<Slider_MouseMove>},
      {"Vorlane", "Check", Event::Click, Main<Check_Click>},
      {"Vorlane", "Com1", Event::Click, Main<Com1_Click>},
      {"Vorlane", "Com2", Event::Click, Main<Com2_Click>},
      {"Vorlane", "List", Event::Got_Focus, Main<List_GotFocus>},
      {"Vorlane", "List", Event::Mouse_Move, Main<List_MouseMove>},
      {"Vorlane", "L_Info_User", Event::Mouse_Move, Main<L_Info_User_MouseMove>},
      {"Vorlane", "SBar_3", Event::Mouse_Move, Main<SBar_3_MouseMove>},
      {"Vorlane", "ComExit", Event::Click, Main<ComExit_Click>},
      {"Vorlane", "nOpen", Event::Click, Main<nOpen_Click>},
      {"Vorlane", "nNew", Event::Click, Main<nNew_Click>},
      {"Vorlane", "nSave", Event::Click, Main<nSave_Click>},
      {"Vorlane", "nSaveas", Event::Click, Main<nSaveas_Click>},
      {"Vorlane", "nExit", Event::Click, Main<nExit_Click>},
      {"Vorlane", "nKey_2", Event::Click, Main<nKey_2_Click>},
      {"Vorlane", "nKey_1", Event::Click, Main<nKey_1_Click>},
      {"Vorlane", "nItem", Event::Click, Main<nItem_Click>},
      {"Vorlane", "nNPC_Names", Event::Click, Main<nNPC_Names_Click>},
      {"Vorlane", "nQests", Event::Click, Main<nQests_Click>},
      {"Vorlane", "nQuests", Event::Click, Main<nQuests_Click>},
      {"Vorlane", "nTrigers", Event::Click, Main<nTrigers_Click>},
      {"Vorlane", "nEdit", Event::Click, Main<nEdit_Click>},
      {"Vorlane", "nCurrent", Event::Click, Main<nCurrent_Click>},
      {"Vorlane", "nChaing", Event::Click, Main<nChaing_Click>},
      {"Vorlane", "nNext", Event::Click, Main<nNext_Click>},
      {"Vorlane", "nBack", Event::Click, Main<nBack_Click>},
      {"Vorlane", "nAbout", Event::Click, Main<nAbout_Click>},

      {"Edit", "Edit", Event::Load, In_Edit<Edit_Load>},
      {"Edit", "Edit", Event::Unload, Edit_Unload},
      {"Edit", "List", Event::Click, In_Edit<Edit_List_Click>},
      {"Edit", "Txt_1", Event::Got_Focus, In_Edit<Txt_1_GotFocus>},
      {"Edit", "Txt_1", Event::Key_Press, Txt_1_Key},
      {"Edit", "O_1", Event::Click, In_Edit<O_1_Click>},
      {"Edit", "O_2", Event::Click, In_Edit<O_2_Click>},
      {"Edit", "ComApply", Event::Click, In_Edit<ComApply_Click>},
      {"Edit", "ComOK", Event::Click, In_Edit<ComOK_Click>},
      {"Edit", "ComCl", Event::Click, In_Edit<ComCl_Click>},

      {"About", "About", Event::Load, [](Vorlane& main, Event_Args&) { About_Load(*main.About); }},
      {"About", "About", Event::Key_Press, About_Key},
      {"About", "Img1", Event::Click, Img1_Clicked},
  };
  // Movement over these only clears the hint line; Line1 and Line2 count as the bare window.
  for (const std::string_view control : {"Vorlane", "L_Edt", "Help", "L_Fix", "L_Fix_1", "L_Message", "L_NByte",
                                         "L_NLine", "Check", "Com1", "Com2", "SBar_1", "SBar_2"})
    routes.push_back({"Vorlane", control, Event::Mouse_Move, Main<Clear_Hint>});
  for (int n = 1; n <= 32; ++n) {
    const std::string_view cell = layout::Cell(n).Name;
    routes.push_back({"Vorlane", cell, Event::Mouse_Move, Cell<L_MouseMove>, n});
    routes.push_back({"Vorlane", cell, Event::Click, Cell<L_Click>, n});
    routes.push_back({"Vorlane", cell, Event::Dbl_Click, Cell<L_DblClick>, n});
  }
  return routes;
}

}  // namespace

std::span<const Route> Routes() {
  static const std::vector<Route> routes = Make_Routes();
  return routes;
}

bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on, Event_Args& args) {
  bool handled = false;
  Fire(vForm, [&] { handled = Run_Event(vForm, window, control, on, args); });
  return handled;
}

bool Raise(Vorlane& vForm, std::string_view window, std::string_view control, Event on) {
  Event_Args args;
  return Raise(vForm, window, control, on, args);
}

void Input_Value(Vorlane& vForm, std::string_view control, int value) {
  Fire(vForm, [&] {
    if (control == "Slider") Slider_Set_Value(vForm, value);
    if (control == "Check") Check_Set_Value(vForm, value);
  });
}
