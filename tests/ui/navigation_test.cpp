// Moving through the records: every way of moving only sets the slider, and its change event
// stores the record on show, fetches the next and says whether it exists.
#include "ui/navigation.h"

#include "support/fixture.h"

namespace {

class Navigation : public Window_Test {
 protected:
  void Go(int value) {
    Event([&] { Slider_Set_Value(window, value); });
  }
  void Key(int code) {  // released anywhere in the window
    Event_Args args{code};
    Raise(window, window::Main, window::Main, Event::Key_Up, args);
  }
};

// nNext and keypad + stop at 50, nBack and keypad - at 0, with a beep; other keys do nothing.
TEST_F(Navigation, MenuAndKeypadStepAndBeepAtBothEnds) {
  for (const bool file : {false, true}) {
    if (file) Open_Bytes("a.npc", Standard_File());
    platform.Beeps = 0;
    const std::tuple<const char*, int, int, int> steps[] = {
        // menu item or key, slider afterwards, beeps so far
        {"nBack", 0, 0, 1},   {nullptr, 109, 0, 2}, {nullptr, 107, 1, 2}, {"nNext", 0, 2, 2},
        {nullptr, 187, 2, 2}, {nullptr, 189, 2, 2}, {nullptr, 13, 2, 2},  {"nBack", 0, 1, 2}};
    for (const auto& [menu, key, value, beeps] : steps) {
      menu ? (void)Raise(window, window::Main, menu, Event::Click) : Key(key);
      EXPECT_EQ(std::tuple(window.L_NLine.Caption, platform.Beeps),
                std::tuple("Record #" + std::to_string(value), beeps))
          << (menu ? menu : std::to_string(key));
    }
    Go(50);
    Raise(window, window::Main, "nNext", Event::Click);
    Key(107);
    Raise(window, window::Main, "Slider", Event::Mouse_Move);
    EXPECT_EQ(std::tuple(window.Slider.Value, platform.Beeps, Cells_Text(window).size(), window.nEdit.Enabled,
                         window.L_Info_Line.Caption),
              std::tuple(50, 4, file ? 64u : 0u, file, file ? "Choose record (50 lines X 32 bytes)" : ""));
    Go(0);
  }
}

// A record on show; a change of its cells is stored when the slider moves on, even to 0.
TEST_F(Navigation, ARecordOnShowIsStoredWhenTheSliderMoves) {
  Open_Bytes("a.npc", Standard_File());
  Go(12);
  EXPECT_EQ(std::tuple(Cells_Text(window), window.Current_Record),
            std::tuple("0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B", 12));
  window.L(5).Caption = "AB";
  Go(0);
  EXPECT_EQ(std::tuple(Cells_Text(window), window.L_NByte.Caption, window.nEdit.Enabled, window.Current_Record),
            std::tuple("", "Byte 0", false, 0));
  Go(12);
  EXPECT_EQ(window.L(5).Caption, "AB");
  window.L_NLine.Caption = "marker";
  Go(12);  // the same value again is no change
  EXPECT_EQ(window.L_NLine.Caption, "marker");
}

// The last record of a Buka file has 28 bytes: no record. An all-zero record is one.
TEST_F(Navigation, TheStumpOfABukaFileIsNoRecordButAnEmptyRecordIs) {
  Bytes file = Buka_File();
  Put_Record(file, true, 2, Bytes(32, 0));
  Open_Bytes("b.npc", file);
  Go(2);
  EXPECT_EQ(std::tuple(window.L_Info_User.Caption, window.nEdit.Enabled), std::tuple("", true));
  Go(49);
  Raise(window, window::Main, "L_3", Event::Click);
  Go(50);
  EXPECT_EQ(Cells_Text(window), "32333435363738393A3B3C3D3E3F404142434445464748494A4B4C4D");
  EXPECT_EQ(std::tuple(window.L_Info_User.Caption, window.L_NByte.Caption, window.nEdit.Enabled, window.Selected_Field,
                       window.L(3).BackColor),
            std::tuple("Record no exist", "Byte 0", false, "", static_cast<std::int32_t>(0x8000000F)));
  Go(1);  // leaving it stores the same 28 bytes back
  EXPECT_EQ(std::tuple(window.HexImage == window.Saved_Image, window.nEdit.Enabled), std::tuple(true, true));
}

}  // namespace
