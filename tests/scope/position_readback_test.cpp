// Reading the telescope's pointing position into the selected object, against simulated mounts.
#include "scope/position_readback.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr double kMinutesTolerance = 0.01;

struct ReadbackHarness : WireHarness {
  explicit ReadbackHarness(int type, SimBehaviour behaviour = {}) : WireHarness(type, behaviour) {
    state.object.objRaHours = 1;  // the object shown before, to see that failures keep it
    state.object.objDecDegrees = 2;
  }
  void Point(std::uint16_t ra, std::uint16_t dec, bool aligned = true) {
    MountState mount = sim.Mount();
    mount.raSteps = ra;
    mount.decSteps = dec;
    mount.aligned = aligned;
    sim.SetMount(mount);
  }
  bool Load(bool startedByUser = true) {
    return state.telescope.scopeType == 1 ? CelestronLoad(context, monitor, startedByUser)
                                          : MeadeLoad(context, monitor);
  }
};

TEST(PositionReadback, CelestronReadsTheDeclinationUnfoldedAndAsksUntilAnswered) {
  for (int code : {101, 103}) {
    SCOPED_TRACE(code);
    ReadbackHarness h(1, {.ignoreFirstQueries = 3});
    ASSERT_SIM_STARTED(h);
    h.state.telescope.scopeCode = code;
    h.Point(0x4000, 0xC000);
    EXPECT_TRUE(h.Load());
    EXPECT_EQ(h.sim.ReceivedBytes(), "JJJJE");
    EXPECT_EQ(h.state.object.objRaHours, 6);
    EXPECT_EQ(h.state.object.objDecDegrees, 270) << "a southern position stays in 180..360";
    EXPECT_NEAR(h.state.object.objDecMinutes, 0, kMinutesTolerance);
    EXPECT_TRUE(h.state.telescope.positionFromScope);
    EXPECT_EQ(h.statuses, Shown(code == 101 ? "No scope response yet. Verify Connection."
                                            : "No scope response yet. Verify Connection.\nNexstar "
                                              "60/80/114 must be in 'RS-232 Mode'"));
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

TEST(PositionReadback, MeadeReadsTheSignOfMinusZero) {
  ReadbackHarness h(4);
  ASSERT_SIM_STARTED(h);
  h.Point(15223, 65444);  // 5 h 34.5 min, -0 deg 30 min
  EXPECT_TRUE(h.Load());
  EXPECT_EQ(h.sim.ReceivedBytes(), "#:GR##:GD#");
  const ObjectState& o = h.state.object;
  EXPECT_EQ(o.objRaHours, 5);
  EXPECT_NEAR(o.objRaMinutes, 34.5, kMinutesTolerance);
  EXPECT_EQ(o.objDecDegrees, 0);
  EXPECT_EQ(o.objDecMinutes, 30);
  EXPECT_EQ(o.objDecSign, -1);
  EXPECT_EQ(h.statuses, (std::vector<std::string>{"No scope response yet. Verify Connection.\n",
                                                  "Waiting for Scope Right Ascension.",
                                                  "Waiting for Scope Declination."}));
}

TEST(PositionReadback, FailuresKeepTheObjectAndSaySoWhenTheyShould) {
  const SimBehaviour hangUp{.hangUpAfterBytes = 1};
  const struct {
    const char* legend;
    int type;
    SimBehaviour behaviour;
    bool aligned, startedByUser;
    const char *wire, *message;
  } rows[] = {
      {"not aligned", 1, SimBehaviour(), false, true, "J", "Scope is Not Aligned"},
      {"garbage", 1, WithFault(ReplyFault::kGarbage), true, true, "J", "Invalid Scope Response"},
      {"reply without its #", 1, WithFault(ReplyFault::kShort), true, true, "J",
       "Invalid Scope Response"},
      {"hung up, the user's load", 1, hangUp, true, true, "J", "UNABLE TO WRITE TO COM 1"},
      {"hung up, another caller's load", 1, hangUp, true, false, "J", nullptr},
      {"LX200 garbage", 4, WithFault(ReplyFault::kGarbage), true, true, "#:GR#",
       "Invalid Scope Response"},
      // A reply too short is no error: it is asked for again until the window is closed.
      {"NexStar position short",
       1,
       {.fault = ReplyFault::kShort, .faultOnlyFor = "E"},
       true,
       true,
       "JEEE",
       nullptr},
      {"LX200 declination short",
       4,
       {.fault = ReplyFault::kShort, .faultOnlyFor = ":GD"},
       true,
       true,
       "#:GR##:GD##:GD##:GD#",
       nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    ReadbackHarness h(row.type, row.behaviour);
    ASSERT_SIM_STARTED(h);
    h.Point(0, 0, row.aligned);
    h.CloseWindowWhen([&] { return h.sim.Commands().size() >= 4; });
    EXPECT_FALSE(h.Load(row.startedByUser));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    EXPECT_EQ(h.state.object.objRaHours, 1);
    EXPECT_EQ(h.state.object.objDecDegrees, 2);
    EXPECT_FALSE(h.state.telescope.positionFromScope);
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

}  // namespace
}  // namespace astel::testing
