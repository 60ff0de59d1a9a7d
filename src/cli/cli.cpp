#include "cli/cli.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include "cli/session.h"
#include "speech/edt_reader.h"
#include "system/text.h"

namespace cli {
namespace {

struct Command {
  std::string_view Name;
  int (*Run)(const Args&, std::ostream&, std::ostream&);
  std::vector<std::string_view> Flags;        // options without a value
  std::vector<std::string_view> Valued;       // options with a value
  std::size_t Least_Operands, Most_Operands;  // how many operands it takes
  std::string_view Help;
};

constexpr std::size_t Any = 100000;

const char* const Program_Help = R"(usage: vorlane-cli COMMAND [ARGUMENTS]

Reads the NPC script files (.npc) of JA2 and UB with the editor's own sentences, names and
rules, without a window: for scripts, checks of a mod and git diff.

commands:
  explain FILE.npc          each record and field, with the sentences the editor shows
  diff A B                  the fields that differ, with their sentences; of two files, or of
                            two folders or archives
  convert --to V FILE...    to the Buka or the standard variant, as Tools > Type > Change does
  check PATH...             the values that the editor calls wrong, in files, folders, archives
  speech FILE.edt           the messages of a speech file
  info FILE.npc...          the variant and the records in use
  textconv FILE             for git: explain, or the bytes of a file it can't explain
  list ARCHIVE.slf          the files in one of the games' archives
  extract ARCHIVE.slf       its files, onto the disk

The games keep their files in archives, .slf files: wherever a file is taken, ARCHIVE.slf/NAME
names the file NAME in it (letter case ignored), as in
  vorlane-cli explain NpcData.slf/078.npc --speech NpcData.slf/078.edt
and wherever a folder is taken, an archive will do. An archive is only read, never written.

"vorlane-cli COMMAND --help" tells more of each. Output is UTF-8. Exit status: 0 done,
1 found something (findings, differences), 2 errors; an error is one line on standard error.
In speech texts and file names, a control character (codes 00-1F, 7F, 80-9F) and a byte that
is not UTF-8 are shown as \xNN, their code in hex: a line feed as \x0A, an escape as \x1B.
)";

const Command Commands[] = {
    {"explain",
     Explain,
     {"--all"},
     {"--record", "--speech", "--kind"},
     1,
     1,
     R"(usage: vorlane-cli explain FILE.npc [--record N | --all] [--speech FILE.edt [--kind KIND]]

Prints the file's variant and records in use, then each record that exists (that is not all
zero): its number and its 32 bytes, and for each of its 21 fields the caption, the field's
bytes and the sentence that the editor shows for them. A record that the editor can't show says
so in the editor's words. The output stays the same for the same file, so that git can show
.npc files through it (see the README).

  --record N          only record N, 1 to 50, whatever it holds
  --all               every record, those that are all zero too
  --speech FILE.edt   under byte 14, the line it names, read from this speech file as the
                      editor's speech pane reads it, but for any message the file holds (the
                      editor stops at message 67, 101 for civilians)
  --kind KIND         the kind of that speech file: npc (the default), civilian or comment;
                      see "vorlane-cli speech --help"
)"},
    {"diff",
     Diff,
     {},
     {},
     2,
     2,
     R"(usage: vorlane-cli diff A.npc B.npc
       vorlane-cli diff FOLDER-A FOLDER-B

Compares two files record by record, also a file of the Buka variant with one of the standard
variant, and prints each field whose bytes or sentence differ: the bytes and the sentence of A
behind "-", those of B behind "+". Records that are all zero on both sides are equal.

Of two folders or archives (subfolders included; names matched in any letter case, as the games
match them), it compares every .npc file that both hold in this way, says of any other file that
both hold whether its bytes differ ("Files A/X and B/X differ"), and names each file that only
one of them holds ("Only in A: X"). What did a mod change?
  vorlane-cli diff NpcData.slf mymod/NpcData

Exit status 0 when they are equal, 1 when they differ.
)"},
    {"convert",
     Convert,
     {"--force"},
     {"--to", "--output"},
     1,
     Any,
     R"(usage: vorlane-cli convert --to buka|standard [--output DIR] [--force] FILE...

Converts each file to the Buka variant (the Russian edition) or to the standard one, as
Tools > Type > Change does: to Buka, the mark 39 00 35 00 goes in front and the last four bytes,
bytes 29 to 32 of record 50, drop out; to standard, the mark goes and four zero bytes come
behind. Each file is written whole to a new file that then takes the old one's place. A file
that is of that variant already is left as it is. A file in an archive (ARCHIVE.slf/NAME) is
converted only into a folder of --output: an archive is never written.

  --to VARIANT   buka or standard
  --output DIR   write the results into this folder, each under its own name, and leave the
                 files given as they are; a file already of that variant is copied unchanged.
                 A result that would land on a file given is not written (error line). A new
                 file gets the mode of the file it comes from, less the umask
  --force        convert to Buka also where record 50 is in use, and lose it: a Buka file has
                 no room for bytes 29 to 32 of record 50, and its last record counts only when
                 it is all zero ("Bad last record"); without it such a file is not converted,
                 with an error line
)"},
    {"check",
     Check,
     {"--unknown"},
     {},
     1,
     Any,
     R"(usage: vorlane-cli check [--unknown] PATH...

Checks .npc files, given as files or as folders that are searched for *.npc in any letter case,
subfolders included; an archive, ARCHIVE.slf, is searched as a folder (an archive inside a
folder given is not: name it). Prints one line for each finding:
  FILE: Record #N, Byte 15: <the editor's sentence>
Findings are the sentences that say a value is wrong (a fire mode, trigger, quest, character,
record or leadership out of range, byte 15 against byte 14, a byte 20 or bytes 29-32 that are not
zero); a file of the wrong size; a Buka file whose last record is not all zero; and control
passed on (bytes 18 and 19) to a record that is all zero, when the file of that character,
NNN.npc, lies in the same folder or archive. Exit status 1 when anything was found. Links to folders
are followed (a folder reached twice is checked once); a folder that can't be listed, and a
*.npc that can't be read (a link to nothing, a pipe, a device), an archive that can't be read and
an entry of one that can't be (see "vorlane-cli list --help") are error lines and exit status 2.

  --unknown   also the input and reaction codes that have no name ("<?>")
)"},
    {"speech",
     Speech,
     {},
     {"--kind", "--message"},
     1,
     1,
     R"(usage: vorlane-cli speech FILE.edt [--kind KIND] [--message N]

Prints each whole message of a speech file as "N: text", decoded as the editor's speech pane
decodes it, or only message N. Unlike the editor, which stops at message 67 (101 for
civilians), it reads every message that the file holds.

  --kind KIND   npc: NPC dialogues, <3num>.edt, 480 bytes a message (the default);
                civilian: civilians' dialogues, <Civ+2num>.edt or <Sector>.edt, 320 bytes;
                comment: NPC comments, <D_+3num>.edt, 480 bytes
  --message N   only message N, 0 to 2147483647
)"},
    {"info",
     Info,
     {},
     {},
     1,
     Any,
     R"(usage: vorlane-cli info FILE.npc...

Prints what Tools > Type > Current says of a file: its variant, the number of records in use
and, for a Buka file whose last record is not all zero, "Bad last record". With more than one
file, each line starts with the file's name.
)"},
    {"list",
     List,
     {},
     {},
     1,
     1,
     R"(usage: vorlane-cli list ARCHIVE.slf

Prints a line on the archive (its library name, its library path, the folder of the game's data
folder that its files belong in, and its entries, all and in use), then each entry in the order
of its table: its path in the archive, its size in bytes, its date (UTC), and its state when it
is not in use: "older copy", "unused", or "state NN" for a state that has no name. Only the
entries in use are the game's files.

An archive comes from anywhere, and is read with care. One whose header doesn't hold (a file
shorter than the 532 bytes of a header, a library name or path without its closing NUL, a
negative count, more entries in use than entries, entries that don't fit in the file) can't be
read at all: one error line, exit status 2. An entry that doesn't hold (a name without its
closing NUL, an entry in use without a name, data outside the archive's data, data that overlaps
another entry's, a name that another entry in use has in any letter case) is an error line of
its own, and exit status 2; the others are listed, and can be read.
)"},
    {"extract",
     Extract,
     {"--force"},
     {"--output"},
     1,
     Any,
     R"(usage: vorlane-cli extract ARCHIVE.slf [PATH...] [--output DIR] [--force]

Writes the files in use of the archive, or those named (a folder in it names each of its
files), under DIR, the current folder when none is given, in the folders of the archive's
library path and of their own paths, as the game's data folder would hold them: NpcData.slf
with the library path NpcData\ writes 078.npc as DIR/NpcData/078.npc. Each file gets the date
that the archive gives it and is written whole or not at all, as convert writes. Prints
"ARCHIVE.slf/PATH -> FILE" for each file written.

Nothing is written outside DIR, and nothing through a link: an entry whose path climbs out
("..") or starts at a drive ("C:") or at the top of a disk (""), or holds a name that is no
plain file name on this system, is not written (error line, exit status 2), and neither is
anything whose library path does so. The archive itself is only read.

  --output DIR   the folder to write under; it must exist
  --force        write over files that are there already; without it, such a file is left
                 as it is (error line)
)"},
    {"textconv",
     Textconv,
     {},
     {},
     1,
     1,
     R"(usage: vorlane-cli textconv FILE

For git: prints what "vorlane-cli explain FILE" prints; for a file that it can't explain (one
of another size, an empty one), one line that says why, with the file's size, then its bytes in
hex, 32 a line. Exit status 0 whatever the file, so that git diff, git log -p and git show never
stop at a file. With these two lines, git shows .npc files through it:
  echo '*.npc diff=npc' >> .gitattributes
  git config diff.npc.textconv "vorlane-cli textconv"
)"},
};

