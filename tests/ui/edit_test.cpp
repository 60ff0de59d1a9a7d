// The Edit window driven as a user drives it: open it on a record, pick a field, type, encode,
// overwrite, apply or cancel, and see what reaches the byte cells, the image and the disk.
#include "ui/edit.h"

#include <algorithm>
#include <functional>

#include "fields/byte_help.h"
#include "fields/field_map.h"
#include "store/file_commands.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

const std::string Bad_Input = "Недопустимый ввод данных";
const std::string Word_As_Byte = "Can`t overwrite current Word as Byte";
const std::string Byte_As_Word = "Can`t overwrite current Byte as Word";

// Offset of byte n of record k in a file of either variant.
std::size_t Offset(bool buka, int k, int n) {
  return (buka ? 4u : 0u) + 32u * static_cast<std::size_t>(k - 1) + static_cast<std::size_t>(n - 1);
}

class Edit_Test : public Window_Test {
 public:
  // Runs a handler as an event of the window.
  void Run(const std::function<void()>& handler) { Event(handler); }

  // Opens the file and shows record k.
  void Show(const Bytes& file, int k, const std::string& name = "edit.npc") {
    path = folder.Write(name, file);
    Open(path);
    Event([&] { Slider_Set_Value(window, k); });
    ASSERT_EQ(window.Slider.Value, k);
  }

  // A double click on a cell; the form must be there afterwards.
  Edit_Form& Open_Edit() {
    Event([&] { Dbl_Click_All_L(window); });
    EXPECT_NE(window.Edit, nullptr);
    return *window.Edit;
  }

  Edit_Form& Form() { return *window.Edit; }

  // Clicks the list item with this text, as the user picks it.
  void Select(const std::string& item) {
    const auto& items = Form().List.Items;
    const auto found = std::find(items.begin(), items.end(), item);
    ASSERT_NE(found, items.end()) << item;
    Form().List.ListIndex = static_cast<int>(found - items.begin());
    Event([&] { Edit_List_Click(Form()); });
  }

  // Types the number and clicks an option button; the button shows a dot until the handler runs.
  void Encode(const std::string& number, bool word) {
    Form().Txt_1.Text = number;
    (word ? Form().O_2 : Form().O_1).Value = true;
    Event([&] { word ? O_2_Click(Form()) : O_1_Click(Form()); });
  }

  void Overwrite() {
    Event([&] { ComApply_Click(Form()); });
  }

