// The Edit window driven as a user drives it: open it on a record, pick a field, type, encode,
// overwrite, apply or cancel, and see what reaches the byte cells, the image and the disk.
#include "ui/edit.h"

#include <algorithm>
#include <numeric>

#include "support/data.h"
#include "support/fixture.h"
#include "ui/navigation.h"

namespace {

// Record 12 of the standard file as the byte cells show it.
const std::string Record_12 = "0C0D0E0F101112131415161718191A1B1C1D1E1F202122232425262728292A2B";

std::string Joined(const std::array<std::string, 32>& b) { return std::accumulate(b.begin(), b.end(), std::string()); }

class Edit_Test : public Window_Test {
 protected:
  Edit_Test() { Show(Standard_File()); }
  // Opens the file on record k, then Edit by a double click on a byte cell or by Tools > Edit.
  void Show(const Bytes& file, int k = 12) {
    Open(path = folder.Write("edit.npc", file));
    Event([&] { Slider_Set_Value(window, k); });
  }
  bool Open_Edit(bool menu = false) {
    return Raise(window, window::Main, menu ? "nEdit" : "L_5", menu ? Event::Click : Event::Dbl_Click) && window.Edit;
  }
  Edit_Form& Form() { return *window.Edit; }
  void Click(const char* control) { Raise(window, window::Edit, control, Event::Click); }
  void Select(const std::string& item) {
    Form().List.ListIndex = static_cast<int>(std::ranges::find(Form().List.Items, item) - Form().List.Items.begin());
    Click("List");
  }
  // Types the number and clicks "Word" or "Byte", which shows a dot until its handler runs.
  void Encode(const std::string& number, bool word) {
    Form().Txt_1.Text = number;
    Form().O_1.Value = Form().O_2.Value = true;
    Click(word ? "O_2" : "O_1");
  }
  void Write_Field(const std::string& item, const std::string& number, bool word) {
    Select(item);
    Encode(number, word);
    Click("ComApply");
  }
  // Closed by this event: the main window takes input again and the slider gets the focus anew.
  void Close_By(const char* control, ::Event event = ::Event::Click) {
    const unsigned serial = window.Focus_Serial;
    Raise(window, window::Edit, control, event);
    EXPECT_EQ(std::tuple(window.Edit == nullptr, window.Enabled, window.Focus, window.Focus_Serial > serial),
              std::tuple(true, true, "Slider", true));
  }
  std::string path;
};

TEST_F(Edit_Test, OpensOnAWholeRecordAndShowsItsFields) {
  for (const auto& [file, k] : {std::pair{Standard_File(), 0}, {Buka_File(), 50}}) {
    Show(file, k);
    EXPECT_EQ(std::tuple(Open_Edit() || Open_Edit(true), window.Enabled), std::tuple(false, true)) << k;
  }
  Show(Standard_File());
  ASSERT_TRUE(Open_Edit(true));
  const Edit_Form& form = *window.Edit;
  EXPECT_EQ(std::tuple(window.Enabled, form.Caption, form.Left, form.Top, form.Focus, form.List.ListIndex),
            std::tuple(false, "EDIT Record #12", 5542, 2620, "Txt_1", -1));
  EXPECT_EQ(form.L_H.Caption + form.L_D.Caption + form.Txt_1.Text + form.Txt_4.Text + Joined(form.Old_Bytes) +
                Joined(form.New_Bytes),
            Record_12 + Record_12);
  EXPECT_EQ(form.F_1.Caption + form.F_2.Caption + form.L_1.Caption + form.L_2.Caption + form.F_3.Caption +
                form.O_2.Caption + form.O_1.Caption + form.ComApply.Caption + form.ComOK.Caption + form.ComCl.Caption,
            "Select byteCurrentHexDecEncode number as&Word (Max. 65535)&Byte (255)&Overwrite&ApplyCancel");

  // A field shows its bytes in file order, their value and its help; the focus goes to the number.
  const std::string rows[][4] = {{"Bytes 27-28", "26 27", "10022", "Bytes 27-28 as WORD"},
                                 {"Byte 09", "14", "20", "Byte 09 as BYTE"},
                                 {"Byte 29", "28", "40", "Bytes 29-32 as BYTES"},
                                 {"Byte 32", "2B", "43", "Bytes 29-32 as BYTES"}};
  for (const auto& [item, hex, dec, help] : rows) {
    Form().O_1.Value = true;
    Form().SetFocus("List");
    Select(item);
    EXPECT_EQ(std::tuple(Form().L_H.Caption, Form().L_D.Caption, Form().Focus, Form().O_1.Value),
              std::tuple(hex, dec, "Txt_1", false));
    EXPECT_TRUE(window.Help.Caption.starts_with(help + "\r\n")) << item;
  }
  EXPECT_EQ(window.L_NByte.Caption, "Byte 0");
}

// The key filter, the focus on the number, and the encodings of the numbers in encodings.txt.
TEST_F(Edit_Test, KeysAndEncodings) {
  Open_Edit();
  for (int code = 0; code <= 255; ++code) {
    Event_Args key{code};
    Raise(window, window::Edit, "Txt_1", Event::Key_Press, key);
    EXPECT_EQ(key.Key, (code >= '0' && code <= '9') || code == 8 ? code : 0) << code;
  }
  Form().Txt_1 = {"٣٣", 3, 0};  // two characters in four bytes
  Raise(window, window::Edit, "Txt_1", Event::Got_Focus);
  EXPECT_EQ(std::tuple(Form().Txt_1.SelStart, Form().Txt_1.SelLength), std::tuple(0, 2));
  for (const Data_Row& row : Read_Data("encodings.txt")) {
    for (const bool word : {false, true}) {
      Form().Txt_4.Text = "77";
      const int beeps = platform.Beeps;
      Encode(row[0], word);
      EXPECT_EQ(
          std::tuple(Form().Txt_4.Text, std::to_string(platform.Beeps - beeps), Form().O_1.Value || Form().O_2.Value),
          std::tuple(row[word ? 3 : 1], row[word ? 4 : 2], false))
          << row[0].substr(0, 12) << (word ? " as word" : " as byte");
    }
  }
  EXPECT_TRUE(platform.Messages.empty());
}

// Text that is no number shows a message, and the window closes with the copy lost.
TEST_F(Edit_Test, AnUnreadableNumberClosesTheWindow) {
  const std::string image = window.HexImage;
  for (const auto& [text, word] : {std::pair{"1" + std::string(308, '0'), false}, {"12a", true}, {"1e400", true}}) {
    platform.Messages.clear();
    Open_Edit();
    Write_Field("Bytes 03-04", "300", true);
    Form().Txt_1.Text = text;
    Close_By(word ? "O_2" : "O_1");
    EXPECT_EQ(platform.Messages, (std::vector<Shown_Message>{{"Недопустимый ввод данных", 16, "ERROR"}})) << text;
    EXPECT_EQ(std::tuple(Cells_Text(window), window.HexImage), std::tuple(Record_12, image));
  }
}

// Overwrite, click by click from overwrites.txt; then Apply into the record and Save to disk.
TEST_F(Edit_Test, OverwriteApplyAndSave) {
  Open_Edit();
  for (const Data_Row& row : Read_Data("overwrites.txt")) {
    const auto& [field, encoding, beeps, warning, hex, dec] =
        std::tuple(row[0], row[1], std::stoi(row[2]), row[3], row[4], row[5]);
    platform.Messages.clear();
    const int beeps_before = platform.Beeps;
    Form().Txt_1.Text = "44";
    Form().Txt_4.Text = encoding;
    if (!field.empty()) Select(field);
    Click("ComApply");
    EXPECT_EQ(platform.Messages, std::vector<Shown_Message>(warning.empty() ? 0 : 1, {warning, 48, "EDIT"}));
    EXPECT_EQ(std::tuple(platform.Beeps - beeps_before, Form().L_H.Caption, Form().L_D.Caption, Form().Txt_1.Text,
                         Form().Txt_4.Text),
              std::tuple(beeps, hex, dec, "44", encoding))
        << field << " " << encoding;
  }
  Select("Byte 16");
  EXPECT_EQ(Form().L_D.Caption, "10");
  const std::string changed = "00020E0F2C001213FF15161718C81A0A1C1D1E1F202122232425FFFF2C292A2B";
  EXPECT_EQ(std::tuple(Joined(Form().New_Bytes), Cells_Text(window)), std::tuple(changed, Record_12));
  Close_By("ComOK");
  EXPECT_EQ(std::tuple(Cells_Text(window), window.Record(12), window.HexImage != window.Saved_Image),
            std::tuple(changed, changed, true));
  // Saved, record 12 on disk holds those bytes, and the rest of the file is as it was.
  Raise(window, window::Main, "nSave", Event::Click);
  Bytes expected = Standard_File();
  for (std::size_t n = 0; n < 32; ++n)
    expected[32 * 11 + n] = static_cast<std::uint8_t>(std::stoi(changed.substr(2 * n, 2), nullptr, 16));
  EXPECT_EQ(Read_File(path), expected);
}

// Applying what the record holds is no change; Cancel and closing drop the overwrites.
TEST_F(Edit_Test, ApplyCancelAndClose) {
  const auto edit = [&](const char* item, const char* number, bool word, const char* close, ::Event event) {
    Open_Edit();
    Write_Field(item, number, word);
    Close_By(close, event);
    return std::tuple(Cells_Text(window).substr(4, 4) + Cells_Text(window).substr(16, 6),
                      window.HexImage == window.Saved_Image);
  };
  EXPECT_EQ(edit("Byte 09", "20", false, "ComOK", Event::Click), std::tuple("0E0F141516", true));
  EXPECT_EQ(edit("Bytes 03-04", "300", true, "ComCl", Event::Click), std::tuple("0E0F141516", true));
  EXPECT_EQ(edit("Bytes 03-04", "300", true, "Edit", Event::Unload), std::tuple("0E0F141516", true));
  EXPECT_EQ(edit("Byte 11", "0", false, "ComOK", Event::Click), std::tuple("0E0F141500", false));
  EXPECT_EQ(edit("Byte 11", "99", false, "ComCl", Event::Click), std::tuple("0E0F141500", false));
  EXPECT_EQ(edit("Byte 11", "22", false, "ComOK", Event::Click), std::tuple("0E0F141516", true));
}

}  // namespace