bool Listed(const std::vector<std::string_view>& options, std::string_view name) {
  return std::find(options.begin(), options.end(), name) != options.end();
}

// The options and operands of a command, in any order; "--" ends the options. Usage_Error for
// what the command doesn't take.
Args Parse(const Command& command, const std::vector<std::string>& words) {
  Args args;
  bool options_end = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (options_end || word.size() < 2 || word[0] != '-') {
      args.operands.push_back(word);
      continue;
    }
    if (word == "--") {
      options_end = true;
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    if (Listed(command.Flags, name) && equals == std::string::npos) {
      args.options[name] = "";
    } else if (Listed(command.Valued, name)) {
      if (equals == std::string::npos && i + 1 == words.size()) throw Usage_Error{name + " needs a value"};
      args.options[name] = equals == std::string::npos ? words[++i] : word.substr(equals + 1);
    } else {
      throw Usage_Error{"unknown option " + word};
    }
  }
  const std::size_t count = args.operands.size();
  if (count < command.Least_Operands) throw Usage_Error{"too few arguments"};
  if (count > command.Most_Operands) throw Usage_Error{"too many arguments"};
  return args;
}

}  // namespace

std::string Args::Value(const std::string& option, const std::string& otherwise) const {
  const auto found = options.find(option);
  return found == options.end() ? otherwise : found->second;
}

