#include "store/file_commands.h"

#include <filesystem>

#include "form/events.h"
#include "form/record_tests.h"
#include "form/vorlane.h"
#include "store/error_text.h"
#include "store/image.h"
#include "store/npc_dialogs.h"
#include "store/number.h"
#include "system/failure.h"
#include "system/text.h"
#include "vocab/vocab.h"

namespace {

// The first character whose file name gets the name beside it: files below are the player's own.
constexpr int First_Named_File = 57;

// The fatal road of the file logic: message "2", and the program ends.
[[noreturn]] void Memory_Fault(Vorlane& vForm) { End_With_Error(vForm.Work_Text, "2", vForm.Error_Title); }

// Steps 7 to 9 of a load, shared by a new file.
void Reset_Window_For_File(Vorlane& vForm) {
  vForm.Check.Enabled = true;
  All_L_Color_Back(vForm);
  vForm.L_Edt.Caption.clear();
  vForm.L_Info_User.Caption.clear();
  vForm.Selected_Field.clear();
  vForm.nEdit.Enabled = false;
  vForm.nSave.Enabled = true;
  vForm.nSaveas.Enabled = true;
  vForm.SBar_3.ToolTipText.clear();
  vForm.Help.Caption.clear();
}

// The status bars name the file at File_Path.
void Show_File_Path(Vorlane& vForm) {
  vForm.SBar_2.SimpleText = vForm.File_Path;
  vForm.SBar_3.SimpleText = text::Upper(text::File_Title(vForm.File_Path));
  CorrectBar(vForm);
}

// Asks for another file to be opened or made, leaving the file on show first.
void Leave_Then(Vorlane& vForm, const char* command, void (*next)(Vorlane&)) {
  if (vForm.Saved_Image == vForm.HexImage) {
    next(vForm);
    return;
  }
  vForm.SetFocus("Slider");
  vForm.Txt_Free.Text = command;
  FileSave(vForm);
  if (vForm.Txt_Free.Text == "OK$") next(vForm);
}

// nSave and nSaveas.
void Save_With(Vorlane& vForm, const char* command) {
  vForm.SetFocus("Slider");
  vForm.Txt_Free.Text = command;
  FileSave(vForm);
  if (vForm.Txt_Free.Text == "OK$") Show_File_Path(vForm);
}

}  // namespace

void nOpen_Click(Vorlane& vForm) { Leave_Then(vForm, "open", FileOpen); }
void nNew_Click(Vorlane& vForm) { Leave_Then(vForm, "new", GreatNewFile); }
void nSave_Click(Vorlane& vForm) { Save_With(vForm, "save"); }
void nSaveas_Click(Vorlane& vForm) { Save_With(vForm, "saveas"); }

void Form_Unload(Vorlane& vForm, bool& cancel) {
  vForm.Txt_Free.Text = "exit";
  FileSave(vForm);
  if (vForm.Txt_Free.Text == "ERROR$") cancel = true;
}

void FileOpen(Vorlane& vForm) {
  for (;;) {
    Set_Npc_Open(vForm.CD, "VORLANE - OPEN FILE...");
    if (!vForm.platform.ShowOpen(vForm.CD)) return;
    if (Open_File(vForm, vForm.CD.FileName) != Open_Result::Wrong_Size) return;
  }
}

Open_Result Open_File(Vorlane& vForm, const std::string& path) {
  try {
    vForm.File_Path = path;
    if (vForm.files.Length(vForm.File_Path) != static_cast<std::int64_t>(image::File_Size)) {
      Show_Error(vForm.platform, vForm.Work_Text, "3", msgbox::Warning, vForm.Error_Title);
      return Open_Result::Wrong_Size;
    }
    // The whole file is read before anything of the window changes: a file that can't be read
    // leaves the file on show as it was.
    const std::vector<std::uint8_t> bytes = vForm.files.Read(vForm.File_Path, 0, image::File_Size);
    vForm.SBar_1.SimpleText = "1600 bytes";
    vForm.SBar_2.SimpleText = vForm.File_Path;
    vForm.SBar_3.SimpleText = text::Upper(text::File_Title(vForm.File_Path));
    image::Load(vForm, bytes);
    CorrectBar(vForm);
    Slider_Set_Value(vForm, 0);
    Reset_Window_For_File(vForm);
    return Open_Result::Loaded;
  } catch (const Run_Time_Error&) {
    return Open_Result::Unreadable;
  }
}

void Open_Named(Vorlane& vForm, const std::string& name) {
  std::error_code ec;
  const std::filesystem::path file = std::filesystem::absolute(text::Path(name), ec);
  const std::string path = ec ? name : text::Text(file);
  // Unlike a file picked in the dialog, a named file may be gone, unreadable, or no file at all
  // (a folder is not a file of the wrong size): the read-failure message, and the editor starts
  // empty.
  if (vForm.files.Dir(path).empty() || Open_File(vForm, path) == Open_Result::Unreadable)
    Show_Error(vForm.platform, vForm.Work_Text, "6", msgbox::Warning, vForm.Error_Title);
}

