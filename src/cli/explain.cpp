// explain, diff, info and textconv: a file as the editor reads it, record by record and field by
// field.
#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>

#include "cli/cli.h"
#include "cli/session.h"
#include "store/hex.h"
#include "store/image.h"
#include "store/type_report.h"
#include "system/text.h"

namespace cli {
namespace {

// The columns of a field's line: its caption, its bytes, its sentence.
constexpr std::size_t Caption_Width = 11;  // "Bytes 29-32"
constexpr std::size_t Bytes_Width = 11;    // "00 00 00 00"

std::string Padded(std::string text, std::size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}

void Print_Record(std::ostream& out, const Record_View& record) {
  out << '\n' << record.Heading << ": " << record.Bytes << '\n';
  if (!record.Explained) {
    out << "  " << record.Words << '\n';
    return;
  }
  for (const Field_View& field : record.Fields) {
    out << "  " << Padded(std::string(field.Of->Caption), Caption_Width) << "  " << Padded(field.Bytes, Bytes_Width)
        << "  " << field.Sentence << '\n';
    if (!field.Speech.empty())
      out << std::string(2 + Caption_Width + 2 + Bytes_Width + 2, ' ') << text::Printable(field.Speech) << '\n';
  }
}

// The type report, then record `only` (1 .. 50), or every record that exists, or with `all`
// every record.
void Print_Explanation(Session& session, std::ostream& out, int only, bool all) {
  out << File_Type_Report(session.window).Text() << '\n';
  for (int k = only ? only : 1; k <= (only ? only : image::Records); ++k) {
    const Record_View record = session.Record(k);
    if (only || all || record.Exists()) Print_Record(out, record);
  }
}

// A file's bytes in hex, 32 a line, read a piece at a time.
void Print_Bytes(Session& session, const std::string& path, std::int64_t length, std::ostream& out) {
  constexpr std::int64_t Piece = 32 * 2048;
  for (std::int64_t offset = 0; offset < length; offset += Piece) {
    const auto bytes =
        session.window.files.Read(path, offset, static_cast<std::size_t>(std::min(Piece, length - offset)));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      out << hex::Pair(bytes[i]) << (i % 32 == 31 || i + 1 == bytes.size() ? '\n' : ' ');
    }
  }
}

// All its cells read 00: no record, whether it is all zero or the stump of a Buka file.
bool Empty(const Record_View& record) { return record.Bytes.find_first_not_of("0 ") == std::string::npos; }

}  // namespace

int Explain(const Args& args, std::ostream& out, std::ostream& err) {
  if (args.Has("--record") && args.Has("--all")) throw Usage_Error{"--record and --all can't be used together"};
  if (args.Has("--kind") && !args.Has("--speech")) throw Usage_Error{"--kind goes with --speech"};
  const int only = args.Has("--record") ? static_cast<int>(Number_Option(args, "--record", 1, image::Records)) : 0;
  const Speech_Kind kind = Speech_Kind_Option(args);

  Session session(err);
  if (!session.Open(args.operands[0])) return Failed;
  // A speech file that can't be bound stops it before anything is printed.
  if (args.Has("--speech") && !session.Speech(args.Value("--speech"), kind)) return Failed;
  Print_Explanation(session, out, only, args.Has("--all"));
  return session.failed ? Failed : Done;
}

int Textconv(const Args& args, std::ostream& out, std::ostream&) {
  // git shows every version of a file through this, and stops at the first that fails: whatever
  // the file, it prints something and exits 0. Error lines of the window are not git's business.
  const std::string& path = args.operands[0];
  std::ostringstream quiet;
  try {
    Session session(quiet);
    std::string size_message;
    std::ostringstream explained;
    if (session.Open(path, &size_message)) {
      Print_Explanation(session, explained, 0, false);
      out << explained.str();
      return Done;
    }
    if (size_message.empty()) {
      out << text::Printable(quiet.str().substr(0, quiet.str().find('\n'))) << '\n';
      return Done;
    }
    const std::int64_t length = session.window.files.Length(path);
    out << size_message << ": " << length << " bytes, not " << image::File_Size << '\n';
    Print_Bytes(session, path, length, out);
  } catch (...) {
    out << Program << ": " << text::Printable(path) << ": can't be read\n";
  }
  return Done;
}

