// A simulated mount on a pseudo-terminal behind COM1, with the real CommPorts, the fake ports and
// a shared state ready for a telescope exchange.
#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "scope/comm_io.h"
#include "scope/scope_link.h"
#include "tests/support/fake_ports.h"
#include "tests/support/scope_simulator.h"

namespace astel::testing {

inline constexpr int kPort = 1;

// The state of a working observer: real-time mode on a date the tests can reason about.
inline void SetStateDefaults(SharedState& state) {
  state.telescope.comPort = kPort;
  state.time.realTimeMode = true;
  state.time.year = 2005;
  state.time.month = 3;
  state.time.day = 23;
  state.time.yearText = "2005";
  state.time.monthText = "03";
  state.time.dayText = "23";
  state.time.hourText = "21";
  state.time.minuteText = "05";
  state.time.secondText = "09";
}

inline SimBehaviour WithFault(ReplyFault fault) {
  SimBehaviour behaviour;
  behaviour.fault = fault;
  return behaviour;
}

struct WireHarness {
  explicit WireHarness(int scopeType, SimBehaviour behaviour = {})
      : sim(scopeType, behaviour),
        comm(events, diagnostics,
             [this](int n) {
               return n == kPort ? sim.DevicePath() : "/nonexistent/tty" + std::to_string(n);
             }),
        context{state, comm, dialogs, events, clock} {
    started = sim.Start();
    state.telescope.scopeType = static_cast<std::int16_t>(scopeType);
    SetStateDefaults(state);
  }

  // The user closes the window as soon as `condition` holds (checked at every event pass): the
  // way out of an exchange that would otherwise wait forever.
  template <typename Monitor, typename Condition>
  void CloseWindowWhen(Condition condition, Monitor& monitor) {
    events.onDoEvents = [condition, &monitor] {
      if (condition()) monitor.cancelRequested = true;
    };
  }

  ScopeSimulator sim;
  FakeEvents events;
  ScriptedDialogs dialogs;
  FakeClock clock;
  std::ostringstream diagnostics;
  CommPorts comm;
  SharedState state;
  ScopeContext context;
  bool started = false;
};

#define ASSERT_SIM_STARTED(harness) \
  if (!(harness).started) GTEST_SKIP() << "no pseudo-terminal available here"

}  // namespace astel::testing