void GreatNewFile(Vorlane& vForm) {
  // Nothing here touches the disk; were a step to fail, its message is shown and the next runs.
  const auto step = [&](auto&& body) {
    try {
      body();
    } catch (const Run_Time_Error&) {
      Show_Error(vForm.platform, vForm.Work_Text, "7", msgbox::Critical, vForm.Error_Title);
    }
  };
  step([&] { vForm.FileType.clear(); });
  step([&] {
    vForm.HexImage.assign(2 * image::File_Size, '0');
    vForm.Saved_Image = vForm.HexImage;
  });
  step([&] { Old_Data(vForm); });
  step([&] {
    vForm.Current_Record = 0;
    Slider_Set_Value(vForm, 0);
  });
  step([&] {
    vForm.SBar_1.SimpleText = "1600 bytes";
    vForm.SBar_2.SimpleText = New_File_Path;
    vForm.SBar_3.SimpleText = "NEW.NPC";
  });
  step([&] { Reset_Window_For_File(vForm); });
}

void ForSave(Vorlane& vForm) {
  vForm.Work_Text_2 = vForm.SBar_2.SimpleText;
  const bool placeholder = vForm.Work_Text_2 == New_File_Path;
  const bool exists = !placeholder && !vForm.files.Dir(vForm.Work_Text_2).empty();
  vForm.Work_Text = exists ? "old" : placeholder ? "new" : "!new!";
  vForm.Work_Text_3 = vForm.Txt_Free.Text;
  const std::string& command = vForm.Work_Text_3;
  if (command == "open" || command == "exit" || command == "new") return;

  if (command == "save" && vForm.Work_Text == "old") {
    vForm.File_Path = vForm.Work_Text_2;
    Save(vForm);
    vForm.Saved_Image = vForm.HexImage;
    vForm.Txt_Free.Text = "OK$";
    return;
  }
  if (command == "save" && vForm.Work_Text == "!new!") {
    vForm.platform.MsgBox("Файл " + vForm.Work_Text_2 + " не найден!\r\nВозможно он был удален или перемещен",
                          msgbox::Critical, "ERROR");
  } else if (command != "save" && command != "saveas") {
    Memory_Fault(vForm);
  }
  SaveAs(vForm);
  if (vForm.Work_Text == "SAVE$") {
    vForm.Saved_Image = vForm.HexImage;
    vForm.Txt_Free.Text = "OK$";
  } else {
    vForm.Txt_Free.Text = "ERROR$";
  }
}

void FileSave(Vorlane& vForm) {
  ForSave(vForm);
  if (vForm.Txt_Free.Text == "OK$" || vForm.Txt_Free.Text == "ERROR$") return;
  if (vForm.Saved_Image == vForm.HexImage) return;
  const int answer =
      vForm.platform.MsgBox("Сохранить " + vForm.SBar_2.SimpleText + "?", msgbox::Question_Yes_No_Cancel, "VORLANE");
  // The images stay as they are until another file is in: if the next step is cancelled, the
  // file on show goes on with its image whole. A saved image counts as unchanged.
  if (answer == msgbox::Yes && vForm.Work_Text == "old") {
    vForm.File_Path = vForm.Work_Text_2;
    Save(vForm);
    vForm.Saved_Image = vForm.HexImage;
    vForm.Txt_Free.Text = "OK$";
  } else if (answer == msgbox::Yes) {
    SaveAs(vForm);
    if (vForm.Work_Text == "SAVE$") {
      vForm.Saved_Image = vForm.HexImage;
      Show_File_Path(vForm);
      vForm.Txt_Free.Text = "OK$";
    } else {
      vForm.Txt_Free.Text = "ERROR$";
    }
  } else if (answer == msgbox::No) {
    vForm.Txt_Free.Text = "OK$";
  } else if (answer == msgbox::Cancel) {
    vForm.Txt_Free.Text = "ERROR$";
  } else {
    Memory_Fault(vForm);
  }
}

void Save(Vorlane& vForm) {
  try {
    // Only a whole image is ever written.
    if (vForm.HexImage.size() != 2 * image::File_Size) throw Run_Time_Error("incomplete image");
    vForm.files.Write(vForm.File_Path, image::Bytes_Of(vForm.HexImage));
    vForm.Work_Text = "SAVE$";
  } catch (const Run_Time_Error&) {
    End_With_Error(vForm.Work_Text, "8", vForm.Error_Title);
  }
}

void SaveAs(Vorlane& vForm) {
  Set_Npc_Save(vForm.CD);
  if (!vForm.platform.ShowSave(vForm.CD)) {
    vForm.Work_Text = "NOSAVE$";
    return;
  }
  vForm.File_Path = vForm.CD.FileName;
  Save(vForm);
}

void CorrectBar(Vorlane& vForm) {
  const auto number = number::Read_Long(text::Left(vForm.SBar_3.SimpleText, 3));
  if (!number || *number < First_Named_File || *number > vocab::Last_Npc) return;
  vForm.Work_Text = std::to_string(*number);
  Position::Npc_Name(vForm.Work_Text);
  vForm.SBar_3.SimpleText += " - " + vForm.Work_Text;
}

std::string Npc_File_Name(int npc) {
  std::string digits = std::to_string(npc);
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  return digits + ".npc";
}
