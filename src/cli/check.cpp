// check: the values that the editor calls wrong, over files and whole folders.
#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "cli/cli.h"
#include "cli/in_order.h"
#include "cli/session.h"
#include "fields/explain.h"
#include "store/file_commands.h"
#include "store/hex.h"
#include "store/image.h"
#include "system/paths.h"
#include "system/text.h"
#include "store/type_report.h"

namespace cli {
namespace {

// A name of the form *.npc, in any letter case; ".npc" alone is a hidden file's name.
bool Npc_Name(const std::string& name) {
  const std::size_t dot = name.rfind('.');
  return dot != std::string::npos && dot > 0 && text::Upper(name.substr(dot)) == ".NPC";
}

// The field of this name in the field table.
const Field& Field_Named(std::string_view name) {
  const auto all = fields::All();
  return *std::find_if(all.begin(), all.end(), [&](const Field& field) { return field.Name == name; });
}

// The files that records pass control to, each loaded once into a window of its own.
class Targets {
 public:
  // The file of character `npc` in the folder (a path's folder part, "" for the working folder),
  // NNN.npc in any letter case; empty when there is none.
  std::string File_Of(const std::string& folder, int npc) {
    auto [names, fresh] = folders_.try_emplace(folder);
    if (fresh) {
      if (session_.files.Is_Archive_Folder(folder)) {
        try {
          for (const auto& file : session_.files.List(folder, false).Files)
            names->second[text::Upper(file.Relative)] = file.Path;
        } catch (const Run_Time_Error&) {
          // The archive's fault is told where it is checked.
        }
      } else {
        for (const std::string& name : sys::List_Folder(folder.empty() ? "." : folder).Names) {
          const std::string path = text::Path_In(folder, name);
          if (sys::Examine(path).What == sys::Kind::File) names->second[text::Upper(name)] = path;
        }
      }
    }
    const auto found = names->second.find(text::Upper(Npc_File_Name(npc)));
    return found == names->second.end() ? std::string() : found->second;
  }

  // Where record k of that file is no record, the window's words for it: the file's name as the
  // status bar shows it, the record and what the window says of it. Empty where the record
  // exists or the file can't be loaded.
  const std::string& No_Record(const std::string& path, int k) {
    auto [words, fresh] = files_.try_emplace(path, image::Records + 1);
    if (fresh && session_.Open(path)) {
      for (int n = 1; n <= image::Records; ++n) {
        const Record_View record = session_.Record(n);
        if (record.Exists()) continue;
        const std::string& said = record.Explained ? record.Fields.front().Sentence : record.Words;
        words->second[static_cast<std::size_t>(n)] =
            session_.window.SBar_3.SimpleText + ", " + record.Heading + ": " + said;
      }
    }
    return words->second[static_cast<std::size_t>(k)];
  }

 private:
  std::ostringstream quiet_;  // a target that can't be loaded is checked on its own, if at all
  Session session_{quiet_};
  std::map<std::string, std::map<std::string, std::string>> folders_;
  std::map<std::string, std::vector<std::string>> files_;
};

// The files under a folder (all, or the *.npc ones), and the folders and files that could not be
// read on the way.
class Folder_Walk {
 public:
  Folder_Walk(std::ostream& err, bool npc_only) : err_(err), npc_only_(npc_only) {}

  std::vector<Found_File> files;
  bool failed = false;

  // Every folder under `folder`, links to folders followed as a user would follow them. A folder
  // that was seen already (a loop of links, or a second way to it) is not walked again.
  void Walk(const std::string& folder, const std::string& relative, const sys::Path_Info& info) {
    if (!seen_.emplace(info.Device, info.Node).second) return;
    sys::Listing listing = sys::List_Folder(folder);
    if (!listing.Why.empty()) Error(folder, listing.Why);
    std::sort(listing.Names.begin(), listing.Names.end());  // the same lines in the same order, on any disk
    for (const std::string& name : listing.Names) {
      const std::string path = text::Path_In(folder, name);
      const std::string inner = relative.empty() ? name : relative + "/" + name;
      const sys::Path_Info entry = sys::Examine(path);
      if (entry.What == sys::Kind::Folder) {
        Walk(path, inner, entry);
      } else if (entry.What == sys::Kind::File) {
        if (!npc_only_ || Npc_Name(name)) files.push_back({path, inner});
      } else if (Npc_Name(name)) {
        // A link to nothing, a pipe, a device: a *.npc that can't be read.
        Error(path, entry.What == sys::Kind::Missing
                        ? (entry.Link ? "a link to a file that is not there: " : "") + entry.Why
                        : sys::Not_A_Regular_File);
      } else if (entry.What == sys::Kind::Missing && !entry.Link && entry.Why != sys::No_Such_File) {
        // Not even its kind can be seen: it may be a folder of .npc files. (One that has gone
        // since the folder was listed has nothing left to read.)
        Error(path, entry.Why);
      }
    }
  }

  void Error(const std::string& path, const std::string& why) {
    err_ << Program << ": " << text::Printable(path) << ": " << text::Printable(why) << '\n';
    failed = true;
  }

