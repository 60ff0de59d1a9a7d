// The main window's frame: its place on the screen, its state at start, and what the mouse
// does to the hint line and the tool tips.
#include "ui/shell.h"

#include <map>

#include "form/control_table.h"
#include "form/registry.h"
#include "support/fixture.h"

namespace {

using Shell = Window_Test;

// A third of the free height above, half the free width to the left, even off a small screen.
TEST_F(Shell, StartsPlacedWithTheSpeechPaneOff) {
  EXPECT_EQ(std::tuple(window.Top, window.Left), std::tuple(1506, 3180));
  Position::Place_Controls(window, {6000, 5000});
  EXPECT_EQ(std::tuple(window.Top, window.Left, window.Width, window.Height), std::tuple(-666, -1500, 9000, 7000));
  EXPECT_EQ(std::tuple(window.Check.Enabled, window.Com1.Enabled, window.Com2.Enabled),
            std::tuple(false, false, false));
  EXPECT_EQ(window.Caption + "|" + window.L_NLine.Caption + "|" + window.L_NByte.Caption + "|" + window.L_Fix.Caption +
                "|" + window.L_Fix_1.Caption + window.L_Message.Caption + "|" + window.Com1.Caption +
                window.Com2.Caption,
            "Vorlane|Record #0|Byte 0|Show NPC speech dialogs|№_0|<<>>");
}

TEST_F(Shell, MovingOverAnythingButACellOrTheSliderClearsTheHint) {
  for (const std::string_view control : std::initializer_list<std::string_view>{
           window::Main, "L_Edt", "Help", "L_Fix", "L_Fix_1", "L_Message", "L_NByte", "L_NLine", "Check", "Com1",
           "Com2", "SBar_1", "SBar_2", "L_Info_User", "SBar_3", "List"}) {
    window.L_Info_Line.Caption = "Click-select / Dbl. Click-edit";
    Raise(window, window::Main, control, Event::Mouse_Move);
    EXPECT_EQ(window.L_Info_Line.Caption, "") << control;
  }
}

// The render sets a widget's property only when its model changed since it was last set: all of
// them the first time, none when nothing changed. Widgets that were made as their rows say get at
// the first render only what the start-up changed since, and what they were not made with.
TEST_F(Shell, TheRenderSetsOnlyWhatChanged) {
  using Set = std::map<std::string, unsigned>;
  const auto render = [&](Render_Cache& cache) {
    Set set;
    cache.Render(window, [&](const Control& row, std::size_t i, const Model& model, const Shown&, unsigned what) {
      EXPECT_EQ(&row, &controls::Of(window::Main)[i]);
      EXPECT_EQ(model, window.Models[i]);
      set[std::string(row.Name)] = what;
    });
    return set;
  };
  Render_Cache cache;
  const Set first = render(cache);
  EXPECT_EQ(first.size(), controls::Of(window::Main).size());
  for (const auto& [name, what] : first) EXPECT_EQ(what, changed::All) << name;
  EXPECT_EQ(render(cache), Set{});
  window.L_NLine.Caption = "Record #7";
  window.Com1.Enabled = true;
  window.L_Edt.BackColor = colour::Active_Title_Bar;
  window.Slider.Value = 7;
  cache.Forget(Row_Index(window, "List"), changed::Items);
  EXPECT_EQ(render(cache), (Set{{"Com1", changed::Enabled},
                                {"L_Edt", changed::Back_Colour | changed::Text_Colour},
                                {"L_NLine", changed::Text},
                                {"List", changed::Items},
                                {"Slider", changed::Value}}));

  const unsigned made = changed::All & ~(changed::Value | changed::Focus);
  Render_Cache made_cache;
  made_cache.Made_At_Start(window, made);
  Set changed_since;
  for (const auto& [name, what] : render(made_cache)) {
    EXPECT_EQ(what & ~made, changed::Value | changed::Focus) << name;
    if (what & made) changed_since[name] = what & made;
  }
  // The start-up itself names the menu's steps by the keypad's keys.
  EXPECT_EQ(changed_since, (Set{{"Com1", changed::Enabled},
                                {"L_Edt", changed::Back_Colour | changed::Text_Colour},
                                {"L_NLine", changed::Text},
                                {"nBack", changed::Text},
                                {"nNext", changed::Text}}));
  EXPECT_EQ(render(made_cache), Set{});
}

// Tool tips: the explanation when there is one, the file's name from 27 characters (not bytes).
TEST_F(Shell, ToolTipsOfTheExplanationAndTheFileName) {
  const std::string sentence = "Тригер №_47 <НПЦ ранен> должен быть выполнен", name = "075.NPC - Кот в сапогах ab";
  for (const auto& [explanation, file, tips] :
       {std::tuple{std::string(), name, std::pair<std::string, std::string>("old", "old")},
        {sentence, name + "c", {sentence, name + "c"}}}) {
    window.L_Info_User = {explanation, window.L_Info_User.BackColor, "old"};
    window.SBar_3 = {file, "old"};
    Raise(window, window::Main, "L_Info_User", Event::Mouse_Move);
    Raise(window, window::Main, "SBar_3", Event::Mouse_Move);
    EXPECT_EQ(std::pair(window.L_Info_User.ToolTipText, window.SBar_3.ToolTipText), tips);
  }
}

}  // namespace

