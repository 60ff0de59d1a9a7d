// Open, new, save, save as and leaving the program, with the question about unsaved changes.
// The procedures speak in words: a command word in Txt_Free ("open", "new", "exit", "save",
// "saveas"), a result word there afterwards ("OK$", "ERROR$"), a state in Work_Text.
#pragma once

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

void FileOpen(Vorlane& vForm);
void GreatNewFile(Vorlane& vForm);
void FileSave(Vorlane& vForm);
void ForSave(Vorlane& vForm);
void Save(Vorlane& vForm);
void SaveAs(Vorlane& vForm);
// Adds the character's name to the file name in SBar_3, for files 057 .. 169.
void CorrectBar(Vorlane& vForm);
