// A started program for script tests: a home file and a small catalog in a temporary folder, a
// fixed clock that moves when the script sleeps, scripted dialogs and a recording shell.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "script/script_interpreter.h"
#include "tests/session/session_fixture.h"
#include "tests/support/test_catalog.h"

namespace astel::testing {

// Sleeping moves the fake clock, so a WAIT ends when its time comes.
class ClockEvents : public Events {
 public:
  explicit ClockEvents(FakeClock& clock) : clock_(clock) {}
  void DoEvents() override {}
  void Sleep(int milliseconds) override {
    sleptMs += milliseconds;
    for (carryMs_ += milliseconds; carryMs_ >= 1000; carryMs_ -= 1000) {
      LocalDateTime& t = clock_.now;
      int second = (t.hour * 60 + t.minute) * 60 + t.second + 1;
      if (second == 24 * 3600) {
        second = 0;
        ++t.day;  // the tests stay inside one month
      }
      t.hour = second / 3600;
      t.minute = second / 60 % 60;
      t.second = second % 60;
    }
  }
  long sleptMs = 0;

 private:
  FakeClock& clock_;
  int carryMs_ = 0;
};

class NoSearchWindow : public SearchWindow {
 public:
  void Show(const std::string&) override {}
  void SetProgress(const std::string&) override {}
  void Hide() override {}
};

class ScriptRig : public StartedProgram {
 protected:
  // A place in the north of England with a telescope port, the clock in late November at 21:00;
  // each test starts the program with its script.
  void SetUp() override {
    home.homeLatitude = 53.0 / kDegreesPerRadianExact;
    home.homeLongitude = 2.0 / kDegreesPerRadianExact;
    home.comPort = 1;
    clock.now = {2026, 11, 22, 21, 0, 0};
    WriteTestCatalog(dir.path() + "/TEST.OBC");
  }

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

  ClockEvents events{clock};
  RecordingShell shell;
  NoSearchWindow searchWindow;
  std::ostringstream diagnostics;
  CatalogPorts catalogPorts{dialogs, events, searchWindow, shell};
  CommPorts comm{events, diagnostics, [](int) { return std::string("/nonexistent/tty"); }};
  ScriptContext context{state, dialogs, clock, events, shell, catalogPorts, comm};
};

}  // namespace astel::testing
