// Motor control of a NexStar over a pseudo-terminal: motion and stop commands, the reversing
// switches and the two timers (closing the window while it moves: tests/ui).
#include "scope/move_scope.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

using L = MoveScopeLogic;

struct MotionHarness : WireHarness {
  explicit MotionHarness(int type = 1, SimBehaviour behaviour = {})
      : WireHarness(type, behaviour), logic(state, comm, dialogs, events, safety, pause) {}
  // The motor commands the mount received: "axis direction rate|" each (axis 16 azimuth,
  // 17 altitude; direction 36 positive, 37 negative; rate 0 stops).
  std::string Motions() const {
    std::string text;
    for (const MotorCommand& m : sim.Mount().motions)
      text += std::to_string(m.axis) + " " + std::to_string(m.direction) + " " +
              std::to_string(m.rate) + "|";
    return text;
  }
  FakeTimer safety, pause;
  L logic;
};

TEST(MoveScope, HoldingUpMovesTheAltitudeAxisUntilReleased) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.UpDown(kLeftMouse);
  EXPECT_FALSE(h.state.form.commandButtonsEnabled) << "GoTo, Scope and Object wait";
  EXPECT_TRUE(h.safety.running);
  EXPECT_EQ(h.safety.intervalMs, 10000);

  h.logic.UpUp(kLeftMouse);
  EXPECT_EQ(h.sim.ReceivedBytes(), std::string("P\x02\x11\x24\x09\x00\x00\x02"
                                               "P\x02\x11\x24\x00\x00\x00\x02",
                                               16));
  EXPECT_FALSE(h.sim.Received().front().twoStopBits);
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
  EXPECT_FALSE(h.safety.running);
  EXPECT_EQ(h.pause.intervalMs, 2000);
  EXPECT_FALSE(h.logic.ButtonEnabled(MoveButton::kUp) || h.logic.Ready()) << "the pause rests";
  h.logic.PauseTimeout();
  EXPECT_FALSE(h.pause.running);
  EXPECT_TRUE(h.logic.ButtonEnabled(MoveButton::kUp) && h.logic.Ready());
}

TEST(MoveScope, ButtonsAndReversingSwitchesPickAxisAndDirection) {
  const struct {
    const char* legend;
    void (L::*press)(int);
    void (L::*release)(int);
    bool reverseUpDown, reverseLeftRight;
    const char* motions;
  } rows[] = {
      {"up reversed", &L::UpDown, &L::UpUp, true, false, "17 37 3|17 36 0|"},
      {"right reversed", &L::RightDown, &L::RightUp, false, true, "16 37 3|16 36 0|"},
      {"up with only left-right reversed", &L::UpDown, &L::UpUp, false, true, "17 36 3|17 36 0|"},
  };
  for (const auto& row : rows) {
    MotionHarness h;
    ASSERT_SIM_STARTED(h);
    h.logic.SetRateIndex(2);
    h.logic.SetReverseUpDown(row.reverseUpDown);
    h.logic.SetReverseLeftRight(row.reverseLeftRight);
    (h.logic.*row.press)(kLeftMouse);
    (h.logic.*row.release)(kLeftMouse);
    EXPECT_EQ(h.Motions(), row.motions) << row.legend;
  }
}

TEST(MoveScope, ABadReplyFailsTheStartButTheReleaseStillStops) {
  MotionHarness h(1, {.fault = ReplyFault::kGarbage});
  ASSERT_SIM_STARTED(h);
  EXPECT_FALSE(h.logic.StartMotion(true, 1));
  EXPECT_EQ(h.dialogs.messages, Shown("Invalid Scope Response"));
  h.logic.StopMotion();
  EXPECT_EQ(h.Motions(), "17 36 9|17 36 0|") << "the stop went out too";
}

TEST(MoveScope, TheSafetyTimerStopsAMotionAndLeavingTheWindowFreesTheButtons) {
  MotionHarness h;
  ASSERT_SIM_STARTED(h);
  h.logic.DownDown(kLeftMouse);
  h.logic.SafetyTimeout();
  EXPECT_EQ(h.logic.General(), "Timeout - Safety Stop");
  EXPECT_EQ(h.Motions(), "17 37 9|17 36 0|");
  EXPECT_TRUE(h.pause.running && !h.safety.running && h.state.form.commandButtonsEnabled);
  MotionHarness idle;
  idle.state.form.commandButtonsEnabled = false;
  idle.logic.Deactivate();
  EXPECT_TRUE(idle.state.form.commandButtonsEnabled && idle.Motions().empty() &&
              !idle.pause.running);
}

}  // namespace
}  // namespace astel::testing
