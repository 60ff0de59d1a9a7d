// The test helpers that use the Windows API's own calls.
#include <windows.h>

#include "support/files.h"
#include "system/text.h"
#include "system/text_win.h"

Unreplaceable::Unreplaceable(const std::string& path)
    : held_(CreateFileW(text::Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                        OPEN_EXISTING, 0, nullptr)) {}

Unreplaceable::~Unreplaceable() { CloseHandle(held_); }

namespace {

// A command line of these words, each quoted as the C runtime parses it back.
std::wstring Command_Line(const std::vector<std::string>& words) {
  std::wstring line;
  for (const std::string& word : words) {
    line += line.empty() ? L"\"" : L" \"";
    std::size_t backslashes = 0;
    for (const wchar_t c : text::Wide(word)) {
      if (c == L'\\') {
        ++backslashes;
        continue;
      }
      line.append(c == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
      backslashes = 0;
      line += c;
    }
    line.append(2 * backslashes, L'\\');
    line += L'"';
  }
  return line;
}

// A file for the program's output, read back and removed when the run is over.
struct Output_File {
  std::wstring path;
  HANDLE handle;
  explicit Output_File(const wchar_t* name) {
    wchar_t folder[MAX_PATH + 1];
    GetTempPathW(MAX_PATH + 1, folder);
    path = std::wstring(folder) + name + std::to_wstring(GetCurrentProcessId()) + L".txt";
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                         CREATE_ALWAYS, FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  }
  ~Output_File() { CloseHandle(handle); }
  std::string Text() const {
    LARGE_INTEGER size, start{};
    GetFileSizeEx(handle, &size);
    SetFilePointerEx(handle, start, nullptr, FILE_BEGIN);
    std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
    DWORD read = 0;
    ReadFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr);
    return bytes;
  }
};

}  // namespace

Program_Run Run_Program(const std::string& program, const std::vector<std::string>& args, const std::string& folder) {
  const Output_File out(L"vorlane-out-"), err(L"vorlane-err-");
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = INVALID_HANDLE_VALUE;
  start.hStdOutput = out.handle;
  start.hStdError = err.handle;
  std::vector<std::string> words{program};
  words.insert(words.end(), args.begin(), args.end());
  std::wstring line = Command_Line(words);
  PROCESS_INFORMATION process{};
  Program_Run run;
  if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, text::Wide(folder).c_str(), &start,
                      &process)) {
    run.Err = "can't start " + program;
    run.Status = ~0ul;
    return run;
  }
  WaitForSingleObject(process.hProcess, INFINITE);
  GetExitCodeProcess(process.hProcess, &run.Status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  run.Out = out.Text();
  run.Err = err.Text();
  return run;
}

Held_Program::Held_Program(const std::string& program) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  std::wstring line = Command_Line({program});
  PROCESS_INFORMATION process{};
  CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr, &start, &process);
  CloseHandle(process.hThread);
  process_ = process.hProcess;
  number_ = process.dwProcessId;
}

Held_Program::~Held_Program() {
  Kill();
  CloseHandle(process_);
}

void Held_Program::Kill() {
  TerminateProcess(process_, 1);
  WaitForSingleObject(process_, INFINITE);
}

void Hide(const std::string& path) { SetFileAttributesW(text::Wide(path).c_str(), FILE_ATTRIBUTE_HIDDEN); }