  // Encodes the number and carries it into the selected field.
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

// --- Opening ---------------------------------------------------------------------------------

TEST_F(Edit_Test, OpeningShowsTheRecordsFieldsAndDisablesTheMainWindow) {
  Show(Standard_File(), 12);
  const std::string cells = Cells_Text(window);
  Edit_Form& form = Open_Edit();

  EXPECT_FALSE(window.Enabled);
  EXPECT_EQ(form.Caption, "EDIT Record #12");
  ASSERT_EQ(form.List.Items.size(), 24u);
  const auto rows = fields::Edit_Rows();
  for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(form.List.Items[i], rows[i].Text) << i;
  EXPECT_EQ(form.List.Items[20], "Byte 29");
  EXPECT_EQ(form.List.Items[23], "Byte 32");
  EXPECT_EQ(form.List.ListIndex, -1);
  EXPECT_EQ(form.L_H.Caption, "");
  EXPECT_EQ(form.L_D.Caption, "");
  EXPECT_EQ(form.Txt_1.Text, "");
  EXPECT_EQ(form.Txt_4.Text, "");
  EXPECT_EQ(form.Focus, "Txt_1");
  std::string old_bytes, new_bytes;
  for (int n = 1; n <= 32; ++n) old_bytes += form.Old_Byte(n), new_bytes += form.New_Byte(n);
  EXPECT_EQ(old_bytes, cells);
  EXPECT_EQ(new_bytes, cells);
  // Centred across the screen, a third of the free height above it.
  EXPECT_EQ(form.Left, (platform.Screen_Twips.Width - form.Width) / 2);
  EXPECT_EQ(form.Top, (platform.Screen_Twips.Height - form.Height) / 3);
  EXPECT_GT(form.Width, 4185);
  EXPECT_GT(form.Height, 3285);
}

TEST_F(Edit_Test, ControlsCarryTheirTextsAtStart) {
  Show(Standard_File(), 1);
  const Edit_Form& form = Open_Edit();
  const std::pair<std::string, std::string> texts[] = {
      {form.F_1.Caption, "Select byte"},         {form.F_2.Caption, "Current"},
      {form.L_1.Caption, "Hex"},                 {form.L_2.Caption, "Dec"},
      {form.F_3.Caption, "Encode number as"},    {form.O_2.Caption, "&Word (Max. 65535)"},
      {form.O_1.Caption, "&Byte (255)"},         {form.ComApply.Caption, "&Overwrite"},
      {form.ComOK.Caption, "&Apply"},            {form.ComCl.Caption, "Cancel"},
  };
  for (const auto& [actual, expected] : texts) EXPECT_EQ(actual, expected);
}

// The gate keeps the window shut unless a whole record is on show, by either way in.
struct Gate_Case {
  const char* Name;
  std::function<void(Edit_Test&)> Setup;
};
void PrintTo(const Gate_Case& c, std::ostream* os) { *os << c.Name; }

class Edit_Gate : public Edit_Test, public ::testing::WithParamInterface<std::tuple<Gate_Case, bool>> {};

TEST_P(Edit_Gate, NothingOpensAndTheMainWindowStaysEnabled) {
  std::get<0>(GetParam()).Setup(*this);
  const bool by_menu = std::get<1>(GetParam());
  Event([&] { by_menu ? nEdit_Click(window) : Dbl_Click_All_L(window); });
  EXPECT_EQ(window.Edit, nullptr);
  EXPECT_TRUE(window.Enabled);
  EXPECT_TRUE(platform.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Closed, Edit_Gate,
    ::testing::Combine(::testing::Values(Gate_Case{"NoFile", [](Edit_Test&) {}},
                                         Gate_Case{"SliderAtZero",
                                                   [](Edit_Test& t) {
                                                     t.Show(Standard_File(), 0);
                                                   }},
                                         Gate_Case{"BukaStump",
                                                   [](Edit_Test& t) {
                                                     t.Show(Buka_File(), 50);
                                                   }}),
                       ::testing::Bool()),
    [](const auto& info) {
      return std::string(std::get<0>(info.param).Name) + (std::get<1>(info.param) ? "_Menu" : "_DoubleClick");
    });

TEST_F(Edit_Test, MenuItemOpensTheSameWindowAsADoubleClick) {
  Show(Buka_File(), 49);
  Event([&] { nEdit_Click(window); });
  ASSERT_NE(window.Edit, nullptr);
  EXPECT_EQ(window.Edit->Caption, "EDIT Record #49");
  EXPECT_FALSE(window.Enabled);
}

// --- Selecting a field -----------------------------------------------------------------------

TEST_F(Edit_Test, SelectingAFieldShowsItsValueFromTheRecord) {
  Bytes file = Standard_File();
  Bytes record = Record_Bytes(12);
  record[2] = 0x2C, record[3] = 0x01;    // bytes 3-4: 300
  record[26] = 0xFF, record[27] = 0xFF;  // bytes 27-28: 65535
  record[8] = 0x0A;                      // byte 9: 10
  Put_Record(file, false, 12, record);
  Show(file, 12);
  Open_Edit();

  const struct {
    const char* Item;
    const char* Hex;
    const char* Dec;
  } rows[] = {{"Bytes 03-04", "2C 01", "300"}, {"Bytes 27-28", "FF FF", "65535"}, {"Byte 09", "0A", "10"}};
  for (const auto& row : rows) {
    Form().O_1.Value = true;
    Form().SetFocus("List");
    Select(row.Item);
    EXPECT_EQ(Form().L_H.Caption, row.Hex) << row.Item;
    EXPECT_EQ(Form().L_D.Caption, row.Dec) << row.Item;
    EXPECT_EQ(Form().Focus, "Txt_1") << row.Item;
    EXPECT_FALSE(Form().O_1.Value);
    EXPECT_FALSE(Form().O_2.Value);
  }
}

TEST_F(Edit_Test, HelpShowsTheFieldsTextAndBytes29To32ShareOne) {
  Show(Standard_File(), 3);
  Open_Edit();
  const std::string l_nbyte = window.L_NByte.Caption;
  std::string shared = "Bytes 29-32";
  Position::Byte_Help(shared);
  ASSERT_NE(shared, "Bytes 29-32");
  for (const char* item : {"Byte 29", "Byte 30", "Byte 31", "Byte 32"}) {
    window.Help.Caption.clear();
    Select(item);
    EXPECT_EQ(window.Help.Caption, shared) << item;
  }
  Select("Byte 20");
  std::string byte_20 = "Byte 20";
  Position::Byte_Help(byte_20);
  EXPECT_EQ(window.Help.Caption, byte_20);
  EXPECT_NE(byte_20, shared);
  EXPECT_EQ(window.L_NByte.Caption, l_nbyte);
}

TEST_F(Edit_Test, AFaultyByteTextInTheCopyIsFatal) {
  Show(Standard_File(), 5);
  Open_Edit();
  Form().New_Byte(9) = "zz";
  Select("Byte 09");
  EXPECT_TRUE(platform.Ended);
  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Style, 16);
}

// --- Value entry -----------------------------------------------------------------------------

TEST_F(Edit_Test, OnlyDigitsAndBackspacePassTheKeyFilter) {
  int passed = 0;
  for (int code = 0; code <= 255; ++code) {
    const int result = Only_Num(code);
    const bool allowed = (code >= '0' && code <= '9') || code == 8;
    EXPECT_EQ(result, allowed ? code : 0) << code;
    passed += result != 0;
  }
  EXPECT_EQ(passed, 11);

  Show(Standard_File(), 1);
  Open_Edit();
  const std::pair<int, int> keys[] = {{'7', '7'}, {'a', 0}, {'\r', 0}, {0x1B, 0}, {'-', 0}, {'\b', '\b'}};
  for (const auto& [key, expected] : keys) {
    int key_ascii = key;
    Txt_1_KeyPress(Form(), key_ascii);
    EXPECT_EQ(key_ascii, expected) << key;
  }
}

TEST_F(Edit_Test, FocusOnTheNumberSelectsAllOfItsCharacters) {
  Show(Standard_File(), 1);
  Open_Edit();
  const struct {
    std::string Text;
    int Length;
  } rows[] = {{"12345", 5}, {"٣٣", 2}, {"1", 1}};
  for (const auto& row : rows) {
    Form().Txt_1 = {row.Text, 3, 0};
    Txt_1_GotFocus(Form());
    EXPECT_EQ(Form().Txt_1.SelStart, 0) << row.Text;
    EXPECT_EQ(Form().Txt_1.SelLength, row.Length) << row.Text;
  }
  Form().Txt_1 = {"", 0, 0};
  Txt_1_GotFocus(Form());
  EXPECT_EQ(Form().Txt_1.SelLength, 0);
}

// What the two option buttons make of a number; empty text is no encoding.
struct Encoding_Case {
  const char* Name;
  std::string Input;
  std::string As_Byte;
  std::string As_Word;
};
void PrintTo(const Encoding_Case& c, std::ostream* os) { *os << c.Name; }

class Edit_Encoding : public Edit_Test, public ::testing::WithParamInterface<Encoding_Case> {};

TEST_P(Edit_Encoding, ByteBeepsOverTheLimitWordStaysSilent) {
  const Encoding_Case& c = GetParam();
  Show(Standard_File(), 1);
  Open_Edit();

  Form().Txt_4.Text = "77";
  Encode(c.Input, false);
  ASSERT_NE(window.Edit, nullptr);
  EXPECT_EQ(Form().Txt_4.Text, c.As_Byte);
  EXPECT_EQ(platform.Beeps, c.As_Byte.empty() ? 1 : 0);
  EXPECT_FALSE(Form().O_1.Value);

  Form().Txt_4.Text = "77";
  Encode(c.Input, true);
  EXPECT_EQ(Form().Txt_4.Text, c.As_Word);
  EXPECT_EQ(platform.Beeps, c.As_Byte.empty() ? 1 : 0) << "the word encoding never beeps";
  EXPECT_FALSE(Form().O_2.Value);
  EXPECT_TRUE(platform.Messages.empty());
}

INSTANTIATE_TEST_SUITE_P(
    Edges, Edit_Encoding,
    ::testing::Values(Encoding_Case{"Zero", "0", "00", "00 00"}, Encoding_Case{"Byte_Max", "255", "FF", "FF 00"},
                      Encoding_Case{"Above_Byte", "256", "", "00 01"},
                      Encoding_Case{"Three_Hundred", "300", "", "2C 01"},
                      Encoding_Case{"Word_Max", "65535", "", "FF FF"}, Encoding_Case{"Above_Word", "65536", "", ""},
                      Encoding_Case{"Leading_Zeros", "007", "07", "07 00"},
                      Encoding_Case{"Beyond_32_Bits", "99999999999", "", ""},
                      Encoding_Case{"Negative", "-1", "", ""}, Encoding_Case{"Fraction", "3.5", "", ""},
                      Encoding_Case{"Exponent", "1e5", "", ""}, Encoding_Case{"Small_Exponent", "2e2", "C8", "C8 00"},
                      Encoding_Case{"Longest_Number", std::string(308, '9'), "", ""},
                      Encoding_Case{"Zeros_Before_Digits", std::string(400, '0') + "12", "0C", "0C 00"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST_F(Edit_Test, EmptyNumberBeepsAndKeepsTheLastEncoding) {
  Show(Standard_File(), 1);
  Open_Edit();
  Encode("300", true);
  ASSERT_EQ(Form().Txt_4.Text, "2C 01");
  for (const bool word : {false, true}) {
    Form().Txt_4.Text = "2C 01";
    Encode("", word);
    EXPECT_EQ(Form().Txt_4.Text, "2C 01");
    EXPECT_FALSE(Form().O_1.Value || Form().O_2.Value);
  }
  EXPECT_EQ(platform.Beeps, 2);
}

// Text that is no number takes the failure road: a message, and the window closes with the
// copy lost, whatever was overwritten before.
struct Bad_Number {
  const char* Name;
  std::string Input;
};
void PrintTo(const Bad_Number& c, std::ostream* os) { *os << c.Name; }

class Edit_Unreadable : public Edit_Test, public ::testing::WithParamInterface<std::tuple<Bad_Number, bool>> {};

TEST_P(Edit_Unreadable, ShowsTheMessageAndClosesWithTheCaptionsAsAtOpening) {
  const auto& [bad, word] = GetParam();
  Show(Standard_File(), 12);
  const std::string cells = Cells_Text(window);
  const std::string image = window.HexImage;
  Open_Edit();
  Write_Field("Bytes 03-04", "300", true);
  ASSERT_EQ(Form().New_Byte(3), "2C");
  const unsigned serial = window.Focus_Serial;

  Encode(bad.Input, word);

  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, Bad_Input);
  EXPECT_EQ(platform.Messages[0].Style, 16);
  EXPECT_EQ(platform.Messages[0].Title, "ERROR");
  Expect_Closed_And_Main_Back(serial);
  EXPECT_EQ(Cells_Text(window), cells);
  EXPECT_EQ(window.HexImage, image);
  EXPECT_EQ(platform.Beeps, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Inputs, Edit_Unreadable,
    ::testing::Combine(::testing::Values(Bad_Number{"Digits_400", std::string(400, '7')},
                                         Bad_Number{"Digits_309", "1" + std::string(308, '0')},
                                         Bad_Number{"Letter_After_Digits", "12a"},
                                         Bad_Number{"Arabic_Indic_Three", "٣"},
                                         Bad_Number{"Digits_1MB", std::string(1 << 20, '5')},
                                         Bad_Number{"Exponent_Too_Large", "1e400"}, Bad_Number{"Blank", " "}),
                       ::testing::Bool()),
    [](const auto& info) {
      return std::string(std::get<0>(info.param).Name) + (std::get<1>(info.param) ? "_Word" : "_Byte");
    });

// --- Overwrite -------------------------------------------------------------------------------

struct Width_Mismatch {
  const char* Name;
  const char* Item;
  const char* Encoded;
  const std::string* Warning;
};
void PrintTo(const Width_Mismatch& c, std::ostream* os) { *os << c.Name; }

class Edit_Mismatch : public Edit_Test, public ::testing::WithParamInterface<Width_Mismatch> {};

TEST_P(Edit_Mismatch, WarnsAndChangesNothing) {
  const Width_Mismatch& c = GetParam();
  Show(Standard_File(), 7);
  Open_Edit();
  Select(c.Item);
  const auto copy = Form().New_Bytes;
  const std::string l_h = Form().L_H.Caption, l_d = Form().L_D.Caption;
  Form().Txt_1.Text = "44";
  Form().Txt_4.Text = c.Encoded;

  Overwrite();

  ASSERT_EQ(platform.Messages.size(), 1u);
  EXPECT_EQ(platform.Messages[0].Prompt, *c.Warning);
  EXPECT_EQ(platform.Messages[0].Style, 48);
  EXPECT_EQ(platform.Messages[0].Title, "EDIT");
  ASSERT_NE(window.Edit, nullptr);
  EXPECT_EQ(Form().New_Bytes, copy);
  EXPECT_EQ(Form().L_H.Caption, l_h);
  EXPECT_EQ(Form().L_D.Caption, l_d);
  EXPECT_EQ(Form().Txt_1.Text, "44");
  EXPECT_EQ(Form().Txt_4.Text, c.Encoded);
  EXPECT_FALSE(window.Enabled);
}

INSTANTIATE_TEST_SUITE_P(Fields, Edit_Mismatch,
                         ::testing::Values(Width_Mismatch{"ByteIntoWord", "Bytes 03-04", "2C", &Word_As_Byte},
                                           Width_Mismatch{"WordIntoByte", "Byte 09", "2C 01", &Byte_As_Word},
                                           Width_Mismatch{"WordIntoByte29", "Byte 29", "2C 01", &Byte_As_Word},
                                           Width_Mismatch{"WordIntoByte32", "Byte 32", "FF FF", &Byte_As_Word}),
                         [](const auto& info) { return std::string(info.param.Name); });

struct Accepted_Write {
  const char* Name;
  const char* Item;
  const char* Number;
  bool Word;
  int First;
  std::vector<std::string> Bytes_Written;
  const char* Dec;
};
void PrintTo(const Accepted_Write& c, std::ostream* os) { *os << c.Name; }

class Edit_Overwrite : public Edit_Test, public ::testing::WithParamInterface<Accepted_Write> {};

TEST_P(Edit_Overwrite, WritesExactlyTheFieldsBytesOfTheCopy) {
  const Accepted_Write& c = GetParam();
  Show(Standard_File(), 20);
  const std::string cells = Cells_Text(window);
  Open_Edit();
  auto expected = Form().New_Bytes;
  for (std::size_t i = 0; i < c.Bytes_Written.size(); ++i)
    expected[static_cast<std::size_t>(c.First - 1) + i] = c.Bytes_Written[i];

  Write_Field(c.Item, c.Number, c.Word);

  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(Form().New_Bytes, expected);
  std::string l_h = c.Bytes_Written[0];
  if (c.Bytes_Written.size() == 2) l_h += " " + c.Bytes_Written[1];
  EXPECT_EQ(Form().L_H.Caption, l_h);
  EXPECT_EQ(Form().L_D.Caption, c.Dec);
  // Nothing reaches the main window before Apply.
  EXPECT_EQ(Cells_Text(window), cells);
  EXPECT_EQ(Form().Txt_1.Text, c.Number);
  EXPECT_EQ(Form().List.Items[static_cast<std::size_t>(Form().List.ListIndex)], c.Item);
}

INSTANTIATE_TEST_SUITE_P(
    Fields, Edit_Overwrite,
    ::testing::Values(Accepted_Write{"WordLowFirst", "Bytes 03-04", "300", true, 3, {"2C", "01"}, "300"},
                      Accepted_Write{"SmallNumberAsWord", "Bytes 05-06", "44", true, 5, {"2C", "00"}, "44"},
                      Accepted_Write{"WordMax", "Bytes 27-28", "65535", true, 27, {"FF", "FF"}, "65535"},
                      Accepted_Write{"FirstWord", "Bytes 01-02", "512", true, 1, {"00", "02"}, "512"},
                      Accepted_Write{"Byte", "Byte 09", "255", false, 9, {"FF"}, "255"},
                      Accepted_Write{"Byte29", "Byte 29", "44", false, 29, {"2C"}, "44"},
                      Accepted_Write{"Byte32", "Byte 32", "1", false, 32, {"01"}, "1"}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST_F(Edit_Test, OverwriteNeedsAnEncodingAndASelection) {
  Show(Standard_File(), 2);
  Open_Edit();
  const auto copy = Form().New_Bytes;
  Overwrite();  // nothing encoded, nothing selected: a beep
  EXPECT_EQ(platform.Beeps, 1);
  Form().Txt_4.Text = "2C";
  Overwrite();  // no field: silence
  EXPECT_EQ(platform.Beeps, 1);
  EXPECT_TRUE(platform.Messages.empty());
  EXPECT_EQ(Form().New_Bytes, copy);
  Select("Byte 10");
  Form().Txt_4.Text.clear();
  Overwrite();
  EXPECT_EQ(platform.Beeps, 2);
  EXPECT_EQ(Form().New_Bytes, copy);
}

TEST_F(Edit_Test, OneEncodingGoesToSeveralFieldsAndTheLastWriteCounts) {
  Show(Standard_File(), 4);
  Open_Edit();
  Write_Field("Byte 14", "10", false);
  Select("Byte 16");  // Txt_1 and Txt_4 stay
  EXPECT_EQ(Form().Txt_4.Text, "0A");
  Overwrite();
  Write_Field("Byte 14", "200", false);
  EXPECT_EQ(Form().New_Byte(14), "C8");
  EXPECT_EQ(Form().New_Byte(16), "0A");
  Select("Byte 16");
  EXPECT_EQ(Form().L_D.Caption, "10") << "a selected field shows the working copy";

  Apply();
  EXPECT_EQ(window.L(14).Caption, "C8");
  EXPECT_EQ(window.L(16).Caption, "0A");
  EXPECT_EQ(window.Record(4).substr(26, 2), "C8");
}

// --- Edit_Closing ---------------------------------------------------------------------------------

struct Closing_Way {
  const char* Name;
  std::function<void(Edit_Test&, Edit_Form&)> Close;
};
void PrintTo(const Closing_Way& c, std::ostream* os) { *os << c.Name; }

class Edit_Closing : public Edit_Test, public ::testing::WithParamInterface<Closing_Way> {};

TEST_P(Edit_Closing, GivesTheMainWindowItsInputAndTheSliderItsFocus) {
  Show(Standard_File(), 9);
  Edit_Form& form = Open_Edit();
  EXPECT_FALSE(window.Enabled);
  const unsigned serial = window.Focus_Serial;
  GetParam().Close(*this, form);
  Expect_Closed_And_Main_Back(serial);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, Edit_Closing,
    ::testing::Values(
        Closing_Way{"Apply", [](Edit_Test&, Edit_Form& f) { ComOK_Click(f); }},
        Closing_Way{"Cancel", [](Edit_Test&, Edit_Form& f) { ComCl_Click(f); }},
        Closing_Way{"SystemClose", [](Edit_Test&, Edit_Form& f) { Unload_Edit(f.Main); }},
        Closing_Way{"UnreadableNumber", [](Edit_Test& t, Edit_Form& f) {
                      f.Txt_1.Text = "1x";
                      t.Run([&] { O_1_Click(f); });
                    }}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST_F(Edit_Test, CancelDropsTheOverwritesAndTheNextOpeningStartsAfresh) {
  Show(Standard_File(), 12);
  const std::string cells = Cells_Text(window);
  Open_Edit();
  Write_Field("Bytes 03-04", "300", true);
  Cancel();
  EXPECT_EQ(Cells_Text(window), cells);
  EXPECT_EQ(window.HexImage, window.Saved_Image);

  Open_Edit();
  Select("Bytes 03-04");
  EXPECT_EQ(Form().L_H.Caption, cells.substr(4, 2) + " " + cells.substr(6, 2));
  EXPECT_EQ(Form().Txt_1.Text, "");
  EXPECT_EQ(Form().Txt_4.Text, "");
}

TEST_F(Edit_Test, CancelAfterAnApplyKeepsTheAppliedBytes) {
  Show(Standard_File(), 12);
  Open_Edit();
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

TEST_F(Edit_Test, ApplyWithoutARealChangeLeavesTheFileUnchanged) {
  Show(Standard_File(), 12);
  Open_Edit();
  Apply();
  EXPECT_EQ(window.HexImage, window.Saved_Image);

  // Record 12 byte 9 holds 20; writing 20 again is no change.
  Open_Edit();
  Write_Field("Byte 09", "20", false);
  ASSERT_TRUE(platform.Messages.empty());
  Apply();
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  EXPECT_EQ(window.L(9).Caption, "14");
}

// 300 into bytes 3-4 of record 12, applied and saved: on disk exactly those two bytes change.
class Edit_Saved : public Edit_Test, public ::testing::WithParamInterface<bool> {};

TEST_P(Edit_Saved, ChangesExactlyTheFieldsBytesOnDisk) {
  const bool buka = GetParam();
  const Bytes original = buka ? Buka_File() : Standard_File();
  Show(original, 12);
  Open_Edit();
  Write_Field("Bytes 03-04", "300", true);
  Apply();
  EXPECT_NE(window.HexImage, window.Saved_Image);

  const std::size_t dialogs = platform.Dialogs.size();
  Event([&] { nSave_Click(window); });

  EXPECT_EQ(platform.Dialogs.size(), dialogs) << "the file exists: no dialog";
  EXPECT_EQ(window.HexImage, window.Saved_Image);
  Bytes expected = original;
  expected[Offset(buka, 12, 3)] = 0x2C;
  expected[Offset(buka, 12, 4)] = 0x01;
  const Bytes on_disk = Read_File(path);
  ASSERT_EQ(on_disk.size(), 1600u);
  EXPECT_EQ(on_disk, expected);
  std::size_t differing = 0;
  for (std::size_t i = 0; i < on_disk.size(); ++i) differing += on_disk[i] != original[i];
  EXPECT_EQ(differing, 2u);
}

INSTANTIATE_TEST_SUITE_P(Variants, Edit_Saved, ::testing::Bool(),
                         [](const auto& info) { return std::string(info.param ? "Buka" : "Standard"); });

}  // namespace
