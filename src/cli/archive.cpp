// list and extract: the games' archives, as they are and file by file onto the disk. An archive
// is only read; extract writes only under the folder it is given.
#include <algorithm>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/session.h"
#include "store/slf.h"
#include "system/paths.h"
#include "system/text.h"

namespace cli {
namespace {

// The archive at `path`, or an error line that says why it can't be read.
const slf::Archive* Open_Archive(Session& session, const std::string& path) {
  session.file = path;
  // A folder or a pipe is told as such before the archive's reader measures it.
  const std::string why = session.files.Why_Unreadable(path);
  if (!why.empty()) {
    session.Error(why);
    return nullptr;
  }
  try {
    return &session.files.Archive(path);
  } catch (const Run_Time_Error& failure) {
    session.Error(failure.what());
    return nullptr;
  }
}

// An error line about an entry: by its path in the archive, or by its number when it has none.
void Entry_Error(Session& session, const std::string& archive, const slf::Entry& entry, const std::string& what) {
  session.file = entry.Path.empty() ? archive : Archive_Files::Member_Path(archive, entry);
  session.Error(entry.Path.empty() ? "entry " + std::to_string(entry.Number) + ": " + what : what);
}

std::string Padded(const std::string& text, std::size_t width, bool right) {
  const std::size_t length = text::Length(text);
  if (length >= width) return text;
  const std::string fill(width - length, ' ');
  return right ? fill + text : text + fill;
}

// Writes one entry under `folder`, in the folders of the library path and of its own path.
void Extract_Entry(Session& session, const std::string& archive, const std::vector<std::string>& library,
                   const slf::Entry& entry, const std::string& folder, bool force, std::ostream& out) {
  const std::string member = Archive_Files::Member_Path(archive, entry);
  session.file = member;
  const auto refuse = [&](const std::string& why) { session.Error("not extracted: " + why); };
  const slf::Parts parts = slf::Split(entry.Path);
  if (!parts.Fault.empty()) return refuse("its path would lead out of the folder: " + parts.Fault);
  std::vector<std::string> names = library;
  names.insert(names.end(), parts.Names.begin(), parts.Names.end());
  for (const std::string& name : parts.Names)
    if (!sys::Plain_Name(name)) return refuse("\"" + name + "\" is no plain file name here");

  std::string target = folder;
  for (std::size_t i = 0; i < names.size(); ++i) {
    target = text::Path_In(target, names[i]);
    const sys::Path_Info info = sys::Examine(target);
    // Nothing is written through a link: it could lead anywhere.
    if (info.Link) return refuse(target + " is a link, which is not followed");
    if (i + 1 < names.size()) {
      if (info.What == sys::Kind::Folder) continue;
      if (info.What != sys::Kind::Missing) return refuse(target + " is there, and is no folder");
      if (const std::string why = sys::Make_Folder(target); !why.empty())
        return refuse("the folder " + target + " can't be made: " + why);
    } else if (info.What == sys::Kind::File && !force) {
      return refuse(target + " is there already (--force writes over it)");
    } else if (info.What != sys::Kind::File && info.What != sys::Kind::Missing) {
      return refuse(target + " is there, and is no file");
    }
  }
  try {
    session.files.Write(target, session.files.Read(member, 0, entry.Length));
  } catch (const Run_Time_Error& failure) {
    return refuse("can't be written: " + std::string(failure.what()));
  }
  out << text::Printable(member) << " -> " << text::Printable(target) << '\n';
  if (entry.Time == 0) return;  // no date to keep
  const auto time = slf::Unix_Nanoseconds(entry.Time);
  const std::string why = time ? sys::Set_Modified(target, *time) : "it lies before 1678 or after 2261";
  if (!why.empty()) session.Error("written, but its date can't be set: " + why);
}

}  // namespace

int List(const Args& args, std::ostream& out, std::ostream& err) {
  Session session(err);
  const std::string& path = args.operands[0];
  const slf::Archive* archive = Open_Archive(session, path);
  if (!archive) return Failed;
  out << text::Printable(path) << ": library " << text::Printable(archive->Library_Name) << ", path "
      << (archive->Library_Path.empty() ? "none" : text::Printable(archive->Library_Path)) << ", "
      << "entries " << archive->Count << ", in use " << archive->Used << '\n';
  const auto name = [](const slf::Entry& entry) {
    return entry.Path.empty() ? std::string("(no name)") : text::Printable(entry.Path);
  };
  std::size_t name_width = 0, size_width = 0;
  for (const slf::Entry& entry : archive->Entries) {
    if (!entry.Fault.empty()) continue;
    name_width = std::max(name_width, text::Length(name(entry)));
    size_width = std::max(size_width, std::to_string(entry.Length).size());
  }
  for (const slf::Entry& entry : archive->Entries) {
    if (!entry.Fault.empty()) continue;
    std::string line = Padded(name(entry), name_width, false) + "  " +
                       Padded(std::to_string(entry.Length), size_width, true) + "  " + slf::Date_Text(entry.Time);
    if (const std::string state = slf::State_Words(entry.State); !state.empty()) line += "  " + state;
    out << line << '\n';
  }
  for (const slf::Entry& entry : archive->Entries)
    if (!entry.Fault.empty()) Entry_Error(session, path, entry, entry.Fault);
  return session.failed ? Failed : Done;
}

int Extract(const Args& args, std::ostream& out, std::ostream& err) {
  const std::string folder = args.Value("--output", ".");
  if (sys::Examine(folder).What != sys::Kind::Folder) throw Usage_Error{"--output " + folder + " is no folder"};
  const bool force = args.Has("--force");
  Session session(err);
  const std::string& path = args.operands[0];
  const slf::Archive* archive = Open_Archive(session, path);
  if (!archive) return Failed;

  // The library path is where the game finds the files, from its data folder: the output folder
  // stands for that, and the library path must stay inside it as every entry's path must.
  slf::Parts library;
  if (!archive->Library_Path.empty()) library = slf::Split(archive->Library_Path);
  for (const std::string& name : library.Names)
    if (library.Fault.empty() && !sys::Plain_Name(name)) library.Fault = "\"" + name + "\" is no plain folder name here";
  if (!library.Fault.empty()) {
    session.Error("nothing extracted: its library path \"" + archive->Library_Path +
                  "\" would lead out of the folder: " + library.Fault);
    return Failed;
  }

  // The files named, or every file in use; one that can't be read is told and left out.
  std::vector<const slf::Entry*> chosen;
  const auto take = [&](const slf::Entry& entry) {
    if (entry.Fault.empty())
      chosen.push_back(&entry);
    else
      Entry_Error(session, path, entry, entry.Fault);
  };
  if (args.operands.size() == 1) {
    for (const slf::Entry& entry : archive->Entries)
      if (entry.State == slf::In_Use) take(entry);
  }
  for (std::size_t i = 1; i < args.operands.size(); ++i) {
    const std::string& name = args.operands[i];
    if (const slf::Entry* entry = archive->Find(name)) {
      take(*entry);
    } else if (archive->Has_Folder(name)) {
      const std::string prefix = slf::Key(name) + '\\';
      for (const slf::Entry& entry : archive->Entries)
        if (entry.State == slf::In_Use && slf::Key(entry.Path).rfind(prefix, 0) == 0) take(entry);
    } else {
      session.file = path + "/" + name;
      session.Error("no such file in the archive");
    }
  }
  for (const slf::Entry* entry : chosen) Extract_Entry(session, path, library.Names, *entry, folder, force, out);
  return session.failed ? Failed : Done;
}

}  // namespace cli
