// Starts the Windows editor and the bare Win32 window in turn, several times, and compares the
// medians of the time from starting the process to its window being painted and the program
// waiting for input: the moment the system's WaitForInputIdle reports. Each process is ended
// there.
//
//   startup_win.exe VORLANE BARE [RUNS]   (default 15 runs of each, after a warm-up of each)
//
// Exit status 0 when the ratio is within the limit, 1 when it is over, 2 when a program failed to
// start or to become idle.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <string>
#include <vector>

namespace {

constexpr double Limit = 1.2;
constexpr DWORD Timeout_Ms = 60000;

// Milliseconds from starting the program to its first wait for input; a negative number when it
// didn't get there.
double Start_Up(const std::wstring& program) {
  std::wstring command = L"\"" + program + L"\"";
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  LARGE_INTEGER frequency, before, after;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&before);
  if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
    return -1;
  const DWORD idle = WaitForInputIdle(process.hProcess, Timeout_Ms);
  QueryPerformanceCounter(&after);
  TerminateProcess(process.hProcess, 0);
  WaitForSingleObject(process.hProcess, Timeout_Ms);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  if (idle != 0) return -1;
  return 1000.0 * static_cast<double>(after.QuadPart - before.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t n = values.size();
  return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

}  // namespace

int wmain(int argc, wchar_t* argv[]) {
  if (argc < 3) {
    std::fputs("usage: startup_win.exe VORLANE BARE [RUNS]\n", stderr);
    return 2;
  }
  const int runs = argc > 3 ? std::max(1, _wtoi(argv[3])) : 15;
  const std::wstring vorlane = argv[1], bare = argv[2];
  if (Start_Up(vorlane) < 0 || Start_Up(bare) < 0) {  // the warm-up: the system's files in memory
    std::fputs("a program did not start or did not become idle\n", stderr);
    return 2;
  }
  std::vector<double> ours, theirs;
  for (int i = 0; i < runs; ++i) {
    const double a = Start_Up(vorlane), b = Start_Up(bare);
    if (a < 0 || b < 0) {
      std::fputs("a program did not start or did not become idle\n", stderr);
      return 2;
    }
    ours.push_back(a), theirs.push_back(b);
  }
  const double ratio = Median(ours) / Median(theirs);
  std::printf("start-up to first paint, median of %d: %.1f ms against %.1f ms = %.2f x (budget %.1f x)%s\n", runs,
              Median(ours), Median(theirs), ratio, Limit, ratio <= Limit ? "" : "  MISS");
  return ratio <= Limit ? 0 : 1;
}
