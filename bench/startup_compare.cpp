// Starts the editor and the bare window in turn, several times, and compares the medians: time
// from starting the process to its window being on the screen, and resident memory once idle.
// The processor time each had used by then is shown beside: it varies less than the wall-clock
// time when other work shares the machine.
// Both get the same hook preloaded (startup_hook.cpp), which reports the moment of the first
// paint on the monotonic clock and ends the program; this launcher reads that clock just before
// it starts each process.
//
//   startup_compare HOOK VORLANE BARE [RUNS]   (default 15 runs of each, after a warm-up of each)
//
// Exit status 0 when both ratios are within the limit, 1 when one is over, 2 when a program
// failed to report.
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

extern char** environ;

namespace {

constexpr double Limit = 1.3;
constexpr int Timeout_Seconds = 60;

long long Monotonic_Ns() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec;
}

struct Sample {
  double shown_ms = 0;
  double cpu_ms = 0;
  double rss_mb = 0;
};

// Runs one program to its end and reads its report; false when it gave none.
bool Run(const char* program, char** env, Sample& sample) {
  int out[2];
  if (pipe(out) != 0) return false;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, out[0]);
  char* argv[] = {const_cast<char*>(program), nullptr};
  pid_t pid = 0;
  const long long started = Monotonic_Ns();
  const int spawned = posix_spawn(&pid, program, &actions, nullptr, argv, env);
  posix_spawn_file_actions_destroy(&actions);
  close(out[1]);
  if (spawned != 0) {
    close(out[0]);
    std::fprintf(stderr, "startup_compare: can't start %s\n", program);
    return false;
  }
  // A program that hangs is ended after a while, by its own id.
  alarm(Timeout_Seconds);
  std::string report;
  char buffer[256];
  for (ssize_t n; (n = read(out[0], buffer, sizeof buffer)) > 0;) report.append(buffer, static_cast<std::size_t>(n));
  close(out[0]);
  alarm(0);
  int status = 0;
  // Its output has ended (or the time ran out): give it five seconds to end, then end it.
  bool ended = false;
  for (int wait = 0; wait < 1000 && !ended; ++wait) {
    ended = waitpid(pid, &status, WNOHANG) == pid;
    if (!ended) usleep(5000);
  }
  if (!ended) {
    kill(pid, SIGKILL);
    waitpid(pid, &status, 0);
  }
  long long shown = 0, cpu = 0;
  long rss = 0;
  const auto at = report.find("shown_ns=");
  if (at == std::string::npos ||
      std::sscanf(report.c_str() + at, "shown_ns=%lld cpu_ns=%lld rss_kb=%ld", &shown, &cpu, &rss) != 3 ||
      !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "startup_compare: %s gave no report (%s)\n", program, report.c_str());
    return false;
  }
  sample.shown_ms = static_cast<double>(shown - started) / 1e6;
  sample.cpu_ms = static_cast<double>(cpu) / 1e6;
  sample.rss_mb = static_cast<double>(rss) / 1024.0;
  return true;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t n = values.size();
  return n % 2 ? values[n / 2] : (values[n / 2 - 1] + values[n / 2]) / 2;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) {
    std::fprintf(stderr, "usage: startup_compare HOOK VORLANE BARE [RUNS]\n");
    return 2;
  }
  const char* vorlane = argv[2];
  const char* bare = argv[3];
  const int runs = argc > 4 ? std::max(1, std::atoi(argv[4])) : 15;
  // The environment of this process, with the hook preloaded.
  const std::string preload = std::string("LD_PRELOAD=") + argv[1];
  std::vector<char*> env;
  for (char** e = environ; *e; ++e)
    if (std::strncmp(*e, "LD_PRELOAD=", 11) != 0) env.push_back(*e);
  env.push_back(const_cast<char*>(preload.c_str()));
  env.push_back(nullptr);
  // On the alarm the read is interrupted; the child then gets no report and the run fails.
  struct sigaction on_alarm {};
  on_alarm.sa_handler = [](int) {};
  sigaction(SIGALRM, &on_alarm, nullptr);

  Sample warm;
  if (!Run(vorlane, env.data(), warm) || !Run(bare, env.data(), warm)) return 2;

  std::vector<Sample> vorlane_runs, bare_runs;
  std::printf("%-4s  %11s %11s  %11s %11s  %11s %11s\n", "run", "Vorlane ms", "bare ms", "Vorlane cpu", "bare cpu",
              "Vorlane MB", "bare MB");
  for (int i = 0; i < runs; ++i) {
    Sample v, b;
    // Alternate which goes first, so that neither always follows the other.
    const bool vorlane_first = i % 2 == 0;
    if (vorlane_first ? !Run(vorlane, env.data(), v) || !Run(bare, env.data(), b)
                      : !Run(bare, env.data(), b) || !Run(vorlane, env.data(), v))
      return 2;
    vorlane_runs.push_back(v);
    bare_runs.push_back(b);
    std::printf("%-4d  %11.1f %11.1f  %11.1f %11.1f  %11.1f %11.1f\n", i + 1, v.shown_ms, b.shown_ms, v.cpu_ms,
                b.cpu_ms, v.rss_mb, b.rss_mb);
  }
  const auto median_of = [](const std::vector<Sample>& samples, double Sample::*field) {
    std::vector<double> values;
    for (const Sample& s : samples) values.push_back(s.*field);
    return Median(values);
  };
  const double v_ms = median_of(vorlane_runs, &Sample::shown_ms), b_ms = median_of(bare_runs, &Sample::shown_ms);
  const double v_cpu = median_of(vorlane_runs, &Sample::cpu_ms), b_cpu = median_of(bare_runs, &Sample::cpu_ms);
  const double v_mb = median_of(vorlane_runs, &Sample::rss_mb), b_mb = median_of(bare_runs, &Sample::rss_mb);
  const double time_ratio = v_ms / b_ms;
  const double memory_ratio = v_mb / b_mb;
  std::printf("\nmedians of %d runs each, alternating:\n", runs);
  std::printf("start-up to window shown  Vorlane %7.1f ms  bare %7.1f ms  ratio %.2f (limit %.1f)  %s\n", v_ms, b_ms,
              time_ratio, Limit, time_ratio <= Limit ? "PASS" : "MISS");
  std::printf("  processor time by then  Vorlane %7.1f ms  bare %7.1f ms  ratio %.2f\n", v_cpu, b_cpu, v_cpu / b_cpu);
  std::printf("resident memory, idle     Vorlane %7.1f MB  bare %7.1f MB  ratio %.2f (limit %.1f)  %s\n", v_mb, b_mb,
              memory_ratio, Limit, memory_ratio <= Limit ? "PASS" : "MISS");
  return time_ratio <= Limit && memory_ratio <= Limit ? 0 : 1;
}
