// The editor's hot paths against their budgets: every hover over the byte cells, a click, a
// change of record, the speech pane, the seven reference lists, open, save, conversion and the
// main window's start-up, and vorlane-cli's check of a folder and of an archive. Each step is
// timed on the logic alone and, where the user sees it, with the Qt render pass and the repaint
// it causes (offscreen); vorlane-cli is timed as a whole process. A table of medians against the
// budgets closes the run.
//
//   vorlane_bench            ten repetitions of each, medians
//   vorlane_bench --quick    one short repetition of each: proves that every step runs
//
// Google Benchmark's own flags (--benchmark_filter=..., ...) pass through.
#include <benchmark/benchmark.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QEvent>
#include <QThread>
#include <QWindow>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "bench_files.h"
#include "fields/field_map.h"
#include "form/recording_platform.h"
#include "form/vorlane.h"
#include "qt/main_view.h"
#include "qt/qt_platform.h"
#include "speech/edt_reader.h"
#include "speech/speech_pane.h"
#include "store/conversion.h"
#include "store/file_commands.h"
#include "store/type_report.h"
#include "ui/byte_grid.h"
#include "ui/events.h"
#include "ui/navigation.h"
#include "ui/reference_lists.h"
#include "ui/shell.h"

namespace {

constexpr double Microseconds = 1e-6;
constexpr double Milliseconds = 1e-3;
constexpr double No_Budget = 0;

// --- The files ------------------------------------------------------------------------------

struct Files_On_Disk {
  Temp_Folder folder;
  std::string npc = folder.Write("077.npc", Typical_File());
  std::string edt = folder.Write("077.edt", Speech_File());
  std::string save = folder.Write("save.npc", Typical_File());
  std::string convert = folder.Write("convert.npc", Typical_File());
  std::string converted = folder.Path("converted.npc");
};

Files_On_Disk& Files() {
  static Files_On_Disk files;
  return files;
}

// The record on show while the grid is timed, and the one a change of record goes to.
constexpr int Shown_Record = 5;
constexpr int Other_Record = 6;

// --- The main window, logic only --------------------------------------------------------------

struct Logic_Window {
  Recording_Platform platform;
  Vorlane window{Routes(), platform};

  Logic_Window() {
    platform.Quiet = true;
    Form_Load(window);
    Open();
    Event([&] { Slider_Set_Value(window, Shown_Record); });
  }
  template <class Handler>
  void Event(Handler&& handler) {
    Fire(window, std::forward<Handler>(handler));
  }
  void Open() {
    platform.Picks.push_back(Dialog_Pick{Files().npc});
    Event([&] { FileOpen(window); });
  }
  void Speech_On() {
    platform.Picks.push_back(Dialog_Pick{Files().edt, 1});
    Event([&] { Check_Set_Value(window, 1); });
  }
};

// --- The main window on Qt widgets, offscreen ---------------------------------------------------

// Counts the paint events of a window's widgets, to prove that a timed step repainted.
class Paint_Counter : public QObject {
 public:
  int Paints = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++Paints;
    return false;
  }
};

// Runs what the event loop runs before it next waits: the list's delayed layout, the posted
// update requests and so the repaint of every widget that a render changed.
void Repaint_Now() {
  QAbstractEventDispatcher* dispatcher = QThread::currentThread()->eventDispatcher();
  for (int round = 0; round < 10 && dispatcher->processEvents(QEventLoop::AllEvents); ++round) {
  }
}

struct Qt_Window {
  qtview::Qt_Platform system;
  Recording_Platform platform{&system};
  Vorlane model{Routes(), platform};
  qtview::Main_View view{model, system};
  Paint_Counter paints;

  Qt_Window() {
    platform.Quiet = true;
    view.Start();
    view.show();
    while (!view.windowHandle() || !view.windowHandle()->isExposed()) QCoreApplication::processEvents();
    Repaint_Now();
    for (QWidget* widget : view.findChildren<QWidget*>()) widget->installEventFilter(&paints);
    view.installEventFilter(&paints);
    platform.Picks.push_back(Dialog_Pick{Files().npc});
    Event([&] { FileOpen(model); });
    Event([&] { Slider_Set_Value(model, Shown_Record); });
  }
  // One event as the user raises it: the handler, the render, the repaint. Tells whether
  // anything was repainted.
  template <class Handler>
  bool Event(Handler&& handler) {
    const int before = paints.Paints;
    view.Dispatch(std::forward<Handler>(handler));
    Repaint_Now();
    return paints.Paints > before;
  }
  void Speech_On() {
    platform.Picks.push_back(Dialog_Pick{Files().edt, 1});
    Event([&] { Check_Set_Value(model, 1); });
  }
};

