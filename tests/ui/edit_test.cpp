// The Edit window driven as a user drives it: open it on a record, pick a field, type, encode,
// overwrite, apply or cancel, and see what reaches the byte cells, the image and the disk.
#include "ui/edit.h"

#include <algorithm>

#include "fields/byte_help.h"
#include "store/file_commands.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

class Edit_Test : public Window_Test {
 protected:
  // Opens the file and shows record k.
  void Show(const Bytes& file, int k) {
    path = folder.Write("edit.npc", file);
    Open(path);
    Event([&] { Slider_Set_Value(window, k); });
    ASSERT_EQ(window.Slider.Value, k);
  }

  Edit_Form& Open_Edit() {
    Event([&] { Dbl_Click_All_L(window); });
    EXPECT_NE(window.Edit, nullptr);
    return Form();
  }
  Edit_Form& Form() { return *window.Edit; }

  // Clicks the list item with this text.
  void Select(const std::string& item) {
    const auto& items = Form().List.Items;
    const auto found = std::find(items.begin(), items.end(), item);
    ASSERT_NE(found, items.end()) << item;
    Form().List.ListIndex = static_cast<int>(found - items.begin());
    Event([&] { Edit_List_Click(Form()); });
  }

  // Types the number and clicks an option button, which shows a dot until its handler runs.
  void Encode(const std::string& number, bool word) {
    Form().Txt_1.Text = number;
    (word ? Form().O_2 : Form().O_1).Value = true;
    Event([&] { word ? O_2_Click(Form()) : O_1_Click(Form()); });
  }
  void Overwrite() {
    Event([&] { ComApply_Click(Form()); });
  }
  void Write_Field(const std::string& item, const std::string& number, bool word) {
    Select(item);
    Encode(number, word);
    Overwrite();
  }
  void Apply() {
    Event([&] { ComOK_Click(Form()); });
  }
  void Cancel() {
    Event([&] { ComCl_Click(Form()); });
  }

  void Expect_Message(std::size_t i, const std::string& prompt, int style, const std::string& title) {
    ASSERT_EQ(platform.Messages.size(), i + 1);
    EXPECT_EQ(platform.Messages[i].Prompt, prompt);
    EXPECT_EQ(platform.Messages[i].Style, style);
    EXPECT_EQ(platform.Messages[i].Title, title);
  }
  // The window is closed and the main window takes input again with the slider focused.
  void Expect_Closed_And_Main_Back(unsigned focus_serial_before) {
    EXPECT_EQ(window.Edit, nullptr);
    EXPECT_TRUE(window.Enabled);
    EXPECT_EQ(window.Focus, "Slider");
    EXPECT_GT(window.Focus_Serial, focus_serial_before);
    EXPECT_FALSE(platform.Ended);
  }

  std::string path;
};

// Without a whole record on show neither way in (double click, menu item) opens the window.
TEST_F(Edit_Test, OpensOnARecordWithItsFieldsAndDisablesTheMainWindow) {
  const auto try_both = [&](const char* state) {
    for (const bool menu : {false, true}) {
      Event([&] { menu ? nEdit_Click(window) : Dbl_Click_All_L(window); });
      EXPECT_EQ(window.Edit, nullptr) << state << menu;
      EXPECT_TRUE(window.Enabled) << state << menu;
    }
  };
  try_both("no file");
  Show(Standard_File(), 0);
  try_both("slider at 0");
  Show(Buka_File(), 50);
  try_both("Buka stump");
  EXPECT_TRUE(platform.Messages.empty());
  Show(Buka_File(), 49);
  Event([&] { nEdit_Click(window); });
  ASSERT_NE(window.Edit, nullptr);
  EXPECT_EQ(window.Edit->Caption, "EDIT Record #49");
  Cancel();

  Show(Standard_File(), 12);
  const std::string cells = Cells_Text(window);
  Edit_Form& form = Open_Edit();
  EXPECT_FALSE(window.Enabled);
  EXPECT_EQ(form.Caption, "EDIT Record #12");
  ASSERT_EQ(form.List.Items.size(), 24u);
  EXPECT_EQ(form.List.Items[20], "Byte 29");
  EXPECT_EQ(form.List.Items[23], "Byte 32");
  EXPECT_EQ(form.List.ListIndex, -1);
  EXPECT_EQ(form.L_H.Caption + form.L_D.Caption + form.Txt_1.Text + form.Txt_4.Text, "");
  EXPECT_EQ(form.Focus, "Txt_1");
  std::string copies;
  for (int n = 1; n <= 32; ++n) copies += form.Old_Byte(n);
  for (int n = 1; n <= 32; ++n) copies += form.New_Byte(n);
  EXPECT_EQ(copies, cells + cells);
  // Centred across the screen, a third of the free height above it.
  EXPECT_EQ(form.Left, (platform.Screen_Twips.Width - form.Width) / 2);
  EXPECT_EQ(form.Top, (platform.Screen_Twips.Height - form.Height) / 3);
  EXPECT_GT(form.Width, 4185);
  EXPECT_GT(form.Height, 3285);
  const std::pair<std::string, std::string> texts[] = {{form.F_1.Caption, "Select byte"},
                                                       {form.F_2.Caption, "Current"},
                                                       {form.L_1.Caption, "Hex"},
                                                       {form.L_2.Caption, "Dec"},
                                                       {form.F_3.Caption, "Encode number as"},
                                                       {form.O_2.Caption, "&Word (Max. 65535)"},
                                                       {form.O_1.Caption, "&Byte (255)"},
                                                       {form.ComApply.Caption, "&Overwrite"},
                                                       {form.ComOK.Caption, "&Apply"},
                                                       {form.ComCl.Caption, "Cancel"}};
  for (const auto& [actual, expected] : texts) EXPECT_EQ(actual, expected);
}

