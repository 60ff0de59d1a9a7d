#include "store/conversion.h"

#include <exception>
#include <string>

#include "form/vorlane.h"
#include "store/error_text.h"
#include "store/file_commands.h"
#include "store/image.h"
#include "store/npc_dialogs.h"

namespace {

// The window holds a file from disk (not a new one that was never saved) at this path.
bool On_Show(Vorlane& vForm, const std::string& path) {
  const std::string& shown = vForm.SBar_2.SimpleText;
  return !vForm.SBar_3.SimpleText.empty() && !shown.empty() && shown != New_File_Path &&
         vForm.files.Same_File(shown, path);
}

}  // namespace

Conversion Convert_Image(const std::string& hex, int target) {
  // 3192 characters: the 1596 bytes that stay, the mark put in front or taken away.
  const bool buka = hex.compare(0, 8, image::Buka_Mark) == 0;
  Conversion result;
  if (target == npc_type::Buka && !buka) {
    result.Image = image::Buka_Mark + hex.substr(0, 3192);
    result.Dropped = hex.substr(3192, 8);
  } else if (target == npc_type::Standard && buka) {
    result.Image = hex.substr(8, 3192) + "00000000";
  } else {
    return result;
  }
  if (result.Dropped == std::string(result.Dropped.size(), '0')) result.Dropped.clear();
  result.Needed = true;
  return result;
}

void nChaing_Click(Vorlane& vForm) {
  // The conversion works on a file on disk and its own copy of it; the window's image, records
  // and status bars are never touched. Every failure, Cancel included, ends it without a word.
  try {
    auto& cd = vForm.CD;
    Set_Npc_Open(cd, "VORLANE - OPEN FILE FOR CHANGE");
    if (!vForm.platform.ShowOpen(cd)) return;
    vForm.File_Path = cd.FileName;
    if (vForm.files.Length(vForm.File_Path) != static_cast<std::int64_t>(image::File_Size)) {
      Show_Error(vForm.platform, vForm.Work_Text, "3", msgbox::Warning, vForm.Error_Title);
      return;
    }
    vForm.Work_Text_2 = image::Hex_Text(vForm.files.Read(vForm.File_Path, 0, image::File_Size));
    vForm.Work_Text_3 = vForm.Work_Text_2.substr(0, 8);
    const bool buka = vForm.Work_Text_3 == image::Buka_Mark;

    // The title names the type the file has; the list starts on the other one. FileName stays,
    // so the dialog proposes the file just opened.
    Set_Npc_Type(cd, buka);
    if (!vForm.platform.ShowSave(cd)) return;
    vForm.File_Path = cd.FileName;

    if (cd.FilterIndex != npc_type::Buka && cd.FilterIndex != npc_type::Standard) {
      Show_Error(vForm.platform, vForm.Work_Text, "4", msgbox::Critical, vForm.Error_Title);
      return;
    }
    const Conversion conversion = Convert_Image(vForm.Work_Text_2, cd.FilterIndex);
    if (!conversion.Needed) return;
    vForm.Work_Text_2 = conversion.Image;

    // The converted file goes where the save dialog says: the proposed name converts the file in
    // place, another name writes a converted copy and leaves the file picked first as it was.
    // The file on show in the window is refused: its image would still hold the old variant,
    // and the next save would silently write that back over the conversion.
    if (On_Show(vForm, vForm.File_Path)) {
      vForm.platform.MsgBox(
          "Файл " + vForm.File_Path +
              " открыт в окне. Сохраните результат под другим именем или сначала откройте другой файл.",
          msgbox::Warning, vForm.Error_Title);
      return;
    }
    // Written whole to a new file that then takes the old one's place: a failure half way leaves
    // the old file as it was.
    vForm.files.Write(vForm.File_Path, image::Bytes_Of(vForm.Work_Text_2));
  } catch (const std::exception&) {
  }
}