// --- Registration and the table of budgets ----------------------------------------------------

struct Row {
  std::string name;
  double budget;  // seconds; No_Budget for a figure that is only shown
};

std::vector<Row>& Rows() {
  static std::vector<Row> rows;
  return rows;
}

void Add(const std::string& name, double budget, std::function<void(benchmark::State&)> body) {
  benchmark::RegisterBenchmark(name.c_str(), [body](benchmark::State& state) { body(state); })
      ->UseRealTime()
      ->Unit(benchmark::kMicrosecond);
  Rows().push_back({name, budget});
}

// Fails the benchmark when the step didn't do what it is timed for.
void Expect(benchmark::State& state, bool holds, const char* what) {
  if (!holds) state.SkipWithError(what);
}

// Every timed step on the widgets must have repainted something.
void Expect_Repaints(benchmark::State& state, std::int64_t repaints) {
  Expect(state, repaints == static_cast<std::int64_t>(state.iterations()), "a step did not repaint");
}

// The cell of a field next to it, where a sweep of the mouse comes from.
int Neighbour_Cell(std::size_t field) {
  const auto all = fields::All();
  return all[field == 0 ? 1 : field - 1].First;
}

void Register_Grid() {
  const auto all = fields::All();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Field& field = all[i];
    const std::string name(field.Name);
    Add("hover/logic/" + name, 50 * Microseconds, [&field](benchmark::State& state) {
      Logic_Window w;
      for (auto _ : state) w.Event([&] { L_MouseMove(w.window, field.First); });
      Expect(state, w.window.L_NByte.Caption == field.Caption && !w.window.L_Info_User.Caption.empty(),
             "the field did not light");
    });
    Add("hover/qt/" + name, 1 * Milliseconds, [&field, i](benchmark::State& state) {
      Qt_Window w;
      const int from = Neighbour_Cell(i);
      std::int64_t repaints = 0;
      for (auto _ : state) {
        state.PauseTiming();
        w.Event([&] { L_MouseMove(w.model, from); });
        state.ResumeTiming();
        repaints += w.Event([&] { L_MouseMove(w.model, field.First); });
      }
      Expect(state, w.model.L_NByte.Caption == field.Caption, "the field did not light");
      Expect_Repaints(state, repaints);
    });
  }

  // Two fields clicked in turn: every click selects the one clicked and lets the other go.
  Add("click selects/logic", 50 * Microseconds, [](benchmark::State& state) {
    Logic_Window w;
    int cell = 23;
    for (auto _ : state) {
      cell = cell == 23 ? 18 : 23;
      w.Event([&] { L_Click(w.window, cell); });
    }
    Expect(state, w.window.Selected_Field == "1", "no field selected");
  });
  Add("click selects/qt", 1 * Milliseconds, [](benchmark::State& state) {
    Qt_Window w;
    int cell = 23;
    std::int64_t repaints = 0;
    for (auto _ : state) {
      cell = cell == 23 ? 18 : 23;
      repaints += w.Event([&] { L_Click(w.model, cell); });
    }
    Expect(state, w.model.Selected_Field == "1", "no field selected");
    Expect_Repaints(state, repaints);
  });

  // Two records in turn with the item field selected: each change explains it anew.
  Add("record change, field selected/logic", 50 * Microseconds, [](benchmark::State& state) {
    Logic_Window w;
    w.Event([&] { L_Click(w.window, 3); });
    int record = Shown_Record;
    for (auto _ : state) {
      record = record == Shown_Record ? Other_Record : Shown_Record;
      w.Event([&] { Slider_Set_Value(w.window, record); });
    }
    Expect(state, w.window.Current_Record == record && w.window.Selected_Field == "1", "the record did not change");
  });
  Add("record change, field selected/qt", 1 * Milliseconds, [](benchmark::State& state) {
    Qt_Window w;
    w.Event([&] { L_Click(w.model, 3); });
    int record = Shown_Record;
    std::int64_t repaints = 0;
    for (auto _ : state) {
      record = record == Shown_Record ? Other_Record : Shown_Record;
      repaints += w.Event([&] { Slider_Set_Value(w.model, record); });
    }
    Expect(state, w.model.Current_Record == record && w.model.Selected_Field == "1", "the record did not change");
    Expect_Repaints(state, repaints);
  });

  // Byte 14 with the speech pane on: each hover reads its message from the speech file.
  Add("hover byte 14, speech on/logic", 50 * Microseconds, [](benchmark::State& state) {
    Logic_Window w;
    w.Speech_On();
    for (auto _ : state) w.Event([&] { L_MouseMove(w.window, 14); });
    Expect(state, w.window.L_Message.Caption == std::to_string(Shown_Record) && !w.window.L_Edt.Caption.empty(),
           "no message read");
  });
  Add("hover byte 14, speech on/qt", 1 * Milliseconds, [](benchmark::State& state) {
    Qt_Window w;
    w.Speech_On();
    std::int64_t repaints = 0;
    for (auto _ : state) {
      state.PauseTiming();
      w.Event([&] { L_MouseMove(w.model, 13); });
      state.ResumeTiming();
      repaints += w.Event([&] { L_MouseMove(w.model, 14); });
    }
    Expect(state, w.model.L_Message.Caption == std::to_string(Shown_Record) && !w.model.L_Edt.Caption.empty(),
           "no message read");
    Expect_Repaints(state, repaints);
  });
}

