// Loading place and time from a GPS receiver that sends NMEA over a pseudo-terminal.
#include "scope/gps_load.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"
#include "tests/support/gps_feeder.h"

namespace astel::testing {
namespace {

const std::string kValid = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kNoFix = "$GPRMC,123519,V,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kOtherSentence = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";

struct GpsHarness : PortRig {
  explicit GpsHarness(std::vector<std::string> sentences, FeederOptions options = {})
      : PortRig([this] { return feeder.DevicePath(); }), feeder(std::move(sentences), options) {
    started = feeder.Start();
    clock.now = {2005, 3, 23, 13, 35, 20};
  }
  LoadOutcome Load(bool confirm = true) {
    dialogs.choices.push_back(confirm);
    return GpsLoad(context, monitor);
  }
  // Nothing of a failed reading reached the place.
  bool PlaceUntouched() const {
    return state.place.homeLatitude == 0 && !state.place.locationOption &&
           !state.program.configChanged;
  }
  GpsFeeder feeder;
};

TEST(GpsLoad, AValidFixSetsPlaceAndClock) {
  GpsHarness h({kOtherSentence, kValid});
  ASSERT_SIM_STARTED(h);
  EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
  ASSERT_EQ(h.dialogs.shown.size(), 2u);
  EXPECT_EQ(h.dialogs.shown[0].text,
            "Disconnect Telescope. Configure GPS interface to send NMEA 0183 V2 data, then connect "
            "GPS to COM1, using a special GPS data cable. Click 'OK' when ready");
  EXPECT_EQ(h.dialogs.shown[0].title, "Connect Up GPS Device");
  EXPECT_EQ(h.dialogs.shown[1].text, "Successful GPS Reading. Location and Time have been set.");
  ASSERT_EQ(h.clock.setTimes.size(), 1u);
  EXPECT_EQ(Fields(h.clock.setTimes[0]), std::vector<int>({2005, 3, 23, 12, 35, 20}));
  EXPECT_EQ(h.state.place.latitudeDegrees, 48);
  EXPECT_EQ(h.state.place.longitudeDegrees, -11);
  EXPECT_TRUE(h.state.place.locationOption);
  EXPECT_EQ(h.state.time.hourText, "13") << "the clock was read again after it was set";
  EXPECT_EQ(h.statuses, (std::vector<std::string>{
                            "No valid NMEA data yet seen. Verify GPS Configuration and Connection",
                            "Waiting for Valid Satellite Data Fix",
                            "GPS Data Valid",
                        }));
  EXPECT_FALSE(h.monitor.busy);
  EXPECT_FALSE(h.comm.IsOpen(kPort));
}

TEST(GpsLoad, TheClockIsLeftAloneForTheLocationOnlyAndARefusalIsReported) {
  const struct {
    const char* legend;
    bool locationOnly, clockAccepts;
    std::vector<std::string> messages;
    std::size_t setTimes;
  } rows[] = {
      {"location only", true, true, {"Successful GPS Reading. Location has been set"}, 0},
      {"the clock refuses",
       false,
       false,
       {"Windows will not accept GPS Time!",
        "Successful GPS Reading. Location and Time have been set."},
       1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    GpsHarness h({kValid});
    ASSERT_SIM_STARTED(h);
    h.state.telescope.gpsLocationOnly = row.locationOnly;
    h.clock.acceptSetTime = row.clockAccepts;
    EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
    EXPECT_EQ(h.clock.setTimes.size(), row.setTimes);
    EXPECT_EQ(h.dialogs.messages, row.messages);
    EXPECT_EQ(h.diagnostics.str().find("CAP_SYS_TIME") != std::string::npos, !row.clockAccepts)
        << "the Linux reason of a refusal";
    EXPECT_EQ(h.state.place.latitudeDegrees, 48);
  }
}

TEST(GpsLoad, ARefusedSentenceCostsTheNextOneTooAndTheOneAfterIsUsed) {
  GpsHarness h({kNoFix, "$GPRMC,100000,A,1000.000,N,01000.000,W,0,0,010105,0,W",
                "$GPRMC,100005,A,2000.000,S,02000.000,W,0,0,010105,0,W"});
  ASSERT_SIM_STARTED(h);
  EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
  ASSERT_EQ(h.clock.setTimes.size(), 1u);
  EXPECT_EQ(h.clock.setTimes[0].second, 6) << "10:00:05 plus one second";
  EXPECT_EQ(h.state.place.latitudeDegrees, -20);
}

TEST(GpsLoad, RefusedBeforeAnythingIsOpened) {
  const struct {
    const char* legend;
    bool realTime, confirm;
    const char* message;
  } rows[] = {
      {"fictitious time", false, true, "Must be in Real-Time Mode for GPS Operation"},
      {"the user said Cancel", true, false, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    GpsHarness h({kValid});
    ASSERT_SIM_STARTED(h);
    h.state.time.realTimeMode = row.realTime;
    EXPECT_EQ(h.Load(row.confirm), LoadOutcome::kNotStarted);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_FALSE(h.monitor.busy);
    EXPECT_EQ(h.statuses.size(), 0u) << "the port was never opened";
  }
}

TEST(GpsLoad, FailuresLeaveThePlaceAsItWas) {
  GpsHarness missing({kValid});
  ASSERT_SIM_STARTED(missing);
  missing.state.telescope.comPort = 2;
  EXPECT_EQ(missing.Load(), LoadOutcome::kFailed);
  EXPECT_EQ(missing.dialogs.messages, Shown("UNABLE TO OPEN COM 2"));
  EXPECT_TRUE(missing.PlaceUntouched());

  GpsHarness h({kNoFix, kValid}, {.hangUpAfterSentences = 1});  // unplugged
  ASSERT_SIM_STARTED(h);
  EXPECT_EQ(h.Load(), LoadOutcome::kFailed);
  EXPECT_EQ(h.dialogs.messages, Shown("GPS Reading Unsuccessful"));
  EXPECT_TRUE(h.PlaceUntouched());
  EXPECT_FALSE(h.comm.IsOpen(kPort));
}

TEST(GpsLoad, WithoutAFixOnlyClosingTheWindowEndsTheReading) {
  GpsHarness h({kNoFix, kOtherSentence}, {.repeat = true});
  ASSERT_SIM_STARTED(h);
  h.CloseWindowWhen([&] { return h.feeder.SentCount() >= 6; });
  EXPECT_EQ(h.Load(), LoadOutcome::kCancelled);
  EXPECT_EQ(h.dialogs.messages.size(), 0u);
  EXPECT_EQ(h.statuses.back(), "Waiting for Valid Satellite Data Fix");
  EXPECT_TRUE(h.PlaceUntouched());
  EXPECT_FALSE(h.comm.IsOpen(kPort));
  EXPECT_EQ(h.clock.setTimes.size(), 0u);
}

}  // namespace
}  // namespace astel::testing
