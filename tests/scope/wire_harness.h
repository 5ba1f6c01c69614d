// The rig of every exchange test: the real CommPorts with COM1 behind a pseudo-terminal that a
// simulated mount or GPS receiver answers (every other port has no device), the fake ports, and
// the shared state of a working observer.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "scope/comm_io.h"
#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"
#include "tests/support/fake_ports.h"
#include "tests/support/scope_simulator.h"

namespace astel::testing {

inline constexpr int kPort = 1;

inline SimBehaviour WithFault(ReplyFault fault) {
  return {.fault = fault};
}

// The messages expected of an exchange that shows at most one: none for nullptr.
inline std::vector<std::string> Shown(const char* message) {
  return message ? std::vector<std::string>{message} : std::vector<std::string>{};
}

// Year, month, day, hour, minute, second.
inline std::vector<int> Fields(const UtcDateTime& t) {
  return {t.year, t.month, t.day, t.hour, t.minute, t.second};
}

struct PortRig {
  explicit PortRig(std::function<std::string()> device)
      : comm(events, diagnostics,
             [device](int n) {
               return n == kPort ? device() : "/nonexistent/tty" + std::to_string(n);
             }),
        context{state, comm, dialogs, events, clock} {
    // Real-time mode, the display showing 23 March 2005, 21:05:09.
    state.telescope.comPort = kPort;
    state.time.realTimeMode = true;
    state.time.yearText = "2005";
    state.time.monthText = "03";
    state.time.dayText = "23";
    state.time.hourText = "21";
    state.time.minuteText = "05";
    state.time.secondText = "09";
    monitor.onStatus = [this](const std::string& text) { statuses.push_back(text); };
  }

  // The user closes the window as soon as `condition` holds (checked at every event pass): the
  // way out of an exchange that would otherwise wait forever.
  void CloseWindowWhen(std::function<bool()> condition) {
    events.onDoEvents = [this, condition] {
      if (condition()) monitor.cancelRequested = true;
    };
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
