#include "ui/events.h"

#include <utility>
#include <variant>
#include <vector>

#include "form/control_table.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/conversion.h"
#include "store/file_commands.h"
#include "store/type_report.h"
#include "ui/about.h"
#include "ui/byte_grid.h"
#include "ui/edit.h"
#include "ui/navigation.h"
#include "ui/reference_lists.h"
#include "ui/shell.h"

namespace {

// The handlers in the table's one shape.
template <void (*F)(Vorlane&)>
void In_Main(Vorlane& main, Event_Args&) {
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
  using window::About, window::Edit, window::Main;
  std::vector<Route> routes{
      {Main, Main, Event::Load, In_Main<Form_Load>},
      {Main, Main, Event::Unload, Unload},
      {Main, Main, Event::Key_Up, Key_Up},
      {Main, "Slider", Event::Change, In_Main<Slider_Change>},
      {Main, "Slider", Event::Mouse_Move, In_Main<Slider_MouseMove>},
      {Main, "Check", Event::Click, In_Main<Check_Click>},
      {Main, "Com1", Event::Click, In_Main<Com1_Click>},
      {Main, "Com2", Event::Click, In_Main<Com2_Click>},
      {Main, "List", Event::Got_Focus, In_Main<List_GotFocus>},
      {Main, "List", Event::Mouse_Move, In_Main<List_MouseMove>},
      {Main, "L_Info_User", Event::Mouse_Move, In_Main<L_Info_User_MouseMove>},
      {Main, "SBar_3", Event::Mouse_Move, In_Main<SBar_3_MouseMove>},
      {Main, "ComExit", Event::Click, In_Main<ComExit_Click>},
      {Main, "nOpen", Event::Click, In_Main<nOpen_Click>},
      {Main, "nNew", Event::Click, In_Main<nNew_Click>},
      {Main, "nSave", Event::Click, In_Main<nSave_Click>},
      {Main, "nSaveas", Event::Click, In_Main<nSaveas_Click>},
      {Main, "nExit", Event::Click, In_Main<nExit_Click>},
      {Main, "nKey_2", Event::Click, In_Main<nKey_2_Click>},
      {Main, "nKey_1", Event::Click, In_Main<nKey_1_Click>},
      {Main, "nItem", Event::Click, In_Main<nItem_Click>},
      {Main, "nNPC_Names", Event::Click, In_Main<nNPC_Names_Click>},
      {Main, "nQests", Event::Click, In_Main<nQests_Click>},
      {Main, "nQuests", Event::Click, In_Main<nQuests_Click>},
      {Main, "nTrigers", Event::Click, In_Main<nTrigers_Click>},
      {Main, "nEdit", Event::Click, In_Main<nEdit_Click>},
      {Main, "nCurrent", Event::Click, In_Main<nCurrent_Click>},
      {Main, "nChaing", Event::Click, In_Main<nChaing_Click>},
      {Main, "nNext", Event::Click, In_Main<nNext_Click>},
      {Main, "nBack", Event::Click, In_Main<nBack_Click>},
      {Main, "nAbout", Event::Click, In_Main<nAbout_Click>},

      {Edit, Edit, Event::Load, In_Edit<Edit_Load>},
      {Edit, Edit, Event::Unload, Edit_Unload},
      {Edit, "List", Event::Click, In_Edit<Edit_List_Click>},
      {Edit, "Txt_1", Event::Got_Focus, In_Edit<Txt_1_GotFocus>},
      {Edit, "Txt_1", Event::Key_Press, Txt_1_Key},
      {Edit, "O_1", Event::Click, In_Edit<O_1_Click>},
      {Edit, "O_2", Event::Click, In_Edit<O_2_Click>},
      {Edit, "ComApply", Event::Click, In_Edit<ComApply_Click>},
      {Edit, "ComOK", Event::Click, In_Edit<ComOK_Click>},
      {Edit, "ComCl", Event::Click, In_Edit<ComCl_Click>},

      {About, About, Event::Load, [](Vorlane& main, Event_Args&) { About_Load(*main.About); }},
      {About, About, Event::Key_Press, About_Key},
      {About, "Img1", Event::Click, Img1_Clicked},
  };
  // Movement over these only clears the hint line; Line1 and Line2 count as the bare window.
  for (const std::string_view control :
       std::initializer_list<std::string_view>{Main, "L_Edt", "Help", "L_Fix", "L_Fix_1", "L_Message", "L_NByte",
                                               "L_NLine", "Check", "Com1", "Com2", "SBar_1", "SBar_2"})
    routes.push_back({Main, control, Event::Mouse_Move, In_Main<Clear_Hint>});
  for (int n = 1; n <= 32; ++n) {
    const std::string_view cell = controls::Cell(n).Name;
    routes.push_back({Main, cell, Event::Mouse_Move, Cell<L_MouseMove>, n});
    routes.push_back({Main, cell, Event::Click, Cell<L_Click>, n});
    routes.push_back({Main, cell, Event::Dbl_Click, Cell<L_DblClick>, n});
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

namespace {

// The window object of a window that is open, or nullptr.
Form_Window* Open_Window(Vorlane& vForm, std::string_view window) {
  if (window == window::Edit) return vForm.Edit.get();
  if (window == window::About) return vForm.About.get();
  return &vForm;
}

bool Takes_Input(Vorlane& vForm, std::string_view window) {
  const Form_Window* form = Open_Window(vForm, window);
  return form && form->Enabled && !vForm.Ended && !vForm.Unloaded;
}

}  // namespace

void Input_Value(Vorlane& vForm, std::string_view window, std::string_view control, int value) {
  Form_Window* form = Open_Window(vForm, window);
  if (!form || !Takes_Input(vForm, window)) return;
  const Model model = form->Control(control);
  Fire(vForm, [&] {
    if (std::holds_alternative<Slider_Control*>(model)) {
      Slider_Set_Value(vForm, value);
    } else if (std::holds_alternative<Check_Box*>(model)) {
      Check_Set_Value(vForm, value);
    } else if (List_Box* const* list = std::get_if<List_Box*>(&model)) {
      (*list)->ListIndex = value;
      Event_Args args;
      if (value >= 0) Run_Event(vForm, window, control, Event::Click, args);
    }
  });
}

void Input_Text(Vorlane& vForm, std::string_view window, std::string_view control, const std::string& text) {
  Form_Window* form = Open_Window(vForm, window);
  if (!form || !Takes_Input(vForm, window)) return;
  const Model model = form->Control(control);
  if (Text_Box* const* box = std::get_if<Text_Box*>(&model)) (*box)->Text = text;
}

void Got_Focus(Vorlane& vForm, std::string_view window, std::string_view control) {
  if (Takes_Input(vForm, window)) Raise(vForm, window, control, Event::Got_Focus);
}

bool Mouse_Move(Vorlane& vForm, std::string_view window, std::string_view control, bool button_held) {
  if (Takes_Input(vForm, window)) Raise(vForm, window, control, Event::Mouse_Move);
  return !button_held;
}

void Mouse_Up(Vorlane& vForm, std::string_view window, std::string_view control, bool over_control) {
  Form_Window* form = Open_Window(vForm, window);
  if (!form || !Takes_Input(vForm, window)) return;
  const bool second_release = std::exchange(form->After_Double_Click, false);
  const Control* row = controls::Find(window, control);
  if (over_control && !second_release && row && controls::Clicked_On_Release(*row))
    Raise(vForm, window, control, Event::Click);
}

void Double_Click(Vorlane& vForm, std::string_view window, std::string_view control) {
  Form_Window* form = Open_Window(vForm, window);
  if (!form || !Takes_Input(vForm, window)) return;
  form->After_Double_Click = true;
  Raise(vForm, window, control, Event::Dbl_Click);
}

bool Key_Down(Vorlane& vForm, std::string_view window, std::string_view control, int character) {
  constexpr int Tab = 9, Escape = 27, Delete = 127;
  if (!Takes_Input(vForm, window)) return true;
  if (character == Escape) {
    if (const Control* cancel = controls::Cancel_Button(window)) {
      Raise(vForm, window, cancel->Name, Event::Click);
      return false;
    }
  }
  if (character <= 0 || character == Delete || character == Tab) return true;
  Event_Args args{.Key = character};
  Raise(vForm, window, control, Event::Key_Press, args);
  return args.Key != 0;
}

void Key_Up(Vorlane& vForm, std::string_view window, int key_code) {
  if (!Takes_Input(vForm, window)) return;
  if (controls::Window_Row(window).Styles & window_style::Key_Preview) {
    Event_Args args{.Key = key_code};
    Raise(vForm, window, window, Event::Key_Up, args);
  }
}

bool Close_Window(Vorlane& vForm, std::string_view window) {
  if (!Open_Window(vForm, window)) return true;
  Raise(vForm, window, window, Event::Unload);
  return !Open_Window(vForm, window) || vForm.Unloaded || vForm.Ended;
}