TEST_F(Edit_Test, SelectingAFieldShowsItsValueAndHelpFromTheRecord) {
  Show(Standard_File(), 12);
  Open_Edit();
  const std::string rows[][3] = {
      {"Bytes 03-04", "0E 0F", "3854"}, {"Bytes 27-28", "26 27", "10022"}, {"Byte 09", "14", "20"}};
  for (const auto& [item, hex, dec] : rows) {
    Form().O_1.Value = true;
    Form().SetFocus("List");
    Select(item);
    EXPECT_EQ(Form().L_H.Caption, hex);
    EXPECT_EQ(Form().L_D.Caption, dec);
    EXPECT_EQ(Form().Focus, "Txt_1") << item;
    EXPECT_FALSE(Form().O_1.Value || Form().O_2.Value) << item;
  }
  // The help shows the field's text; bytes 29 to 32 share one.
  const std::string l_nbyte = window.L_NByte.Caption;
  std::string shared = "Bytes 29-32", byte_20 = "Byte 20";
  Position::Byte_Help(shared);
  Position::Byte_Help(byte_20);
  ASSERT_NE(shared, byte_20);
  for (const char* item : {"Byte 29", "Byte 30", "Byte 31", "Byte 32"}) {
    window.Help.Caption.clear();
    Select(item);
    EXPECT_EQ(window.Help.Caption, shared) << item;
  }
  Select("Byte 20");
  EXPECT_EQ(window.Help.Caption, byte_20);
  EXPECT_EQ(window.L_NByte.Caption, l_nbyte);
  // A faulty byte text in the copy is fatal.
  Form().New_Byte(9) = "zz";
  Select("Byte 09");
  EXPECT_TRUE(platform.Ended);
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Style, 16);
}

TEST(Edit_Keys, OnlyDigitsAndBackspacePass) {
  for (int code = 0; code <= 255; ++code)
    EXPECT_EQ(Only_Num(code), (code >= '0' && code <= '9') || code == 8 ? code : 0) << code;
}

// What each option button makes of a number: over its limit the byte beeps, the word never does.
// With no number typed both beep and keep the last encoding.
TEST_F(Edit_Test, EncodingBeepsForAByteOverItsLimitOnly) {
  Show(Standard_File(), 1);
  Open_Edit();
  for (const auto& [text, length] : {std::pair<std::string, int>{"12345", 5}, {"٣٣", 2}}) {
    Form().Txt_1 = {text, 3, 0};
    Txt_1_GotFocus(Form());  // selects all characters of the number
    EXPECT_EQ(Form().Txt_1.SelStart, 0) << text;
    EXPECT_EQ(Form().Txt_1.SelLength, length) << text;
  }
  const struct {
    std::string Input, As_Byte, As_Word;
    int Byte_Beeps, Word_Beeps;
  } rows[] = {{"255", "FF", "FF 00", 0, 0},
              {"256", "", "00 01", 1, 0},
              {"65536", "", "", 1, 0},
              {"2e2", "C8", "C8 00", 0, 0},
              {std::string(308, '9'), "", "", 1, 0},  // the longest whole part that is still a number
              {std::string(400, '0') + "12", "0C", "0C 00", 0, 0},
              {"", "77", "77", 1, 1}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.Input.substr(0, 12));
    for (const bool word : {false, true}) {
      Form().Txt_4.Text = "77";
      const int beeps = platform.Beeps;
      Encode(row.Input, word);
      ASSERT_NE(window.Edit, nullptr);
      EXPECT_EQ(Form().Txt_4.Text, word ? row.As_Word : row.As_Byte);
      EXPECT_EQ(platform.Beeps - beeps, word ? row.Word_Beeps : row.Byte_Beeps) << word;
      EXPECT_FALSE(Form().O_1.Value || Form().O_2.Value);
    }
  }
  EXPECT_TRUE(platform.Messages.empty());
}