namespace {

// Every route names a control of its window, and every menu item, button and box that the user
// can press has a handler: nothing on screen is dead, no handler waits for a control that isn't.
TEST(Routes, EveryRouteHasItsControlAndEveryPressableControlItsRoute) {
  for (const Route& route : Routes())
    EXPECT_NE(controls::Find(route.Window, route.Control), nullptr) << route.Window << " " << route.Control;
  for (const Control& row : controls::All()) {
    const bool pressable = row.Kind == Control_Kind::Button || row.Kind == Control_Kind::Check_Box ||
                           row.Kind == Control_Kind::Option_Button ||
                           (row.Kind == Control_Kind::Menu_Item && !controls::Has_Submenu(row) && row.Caption != "-");
    if (pressable) {
      EXPECT_NE(Find_Route(Routes(), row.Window, row.Name, Event::Click), nullptr) << row.Name;
    }
  }
}

// A window that is disabled takes no input of the user: while Edit is open the main window's
// slider, cells, keys and menus do nothing.
TEST_F(Shell, ADisabledWindowTakesNoInput) {
  Open_Bytes("075.npc", Standard_File());
  Input_Value(window, window::Main, "Slider", 3);
  Raise(window, window::Main, "nEdit", Event::Click);
  ASSERT_TRUE(window.Edit && !window.Enabled);
  Input_Value(window, window::Main, "Slider", 7);
  Mouse_Move(window, window::Main, "L_9", false);
  Mouse_Up(window, window::Main, "L_9", true);
  Key_Up(window, window::Main, 107);
  EXPECT_EQ(std::tuple(window.Slider.Value, window.L_NByte.Caption, window.L(9).BackColor),
            std::tuple(3, "Byte 0", colour::Button_Face));
  EXPECT_FALSE(Key_Down(window, window::Edit, "Txt_1", 'x'));  // the editor takes its keys
  EXPECT_TRUE(Key_Down(window, window::Edit, "Txt_1", '7'));
}

}  // namespace

namespace {

// The keys of a menu item's shortcut as the system codes them, which the accelerators of a
// front end are made of; every shortcut of the menus names a key.
TEST(Shortcuts, TheKeysOfAShortcutsText) {
  const std::tuple<const char*, bool, int> cases[] = {
      {"Ctrl+O", true, 'O'}, {"Ctrl+F7", true, 118}, {"F1", false, 112}, {"F2", false, 113}, {"F24", false, 135},
      {"Ctrl+5", true, '5'}, {"", false, 0},         {"Ctrl+", true, 0},  {"F0", false, 0},   {"F25", false, 0},
      {"f1", false, 0},      {"Ctrl+ab", true, 0},   {"Alt+X", false, 0}, {"F1x", false, 0}};
  for (const auto& [text, ctrl, key] : cases) {
    const Keys keys = Shortcut_Keys(text);
    EXPECT_EQ(std::pair(keys.Ctrl, keys.Key), std::pair(ctrl, key)) << text;
  }
  for (const Control& row : controls::Of(window::Main))
    if (!row.Shortcut.empty()) {
      EXPECT_NE(Shortcut_Keys(row.Shortcut).Key, 0) << row.Shortcut;
    }
}

}  // namespace