std::int64_t Number_Option(const Args& args, const std::string& option, std::int64_t first, std::int64_t last) {
  const std::string text = args.Value(option);
  std::int64_t number = -1;
  const char* const end = text.data() + text.size();
  const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  // Digits beyond what 64 bits hold are out of range as well.
  if (digits) {
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end) number = -1;
  }
  if (number < first || number > last)
    throw Usage_Error{option + " takes a number from " + std::to_string(first) + " to " + std::to_string(last)};
  return number;
}

Speech_Kind Speech_Kind_Option(const Args& args) {
  const std::string name = args.Value("--kind", "npc");
  if (const std::optional<Speech_Kind> kind = speech::Kind_Named(name)) return *kind;
  throw Usage_Error{"--kind is npc, civilian or comment, not " + name};
}
int Run(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  if (args.empty()) {
    err << Program_Help;
    return Failed;
  }
  const std::string& name = args[0];
  if (name == "--help" || name == "-h" || (name == "help" && args.size() == 1)) {
    out << Program_Help;
    return Done;
  }
  if (name == "--version") {
    out << Program << ' ' << VORLANE_VERSION << '\n';
    return Done;
  }
  const bool help = name == "help";
  const std::string& wanted = help ? args[1] : name;
  const Command* command = nullptr;
  for (const Command& c : Commands)
    if (c.Name == wanted) command = &c;
  if (!command) {
    err << Program << ": no command " << text::Printable(wanted) << " (see vorlane-cli --help)\n";
    return Failed;
  }
  const std::vector<std::string> words(args.begin() + (help ? 2 : 1), args.end());
  const auto asks_help = [&](std::string_view word) { return word == "--help" || word == "-h"; };
  if (help || std::any_of(words.begin(), words.end(), asks_help)) {
    out << command->Help;
    return Done;
  }
  try {
    return command->Run(Parse(*command, words), out, err);
  } catch (const Usage_Error& error) {
    err << Program << ' ' << command->Name << ": " << text::Printable(error.what) << " (see vorlane-cli "
        << command->Name << " --help)\n";
  } catch (const Program_Ended&) {
    // The message that ended it is already out.
  }
  return Failed;
}

int Run_Program(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  const int status = Run(args, out, err);
  if (!out.flush()) {
    err << Program << ": the output can't be written\n";
    return Failed;
  }
  return status;
}

}  // namespace cli
