// GotoScope end to end: the real CommIO over a pseudo-terminal to a simulated mount.
#include "scope/goto_scope.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <chrono>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

// The simulator stamps a byte when its thread wakes up to read it; a byte stamped late shortens
// the gap to the next by as much, so the pacing is checked within this much. (A command sent
// with a 3 ms pause, or none, still fails.)
constexpr double kWakeupToleranceMs = 1.5;
constexpr double kPacingMs = 5.0;

void SelectObject(SharedState& state) {
  state.object.objRaHours = 5;
  state.object.objRaMinutes = 34.5;
  state.object.objDecDegrees = -5;
  state.object.objDecMinutes = 23;
  state.object.objDecSign = 1;
}

std::string WaitForBytes(ScopeSimulator& sim, std::size_t count) {
  for (int tries = 0; tries < 200 && sim.ReceivedBytes().size() < count; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  return sim.ReceivedBytes();
}

TEST(GotoScope, NexStarSendsTenPacedCharactersWithTwoStopBits) {
  WireHarness h(1);
  ASSERT_SIM_STARTED(h);
  SelectObject(h.state);
  EXPECT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events));
  EXPECT_EQ(WaitForBytes(h.sim, 10), "R3B77,FC2C");
  auto bytes = h.sim.Received();
  ASSERT_EQ(bytes.size(), 10u);
  std::vector<double> gapsMs;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    EXPECT_TRUE(bytes[i].twoStopBits) << "byte " << i;
    EXPECT_EQ(bytes[i].baud, 9600);
    if (i > 0) {
      gapsMs.push_back(
          std::chrono::duration<double, std::milli>(bytes[i].at - bytes[i - 1].at).count());
    }
  }
  // The receiver's clock lags when the machine is busy, so one gap can look short; the median
  // cannot unless the sender stopped pacing. The sender's own pauses are checked exactly.
  std::nth_element(gapsMs.begin(), gapsMs.begin() + 4, gapsMs.end());
  EXPECT_GE(gapsMs[4], kPacingMs - kWakeupToleranceMs) << "median gap between characters";
  EXPECT_GE(std::count(h.events.sleeps.begin(), h.events.sleeps.end(), kPacingMs), 10)
      << "5 ms before each of the ten characters";
  EXPECT_EQ(h.dialogs.shown.size(), 0u);
  EXPECT_FALSE(h.comm.IsOpen(kPort));
  EXPECT_EQ(h.sim.Mount().raSteps, 0x3B77) << "the mount took the command";
  EXPECT_EQ(h.sim.Mount().decSteps, 0xFC2C);
}

TEST(GotoScope, BinaryFamiliesSendTheirBytesWithOneStopBit) {
  struct Row {
    const char* legend;
    int type;
    std::string wire;
    std::vector<std::string> messages;
  };
  const Row rows[] = {
      {"type 2: attention, then five bytes", 2, std::string("?R\x3B\x77\xFC\x2C", 6), {}},
      {"type 3: seven bytes and the key-press reminder",
       3,
       std::string("R\x3B\x77\x00\xFC\x2C\x00", 7),
       {"You must press a key on the scope before next 'GOTO' to prevent telescope lockup "}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(row.type);
    ASSERT_SIM_STARTED(h);
    SelectObject(h.state);
    EXPECT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events));
    EXPECT_EQ(WaitForBytes(h.sim, row.wire.size()), row.wire);
    EXPECT_FALSE(h.sim.Received().front().twoStopBits);
    EXPECT_EQ(h.dialogs.Messages(), row.messages);
  }
}

TEST(GotoScope, TheStarGuideReminderIsShownInScriptModeToo) {
  WireHarness h(3);
  ASSERT_SIM_STARTED(h);
  SelectObject(h.state);
  h.state.script.scriptMode = true;
  EXPECT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events));
  ASSERT_EQ(h.dialogs.Messages().size(), 1u);
  EXPECT_EQ(h.dialogs.Messages()[0].rfind("You must press a key", 0), 0u);
}

TEST(GotoScope, Lx200GetsTheThreeCommandsAndSlews) {
  WireHarness h(4);
  ASSERT_SIM_STARTED(h);
  SelectObject(h.state);
  EXPECT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events));
  EXPECT_EQ(WaitForBytes(h.sim, 30), "#:Sr 05:34.5##:Sd -05*23##:MS#");
  ASSERT_TRUE(h.sim.WaitForCommands(3, std::chrono::seconds(2)));
  MountState mount = h.sim.Mount();
  EXPECT_NEAR(mount.raSteps / 65536.0 * 24, 5 + 34.5 / 60, 0.001) << "the mount slewed there";
  EXPECT_NEAR((mount.decSteps - 65536.0) / 65536.0 * 360, -(5 + 23 / 60.0), 0.01);
  EXPECT_EQ(h.dialogs.shown.size(), 0u);
}

TEST(GotoScope, NoGotoTelescopeOpensThePortAndSendsNothing) {
  WireHarness h(0);
  ASSERT_SIM_STARTED(h);
  SelectObject(h.state);
  EXPECT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events));
  std::this_thread::sleep_for(std::chrono::milliseconds(30));
  EXPECT_EQ(h.sim.ReceivedBytes(), "");
  EXPECT_EQ(h.dialogs.shown.size(), 0u);
}

TEST(GotoScope, RepeatedGotosEachReachTheMount) {
  WireHarness h(1);
  ASSERT_SIM_STARTED(h);
  for (int hours = 0; hours < 6; ++hours) {
    h.state.object.objRaHours = hours * 4;
    h.state.object.objRaMinutes = 0;
    ASSERT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events)) << hours;
  }
  ASSERT_TRUE(h.sim.WaitForCommands(6, std::chrono::seconds(2)))
      << ::testing::PrintToString(h.sim.Commands());
  auto commands = h.sim.Commands();
  EXPECT_EQ(commands.front(), "R0000,0000");
  EXPECT_EQ(commands.back(), "RD555,0000") << "20 h";
}

TEST(GotoScope, FailuresShowTheirMessageOutsideScriptsAndNothingInScripts) {
  struct Row {
    const char* legend;
    int port;
    int hangUpAfterBytes;
    const char* message;
    std::size_t bytesOnWire;
  };
  const Row rows[] = {
      {"port beyond COM4", 5, -1, "UNABLE TO OPEN COM 5", 0},
      {"device missing", 2, -1, "UNABLE TO OPEN COM 2", 0},
      {"line hung up in the middle of the command", kPort, 4, "UNABLE TO WRITE TO COM 1", 4},
  };
  for (const Row& row : rows) {
    for (bool script : {false, true}) {
      SCOPED_TRACE(std::string(row.legend) + (script ? " (script)" : ""));
      SimBehaviour behaviour;
      behaviour.hangUpAfterBytes = row.hangUpAfterBytes;
      WireHarness h(1, behaviour);
      ASSERT_SIM_STARTED(h);
      SelectObject(h.state);
      h.state.telescope.comPort = row.port;
      h.state.script.scriptMode = script;
      EXPECT_FALSE(GotoScope(h.state, h.comm, h.dialogs, h.events));
      EXPECT_EQ(h.dialogs.Messages(),
                script ? std::vector<std::string>{} : std::vector<std::string>{row.message});
      EXPECT_EQ(h.sim.ReceivedBytes().size(), row.bytesOnWire);
      EXPECT_FALSE(h.comm.IsOpen(row.port)) << "the port is closed after a failure";
      EXPECT_FALSE(h.diagnostics.str().empty()) << "the reason reaches the error stream";
    }
  }
}

}  // namespace
}  // namespace astel::testing
