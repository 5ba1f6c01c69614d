// Loading place and time from the telescope's own site and clock (NexStar "w"/"h", LX200
// :Gt :Gg :GG :GC :GL), from the reply decoders to the whole exchange over a pseudo-terminal.
#include "scope/scope_gps_load.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr int kArcsec = 3600;

// The replies of a healthy mount are read in the exchanges below; here the other forms and
// what must be refused.
TEST(ScopeSiteReplies, Lx200AnglesOffsetsDatesAndTimes) {
  // \337 is 0xDF, the degree sign an LX200 sends; -0 keeps its sign.
  EXPECT_EQ(DecodeLx200Angle("-00\33730#"), -30 * 60);
  EXPECT_EQ(DecodeLx200Angle("+48*07'30#"), 48 * kArcsec + 7 * 60 + 30) << "high precision";
  EXPECT_EQ(DecodeLx200Angle("+48*07"), std::nullopt) << "no closing #";
  EXPECT_EQ(DecodeLx200Angle("+48*75#"), std::nullopt);

  EXPECT_EQ(DecodeLx200Longitude("-011*31#"), -(11 * kArcsec + 31 * 60)) << "signed, east < 0";

  EXPECT_EQ(DecodeLx200UtcOffset("-05.5#"), -5.5);
  EXPECT_EQ(DecodeLx200UtcOffset("+5x#"), std::nullopt);

  EXPECT_EQ(DecodeLx200Date("13/23/05#"), std::nullopt);
  EXPECT_EQ(DecodeLx200Time("24:00:00#"), std::nullopt);
}

TEST(ScopeSiteReplies, UtcOfAHalfHourZoneEastBackIntoTheOldYear) {
  EXPECT_EQ(Fields(UtcOfScopeClock({2005, 1, 1, 3, 0, 0, -5.5, false})),
            (std::vector<int>{2004, 12, 31, 21, 30, 0}));
}

// The telescope stands 48 deg 7 min north, 11 deg 31 min east; its clock reads 21:30:00 on
// 23 March 2005, five hours behind Greenwich (the NexStar's EST in daylight time: four).
struct ScopeGpsHarness : WireHarness {
  explicit ScopeGpsHarness(int type, SimBehaviour behaviour = {}) : WireHarness(type, behaviour) {
    clock.now = {2005, 3, 23, 21, 30, 1};
    sim.SetMount({.latitudeDegrees = 48,
                  .latitudeMinutes = 7,
                  .latitudeSeconds = 30,
                  .longitudeDegrees = 11,
                  .longitudeMinutes = 31,
                  .longitudeSeconds = 0,
                  .west = false,
                  .zoneHoursEast = -5,
                  .daylight = true,
                  .lxLatitudeArcmin = 48 * 60 + 7,
                  .lxLongitudeArcmin = 348 * 60 + 29,
                  .lxUtcOffsetHours = 5});
  }
  LoadOutcome Load() { return ScopeGpsLoad(context, monitor); }
  std::vector<int> SetTime() const {
    return clock.setTimes.size() == 1 ? Fields(clock.setTimes[0]) : std::vector<int>{};
  }
};

