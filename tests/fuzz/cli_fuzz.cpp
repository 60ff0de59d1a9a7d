// vorlane-cli's whole road on arbitrary files: explain of every record with and without a
// speech file, check of the folder, and textconv.
//
// Input: a selector byte (bit 0: the file is the rest repeated to 1600 bytes, else the rest as it
// is; bits 1-2: the kind of speech file), then the bytes. They are written as 078.npc, as the file
// of the character that record 1 passes control to (so that check follows it), and as x.edt.
//
// Invariants: every exit status is 0, 1 or 2 and the right one for the file; every output is valid
// UTF-8 with no control character but the line feed; a file of 1600 bytes has all 50 records
// explained, each field with its sentence; check reads every file (no error line); textconv
// always prints and exits 0.
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "fuzz_support.h"
#include "system/text.h"

namespace {

namespace fs = std::filesystem;

// A folder of its own for the run, removed when the run ends.
const fs::path& Folder() {
  static const struct Temporary {
    fs::path path;
    Temporary() {
      std::string name = (fs::temp_directory_path() / "vorlane-cli-fuzz-XXXXXX").string();
      if (!::mkdtemp(name.data())) Broken("no temporary folder");
      path = name;
    }
    ~Temporary() {
      std::error_code ec;
      fs::remove_all(path, ec);
    }
  } folder;
  return folder.path;
}

void Write(const fs::path& path, const std::vector<std::uint8_t>& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

struct Result {
  int status;
  std::string out, err;
};

Result Run(const std::vector<std::string>& args) {
  std::ostringstream out, err;
  const int status = cli::Run(args, out, err);
  for (const std::string& text : {out.str(), err.str()}) {
    Require(text::Valid_Utf8(text), args[0] + ": output that is not UTF-8");
    for (const char c : text)
      Require(c == '\n' || static_cast<unsigned char>(c) >= 0x20, args[0] + ": a control character in the output");
  }
  Require(status == 0 || status == 1 || status == 2, args[0] + ": exit status " + std::to_string(status));
  return {status, out.str(), err.str()};
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream split(text);
  for (std::string line; std::getline(split, line);) lines.push_back(line);
  return lines;
}

// explain's output for a file of the right size: the report, then 50 records, each with its 21
// fields and their sentences, or the window's words for a record it shuts out.
void Require_Every_Record(const std::string& out) {
  const std::vector<std::string> lines = Lines(out);
  Require(!lines.empty() && lines[0].rfind("Type: ", 0) == 0, "explain starts with the type report");
  int records = 0, fields = 0;
  for (const std::string& line : lines) {
    if (line.rfind("Record #", 0) == 0) {
      Require(fields == 0 || fields == 21, "a record with " + std::to_string(fields) + " fields");
      ++records, fields = 0;
    } else if (line.rfind("  Byte", 0) == 0) {
      Require(text::Length(line) > 28, "a field without its sentence: " + line);
      ++fields;
    }
  }
  Require(records == 50, "explain --all shows " + std::to_string(records) + " records");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const bool whole = (data[0] & 1) != 0;
  static const char* const kinds[] = {"npc", "civilian", "comment", "npc"};
  const std::string kind = kinds[(data[0] >> 1) & 3];
  std::vector<std::uint8_t> bytes(data + 1, data + size);
  if (whole && !bytes.empty()) {
    const std::vector<std::uint8_t> pattern = bytes;
    bytes.resize(1600);
    for (std::size_t i = pattern.size(); i < bytes.size(); ++i) bytes[i] = pattern[i % pattern.size()];
  }
  const bool right_size = bytes.size() == 1600;

  const fs::path& folder = Folder();
  for (const auto& entry : fs::directory_iterator(folder)) fs::remove(entry.path());
  const std::string npc = (folder / "078.npc").string();
  const std::string edt = (folder / "x.edt").string();
  Write(npc, bytes);
  Write(edt, bytes);
  if (bytes.size() > 17 && bytes[17] != 78) {
    char target[16];
    std::snprintf(target, sizeof target, "%03d.npc", bytes[17]);
    Write(folder / target, bytes);
  }

  const Result all = Run({"explain", "--all", npc});
  Require(all.status == (right_size ? 0 : 2), "explain --all exits " + std::to_string(all.status));
  if (right_size)
    Require_Every_Record(all.out);
  else
    Require(all.out.empty() && Lines(all.err).size() == 1, "a file of the wrong size: one error line");

  const Result spoken = Run({"explain", "--all", npc, "--speech", edt, "--kind", kind});
  const std::size_t entry = kind == "civilian" ? 320 : 480;
  if (right_size && bytes.size() >= entry) Require_Every_Record(spoken.out);
  Require(spoken.status == (right_size && bytes.size() >= entry ? 0 : 2), "explain --speech exits wrongly");

  const Result checked = Run({"check", "--unknown", folder.string()});
  Require(checked.status != 2 && checked.err.empty(), "check could not read a file: " + checked.err);
  for (const std::string& line : Lines(checked.out))
    Require(line.rfind(folder.string() + "/", 0) == 0, "a finding that names no file: " + line);
  Require(checked.status == (checked.out.empty() ? 0 : 1), "check's status and its findings disagree");

  const Result shown = Run({"textconv", npc});
  Require(shown.status == 0 && !shown.out.empty(), "textconv prints nothing or fails");
  return 0;
}
