// Reading the telescope's pointing position into the selected object, against simulated mounts.
#include "scope/position_readback.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr double kMinutesTolerance = 0.01;

struct ReadbackHarness : WireHarness {
  explicit ReadbackHarness(int type, SimBehaviour behaviour = {}) : WireHarness(type, behaviour) {
    monitor.onStatus = [this](const std::string& text) { statuses.push_back(text); };
    state.object.objRaHours = 1;  // the object shown before, to see that failures keep it
    state.object.objDecDegrees = 2;
  }
  void Point(std::uint16_t ra, std::uint16_t dec) {
    MountState mount = sim.Mount();
    mount.raSteps = ra;
    mount.decSteps = dec;
    sim.SetMount(mount);
  }
  bool Unchanged() const {
    return state.object.objRaHours == 1 && state.object.objDecDegrees == 2 &&
           !state.telescope.positionFromScope;
  }
  ExchangeMonitor monitor;
  std::vector<std::string> statuses;
};

TEST(CelestronLoad, ReadsAnAlignedMountsPositionWithTheDeclinationUnfolded) {
  ReadbackHarness h(1);
  ASSERT_SIM_STARTED(h);
  h.Point(0x4000, 0xC000);
  EXPECT_TRUE(CelestronLoad(h.context, h.monitor, true));
  EXPECT_EQ(h.sim.ReceivedBytes(), "JE");
  const ObjectState& o = h.state.object;
  EXPECT_EQ(o.objRaHours, 6);
  EXPECT_NEAR(o.objRaMinutes, 0, kMinutesTolerance);
  EXPECT_EQ(o.objDecDegrees, 270) << "a southern position stays between 180 and 360";
  EXPECT_NEAR(o.objDecMinutes, 0, kMinutesTolerance);
  EXPECT_EQ(o.objDecSign, 1);
  EXPECT_TRUE(h.state.telescope.positionFromScope);
  EXPECT_EQ(h.statuses, std::vector<std::string>{"No scope response yet. Verify Connection."});
  EXPECT_EQ(h.dialogs.shown.size(), 0u);
  EXPECT_FALSE(h.comm.IsOpen(kPort));
}

TEST(CelestronLoad, TheNexStar60IsRemindedOfItsRs232Mode) {
  ReadbackHarness h(1);
  ASSERT_SIM_STARTED(h);
  h.state.telescope.scopeCode = 103;
  EXPECT_TRUE(CelestronLoad(h.context, h.monitor, true));
  EXPECT_EQ(
      h.statuses.front(),
      "No scope response yet. Verify Connection.\nNexstar 60/80/114 must be in 'RS-232 Mode'");
}

TEST(CelestronLoad, QueriesAreSentAgainUntilTheMountAnswers) {
  SimBehaviour behaviour;
  behaviour.ignoreFirstQueries = 3;
  ReadbackHarness h(1, behaviour);
  ASSERT_SIM_STARTED(h);
  EXPECT_TRUE(CelestronLoad(h.context, h.monitor, true));
  EXPECT_EQ(h.sim.ReceivedBytes(), "JJJJE");
}

TEST(CelestronLoad, FailuresKeepTheObjectAndSaySoWhenTheyShould) {
  struct Row {
    const char* legend;
    SimBehaviour behaviour;
    bool aligned;
    bool startedByUser;
    std::vector<std::string> messages;
    const char* wire;
  };
  SimBehaviour hangUp;
  hangUp.hangUpAfterBytes = 1;
  const Row rows[] = {
      {"not aligned", {}, false, true, {"Scope is Not Aligned"}, "J"},
      {"garbage", WithFault(ReplyFault::kGarbage), true, true, {"Invalid Scope Response"}, "J"},
      {"alignment reply without its #",
       WithFault(ReplyFault::kShort),
       true,
       true,
       {"Invalid Scope Response"},
       "J"},
      {"hung up, the user's load", hangUp, true, true, {"UNABLE TO WRITE TO COM 1"}, "J"},
      {"hung up, another caller's load", hangUp, true, false, {}, "J"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    ReadbackHarness h(1, row.behaviour);
    ASSERT_SIM_STARTED(h);
    MountState mount = h.sim.Mount();
    mount.aligned = row.aligned;
    h.sim.SetMount(mount);
    EXPECT_FALSE(CelestronLoad(h.context, h.monitor, row.startedByUser));
    EXPECT_EQ(h.dialogs.Messages(), row.messages);
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    EXPECT_TRUE(h.Unchanged());
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

TEST(CelestronLoad, AShortPositionIsAskedForAgainUntilTheWindowCloses) {
  SimBehaviour behaviour = WithFault(ReplyFault::kShort);
  behaviour.faultOnlyFor = "E";
  ReadbackHarness h(1, behaviour);
  ASSERT_SIM_STARTED(h);
  h.CloseWindowWhen([&] { return h.sim.CountCommands("E") >= 2; }, h.monitor);
  EXPECT_FALSE(CelestronLoad(h.context, h.monitor, true));
  EXPECT_EQ(h.dialogs.shown.size(), 0u);
  EXPECT_TRUE(h.Unchanged());
  EXPECT_FALSE(h.comm.IsOpen(kPort));
}

TEST(MeadeLoad, ReadsRightAscensionAndDeclinationWithTheSignOfMinusZero) {
  ReadbackHarness h(4);
  ASSERT_SIM_STARTED(h);
  h.Point(15223, 65444);  // 5 h 34.5 min, -0 deg 30 min
  EXPECT_TRUE(MeadeLoad(h.context, h.monitor));
  EXPECT_EQ(h.sim.ReceivedBytes(), "#:GR##:GD#");
  const ObjectState& o = h.state.object;
  EXPECT_EQ(o.objRaHours, 5);
  EXPECT_NEAR(o.objRaMinutes, 34.5, kMinutesTolerance);
  EXPECT_EQ(o.objDecDegrees, 0);
  EXPECT_EQ(o.objDecMinutes, 30);
  EXPECT_EQ(o.objDecSign, -1);
  EXPECT_TRUE(h.state.telescope.positionFromScope);
  EXPECT_EQ(h.statuses, (std::vector<std::string>{"No scope response yet. Verify Connection.\n",
                                                  "Waiting for Scope Right Ascension.",
                                                  "Waiting for Scope Declination."}));
}

TEST(MeadeLoad, FailuresKeepTheObject) {
  ReadbackHarness garbage(4, WithFault(ReplyFault::kGarbage));
  ASSERT_SIM_STARTED(garbage);
  EXPECT_FALSE(MeadeLoad(garbage.context, garbage.monitor));
  EXPECT_EQ(garbage.dialogs.Messages(), std::vector<std::string>{"Invalid Scope Response"});
  EXPECT_TRUE(garbage.Unchanged());

  SimBehaviour shortDeclination = WithFault(ReplyFault::kShort);
  shortDeclination.faultOnlyFor = ":GD";
  ReadbackHarness h(4, shortDeclination);
  ASSERT_SIM_STARTED(h);
  h.CloseWindowWhen([&] { return h.sim.CountCommands(":GD#") >= 3; }, h.monitor);
  EXPECT_FALSE(MeadeLoad(h.context, h.monitor));
  EXPECT_EQ(h.dialogs.shown.size(), 0u) << "a reply too short is asked for again, not an error";
  EXPECT_TRUE(h.Unchanged());
  EXPECT_FALSE(h.comm.IsOpen(kPort));
}

}  // namespace
}  // namespace astel::testing
