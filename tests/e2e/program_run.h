// Runs the built program as an observer would from a shell: its own folder, a fixed time zone and
// clock (through faketime), a serial device, a script on the command line. Collects the exit
// code, standard error and the files the run wrote.
#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace astel::testing {

struct RunResult {
  int exitCode = -1;   // -1: killed after the time-out
  std::string errors;  // standard error
  double seconds = 0;
};

struct ProgramRun {
  std::string program;      // the astel binary
  std::string home;         // ASTEL_HOME
  std::string fakeTime;     // faketime's time, e.g. "2026-11-22 21:00:00"; empty: the real clock
  bool frozenClock = true;  // the clock stands still at fakeTime (else it runs from there)
  std::map<std::string, std::string> environment;  // more variables, e.g. ASTEL_COM1
  std::chrono::seconds timeout{60};

  RunResult Run(const std::vector<std::string>& arguments) const;
};

// The faketime wrapper, or "" when it is not installed.
std::string FakeTimeProgram();

}  // namespace astel::testing
