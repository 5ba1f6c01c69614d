// The rig of every exchange test: the real CommPorts with COM1 behind a pseudo-terminal that a
// simulated mount or GPS receiver answers (every other port has no device), the fake ports, and
// the shared state of a working observer.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

#include "scope/comm_io.h"
#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"
#include "tests/support/fake_ports.h"
#include "tests/support/scope_simulator.h"

namespace astel::testing {

inline constexpr int kPort = 1;

// The messages expected of an exchange that shows at most one: none for nullptr.
inline std::vector<std::string> Shown(const char* message) {
  return message ? std::vector<std::string>{message} : std::vector<std::string>{};
}

// "yyyy-mm-dd hh:mm:ss.mmm".
inline std::string Text(const UtcDateTime& t) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%03d", t.year, t.month, t.day,
                t.hour, t.minute, t.second, t.millisecond);
  return text;
}

// Every time the clock was asked to set, each followed by "|".
inline std::string SetTimes(const FakeClock& clock) {
  std::string all;
  for (const UtcDateTime& t : clock.setTimes)
    all += Text(t) + "|";
  return all;
}

struct PortRig {
  explicit PortRig(std::function<std::string()> device)
      : comm(events, diagnostics,
             [device](int n) {
               return n == kPort ? device() : "/nonexistent/tty" + std::to_string(n);
             }),
        context{state, comm, dialogs, events, clock} {
    // Real-time mode, the display showing 23 March 2005, 21:05:09.
    TimeState& t = state.time;
    std::tie(state.telescope.comPort, t.realTimeMode) = std::tuple(kPort, true);
    std::tie(t.yearText, t.monthText, t.dayText) = std::tuple("2005", "03", "23");
    std::tie(t.hourText, t.minuteText, t.secondText) = std::tuple("21", "05", "09");
    monitor.onStatus = [this](const std::string& text) { statuses.push_back(text); };
  }

  // Every exchange closes the port it opened, whatever its outcome.
  ~PortRig() {
    for (int port = 0; port <= 4; ++port)
      EXPECT_FALSE(comm.IsOpen(port)) << "COM" << port << " left open";
  }

  // The user closes the window as soon as `condition` holds (checked at every event pass): the
  // way out of an exchange that would otherwise wait forever.
  void CloseWindowWhen(std::function<bool()> condition) {
    events.onDoEvents = [this, condition] { monitor.cancelRequested |= condition(); };
  }

  FakeEvents events;
  ScriptedDialogs dialogs;
  FakeClock clock;
  std::ostringstream diagnostics;
  CommPorts comm;
  SharedState state;
  ScopeContext context;
  ExchangeMonitor monitor;
  std::vector<std::string> statuses;  // every status text shown, in order
  bool started = false;
};

struct WireHarness : PortRig {
  explicit WireHarness(int scopeType, SimBehaviour behaviour = {})
      : PortRig([this] { return sim.DevicePath(); }), sim(scopeType, behaviour) {
    started = sim.Start();
    state.telescope.scopeType = static_cast<std::int16_t>(scopeType);
  }
  ScopeSimulator sim;
};

#define ASSERT_SIM_STARTED(harness) \
  if (!(harness).started) GTEST_SKIP() << "no pseudo-terminal available here"

}  // namespace astel::testing
