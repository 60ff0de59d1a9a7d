// Open, new, save, save as and leaving the program, with the question about unsaved changes.
// The procedures speak in words: a command word in Txt_Free ("open", "new", "exit", "save",
// "saveas"), a result word there afterwards ("OK$", "ERROR$"), a state in Work_Text.
#pragma once

#include <string>

struct Vorlane;

// The path a new file shows until it is saved; it never names a file on disk.
inline constexpr const char* New_File_Path = "...\\new.npc";

// Menu handlers.
void nOpen_Click(Vorlane& vForm);
void nNew_Click(Vorlane& vForm);
void nSave_Click(Vorlane& vForm);
void nSaveas_Click(Vorlane& vForm);
// The window's unload event: cancel keeps the program open.
void Form_Unload(Vorlane& vForm, bool& cancel);

// Asks for a file and loads it through Open_File; a file of the wrong size asks again.
void FileOpen(Vorlane& vForm);

// What became of a file given to Open_File.
enum class Open_Result { Loaded, Wrong_Size, Unreadable };

// Loads the file at `path` as a file picked in the open dialog is loaded: the status bars, the
// records, the slider at 0, Check enabled, the menus. A file that is not 1600 bytes long gets
// the size message in a warning box, and one that can't be read is let go without a word; in
// both cases the window stays as it was. File > Open, a file named on the editor's command line
// and the command-line tool all load through here.
Open_Result Open_File(Vorlane& vForm, const std::string& path);
// A file named on the editor's command line (by the user or a file manager): opened as File >
// Open opens it, under its full path as the dialog would give it. One that is missing, can't be
// read or is no regular file gets the read-failure message ("6"), and the window stays empty.
void Open_Named(Vorlane& vForm, const std::string& name);
void GreatNewFile(Vorlane& vForm);
void FileSave(Vorlane& vForm);
void ForSave(Vorlane& vForm);
void Save(Vorlane& vForm);
void SaveAs(Vorlane& vForm);
// Adds the character's name to the file name in SBar_3, for files 057 .. 169.
void CorrectBar(Vorlane& vForm);
// The file of character npc beside the others: its number in three digits and .npc, "078.npc".
// The character of a file is read back from those first three characters (CorrectBar).
std::string Npc_File_Name(int npc);