void Register_Lists() {
  struct List_Command {
    const char* name;
    void (*handler)(Vorlane&);
    std::size_t lines;
  };
  static constexpr List_Command commands[] = {
      {"Input codes", nKey_1_Click, 10},  {"Action codes", nKey_2_Click, 8},   {"NPC names", nNPC_Names_Click, 170},
      {"Quests(give)", nQests_Click, 30}, {"Quests(take)", nQuests_Click, 30}, {"Items", nItem_Click, 351},
      {"Trigers", nTrigers_Click, 500},
  };
  for (const List_Command& command : commands) {
    Add(std::string("list ") + command.name + "/logic", 2 * Milliseconds, [&command](benchmark::State& state) {
      Logic_Window w;
      for (auto _ : state) w.Event([&] { command.handler(w.window); });
      Expect(state, w.window.List.Items.size() == command.lines, "the list was not filled");
    });
    Add(std::string("list ") + command.name + "/qt", 2 * Milliseconds, [&command](benchmark::State& state) {
      Qt_Window w;
      std::int64_t repaints = 0;
      for (auto _ : state) repaints += w.Event([&] { command.handler(w.model); });
      Expect(state, w.model.List.Items.size() == command.lines, "the list was not filled");
      Expect_Repaints(state, repaints);
    });
  }
}

void Register_Files() {
  Add("open (read + cut)/logic", 1 * Milliseconds, [](benchmark::State& state) {
    Logic_Window w;
    for (auto _ : state) w.Open();
    Expect(state, w.window.SBar_2.SimpleText == Files().npc && w.window.Record(50).size() == 64, "not opened");
  });
  Add("save (join + write + flush)/logic", 1 * Milliseconds, [](benchmark::State& state) {
    Logic_Window w;
    w.platform.Picks.push_back(Dialog_Pick{Files().save});
    w.Event([&] { FileOpen(w.window); });
    w.Event([&] { Slider_Set_Value(w.window, Shown_Record); });
    for (auto _ : state) w.Event([&] { nSave_Click(w.window); });
    Expect(state, w.window.Txt_Free.Text == "OK$" && std::filesystem::file_size(Files().save) == 1600, "not saved");
  });
  // Standard to Buka: the file is read, the mark put in front, the result written.
  Add("type conversion/logic", No_Budget, [](benchmark::State& state) {
    Logic_Window w;
    for (auto _ : state) {
      w.platform.Picks.push_back(Dialog_Pick{Files().convert});
      w.platform.Picks.push_back(Dialog_Pick{Files().converted, 1});
      w.Event([&] { nChaing_Click(w.window); });
    }
    Expect(state, w.platform.Picks.empty() && std::filesystem::file_size(Files().converted) == 1600, "not converted");
  });
}