// Text that is no number takes the failure road: a message, and the window closes with the
// copy lost, whatever was overwritten before.
TEST_F(Edit_Test, AnUnreadableNumberShowsTheMessageAndClosesWithTheCaptionsAsAtOpening) {
  Show(Standard_File(), 12);
  const std::string cells = Cells_Text(window), image = window.HexImage;
  const std::pair<std::string, bool> inputs[] = {
      {"1" + std::string(308, '0'), false}, {"12a", true}, {std::string(1 << 20, '5'), false}, {"1e400", true}};
  for (std::size_t i = 0; i < std::size(inputs); ++i) {
    SCOPED_TRACE(i);
    Open_Edit();
    Write_Field("Bytes 03-04", "300", true);
    const unsigned serial = window.Focus_Serial;
    Encode(inputs[i].first, inputs[i].second);
    Expect_Message(i, "Недопустимый ввод данных", 16, "ERROR");
    Expect_Closed_And_Main_Back(serial);
    EXPECT_EQ(Cells_Text(window), cells);
    EXPECT_EQ(window.HexImage, image);
  }
  EXPECT_EQ(platform.Beeps, 0);
}

// Without an encoding Overwrite beeps, without a field it does nothing, and an encoding of the
// wrong width only warns.
TEST_F(Edit_Test, OverwriteRefusesAMissingOrMismatchedEncoding) {
  Show(Standard_File(), 7);
  Open_Edit();
  const auto copy = Form().New_Bytes;
  Overwrite();
  Form().Txt_4.Text = "2C";
  Overwrite();
  Select("Byte 10");
  Form().Txt_4.Text.clear();
  Overwrite();
  EXPECT_EQ(platform.Beeps, 2);
  EXPECT_EQ(Form().New_Bytes, copy);
  const std::string rows[][3] = {{"Bytes 03-04", "2C", "Can`t overwrite current Word as Byte"},
                                 {"Byte 09", "2C 01", "Can`t overwrite current Byte as Word"}};
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    const auto& [item, encoded, warning] = rows[i];
    Select(item);
    const std::string shown = Form().L_H.Caption + "|" + Form().L_D.Caption;
    Form().Txt_1.Text = "44";
    Form().Txt_4.Text = encoded;
    Overwrite();
    Expect_Message(i, warning, 48, "EDIT");
    ASSERT_NE(window.Edit, nullptr);
    EXPECT_EQ(Form().New_Bytes, copy);
    EXPECT_EQ(Form().L_H.Caption + "|" + Form().L_D.Caption, shown);
    EXPECT_EQ(Form().Txt_1.Text + "|" + Form().Txt_4.Text, "44|" + encoded);
  }
}