 private:
  std::ostream& err_;
  bool npc_only_;
  std::set<std::pair<std::uint64_t, std::uint64_t>> seen_;
};

}  // namespace

bool Is_Tree(Session& session, const std::string& path) {
  return sys::Examine(path).What == sys::Kind::Folder || session.files.Is_Archive_Folder(path);
}

bool Files_Under(Session& session, const std::string& root, bool npc_only, std::vector<Found_File>& found,
                 std::ostream& err) {
  Folder_Walk walk(err, npc_only);
  const sys::Path_Info info = sys::Examine(root);
  if (info.What == sys::Kind::Folder) {
    walk.Walk(root, "", info);
  } else {
    try {
      const Archive_Files::Listing listing = session.files.List(root, true);
      for (const auto& fault : listing.Faults) walk.Error(fault.Path, fault.Relative);
      for (const auto& file : listing.Files)
        if (!npc_only || Npc_Name(file.Relative)) walk.files.push_back({file.Path, file.Relative});
    } catch (const Run_Time_Error& failure) {
      walk.Error(root, failure.what());
    }
  }
  std::sort(walk.files.begin(), walk.files.end(),
            [](const Found_File& a, const Found_File& b) { return a.path < b.path; });
  found.insert(found.end(), walk.files.begin(), walk.files.end());
  return !walk.failed;
}

namespace {

// What the check of one file found: its lines for the output and for the errors.
struct File_Findings {
  std::string out, err;
  bool failed = false;  // an error line was written
};

// Checks files of a list one after another in a window of its own, with the files that their
// records pass control to.
class File_Checker {
 public:
  File_Checker(const std::vector<std::string>& files, bool unknown) : files_(files), unknown_(unknown) {}

  File_Findings operator()(std::size_t i) {
    const std::string& file = files_[i];
    std::ostringstream out;
    session_.failed = false;
    const auto finding = [&](const std::string& what) {
      out << text::Printable(file) << ": " << text::Printable(what) << '\n';
    };
    std::string size_message;
    if (!session_.Open(file, &size_message)) {
      if (!size_message.empty()) finding(size_message);
      return Findings(out);
    }
    const std::string remark = File_Type_Report(session_.window).Remark;
    if (!remark.empty()) finding(remark);

    for (int k = 1; k <= image::Records; ++k) {
      const Record_View record = session_.Record(k);
      if (!record.Exists()) continue;
      for (const Field_View& field : record.Fields)
        if (field.Found == Finding::Wrong_Value || (unknown_ && field.Found == Finding::Unnamed_Code))
          finding(record.Heading + ", " + std::string(field.Of->Caption) + ": " + field.Sentence);

      // Control passed to a record of a character whose file lies beside this one.
      const auto npc = fields::Goto_Npc(hex::Byte_Value(session_.window.L(goto_npc_.First).Caption));
      const auto target = fields::Goto_Record(hex::Byte_Value(session_.window.L(goto_record_.First).Caption));
      if (!npc || !target) continue;
      const std::string target_file = targets_.File_Of(text::Folder_Of(file), *npc);
      if (target_file.empty()) continue;
      const std::string& no_record = targets_.No_Record(target_file, *target);
      if (no_record.empty()) continue;
      const auto passed = std::find_if(record.Fields.begin(), record.Fields.end(),
                                       [&](const Field_View& field) { return field.Of == &goto_record_; });
      finding(record.Heading + ", " + std::string(goto_record_.Caption) + ": " + passed->Sentence + "; " + no_record);
    }
    return Findings(out);
  }

 private:
  File_Findings Findings(const std::ostringstream& out) {
    File_Findings findings{out.str(), err_.str(), session_.failed};
    err_.str({});
    return findings;
  }

  const std::vector<std::string>& files_;
  const bool unknown_;
  const Field& goto_npc_ = Field_Named("Goto_Npc");
  const Field& goto_record_ = Field_Named("Goto_Record");
  std::ostringstream err_;
  Session session_{err_};
  Targets targets_;
};

}  // namespace

int Check(const Args& args, std::ostream& out, std::ostream& err) {
  const bool unknown = args.Has("--unknown");
  bool failed = false;

  // The files: those given (a file that can't be read says why when it is opened), and the .npc
  // files of the folders and archives given, in the order of their paths.
  std::vector<std::string> files;
  {
    Session session(err);
    for (const std::string& path : args.operands) {
      if (!Is_Tree(session, path)) {
        files.push_back(path);
        continue;
      }
      std::vector<Found_File> found;
      failed = !Files_Under(session, path, true, found, err) || failed;
      for (const Found_File& file : found) files.push_back(file.path);
    }
  }

  // The files are checked on every core, and what each says is printed in their order.
  bool any = false;
  In_Order(
      files.size(), Threads_For(files.size()), [&] { return std::make_unique<File_Checker>(files, unknown); },
      [&](std::size_t, const File_Findings& findings) {
        out << findings.out;
        err << findings.err;
        any = any || !findings.out.empty();
        failed = failed || findings.failed;
      });
  return failed ? Failed : any ? Found : Done;
}

}  // namespace cli
