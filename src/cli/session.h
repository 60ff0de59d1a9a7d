// The command line's way into the logic: a main window with nobody in front of it. The commands
// load files, move the slider and call the explanations as the editor does, and read the
// window's labels; what the window would show in a message box becomes an error line.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "fields/field_map.h"
#include "store/archive_files.h"
#include "store/file_commands.h"
#include "ui/events.h"
#include "form/recording_platform.h"
#include "form/vorlane.h"

namespace cli {

// The exit status: done, found something (findings, differences), failed.
enum Exit { Done = 0, Found = 1, Failed = 2 };

// The line that starts every error message.
inline constexpr const char* Program = "vorlane-cli";

// A window whose program has ended at once, after a fatal message: the command can't go on.
struct Program_Ended {};


// One field of the record on show, as the editor explains it.
struct Field_View {
  const Field* Of = nullptr;
  std::string Bytes;     // its cells, a blank between two
  std::string Sentence;  // L_Info_User
  Finding Found = Finding::None;
  std::string Speech;  // byte 14 with a speech file bound: L_Edt, when a message was read
};

// One record as the window shows it.
struct Record_View {
  std::string Heading;             // L_NLine: "Record #7"
  std::string Bytes;               // every cell that has a caption, a blank between two
  bool Explained = false;          // the byte grid takes the mouse, and the fields have their sentences
  bool All_Zero = false;           // explained, and every field says Bad record: no record
  std::string Words;               // of a record the grid shuts out, what L_Info_User says instead
  std::vector<Field_View> Fields;  // the 21 fields; those of a record shut out say its Words
  bool Exists() const { return Explained && !All_Zero; }
};

class Session {
 public:
  // Error lines go to `err`; `file` names the file they are about.
  explicit Session(std::ostream& err);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  Recording_Platform platform;  // quiet: questions and dialogs are cancelled
  Archive_Files files{Disk()};  // the disk, with the files in archives as files of their own
  Vorlane window{Routes(), platform, files};
  std::string file;
  bool failed = false;  // an error line was written

  // Runs a step of the logic as an event of the window. Message boxes become error lines;
  // Program_Ended when a fatal failure would have ended the editor.
  template <class Step>
  void Event(Step&& step) {
    Fire(window, std::forward<Step>(step));
    Pass_On_Boxes();
  }
  // Writes "vorlane-cli: FILE: what" and counts the session as failed. The file's name and the
  // words are made printable: one line, valid UTF-8.
  void Error(const std::string& what);

  // Loads a file as File > Open does. A file of the wrong size leaves the window's message in
  // `size_message` (an error line when none is given); a file that can't be read gets an error
  // line that says why (no such file, permission denied, a folder, not a regular file, or what
  // is wrong with the archive or its entry). Tells whether the file was loaded.
  bool Open(const std::string& path, std::string* size_message = nullptr);
  // Shows record k, 1 .. 50, and reads what the window says of it and of each of its fields.
  Record_View Record(int k);
  // Ticks the speech pane with this file of this kind; false, with one error line, when it
  // can't be bound. The records explained from then on show the line of byte 14.
  bool Speech(const std::string& path, Speech_Kind kind);
  // Reads message n of the bound speech file into L_Edt, wherever it lies in the file.
  void Read_Message(std::int64_t n);

 private:
  void Pass_On_Boxes();
  // Explains byte 14 of the record on show with the line it names.
  void Explain_Byte_14();
  std::ostream& err_;
  std::size_t error_lines_ = 0;
  std::string speech_path_;  // the speech file bound by Speech, for as long as the session lives
  Speech_Kind speech_kind_ = No_Speech;
};

// The cells first .. last of the record on show, a blank between two; empty cells are left out.
std::string Cells(const Vorlane& window, int first, int last);

}  // namespace cli