// Each write changes exactly the field's bytes of the copy, low byte first; nothing reaches the
// main window before Apply.
TEST_F(Edit_Test, OverwriteWritesExactlyTheFieldsBytesOfTheCopyAndApplyCarriesThem) {
  Show(Standard_File(), 20);
  const std::string cells = Cells_Text(window);
  Open_Edit();
  const struct {
    const char *Item, *Number;
    bool Word;
    int First;
    const char* Hex;
  } rows[] = {{"Bytes 01-02", "512", true, 1, "00 02"},
              {"Bytes 27-28", "65535", true, 27, "FF FF"},
              {"Byte 09", "255", false, 9, "FF"},
              {"Byte 29", "44", false, 29, "2C"},
              {"Byte 32", "1", false, 32, "01"}};
  for (const auto& row : rows) {
    auto expected = Form().New_Bytes;
    expected[static_cast<std::size_t>(row.First - 1)] = std::string(row.Hex, 2);
    if (row.Word) expected[static_cast<std::size_t>(row.First)] = std::string(row.Hex + 3, 2);
    Write_Field(row.Item, row.Number, row.Word);
    EXPECT_EQ(Form().New_Bytes, expected) << row.Item;
    EXPECT_EQ(Form().L_H.Caption, row.Hex);
    EXPECT_EQ(Form().L_D.Caption, row.Number);
    EXPECT_EQ(Form().Txt_1.Text, row.Number);
    EXPECT_EQ(Form().List.Items[static_cast<std::size_t>(Form().List.ListIndex)], row.Item);
  }
  // One encoding goes to several fields, and the last write counts.
  Write_Field("Byte 14", "10", false);
  Select("Byte 16");  // Txt_1 and Txt_4 stay
  EXPECT_EQ(Form().Txt_4.Text, "0A");
  Overwrite();
  Write_Field("Byte 14", "200", false);
  Select("Byte 16");
  EXPECT_EQ(Form().L_D.Caption, "10") << "a selected field shows the working copy";
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(Cells_Text(window), cells);
  Apply();
  EXPECT_EQ(window.L(14).Caption + window.L(16).Caption + window.L(32).Caption, "C80A01");
  EXPECT_EQ(window.Record(20).substr(26, 2), "C8");
}

TEST_F(Edit_Test, EveryWayOutGivesTheMainWindowItsInputAndTheSliderItsFocus) {
  Show(Standard_File(), 9);
  for (const auto close : {ComOK_Click, ComCl_Click, +[](Edit_Form& f) { Unload_Edit(f.Main); }}) {
    Edit_Form& form = Open_Edit();
    const unsigned serial = window.Focus_Serial;
    Event([&] { close(form); });
    Expect_Closed_And_Main_Back(serial);
  }
}

TEST_F(Edit_Test, ApplyKeepsARealChangeAndCancelDropsTheOverwrites) {
  Show(Standard_File(), 12);
  const std::string cells = Cells_Text(window);
  Open_Edit();
  Write_Field("Byte 09", "20", false);  // what it holds already
  Apply();
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  EXPECT_EQ(Cells_Text(window), cells);

  Open_Edit();
  Write_Field("Bytes 03-04", "300", true);
  Cancel();
  EXPECT_EQ(Cells_Text(window), cells);
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  Open_Edit();
  Select("Bytes 03-04");
  EXPECT_EQ(Form().L_H.Caption, cells.substr(4, 2) + " " + cells.substr(6, 2));
  EXPECT_EQ(Form().Txt_1.Text + Form().Txt_4.Text, "");

  Write_Field("Byte 11", "0", false);
  Apply();
  const std::string image = window.HexImage;
  ASSERT_NE(image, window.Saved_Image);
  Open_Edit();
  EXPECT_EQ(Form().Old_Byte(11), "00");
  Write_Field("Byte 11", "99", false);
  Cancel();
  EXPECT_EQ(window.L(11).Caption, "00");
  EXPECT_EQ(window.HexImage, image);
}

// 300 into bytes 3-4 of record 12, applied and saved: on disk exactly those two bytes change.
class Edit_Saved : public Edit_Test, public ::testing::WithParamInterface<bool> {};

TEST_P(Edit_Saved, ChangesExactlyTheFieldsBytesOnDisk) {
  const bool buka = GetParam();
  Bytes expected = buka ? Buka_File() : Standard_File();
  Show(expected, 12);
  Open_Edit();
  Write_Field("Bytes 03-04", "300", true);
  Apply();
  EXPECT_NE(window.HexImage, window.Saved_Image);
  const std::size_t dialogs = platform.Dialogs.size();
  Event([&] { nSave_Click(window); });
  EXPECT_EQ(platform.Dialogs.size(), dialogs) << "the file exists: no dialog";
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  const std::size_t at = (buka ? 4 : 0) + 32 * 11 + 2;
  expected[at] = 0x2C, expected[at + 1] = 0x01;
  EXPECT_EQ(Read_File(path), expected);
}

INSTANTIATE_TEST_SUITE_P(Variants, Edit_Saved, ::testing::Bool(),
                         [](const auto& info) { return std::string(info.param ? "Buka" : "Standard"); });

}  // namespace