// --- vorlane-cli, whole processes ----------------------------------------------------------------

// A folder of 1,000 typical files: those of characters 0 .. 169 under their own numbers, so that
// the check looks up the records that control passes to, and 830 more beside them.
struct Mod_Folder {
  Temp_Folder folder;
  Mod_Folder() {
    const Bytes file = Typical_File();
    for (int n = 0; n < 1000; ++n) {
      char name[16];
      std::snprintf(name, sizeof name, n < 170 ? "%03d.npc" : "mod%04d.npc", n);
      folder.Write(name, file);
    }
  }
};

// An archive as the games keep them, of 10,000 typical files of 1,600 bytes: those of characters
// 0 .. 169 under their own numbers, so that the check looks up the records that control passes
// to, and the rest beside them.
struct Big_Archive {
  Temp_Folder folder;
  std::string path;
  Big_Archive() {
    std::vector<Slf_Entry> entries;
    const Bytes file = Typical_File();
    for (int n = 0; n < 10000; ++n) {
      char name[16];
      std::snprintf(name, sizeof name, n < 170 ? "%03d.npc" : "mod%05d.npc", n);
      entries.push_back({name, file});
    }
    path = folder.Write("NpcData.slf", Slf_Archive("NpcData\\", entries));
  }
};

// Runs a program to its end with its output thrown away; its exit status, or -1 when it could
// not be started.
int Run_Process(std::vector<std::string> args) {
  std::vector<char*> argv;
  for (std::string& arg : args) argv.push_back(arg.data());
  argv.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  pid_t pid = 0;
  const int failed = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  if (failed != 0 || waitpid(pid, &status, 0) != pid || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

void Register_Cli() {
  // Nothing is found in typical files: the check exits 0.
  Add("vorlane-cli check, 1000 files/process", 1.0, [](benchmark::State& state) {
    static Mod_Folder mod;
    int status = 0;
    for (auto _ : state) status = Run_Process({VORLANE_CLI, "check", mod.folder.Path("")});
    Expect(state, status == 0, "the check failed or found something");
  });
  // Both read the archive's header and whole table; the check reads and explains every file.
  Add("vorlane-cli list + check, archive of 10000 files/process", 1.0, [](benchmark::State& state) {
    static Big_Archive archive;
    int listed = 0, checked = 0;
    for (auto _ : state) {
      listed = Run_Process({VORLANE_CLI, "list", archive.path});
      checked = Run_Process({VORLANE_CLI, "check", archive.path});
    }
    Expect(state, listed == 0 && checked == 0, "the list or the check failed, or the check found something");
  });
  Add("vorlane-cli explain, one file/process", 5 * Milliseconds, [](benchmark::State& state) {
    int status = 0;
    for (auto _ : state) status = Run_Process({VORLANE_CLI, "explain", Files().npc});
    Expect(state, status == 0, "explain failed");
  });
  // What any process costs on this machine: the floor under the two figures above.
  Add("an empty program, /bin/true/process", No_Budget, [](benchmark::State& state) {
    int status = 0;
    for (auto _ : state) status = Run_Process({"/bin/true"});
    Expect(state, status == 0, "/bin/true failed");
  });
}

// Creating the main window and showing it, up to its first paint.
class First_Paint : public QObject {
 public:
  bool Painted = false;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) Painted = true;
    return false;
  }
};

void Register_Start_Up() {
  Add("start-up: create + show to first paint/qt", 20 * Milliseconds, [](benchmark::State& state) {
    for (auto _ : state) {
      auto platform = std::make_unique<qtview::Qt_Platform>();
      auto model = std::make_unique<Vorlane>(Routes(), *platform);
      auto view = std::make_unique<qtview::Main_View>(*model, *platform);
      First_Paint first;
      view->installEventFilter(&first);
      view->Start();
      view->show();
      for (int round = 0; !first.Painted && round < 100000; ++round) QCoreApplication::processEvents();
      if (!first.Painted) {
        state.SkipWithError("the window was never painted");
        break;
      }
      state.PauseTiming();
      view.reset();
      QCoreApplication::processEvents();
      state.ResumeTiming();
    }
  });
}

// --- The table --------------------------------------------------------------------------------

