// speech: the messages of a speech file, as the speech pane shows them one by one.
#include <cstdint>
#include <limits>
#include <string>

#include "cli/cli.h"
#include "cli/session.h"
#include "speech/edt_reader.h"
#include "system/text.h"

namespace cli {

int Speech(const Args& args, std::ostream& out, std::ostream& err) {
  const Speech_Kind kind = Speech_Kind_Option(args);
  const bool one = args.Has("--message");
  const std::int64_t wanted = one ? Number_Option(args, "--message", 0, std::numeric_limits<std::int32_t>::max()) : 0;

  Session session(err);
  const std::string& path = args.operands[0];
  session.file = path;
  Vorlane& window = session.window;
  // Ticking the pane shows message 0 and measures the file.
  if (!session.Speech(path, kind)) return Failed;
  const auto whole = [&](std::int64_t n) {
    return speech::Has_Message(window.Edt_File_Size, window.Edt_Entry_Size, n);
  };
  // Each message as the pane shows it, until the last whole one, or until the pane goes off
  // after a message it can't read.
  const auto show = [&](std::int64_t n) {
    session.Read_Message(n);
    if (window.Check.Value != 1) return false;
    out << window.L_Message.Caption << ": " << text::Printable(window.L_Edt.Caption) << '\n';
    return true;
  };
  if (one) {
    if (!whole(wanted)) {
      session.Error("no message " + std::to_string(wanted));
      return Failed;
    }
    show(wanted);
  } else {
    for (std::int64_t n = 0; whole(n) && show(n); ++n) {
    }
  }
  return session.failed ? Failed : Done;
}

}  // namespace cli
