// The main window object: every control of the main window and every variable of a run.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "form/controls.h"
#include "form/platform.h"
#include "form/route.h"
#include "system/files.h"

struct Edit_Form;
struct About_Form;

// What an explanation finds in a field's value besides its sentence: nothing, a value that is
// wrong (out of the field's range, or one that no record of the game holds), or a code that the
// tables can't name.
enum class Finding { None, Wrong_Value, Unnamed_Code };

// The kinds of speech file, as Edt_Kind holds them: none bound, NPC dialogues and civilians'
// dialogues (messages of 480 and 320 bytes), and NPC comments (480 bytes; a text ends at any
// 00 00 that is no "я").
enum Speech_Kind : std::int16_t { No_Speech = 0, Npc_Dialogues = 1, Civilian_Dialogues = 3, Npc_Comments = 4 };

struct Vorlane : Form_Window {
  // The window, its controls and its variables, as they are at start. `events` is the routing
  // table of all three windows: which handler answers which event of which control.
  Vorlane(std::span<const Route> events, Platform& platform, Files& files = Disk());
  ~Vorlane();
  Vorlane(const Vorlane&) = delete;
  Vorlane& operator=(const Vorlane&) = delete;

  std::span<const Route> Events;
  Platform& platform;
  Files& files;

  // --- Controls ---------------------------------------------------------------------------
  Slider_Control Slider;
  Label L_Info_Line;
  Label L_NLine;
  Line Line1;
  Line Line2;
  std::array<Label, 32> Cells;  // L_1 .. L_32, reached through L(n)
  Label L_Info_User;
  Label L_NByte;
  Label Help;
  List_Box List;
  Label L_Edt;
  Check_Box Check;
  Label L_Fix;
  Label L_Fix_1;
  Label L_Message;
  Button Com1;
  Button Com2;
  Status_Bar SBar_1;
  Status_Bar SBar_2;
  Status_Bar SBar_3;
  Button ComExit;
  Text_Box Txt_Free;
  Common_Dialog CD;

  Menu_Item nFile, nOpen, nNew, nSave, nSaveas, n1, nExit;
  Menu_Item nView, nKey_2, nKey_1, nItem, nNPC_Names, nQests, nQuests, nTrigers;
  Menu_Item nTools, nEdit, nType, nCurrent, nChaing;
  Menu_Item nRecord, nNext, nBack;
  Menu_Item nAbout;

  // A menu item by its name ("nOpen"); nullptr for a name that is none.
  Menu_Item* Menu(std::string_view name);

  // Byte cell n, 1 .. 32.
  // A byte cell by its number, 1 to 32; another number is an element the control array lacks.
  Label& L(int n) { return Cells.at(static_cast<std::size_t>(n - 1)); }
  const Label& L(int n) const { return Cells.at(static_cast<std::size_t>(n - 1)); }

  // --- The file image ---------------------------------------------------------------------
  std::string HexImage;
  std::string Saved_Image;
  std::string FileType;                 // "ja" for the Buka variant, empty for the standard one
  std::array<std::string, 50> Records;  // Record_1 .. Record_50, reached through Record(k)
  std::int16_t Current_Record = 0;
  std::int32_t Start_Char = 0;

  std::string& Record(int k) { return Records[static_cast<std::size_t>(k - 1)]; }
  const std::string& Record(int k) const { return Records[static_cast<std::size_t>(k - 1)]; }

  // --- Shared working storage -------------------------------------------------------------
  std::string File_Path;
  std::string Work_Text;
  std::string Work_Text_2;
  std::string Work_Text_3;
  std::int32_t Work_Long = 0;
  std::int16_t Loop_Index = 0;
  std::int16_t File_Number = 0;
  std::uint8_t Byte_Buffer = 0;
  std::string Selected_Field;
  // What the sentence in L_Info_User finds in the value; every explanation sets both together.
  Finding Info_Finding = Finding::None;

  // Constants set at start-up.
  std::string Color_Normal;
  std::string Color_Field;
  std::string Color_Select;
  std::string Hint_Text;
  std::string Error_Title;
  std::string Bad_Record_Text;

  // The speech file.
  Speech_Kind Edt_Kind = No_Speech;
  std::int16_t Edt_Entry_Size = 0;
  std::string Edt_Path;
  std::int64_t Edt_File_Size = 0;
  // The last position (1-based) that the walk through a message may reach: the editor counts in
  // signed 16 bits, so the last message it shows is 67 of 480 bytes, 101 of 320. None: any
  // message that the file holds is read (the command line reads them all).
  std::optional<std::int64_t> Edt_Last_Position = 32767;

  // --- The other windows, alive while shown -----------------------------------------------
  std::unique_ptr<Edit_Form> Edit;
  std::unique_ptr<About_Form> About;

  // The window has been unloaded (the program ends normally) or ended at once.
  bool Unloaded = false;
  bool Ended = false;
};
