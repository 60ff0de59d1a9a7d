// speech: the messages of a speech file, as the speech pane shows them one by one.
#include <limits>
#include <string>

#include "cli/cli.h"
#include "cli/session.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"

namespace cli {

int Speech(const Args& args, std::ostream& out, std::ostream& err) {
  const Speech_Kind kind = Speech_Kind_Option(args);
  const bool one = args.Has("--message");
  const int wanted = one ? Number_Option(args, "--message", 0, std::numeric_limits<int>::max()) : 0;

  Session session(err);
  const std::string& path = args.operands[0];
  session.file = path;
  Vorlane& window = session.window;
  // Ticking the pane shows message 0.
  if (!session.Speech(path, kind)) return Failed;
  const auto whole = [&](int n) { return speech::Has_Message(window.Edt_File_Size, window.Edt_Entry_Size, n); };
  const auto print = [&] {
    if (window.Check.Value == 1) out << window.L_Message.Caption << ": " << window.L_Edt.Caption << '\n';
  };
  if (one) {
    if (!whole(wanted)) {
      session.Error("no message " + std::to_string(wanted));
      return Failed;
    }
    session.Event([&] { Show_Message(window, wanted); });
    print();
  } else if (whole(0)) {
    // Then ">>" until it beeps at the last whole message, or the pane goes off after a message
    // it can't read.
    print();
    for (int beeps = session.platform.Beeps; window.Check.Value == 1; beeps = session.platform.Beeps) {
      session.Event([&] { Com2_Click(window); });
      if (session.platform.Beeps != beeps) break;
      print();
    }
  }
  return session.failed ? Failed : Done;
}

}  // namespace cli
