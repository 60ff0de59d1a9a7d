// convert: the conversion of the Type menu for many files at once.
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/session.h"
#include "system/failure.h"
#include "store/image.h"
#include "store/npc_dialogs.h"
#include "store/conversion.h"
#include "store/type_report.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

// Hex text as pairs with a blank between two: "01020304" -> "01 02 03 04".
std::string Spaced(const std::string& hex) {
  std::string spaced;
  for (std::size_t p = 0; p + 1 < hex.size(); p += 2) spaced += (p ? " " : "") + hex.substr(p, 2);
  return spaced;
}

// Writes the image to `path` as saves do: a new file that then takes the old one's place.
bool Write(Session& session, const std::string& path, const std::string& image) {
  try {
    std::vector<std::uint8_t> bytes;
    session.Event([&] { bytes = image::Bytes_Of(image); });
    session.window.files.Write(path, bytes);
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
  const fs::path folder = args.Value("--output");
  std::error_code ec;
  if (into && !fs::is_directory(folder, ec)) throw Usage_Error{"--output " + folder.string() + " is no folder"};
  if (into) {
    // Two files of one name would land on one another in the folder.
    std::set<fs::path> names;
    for (const std::string& path : args.operands)
      if (!names.insert(fs::path(path).filename()).second)
        throw Usage_Error{"two files named " + fs::path(path).filename().string() + " for one folder"};
  }

  Session session(err);
  for (const std::string& path : args.operands) {
    if (!session.Open(path)) continue;
    const std::string output = into ? (folder / fs::path(path).filename()).string() : path;
    const bool elsewhere = into && !session.window.files.Same_File(output, path);
    const Conversion conversion = Convert_Image(session.window.HexImage, target);
    if (!conversion.Needed) {
      const std::string type = File_Type_Report(session.window).Type;
      if (!elsewhere) {
        out << path << ": already " << type << ", left as it is\n";
      } else if (Write(session, output, session.window.HexImage)) {
        out << path << " -> " << output << ": already " << type << ", copied as it is\n";
      }
      continue;
    }
    const std::string dropped = "bytes 29 to 32 of record 50, " + Spaced(conversion.Dropped);
    if (!conversion.Dropped.empty() && !args.Has("--force")) {
      session.Error("not converted: a Buka file has no room for " + dropped + " (--force drops them)");
      continue;
    }
    if (!Write(session, output, conversion.Image) || !session.Open(output)) continue;
    out << path << (elsewhere ? " -> " + output : "") << ": " << File_Type_Report(session.window).Type;
    if (!conversion.Dropped.empty()) out << ", " << dropped << ", dropped";
    out << '\n';
  }
  return session.failed ? Failed : Done;
}

}  // namespace cli
