// GotoScope end to end: the real CommIO over a pseudo-terminal to a simulated mount.
#include "scope/goto_scope.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

// 5 h 34.5 min, -5 deg 23 min selected.
struct GotoHarness : WireHarness {
  explicit GotoHarness(int type, SimBehaviour behaviour = {}) : WireHarness(type, behaviour) {
    state.object.objRaHours = 5;
    state.object.objRaMinutes = 34.5;
    state.object.objDecDegrees = -5;
    state.object.objDecMinutes = 23;
    state.object.objDecSign = 1;
  }
  bool Goto() { return GotoScope(state, comm, dialogs, events); }
  // What has arrived once `count` bytes have, or after a second, and after a moment more.
  std::string WaitForBytes(std::size_t count) {
    for (int tries = 0; tries < 200 && sim.ReceivedBytes().size() < count; ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    return sim.ReceivedBytes();
  }
};

TEST(GotoScope, EachFamilySendsItsBytesOnItsLine) {
  const std::string reminder =
      "You must press a key on the scope before next 'GOTO' to prevent telescope lockup ";
  const struct {
    const char* legend;
    int type;
    bool script;
    std::string wire;
    bool twoStopBits;
    std::size_t pauses;  // of 5 ms
    const char* message;
  } rows[] = {
      {"type 0: the port opens, nothing is sent", 0, false, "", false, 1, nullptr},
      {"type 1: hex text, a pause before each character", 1, false, "R3B77,FC2C", true, 11,
       nullptr},
      {"type 2: attention, then five bytes", 2, false, std::string("?R\x3B\x77\xFC\x2C", 6), false,
       1, nullptr},
      {"type 3: seven bytes and the reminder, in a script too", 3, true,
       std::string("R\x3B\x77\x00\xFC\x2C\x00", 7), false, 1, reminder.c_str()},
      {"type 4: LX200 commands", 4, false, "#:Sr 05:34.5##:Sd -05*23##:MS#", false, 0, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    GotoHarness h(row.type);
    ASSERT_SIM_STARTED(h);
    h.state.script.scriptMode = row.script;
    EXPECT_TRUE(h.Goto());
    EXPECT_EQ(h.WaitForBytes(row.wire.size()), row.wire);
    for (const ReceivedByte& byte : h.sim.Received()) {
      EXPECT_EQ(byte.twoStopBits, row.twoStopBits);
      EXPECT_EQ(byte.speed, B9600);
    }
    EXPECT_EQ(h.events.sleeps, std::vector<int>(row.pauses, 5));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

TEST(GotoScope, FailuresShowTheirMessageOutsideScriptsAndNothingInScripts) {
  const struct {
    const char* legend;
    int port;
    int hangUpAfterBytes;
    const char* message;
    std::size_t bytesOnWire;
  } rows[] = {
      {"port beyond COM4", 5, -1, "UNABLE TO OPEN COM 5", 0},
      {"device missing", 2, -1, "UNABLE TO OPEN COM 2", 0},
      {"line hung up in the middle of the command", kPort, 4, "UNABLE TO WRITE TO COM 1", 4},
  };
  for (const auto& row : rows) {
    for (bool script : {false, true}) {
      SCOPED_TRACE(std::string(row.legend) + (script ? " (script)" : ""));
      GotoHarness h(1, {.hangUpAfterBytes = row.hangUpAfterBytes});
      ASSERT_SIM_STARTED(h);
      h.state.telescope.comPort = row.port;
      h.state.script.scriptMode = script;
      EXPECT_FALSE(h.Goto());
      EXPECT_EQ(h.dialogs.messages, Shown(script ? nullptr : row.message));
      EXPECT_EQ(h.sim.ReceivedBytes().size(), row.bytesOnWire);
      EXPECT_FALSE(h.comm.IsOpen(row.port)) << "the port is closed after a failure";
      EXPECT_FALSE(h.diagnostics.str().empty()) << "the reason reaches the error stream";
    }
  }
}

}  // namespace
}  // namespace astel::testing