TEST(ScopeGpsLoad, SiteAndClockSetThePlaceAndTheComputerClockUnlessTheUserOrTheSystemSaysNo) {
  const std::string lx200 = "#:Gt##:Gg##:GG##:GC##:GL#";
  const std::string timeSet = "Successful Scope Reading. Location and Time have been set.";
  const std::string placeSet = "Successful Scope Reading. Location has been set";
  const std::vector<int> noTime;
  const struct {
    const char* legend;
    int type;
    bool daylight, locationOnly, clockAccepts;  // daylight time on the computer
    std::string wire;
    double latitudeMinutes;
    std::vector<int> utc;  // as the clock was asked to set
    std::vector<std::string> messages;
  } rows[] = {
      {"LX200", 4, false, false, true, lx200, 7, {2005, 3, 24, 2, 30, 0}, {timeSet}},
      {"LX200, daylight time: the upload sent one hour more than the offset",
       4,
       true,
       false,
       true,
       lx200,
       7,
       {2005, 3, 24, 1, 30, 0},
       {timeSet}},
      {"NexStar", 1, false, false, true, "wh", 7.5, {2005, 3, 24, 1, 30, 0}, {timeSet}},
      {"NexStar, location only", 1, false, true, true, "w", 7.5, noTime, {placeSet}},
      {"LX200, the clock refuses",
       4,
       false,
       false,
       false,
       lx200,
       7,
       {2005, 3, 24, 2, 30, 0},
       {"Windows will not accept GPS Time!", timeSet}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    ScopeGpsHarness h(row.type);
    ASSERT_SIM_STARTED(h);
    h.clock.zone.daylight = row.daylight;
    h.state.telescope.gpsLocationOnly = row.locationOnly;
    h.clock.acceptSetTime = row.clockAccepts;
    EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    EXPECT_FALSE(h.sim.Received().front().twoStopBits);
    EXPECT_EQ(h.SetTime(), row.utc);
    EXPECT_EQ(h.state.place.latitudeDegrees, 48);
    EXPECT_DOUBLE_EQ(h.state.place.latitudeMinutes, row.latitudeMinutes);
    EXPECT_EQ(h.state.place.longitudeDegrees, -11);
    EXPECT_DOUBLE_EQ(h.state.place.longitudeMinutes, 31);
    EXPECT_EQ(h.dialogs.messages, row.messages);
    EXPECT_EQ(h.diagnostics.str().find("CAP_SYS_TIME") != std::string::npos, !row.clockAccepts);
    EXPECT_EQ(h.state.time.secondText, row.locationOnly ? "09" : "01") << "the clock read again";
    EXPECT_FALSE(h.comm.IsOpen(kPort));
    EXPECT_FALSE(h.monitor.busy);
  }
}

TEST(ScopeGpsLoad, FailuresShowTheirMessageAndChangeNothing) {
  const SimBehaviour hangUp{.hangUpAfterBytes = 1};
  const struct {
    const char* legend;
    int type;
    SimBehaviour behaviour;
    int port;
    bool realTime;
    LoadOutcome outcome;
    const char* message;
  } rows[] = {
      {"garbage from an LX200", 4, WithFault(ReplyFault::kGarbage), kPort, true,
       LoadOutcome::kFailed, "Invalid Scope Response"},
      {"garbage from a NexStar", 1, WithFault(ReplyFault::kGarbage), kPort, true,
       LoadOutcome::kFailed, "Invalid Scope Response"},
      {"line hung up", 1, hangUp, kPort, true, LoadOutcome::kFailed, "UNABLE TO WRITE TO COM 1"},
      {"no device", 4, SimBehaviour(), 2, true, LoadOutcome::kFailed, "UNABLE TO OPEN COM 2"},
      {"a family without these queries", 2, SimBehaviour(), kPort, true, LoadOutcome::kNotStarted,
       "Function not Available"},
      {"fictitious time", 4, SimBehaviour(), kPort, false, LoadOutcome::kNotStarted,
       "Must be in Real-Time Mode for Scope Load"},
      {"window closed while the telescope stays silent", 4, WithFault(ReplyFault::kSilent), kPort,
       true, LoadOutcome::kCancelled, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    ScopeGpsHarness h(row.type, row.behaviour);
    ASSERT_SIM_STARTED(h);
    h.state.telescope.comPort = row.port;
    h.state.time.realTimeMode = row.realTime;
    h.CloseWindowWhen([&] { return h.sim.Commands().size() >= 3; });  // only silence gets there
    EXPECT_EQ(h.Load(), row.outcome);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_FALSE(h.state.place.locationOption);
    EXPECT_EQ(h.state.place.homeLatitude, 0);
    EXPECT_EQ(h.clock.setTimes.size(), 0u);
    EXPECT_FALSE(h.comm.IsOpen(row.port));
  }
}

}  // namespace
}  // namespace astel::testing
