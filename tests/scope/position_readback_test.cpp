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
  bool Unchanged() const {
    return state.object.objRaHours == 1 && state.object.objDecDegrees == 2 &&
           !state.telescope.positionFromScope;
  }
};

TEST(CelestronLoad, ReadsAnAlignedMountsPositionWithTheDeclinationUnfolded) {
  const struct {
    int code, ignoredQueries;
    const char *wire, *status;
  } rows[] = {
      {101, 0, "JE", "No scope response yet. Verify Connection."},
      {101, 3, "JJJJE", "No scope response yet. Verify Connection."},  // asked until answered
      {103, 0, "JE",
       "No scope response yet. Verify Connection.\nNexstar 60/80/114 must be in 'RS-232 Mode'"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.wire + std::string(" from ") + std::to_string(row.code));
    ReadbackHarness h(1, {.ignoreFirstQueries = row.ignoredQueries});
    ASSERT_SIM_STARTED(h);
    h.state.telescope.scopeCode = row.code;
    h.Point(0x4000, 0xC000);
    EXPECT_TRUE(CelestronLoad(h.context, h.monitor, true));
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    const ObjectState& o = h.state.object;
    EXPECT_EQ(o.objRaHours, 6);
    EXPECT_NEAR(o.objRaMinutes, 0, kMinutesTolerance);
    EXPECT_EQ(o.objDecDegrees, 270) << "a southern position stays between 180 and 360";
    EXPECT_NEAR(o.objDecMinutes, 0, kMinutesTolerance);
    EXPECT_EQ(o.objDecSign, 1);
    EXPECT_TRUE(h.state.telescope.positionFromScope);
    EXPECT_EQ(h.statuses, Shown(row.status));
    EXPECT_EQ(h.dialogs.shown.size(), 0u);
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

TEST(CelestronLoad, FailuresKeepTheObjectAndSaySoWhenTheyShould) {
  const SimBehaviour hangUp{.hangUpAfterBytes = 1};
  const struct {
    const char* legend;
    SimBehaviour behaviour;
    bool aligned, startedByUser;
    const char* message;
  } rows[] = {
      {"not aligned", SimBehaviour(), false, true, "Scope is Not Aligned"},
      {"garbage", WithFault(ReplyFault::kGarbage), true, true, "Invalid Scope Response"},
      {"reply without its #", WithFault(ReplyFault::kShort), true, true, "Invalid Scope Response"},
      {"hung up, the user's load", hangUp, true, true, "UNABLE TO WRITE TO COM 1"},
      {"hung up, another caller's load", hangUp, true, false, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    ReadbackHarness h(1, row.behaviour);
    ASSERT_SIM_STARTED(h);
    h.Point(0, 0, row.aligned);
    EXPECT_FALSE(CelestronLoad(h.context, h.monitor, row.startedByUser));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.ReceivedBytes(), "J");
    EXPECT_TRUE(h.Unchanged());
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
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

TEST(MeadeLoad, AReplyWithoutItsHashIsRefused) {
  ReadbackHarness h(4, WithFault(ReplyFault::kGarbage));
  ASSERT_SIM_STARTED(h);
  EXPECT_FALSE(MeadeLoad(h.context, h.monitor));
  EXPECT_EQ(h.dialogs.messages, Shown("Invalid Scope Response"));
  EXPECT_TRUE(h.Unchanged());
  EXPECT_FALSE(h.comm.IsOpen(kPort));
}

TEST(PositionReadback, AShortReplyIsAskedForAgainUntilTheWindowCloses) {
  const struct {
    int type;
    const char* faultOnlyFor;
  } rows[] = {{1, "E"}, {4, ":GD"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.faultOnlyFor);
    ReadbackHarness h(row.type, {.fault = ReplyFault::kShort, .faultOnlyFor = row.faultOnlyFor});
    ASSERT_SIM_STARTED(h);
    // The first query, then the position asked three times.
    h.CloseWindowWhen([&] { return h.sim.Commands().size() >= 4; });
    EXPECT_FALSE(row.type == 1 ? CelestronLoad(h.context, h.monitor, true)
                               : MeadeLoad(h.context, h.monitor));
    EXPECT_EQ(h.dialogs.shown.size(), 0u) << "a reply too short is not an error";
    EXPECT_TRUE(h.Unchanged());
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

}  // namespace
}  // namespace astel::testing
