// A started program for script tests: a home file and a small catalog in a temporary folder, a
// fixed clock that moves when the script sleeps, scripted dialogs and a recording shell.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "core/home_file.h"
#include "core/location.h"
#include "script/script_interpreter.h"
#include "session/main_window.h"
#include "session/startup.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"
#include "tests/support/test_catalog.h"

namespace astel::testing {

// Sleeping moves the fake clock, so a WAIT ends when its time comes.
class ClockEvents : public Events {
 public:
  explicit ClockEvents(FakeClock& clock) : clock_(clock) {}
  void DoEvents() override { ++passes; }
  void Sleep(int milliseconds) override {
    sleptMs += milliseconds;
    carryMs_ += milliseconds;
    while (carryMs_ >= 1000) {
      carryMs_ -= 1000;
      Advance();
    }
  }
  long sleptMs = 0;
  int passes = 0;

 private:
  void Advance() {
    LocalDateTime& t = clock_.now;
    if (++t.second < 60) return;
    t.second = 0;
    if (++t.minute < 60) return;
    t.minute = 0;
    if (++t.hour < 24) return;
    t.hour = 0;
    ++t.day;  // the tests stay inside one month
  }
  FakeClock& clock_;
  int carryMs_ = 0;
};

class RecordingShell : public Shell {
 public:
  bool OpenDocument(const std::string& path, const std::string&) override {
    opened.push_back(path);
    return works;
  }
  bool StartProgram(const std::string& program, const std::string& parameters) override {
    started.push_back(program + "|" + parameters);
    return works;
  }
  std::vector<std::string> opened, started;
  bool works = true;
};

class NoSearchWindow : public SearchWindow {
 public:
  void Show(const std::string&) override {}
  void SetProgress(const std::string&) override {}
  void Hide() override {}
};

class ScriptRig : public ::testing::Test {
 protected:
  // A place in the north of England, the clock in late November at 21:00.
  void Start(const std::string& script, int scopeCode = 10000) {
    HomeFileRecord home;
    home.homeLatitude = 53.0 / kDegreesPerRadianExact;
    home.homeLongitude = 2.0 / kDegreesPerRadianExact;
    home.scopeCode = scopeCode;
    home.comPort = 1;
    home.firstStartDate = 2461000.5;
    ASSERT_EQ(SaveHomeFile(dir.path() + "/ASTEL.HOM", home), "");
    WriteCatalog();
    clock.now = {2026, 11, 22, 21, 0, 0};
    StartupInputs in{dir.path(), "", script, "", ""};
    ASSERT_EQ(Startup(state, in, dialogs, clock, windows), kExitSuccess);
    logic.Tick();
  }

  void WriteCatalog() { WriteTestCatalog(dir.path() + "/TEST.OBC"); }

  int Run(const std::string& line) { return ProcessCommand(context, line); }

  std::string Log() {
    std::ifstream in(dir.path() + "/ASTELLOG.TXT", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  // The log's last line that tells a command's outcome.
  std::string LastOutcome() {
    std::string log = Log(), line, last;
    std::istringstream lines(log);
    while (std::getline(lines, line)) {
      if (!line.empty() && line.back() == '\r') line.pop_back();
      if (line.rfind("Command", 0) == 0 || line == "Exit time detected") last = line;
    }
    return last;
  }

  TempDir dir;
  FakeClock clock;
  ClockEvents events{clock};
  ScriptedDialogs dialogs;
  RecordingShell shell;
  NoSearchWindow searchWindow;
  std::ostringstream diagnostics;
  struct NoWindows : Windows {
    void OpenScopeSelection() override {}
  } windows;
  SharedState state;
  MainWindowLogic logic{state, clock, dialogs};
  CatalogPorts catalogPorts{dialogs, events, searchWindow, shell};
  std::string device = "/nonexistent/tty";
  CommPorts comm{events, diagnostics, [this](int) { return device; }};
  ScriptContext context{state, dialogs, clock, events, shell, catalogPorts, comm};
};

}  // namespace astel::testing
