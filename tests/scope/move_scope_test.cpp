// Motor control of a NexStar over a pseudo-terminal: motion and stop commands, the reversing
// switches, the two timers and the remote mouse.
#include "scope/move_scope.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr int kAltitude = 17, kAzimuth = 16, kPositive = 36, kNegative = 37;

struct MotionHarness : WireHarness {
  explicit MotionHarness(int type = 1, SimBehaviour behaviour = {})
      : WireHarness(type, behaviour), logic(state, comm, dialogs, events, safety, pause) {}
  // The motor commands the mount received, as (axis, direction, rate).
  std::vector<std::vector<int>> Motions() const {
    std::vector<std::vector<int>> result;
    for (const MotorCommand& m : sim.Mount().motions)
      result.push_back({m.axis, m.direction, m.rate});
    return result;
  }
  // Presses and releases a button ('U'p, 'D'own, 'L'eft or 'R'ight), then lets the pause end.
  void Click(char button) {
    using L = MoveScopeLogic;
    const std::map<char, std::pair<void (L::*)(int), void (L::*)(int)>> actions = {
        {'U', {&L::UpDown, &L::UpUp}},
        {'D', {&L::DownDown, &L::DownUp}},
        {'L', {&L::LeftDown, &L::LeftUp}},
        {'R', {&L::RightDown, &L::RightUp}}};
    (logic.*actions.at(button).first)(kLeftMouse);
    (logic.*actions.at(button).second)(kLeftMouse);
    logic.PauseTimeout();
  }
  FakeTimer safety;
  FakeTimer pause;
  MoveScopeLogic logic;
};

TEST(MoveScope, HoldingUpMovesTheAltitudeAxisUntilReleased) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.UpDown(kLeftMouse);
  EXPECT_FALSE(h.state.form.commandButtonsEnabled) << "GoTo, Scope and Object wait";
  EXPECT_TRUE(h.safety.running);
  EXPECT_EQ(h.safety.intervalMs, 10000);
  EXPECT_EQ(h.logic.General(), " ");
  EXPECT_FALSE(h.comm.IsOpen(kPort)) << "the port is open only during a command";

  h.logic.UpUp(kLeftMouse);
  EXPECT_EQ(h.sim.ReceivedBytes(), std::string("P\x02\x11\x24\x09\x00\x00\x02"
                                               "P\x02\x11\x24\x00\x00\x00\x02",
                                               16));
  EXPECT_FALSE(h.sim.Received().front().twoStopBits);
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
  EXPECT_FALSE(h.safety.running);
  EXPECT_TRUE(h.pause.running);
  EXPECT_EQ(h.pause.intervalMs, 2000);
  EXPECT_FALSE(h.logic.ButtonEnabled(MoveButton::kUp)) << "rests during the pause";
  EXPECT_FALSE(h.logic.Ready());
  EXPECT_EQ(h.dialogs.shown.size(), 0u);

  h.logic.PauseTimeout();
  EXPECT_FALSE(h.pause.running);
  EXPECT_TRUE(h.logic.ButtonEnabled(MoveButton::kUp));
  EXPECT_TRUE(h.logic.Ready());
  EXPECT_FALSE(h.logic.StopRequested());
}

TEST(MoveScope, ButtonsAndReversingSwitchesPickAxisAndDirection) {
  const struct {
    const char* legend;
    char button;
    bool reverseUpDown, reverseLeftRight;
    int axis, direction;
  } rows[] = {
      {"up", 'U', false, false, kAltitude, kPositive},
      {"up reversed", 'U', true, false, kAltitude, kNegative},
      {"down", 'D', false, false, kAltitude, kNegative},
      {"down reversed", 'D', true, false, kAltitude, kPositive},
      {"left", 'L', false, false, kAzimuth, kNegative},
      {"left reversed", 'L', false, true, kAzimuth, kPositive},
      {"right", 'R', false, false, kAzimuth, kPositive},
      {"right reversed", 'R', false, true, kAzimuth, kNegative},
      {"up with only left-right reversed", 'U', false, true, kAltitude, kPositive},
  };
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.SetRateIndex(2);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    h.logic.SetReverseUpDown(row.reverseUpDown);
    h.logic.SetReverseLeftRight(row.reverseLeftRight);
    const std::size_t before = h.Motions().size();
    h.Click(row.button);
    auto motions = h.Motions();
    ASSERT_EQ(motions.size(), before + 2);
    EXPECT_EQ(motions[before], (std::vector<int>{row.axis, row.direction, 3}));
    EXPECT_EQ(motions[before + 1], (std::vector<int>{row.axis, kPositive, 0})) << "the stop";
  }
}

TEST(MoveScope, OtherTelescopesAndOtherMouseButtonsSendNothing) {
  for (int type : {0, 2, 3, 4}) {
    SCOPED_TRACE(type);
    MotionHarness h(type);
    ASSERT_SIM_STARTED(h);
    h.logic.LeftDown(kLeftMouse);
    EXPECT_FALSE(h.state.form.commandButtonsEnabled);
    h.logic.LeftUp(kLeftMouse);
    EXPECT_TRUE(h.state.form.commandButtonsEnabled);
    EXPECT_FALSE(h.safety.running);
    EXPECT_EQ(h.sim.ReceivedBytes(), "");
  }
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.UpDown(kRightMouse);
  h.logic.UpUp(kRightMouse);
  EXPECT_EQ(h.sim.ReceivedBytes(), "");
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
}