// The console output as usual, and the median of each benchmark kept for the table. A single
// repetition has no median: its one figure stands in.
class Table_Reporter : public benchmark::ConsoleReporter {
 public:
  struct Figure {
    double seconds = -1;
    bool median = false;
    std::string error;
  };
  std::map<std::string, Figure> figures;

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      Figure& figure = figures[run.run_name.function_name];
      if (run.error_occurred) {
        figure.error = run.error_message;
        continue;
      }
      const double seconds = run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
        figure = {seconds, true, figure.error};
      } else if (run.run_type == Run::RT_Iteration && !figure.median) {
        figure.seconds = seconds;
      }
    }
  }
};

std::string Time_Text(double seconds) {
  char text[32];
  if (seconds >= 1e-3)
    std::snprintf(text, sizeof text, "%.2f ms", seconds * 1e3);
  else
    std::snprintf(text, sizeof text, "%.1f us", seconds * 1e6);
  return text;
}

// Prints the table; returns the number of rows that missed their budget or failed.
int Print_Table(const Table_Reporter& reporter) {
  int misses = 0;
  std::size_t width = 4;
  for (const Row& row : Rows()) width = std::max(width, row.name.size());
  std::printf("\n%-*s  %12s  %10s  %s\n", static_cast<int>(width), "step", "median", "budget", "");
  for (const Row& row : Rows()) {
    const auto found = reporter.figures.find(row.name);
    if (found == reporter.figures.end()) continue;  // filtered out
    const Table_Reporter::Figure& figure = found->second;
    std::string verdict;
    std::string median = "-";
    if (!figure.error.empty()) {
      verdict = "ERROR: " + figure.error;
      ++misses;
    } else {
      median = Time_Text(figure.seconds);
      const bool missed = row.budget != No_Budget && figure.seconds > row.budget;
      verdict = row.budget == No_Budget ? "" : missed ? "MISS" : "PASS";
      if (missed) ++misses;
    }
    const std::string budget = row.budget == No_Budget ? "none" : Time_Text(row.budget);
    std::printf("%-*s  %12s  %10s  %s\n", static_cast<int>(width), row.name.c_str(), median.c_str(), budget.c_str(),
                verdict.c_str());
  }
  return misses;
}

QtMessageHandler qt_messages = nullptr;

// The offscreen platform says of every window it shows that it can't pass on size hints.
void Quiet_Offscreen(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (message.contains("propagateSizeHints")) return;
  qt_messages(type, context, message);
}

}  // namespace

int main(int argc, char** argv) {
  // The render pass is timed offscreen unless the caller chose a platform.
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");

  // Defaults first, so that the caller's flags, later on the line, win.
  std::vector<char*> args{argv[0]};
  std::string min_time = "--benchmark_min_time=0.05";
  std::string repetitions = "--benchmark_repetitions=10";
  std::string aggregates = "--benchmark_report_aggregates_only=true";
  bool quick = false;
  for (int i = 1; i < argc; ++i) quick = quick || std::strcmp(argv[i], "--quick") == 0;
  if (quick) {
    min_time = "--benchmark_min_time=0.001";
    repetitions = "--benchmark_repetitions=1";
  }
  args.push_back(min_time.data());
  args.push_back(repetitions.data());
  args.push_back(aggregates.data());
  for (int i = 1; i < argc; ++i)
    if (std::strcmp(argv[i], "--quick") != 0) args.push_back(argv[i]);
  int count = static_cast<int>(args.size());

  qt_messages = qInstallMessageHandler(Quiet_Offscreen);
  QApplication app(argc, argv);
  Register_Grid();
  Register_Lists();
  Register_Files();
  Register_Start_Up();
  Register_Cli();

  benchmark::Initialize(&count, args.data());
  if (benchmark::ReportUnrecognizedArguments(count, args.data())) return 2;
  Table_Reporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const int misses = Print_Table(reporter);
  std::printf("\n%d of the steps above missed their budget or failed.\n", misses);
  benchmark::Shutdown();
  // Only a step that failed to do its work fails the run: budgets are for the reader.
  int failed = 0;
  for (const auto& [name, figure] : reporter.figures) failed += figure.error.empty() ? 0 : 1;
  return failed == 0 ? 0 : 1;
}
