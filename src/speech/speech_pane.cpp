// The speech pane: binding a speech file to the window and stepping through its messages.
#include <array>
#include <cstdint>
#include <string>

#include "form/events.h"
#include "form/vorlane.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "system/failure.h"
#include "system/text.h"

namespace {

// The entries of the open dialog's filter, by filter index, and the kind of speech file that
// each stands for.
struct Filter_Kind {
  int Filter_Index;
  Speech_Kind Kind;
};

constexpr std::array<Filter_Kind, 4> Kinds{
    {{1, Npc_Dialogues}, {2, Civilian_Dialogues}, {3, Civilian_Dialogues}, {4, Npc_Comments}}};

const char* const Edt_Filter =
    "Диалоги НПЦ (<3num>.edt)|*.edt|Диалоги гражданских|*edt|(<Civ+2num>.edt or <Sector>.edt)|*.edt|"
    "Комменнтарии НПЦ (<D_+3num>.edt)|*.edt";

Speech_Kind Kind_Of_Filter(int filter_index) {
  for (const Filter_Kind& entry : Kinds)
    if (entry.Filter_Index == filter_index) return entry.Kind;
  throw Run_Time_Error("no such filter entry: " + std::to_string(filter_index));
}

// The speech file proposed for the NPC file on show: its bare name with .edt for .npc.
std::string Proposed_Name(Vorlane& vForm) {
  std::string name = vForm.files.Dir(vForm.SBar_2.SimpleText);
  const std::size_t length = text::Length(name);
  if (length > 4 && text::Upper(text::Right(name, 4)) == ".NPC") name = text::Left(name, length - 4) + ".edt";
  return name;
}

// Ticking came to nothing: Check goes off again.
void Tick_Failed(Vorlane& vForm) {
  Check_Set_Value(vForm, 0);
  vForm.Edt_Kind = No_Speech;
}

// Binds the speech file at `path` of this kind and shows the message in L_Message.
void Bind(Vorlane& vForm, const std::string& path, Speech_Kind kind) {
  try {
    vForm.Edt_Path = path;
    const std::int64_t length = vForm.files.Length(vForm.Edt_Path);
    vForm.Com1.Enabled = true;
    vForm.Com2.Enabled = true;

    // A file shorter than one message is taken all the same, after a word of warning.
    const std::int16_t entry_size = speech::Entry_Size(kind);
    if (length < entry_size) {
      vForm.Edt_Entry_Size = entry_size;
      const std::string size = std::to_string(entry_size);
      vForm.platform.MsgBox(
          "File " + vForm.Edt_Path + " < " + size + "bytes" + "\r\n" + "One message have size " + size + " bytes",
          msgbox::Warning, "NOTE!");
    }
    vForm.Edt_Kind = kind;
    Read_EDT(vForm);
  } catch (const Run_Time_Error&) {
    Tick_Failed(vForm);
  }
}

void Tick(Vorlane& vForm) {
  Speech_Kind kind = No_Speech;
  try {
    vForm.CD.Flags = dialog_flag::Open;
    vForm.CD.FileName = Proposed_Name(vForm);
    vForm.CD.Filter = Edt_Filter;
    vForm.CD.FilterIndex = 1;
    vForm.CD.DialogTitle = "VORLANE - OPEN \"EDT\" FILE...";
    if (!vForm.platform.ShowOpen(vForm.CD)) throw Run_Time_Error("cancelled");
    kind = Kind_Of_Filter(vForm.CD.FilterIndex);
  } catch (const Run_Time_Error&) {
    Tick_Failed(vForm);
    return;
  }
  Bind(vForm, vForm.CD.FileName, kind);
}

void Untick(Vorlane& vForm) {
  vForm.Edt_Kind = No_Speech;
  vForm.Com1.Enabled = false;
  vForm.Com2.Enabled = false;
  vForm.L_Message.Caption = "0";
  vForm.L_Edt.Caption.clear();
}

// The bound speech file is gone: say so and let it go.
void Speech_File_Vanished(Vorlane& vForm) {
  vForm.platform.MsgBox("Файл " + vForm.Edt_Path + " не найден!" + "\r\n" + " Возможно он был перемещен или удален",
                        msgbox::Critical, "ERROR");
  Check_Set_Value(vForm, 0);
  vForm.Edt_Kind = No_Speech;
  vForm.L_Edt.Caption.clear();
  vForm.L_Message.Caption = "0";
}

// A step of << or >>: only with a speech file bound, and one that is still there; any other
// failure ends the step without a word.
template <class Body>
void Step(Vorlane& vForm, Body&& body) {
  if (vForm.Edt_Kind == No_Speech) return;
  try {
    if (vForm.files.Dir(vForm.Edt_Path).empty())
      Speech_File_Vanished(vForm);
    else
      body();
  } catch (const Run_Time_Error&) {
  }
}

}  // namespace

void Show_Message(Vorlane& vForm, std::int64_t n) {
  vForm.L_Message.Caption = std::to_string(n);
  Read_EDT(vForm);
}

void Check_Tick_With_File(Vorlane& vForm, const std::string& path, Speech_Kind kind) {
  // The value is written without its click event: the event would ask for the file.
  vForm.Check.Value = 1;
  Bind(vForm, path, kind);
}

void Check_Click(Vorlane& vForm) {
  if (vForm.Check.Value == 0)
    Untick(vForm);
  else
    Tick(vForm);
}

void Com1_Click(Vorlane& vForm) {
  Step(vForm, [&] {
    const std::int64_t n = speech::Message_Number(vForm);
    if (n - 1 < 0)
      vForm.platform.Beep();
    else
      Show_Message(vForm, n - 1);
  });
}

void Com2_Click(Vorlane& vForm) {
  Step(vForm, [&] {
    vForm.Edt_Entry_Size = speech::Entry_Size(vForm.Edt_Kind);
    const std::int64_t size = vForm.Edt_Entry_Size;
    const std::int64_t n = speech::Message_Number(vForm);
    if (!speech::Has_Message(vForm.files.Length(vForm.Edt_Path), size, n + 1))
      vForm.platform.Beep();
    else
      Show_Message(vForm, n + 1);
  });
}
