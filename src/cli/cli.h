// vorlane-cli: the editor's explanations, checks and conversion for whole folders of NPC files,
// on the command line.
#pragma once

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "form/vorlane.h"

namespace cli {

// Runs the program with these arguments, the program's name left out; returns the exit status.
int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);
// Run, then the output flushed: output that can't be written is an error, whatever the command
// said. What each system's main() calls.
int Run_Program(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

// A command's arguments: the operands in order, and the options given ("--all" -> "",
// "--record" -> "7").
struct Args {
  std::vector<std::string> operands;
  std::map<std::string, std::string> options;

  bool Has(const std::string& option) const { return options.count(option) != 0; }
  std::string Value(const std::string& option, const std::string& otherwise = {}) const;
};

// The commands. Each writes its output to `out` and its error lines to `err`.
int Explain(const Args& args, std::ostream& out, std::ostream& err);
int Diff(const Args& args, std::ostream& out, std::ostream& err);
int Convert(const Args& args, std::ostream& out, std::ostream& err);
int Check(const Args& args, std::ostream& out, std::ostream& err);
int Speech(const Args& args, std::ostream& out, std::ostream& err);
int Info(const Args& args, std::ostream& out, std::ostream& err);
int Textconv(const Args& args, std::ostream& out, std::ostream& err);

int List(const Args& args, std::ostream& out, std::ostream& err);
int Extract(const Args& args, std::ostream& out, std::ostream& err);

class Session;

// A file found under a folder or an archive: its path, and its path relative to that folder
// ("/" between folders).
struct Found_File {
  std::string path, relative;
};
// Whether the path is a folder, an archive, or a folder in an archive.
bool Is_Tree(Session& session, const std::string& path);
// The files under such a folder, subfolders included, in the order of their paths: all of them,
// or with `npc_only` the *.npc ones in any letter case. What can't be read on the way (a folder,
// a *.npc, the archive or one of its entries) is an error line; false then.
bool Files_Under(Session& session, const std::string& root, bool npc_only, std::vector<Found_File>& found,
                 std::ostream& err);

// A bad argument that the parser of the options can't see: its message, and the program stops
// before it has touched any file.
struct Usage_Error {
  std::string what;
};

// A whole number from first to last given to an option; Usage_Error for anything else.
std::int64_t Number_Option(const Args& args, const std::string& option, std::int64_t first, std::int64_t last);
// The kind of speech file named by --kind: npc (the default), civilian or comment.
Speech_Kind Speech_Kind_Option(const Args& args);

}  // namespace cli
