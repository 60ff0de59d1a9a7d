// convert: the conversion of the Type menu for many files at once.
#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/session.h"
#include "store/conversion.h"
#include "store/image.h"
#include "store/npc_dialogs.h"
#include "store/type_report.h"
#include "system/failure.h"
#include "system/paths.h"
#include "system/text.h"

namespace cli {
namespace {

// Hex text as pairs with a blank between two: "01020304" -> "01 02 03 04".
std::string Spaced(const std::string& hex) {
  std::string spaced;
  for (std::size_t p = 0; p + 1 < hex.size(); p += 2) spaced += (p ? " " : "") + hex.substr(p, 2);
  return spaced;
}

// Writes the image to `path` as saves do: a new file that then takes the old one's place. A file
// that is not there yet gets the mode of `source`, the file it comes from, less the umask.
bool Write(Session& session, const std::string& path, const std::string& image, const std::string& source) {
  try {
    std::vector<std::uint8_t> bytes;
    session.Event([&] { bytes = image::Bytes_Of(image); });
    const sys::Path_Info from = sys::Examine(source);
    session.window.files.Write(path, bytes, from.What == sys::Kind::File ? from.Mode : Files::New_File_Mode);
    return true;
  } catch (const Run_Time_Error& failure) {
    session.file = path;
    session.Error(std::string("can't be written: ") + failure.what());
    return false;
  }
}

}  // namespace

int Convert(const Args& args, std::ostream& out, std::ostream& err) {
  const std::string to = args.Value("--to");
  if (to != "buka" && to != "standard")
    throw Usage_Error{args.Has("--to") ? "--to is buka or standard, not " + to
                                       : "--to buka or --to standard is needed"};
  const int target = to == "buka" ? npc_type::Buka : npc_type::Standard;
  const bool into = args.Has("--output");
  const std::string folder = args.Value("--output");
  if (into && sys::Examine(folder).What != sys::Kind::Folder) throw Usage_Error{"--output " + folder + " is no folder"};
  if (into) {
    // Two files of one name would land on one another in the folder; on Windows, two names that
    // differ only in the case of their letters are one name.
    std::set<std::string> names;
    for (const std::string& path : args.operands) {
      const std::string name = text::File_Title(path);
#ifdef _WIN32
      const bool fresh = names.insert(text::Upper(name)).second;
#else
      const bool fresh = names.insert(name).second;
#endif
      if (!fresh) throw Usage_Error{"two files named " + name + " for one folder"};
    }
  }

  Session session(err);
  Files& files = session.window.files;
  for (const std::string& path : args.operands) {
    if (!into && session.files.Split(path)) {
      session.file = path;
      session.Error("not converted: a file in an archive, which is only read (--output writes the result elsewhere)");
      continue;
    }
    if (!session.Open(path)) continue;
    const std::string output = into ? text::Path_In(folder, text::File_Title(path)) : path;
    // --output leaves every file given as it is, also one that lies in that folder.
    if (into) {
      const auto given = std::find_if(args.operands.begin(), args.operands.end(),
                                      [&](const std::string& other) { return files.Same_File(output, other); });
      if (given != args.operands.end()) {
        session.Error("not written: " + output + " is " + (*given == path ? "this file" : "the file " + *given) +
                      ", given to convert; --output must not write over it");
        continue;
      }
    }
    const std::string shown = text::Printable(path) + (into ? " -> " + text::Printable(output) : "");
    const Conversion conversion = Convert_Image(session.window.HexImage, target);
    if (!conversion.Needed) {
      const std::string type = File_Type_Report(session.window).Type;
      if (!into) {
        out << shown << ": already " << type << ", left as it is\n";
      } else if (Write(session, output, session.window.HexImage, path)) {
        out << shown << ": already " << type << ", copied as it is\n";
      }
      continue;
    }
    // What the window would make of the result: a Buka file whose last record is not all zero
    // is reported as such, and that record counts no more.
    std::string remark;
    session.Event([&] {
      image::Load(session.window, image::Bytes_Of(conversion.Image));
      remark = File_Type_Report(session.window).Remark;
    });
    const std::string dropped = "bytes 29 to 32 of record 50, " + Spaced(conversion.Dropped);
    if (!args.Has("--force") && !remark.empty()) {
      session.Error("not converted: record 50 is in use, and a Buka file has no room for it (\"" + remark +
                    "\"; --force drops it)");
      continue;
    }
    if (!args.Has("--force") && !conversion.Dropped.empty()) {
      session.Error("not converted: a Buka file has no room for " + dropped + " (--force drops them)");
      continue;
    }
    if (!Write(session, output, conversion.Image, path) || !session.Open(output)) continue;
    out << shown << ": " << File_Type_Report(session.window).Type;
    if (!conversion.Dropped.empty()) out << ", " << dropped << ", dropped";
    if (!remark.empty()) out << ", record 50 dropped: " << remark;
    out << '\n';
  }
  return session.failed ? Failed : Done;
}

}  // namespace cli
