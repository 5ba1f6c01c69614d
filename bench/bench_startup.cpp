// Start-up to the first painted main window, and the memory the program holds then.
// Targets: at most 300 ms from the program's start to the first paint; at most 80 MB resident.
//
// BM_ProgramToFirstPaint starts the real program (offscreen, ASTEL_EXIT_AFTER_PAINT=1) and waits
// for it: loading Qt and the libraries, start-up, the window built, shown and painted. Its
// max_rss_MB is the child's peak resident set.
// BM_StartupAndFormToFirstPaint does the same inside this process once Qt is loaded: the real
// Startup on the shipped home file, Form1 built, shown and painted; rss_MB is VmRSS afterwards.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <QApplication>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "app/headless_ports.h"
#include "bench/quiet_ports.h"
#include "core/system_ports.h"
#include "session/startup.h"
#include "ui/form1.h"

extern char** environ;

namespace {

constexpr double kBytesPerMb = 1024.0 * 1024.0;

double ResidentMb() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.rfind("VmRSS:", 0) == 0) return std::stod(line.substr(6)) * 1024 / kBytesPerMb;
  }
  return 0;
}

void BM_StartupAndFormToFirstPaint(benchmark::State& bench) {
  for (auto _ : bench) {
    astel::SharedState state;
    astel::bench::QuietDialogs dialogs;
    astel::SystemClock clock;
    astel::HeadlessEvents events;
    astel::SystemShell shell;
    astel::NullClipboard clipboard;
    astel::NullWindows windows;
    astel::StartupInputs inputs{ASTEL_BUILD_DIR, "", "", "", ""};
    if (astel::Startup(state, inputs, dialogs, clock, windows) != astel::kExitSuccess) {
      bench.SkipWithError("no home file in the build folder");
      return;
    }
    std::ostringstream diagnostics;
    astel::CommPorts comm(events, diagnostics);
    astel::ui::GuiContext context{state,   dialogs, clock, events, shell, clipboard,
                                  windows, comm,    "",    "",     {}};
    astel::ui::Form1 form(context);
    bool painted = false;
    form.onFirstPaint = [&painted] { painted = true; };
    form.show();
    while (!painted)
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    bench.PauseTiming();
    form.close();
    bench.ResumeTiming();
  }
  bench.counters["rss_MB"] = ResidentMb();
}
BENCHMARK(BM_StartupAndFormToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(20);

void BM_ProgramToFirstPaint(benchmark::State& bench) {
  std::vector<std::string> env;
  for (char** e = environ; *e; ++e)
    env.emplace_back(*e);
  env.emplace_back("QT_QPA_PLATFORM=offscreen");
  env.emplace_back("ASTEL_EXIT_AFTER_PAINT=1");
  env.emplace_back(std::string("ASTEL_HOME=") + ASTEL_BUILD_DIR);
  std::vector<char*> envp;
  for (std::string& e : env)
    envp.push_back(e.data());
  envp.push_back(nullptr);
  std::string program = ASTEL_PROGRAM;
  char* argv[] = {program.data(), nullptr};
  long maxRssKb = 0;
  for (auto _ : bench) {
    pid_t pid = 0;
    if (posix_spawn(&pid, program.c_str(), nullptr, nullptr, argv, envp.data()) != 0) {
      bench.SkipWithError("cannot start the program");
      return;
    }
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
      bench.SkipWithError("the program did not end cleanly");
      return;
    }
    maxRssKb = std::max(maxRssKb, usage.ru_maxrss);
  }
  bench.counters["max_rss_MB"] = static_cast<double>(maxRssKb) * 1024 / kBytesPerMb;
}
BENCHMARK(BM_ProgramToFirstPaint)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
