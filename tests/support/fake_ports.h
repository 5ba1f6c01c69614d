// Test doubles of the ports, for every test that drives logic without windows: the scripted
// dialogs and the fixed clock, plus event passes, timers and the shell.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "core/ports.h"
#include "scope/timer_port.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_dialogs.h"

namespace astel::testing {

// Counts event passes and records pauses. Sleep really sleeps: wire tests need real time, since
// the simulated mount answers in it.
class FakeEvents : public Events {
 public:
  void DoEvents() override {
    ++doEventsCount;
    // A hook that itself lets events run must not recurse into itself.
    if (onDoEvents && !inHook_) {
      inHook_ = true;
      onDoEvents();
      inHook_ = false;
    }
  }
  void Sleep(int milliseconds) override {
    sleeps.push_back(milliseconds);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }

  int doEventsCount = 0;
  std::vector<int> sleeps;
  // Runs at every event pass: the place where a test plays the user (closes a window, releases a
  // button, fires a timer) while a telescope exchange waits.
  std::function<void()> onDoEvents;

 private:
  bool inHook_ = false;
};

// Remembers every document opened and program started; `works` false plays a desktop that
// cannot open them.
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

// A window timer that only remembers whether it runs; the test fires it by calling the logic.
class FakeTimer : public Timer {
 public:
  void Start(int ms) override {
    running = true;
    intervalMs = ms;
  }
  void Stop() override { running = false; }

  bool running = false;
  int intervalMs = 0;
};

}  // namespace astel::testing