namespace {

// The fields of the two files loaded that differ, under a head line that names both; a blank line
// goes before the head when `printed` says that something came before. Tells whether any differ.
bool Print_Differences(Session& a, Session& b, std::ostream& out, bool& printed) {
  bool differ = false;
  for (int k = 1; k <= image::Records; ++k) {
    const Record_View left = a.Record(k);
    const Record_View right = b.Record(k);
    if (Empty(left) && Empty(right)) continue;
    for (std::size_t i = 0; i < left.Fields.size(); ++i) {
      const Field_View& l = left.Fields[i];
      const Field_View& r = right.Fields[i];
      if (l.Bytes == r.Bytes && l.Sentence == r.Sentence) continue;
      if (!differ) {
        if (printed) out << '\n';
        out << "--- " << text::Printable(a.file) << ": " << File_Type_Report(a.window).Text() << '\n';
        out << "+++ " << text::Printable(b.file) << ": " << File_Type_Report(b.window).Text() << '\n';
        differ = printed = true;
      }
      out << '\n' << left.Heading << ", " << l.Of->Caption << '\n';
      out << "  - " << Padded(l.Bytes, Bytes_Width) << "  " << l.Sentence << '\n';
      out << "  + " << Padded(r.Bytes, Bytes_Width) << "  " << r.Sentence << '\n';
    }
  }
  return differ;
}

// Whether two files hold the same bytes, read a piece at a time; an error line, and nothing, for
// one that can't be read.
std::optional<bool> Same_Bytes(Session& a, const std::string& left, Session& b, const std::string& right) {
  constexpr std::int64_t Piece = 1 << 16;
  Session* reading = &a;
  try {
    const std::int64_t length = a.files.Length(left);
    reading = &b;
    if (b.files.Length(right) != length) return false;
    for (std::int64_t offset = 0; offset < length; offset += Piece) {
      const auto count = static_cast<std::size_t>(std::min(Piece, length - offset));
      reading = &a;
      const auto bytes = a.files.Read(left, offset, count);
      reading = &b;
      if (b.files.Read(right, offset, count) != bytes) return false;
    }
    return true;
  } catch (const Run_Time_Error&) {
    reading->file = reading == &a ? left : right;
    const std::string why = reading->files.Why_Unreadable(reading->file);
    reading->Error(why.empty() ? "can't be read" : why);
    return std::nullopt;
  }
}

// Two folders or archives: every file that both hold, an .npc field by field and any other by its
// bytes, and the files that only one of them holds. Names are matched in any letter case, as the
// games match them.
int Diff_Trees(Session& a, Session& b, const std::string& root_a, const std::string& root_b, std::ostream& out,
               std::ostream& err) {
  std::vector<Found_File> found[2];
  bool failed = !Files_Under(a, root_a, false, found[0], err);
  failed = !Files_Under(b, root_b, false, found[1], err) || failed;
  std::map<std::string, const Found_File*> sides[2];
  for (int side = 0; side < 2; ++side) {
    for (const Found_File& file : found[side]) {
      const auto [place, fresh] = sides[side].try_emplace(text::Upper(file.relative), &file);
      if (fresh) continue;
      err << Program << ": " << text::Printable(file.path) << ": the same name as "
          << text::Printable(place->second->path) << " in another letter case; compared neither\n";
      place->second = nullptr;
      failed = true;
    }
  }
  std::set<std::string> names;
  for (const auto& side : sides)
    for (const auto& [name, file] : side) names.insert(name);

  bool differ = false, printed = false;
  for (const std::string& name : names) {
    const auto l = sides[0].find(name), r = sides[1].find(name);
    if (l != sides[0].end() && !l->second) continue;
    if (r != sides[1].end() && !r->second) continue;
    if (l == sides[0].end() || r == sides[1].end()) {
      const bool left = r == sides[1].end();
      out << "Only in " << text::Printable(left ? root_a : root_b) << ": "
          << text::Printable((left ? l : r)->second->relative) << '\n';
      differ = printed = true;
      continue;
    }
    const Found_File& left = *l->second;
    const Found_File& right = *r->second;
    if (text::Upper(left.relative).ends_with(".NPC")) {
      const bool a_open = a.Open(left.path);
      if (b.Open(right.path) && a_open) differ = Print_Differences(a, b, out, printed) || differ;
    } else if (!Same_Bytes(a, left.path, b, right.path).value_or(true)) {
      out << "Files " << text::Printable(left.path) << " and " << text::Printable(right.path) << " differ\n";
      differ = printed = true;
    }
  }
  if (failed || a.failed || b.failed) return Failed;
  return differ ? Found : Done;
}

}  // namespace

int Diff(const Args& args, std::ostream& out, std::ostream& err) {
  Session a(err);
  Session b(err);
  const std::string& left = args.operands[0];
  const std::string& right = args.operands[1];
  const bool trees = Is_Tree(a, left);
  if (trees != Is_Tree(b, right)) throw Usage_Error{"diff compares two files, or two folders or archives"};
  if (trees) return Diff_Trees(a, b, left, right, out, err);

  const bool a_open = a.Open(left);
  if (!b.Open(right) || !a_open) return Failed;
  bool printed = false;
  const bool differ = Print_Differences(a, b, out, printed);
  if (a.failed || b.failed) return Failed;
  return differ ? Found : Done;
}

int Info(const Args& args, std::ostream& out, std::ostream& err) {
  Session session(err);
  for (const std::string& path : args.operands) {
    if (!session.Open(path)) continue;
    if (args.operands.size() > 1) out << text::Printable(path) << ": ";
    out << File_Type_Report(session.window).Text() << '\n';
  }
  return session.failed ? Failed : Done;
}

}  // namespace cli
