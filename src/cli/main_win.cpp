// vorlane-cli on Windows. The arguments come as UTF-16 and go on as UTF-8. The output goes to a
// pipe or a file as the very bytes it is on any other system (UTF-8, each line ending in a line
// feed alone), and to a console as UTF-16 text, which shows Cyrillic whatever the console's code
// page. Both are written with the system's own calls: the C runtime's text mode, which would
// make every line feed CR LF, is never in the way.
#include <windows.h>

#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "system/text_win.h"

namespace {

// A standard handle as a stream buffer.
class Handle_Output : public std::streambuf {
 public:
  explicit Handle_Output(DWORD which) : handle_(GetStdHandle(which)) {
    DWORD mode = 0;
    console_ = GetConsoleMode(handle_, &mode) != 0;
  }
  ~Handle_Output() override { sync(); }

 protected:
  int_type overflow(int_type c) override {
    if (traits_type::eq_int_type(c, traits_type::eof())) return sync() == 0 ? traits_type::not_eof(c) : c;
    pending_ += traits_type::to_char_type(c);
    return pending_.size() < Buffer_Size || sync() == 0 ? c : traits_type::eof();
  }
  std::streamsize xsputn(const char* s, std::streamsize n) override {
    pending_.append(s, static_cast<std::size_t>(n));
    return pending_.size() < Buffer_Size || sync() == 0 ? n : 0;
  }
  int sync() override {
    if (console_) {
      // A console takes whole characters: a character cut by the buffer waits for its rest.
      std::size_t whole = pending_.size();
      for (std::size_t back = 1; back <= 3 && back <= pending_.size(); ++back) {
        const auto c = static_cast<unsigned char>(pending_[pending_.size() - back]);
        if ((c & 0xC0) == 0x80) continue;  // a continuation byte
        const std::size_t length = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
        if (length > back) whole = pending_.size() - back;
        break;
      }
      const std::wstring wide = text::Wide(std::string_view(pending_).substr(0, whole));
      for (std::size_t at = 0; at < wide.size();) {
        DWORD written = 0;
        const DWORD want = static_cast<DWORD>(std::min<std::size_t>(wide.size() - at, 8192));
        if (!WriteConsoleW(handle_, wide.data() + at, want, &written, nullptr) || written == 0) return -1;
        at += written;
      }
      pending_.erase(0, whole);
      return 0;
    }
    for (std::size_t at = 0; at < pending_.size();) {
      DWORD written = 0;
      const DWORD want = static_cast<DWORD>(std::min<std::size_t>(pending_.size() - at, 1 << 20));
      if (!WriteFile(handle_, pending_.data() + at, want, &written, nullptr) || written == 0) return -1;
      at += written;
    }
    pending_.clear();
    return 0;
  }

 private:
  static constexpr std::size_t Buffer_Size = 1 << 16;
  HANDLE handle_;
  bool console_ = false;
  std::string pending_;
};

}  // namespace

// The console leaves wildcards to the program: "*.npc" and "mod\*.npc" become the names of the
// files they match, as a shell makes them elsewhere. A pattern that matches nothing stays as it is.
int _dowildcard = -1;

int wmain(int argc, wchar_t* argv[]) {
  std::vector<std::string> args;
  for (int i = 1; i < argc; ++i) args.push_back(text::Utf8(argv[i]));
  Handle_Output out_buffer(STD_OUTPUT_HANDLE), err_buffer(STD_ERROR_HANDLE);
  std::ostream out(&out_buffer), err(&err_buffer);
  // As with the standard streams: an error line comes after the output before it, and at once.
  err.tie(&out);
  err.setf(std::ios::unitbuf);
  const int status = cli::Run_Program(args, out, err);
  err.flush();
  return status;
}