TEST(MoveScope, APressDuringThePauseWaitsForItsEndUnlessReleasedFirst) {
  for (bool releasedFirst : {true, false}) {
    SCOPED_TRACE(releasedFirst ? "released while waiting" : "held past the pause");
    MotionHarness h;
    ASSERT_SIM_STARTED(h);
    h.logic.LeftDown(kLeftMouse);
    h.logic.LeftUp(kLeftMouse);
    int passes = 0;
    h.events.onDoEvents = [&] {
      if (++passes != 3) return;
      if (releasedFirst)
        h.logic.RightUp(kLeftMouse);
      else
        h.logic.PauseTimeout();
    };
    h.logic.RightDown(kLeftMouse);
    auto motions = h.Motions();
    ASSERT_EQ(motions.size(), 3u);
    EXPECT_EQ(motions[2], (std::vector<int>{kAzimuth, kPositive, releasedFirst ? 0 : 9}))
        << "only the release's stop, or the motion";
    EXPECT_EQ(h.safety.running, !releasedFirst);
  }
}

TEST(MoveScope, TheSafetyTimerStopsAMotionThatRunsTooLong) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.DownDown(kLeftMouse);
  h.logic.SafetyTimeout();
  EXPECT_EQ(h.logic.General(), "Timeout - Safety Stop");
  EXPECT_EQ(h.Motions().back(), (std::vector<int>{kAltitude, kPositive, 0}));
  EXPECT_FALSE(h.safety.running);
  EXPECT_TRUE(h.pause.running);
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
}

TEST(MoveScope, BadRepliesFailTheStartButTheReleaseStillStops) {
  const struct {
    const char* legend;
    SimBehaviour behaviour;
    int port;
    const char* message;
  } rows[] = {
      {"garbage", WithFault(ReplyFault::kGarbage), kPort, "Invalid Scope Response"},
      {"silence", WithFault(ReplyFault::kSilent), kPort,
       "No Scope response - Press 'Undo' on Hand Controller"},
      {"reply without its #", WithFault(ReplyFault::kShort), kPort,
       "No Scope response - Press 'Undo' on Hand Controller"},
      {"no device", SimBehaviour(), 2, "UNABLE TO OPEN COM 2"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    MotionHarness h(1, row.behaviour);
    ASSERT_SIM_STARTED(h);
    h.state.telescope.comPort = row.port;
    EXPECT_FALSE(h.logic.StartMotion(true, 1));
    EXPECT_FALSE(h.safety.running);
    EXPECT_EQ(h.dialogs.Messages(), Shown(row.message));
    EXPECT_FALSE(h.comm.IsOpen(row.port));
    h.logic.StopMotion();
    EXPECT_EQ(h.Motions().size(), row.port == kPort ? 2u : 0u) << "the stop went out too";
  }
}

TEST(MoveScope, TheRemoteMouseDrivesTheChosenAxis) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.FormMouseDown(kLeftMouse);
  EXPECT_EQ(h.sim.ReceivedBytes(), "") << "the free area does nothing until switched on";

  h.logic.SetRemoteMouse(true);
  EXPECT_EQ(h.logic.General(),
            "Move mouse to blank part of form, then pick it up. Use L/R buttons for motion. "
            "Middle button shifts axis.");
  h.logic.FormMouseDown(kLeftMouse);
  h.logic.FormMouseUp(kLeftMouse);
  h.logic.PauseTimeout();
  h.logic.FormMouseDown(kMiddleMouse);  // now the altitude axis
  h.logic.FormMouseDown(kRightMouse);
  h.logic.FormMouseUp(kRightMouse);
  h.logic.PauseTimeout();
  auto motions = h.Motions();
  ASSERT_EQ(motions.size(), 4u);
  EXPECT_EQ(motions[0], (std::vector<int>{kAzimuth, kNegative, 9})) << "left button: left";
  EXPECT_EQ(motions[2], (std::vector<int>{kAltitude, kNegative, 9})) << "right button: down";
  h.logic.SetRemoteMouse(false);
  EXPECT_EQ(h.logic.General(), " ");
}

TEST(MoveScope, ClosingTheWindowStopsARunningMotion) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.RightDown(kLeftMouse);
  h.logic.Close();
  EXPECT_EQ(h.Motions().size(), 2u);
  EXPECT_EQ(h.Motions().back()[2], 0);
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
  EXPECT_FALSE(h.safety.running);
  EXPECT_FALSE(h.pause.running);

  MotionHarness idle;
  ASSERT_SIM_STARTED(idle);
  idle.state.form.commandButtonsEnabled = false;
  idle.logic.Deactivate();
  EXPECT_TRUE(idle.state.form.commandButtonsEnabled) << "leaving the window frees the buttons";
  idle.logic.Close();
  EXPECT_EQ(idle.sim.ReceivedBytes(), "") << "nothing ran, nothing to stop";
}

}  // namespace
}  // namespace astel::testing
