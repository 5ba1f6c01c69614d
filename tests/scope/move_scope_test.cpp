// Motor control of a NexStar over a pseudo-terminal: motion and stop commands, the reversing
// switches, the two timers and the remote mouse.
#include "scope/move_scope.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

using enum MoveButton;
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
  // Presses and releases a button, then lets the pause end.
  void Click(MoveButton button) {
    using L = MoveScopeLogic;
    const std::pair<void (L::*)(int), void (L::*)(int)> actions[] = {{&L::UpDown, &L::UpUp},
                                                                     {&L::DownDown, &L::DownUp},
                                                                     {&L::LeftDown, &L::LeftUp},
                                                                     {&L::RightDown, &L::RightUp}};
    auto [press, release] = actions[static_cast<int>(button)];
    (logic.*press)(kLeftMouse);
    (logic.*release)(kLeftMouse);
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
    MoveButton button;
    bool reverseUpDown, reverseLeftRight;
    int axis, direction;
  } rows[] = {
      {"up", kUp, false, false, kAltitude, kPositive},
      {"up reversed", kUp, true, false, kAltitude, kNegative},
      {"down", kDown, false, false, kAltitude, kNegative},
      {"left", kLeft, false, false, kAzimuth, kNegative},
      {"right reversed", kRight, false, true, kAzimuth, kNegative},
      {"up with only left-right reversed", kUp, false, true, kAltitude, kPositive},
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
  for (int type : {0, 2, 4}) {
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

TEST(MoveScope, BadRepliesFailTheStartButTheReleaseStillStops) {
  const struct {
    const char* legend;
    SimBehaviour behaviour;
    int port;
    const char* message;
  } rows[] = {
      {"garbage", WithFault(ReplyFault::kGarbage), kPort, "Invalid Scope Response"},
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
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
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

TEST(MoveScope, TheSafetyTimerOrClosingTheWindowStopsAMotion) {
  const struct {
    const char* legend;
    void (MoveScopeLogic::*stop)();
    const char* general;
    bool pauseFollows;
  } rows[] = {
      {"held for ten seconds", &MoveScopeLogic::SafetyTimeout, "Timeout - Safety Stop", true},
      {"window closed", &MoveScopeLogic::Close, " ", false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    MotionHarness h;
    ASSERT_SIM_STARTED(h);
    h.logic.DownDown(kLeftMouse);
    (h.logic.*row.stop)();
    EXPECT_EQ(h.logic.General(), row.general);
    EXPECT_EQ(h.Motions().size(), 2u);
    EXPECT_EQ(h.Motions().back(), (std::vector<int>{kAltitude, kPositive, 0}));
    EXPECT_FALSE(h.safety.running);
    EXPECT_EQ(h.pause.running, row.pauseFollows);
    EXPECT_TRUE(h.state.form.commandButtonsEnabled);
  }
}

TEST(MoveScope, LeavingOrClosingAnIdleWindowFreesTheButtonsAndSendsNothing) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.state.form.commandButtonsEnabled = false;
  h.logic.Deactivate();
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
  h.logic.Close();
  EXPECT_EQ(h.sim.ReceivedBytes(), "");
}

}  // namespace
}  // namespace astel::testing
