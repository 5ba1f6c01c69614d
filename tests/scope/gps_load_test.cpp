// Loading place and time from a GPS receiver that sends NMEA over a pseudo-terminal.
#include "scope/gps_load.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/scope/wire_harness.h"
#include "tests/support/gps_feeder.h"

namespace astel::testing {
namespace {

const std::string kValid = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kNoFix = "$GPRMC,123519,V,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kOtherSentence = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";

struct GpsHarness {
  explicit GpsHarness(std::vector<std::string> sentences, FeederOptions options = {})
      : feeder(std::move(sentences), options),
        comm(events, diagnostics,
             [this](int n) {
               return n == kPort ? feeder.DevicePath() : "/nonexistent/ttyUSB" + std::to_string(n);
             }),
        context{state, comm, dialogs, events, clock} {
    started = feeder.Start();
    SetStateDefaults(state);
    clock.now = {2005, 3, 23, 13, 35, 20};
    monitor.onStatus = [this](const std::string& text) { statuses.push_back(text); };
  }
  LoadOutcome Load(bool confirm = true) {
    dialogs.QueueOkCancel(confirm);
    return GpsLoad(context, monitor);
  }

  GpsFeeder feeder;
  FakeEvents events;
  ScriptedDialogs dialogs;
  FakeClock clock;
  std::ostringstream diagnostics;
  CommPorts comm;
  SharedState state;
  ScopeContext context;
  ExchangeMonitor monitor;
  std::vector<std::string> statuses;
  bool started = false;
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
  const UtcDateTime& t = h.clock.setTimes[0];
  EXPECT_EQ(std::vector<int>({t.year, t.month, t.day, t.hour, t.minute, t.second}),
            std::vector<int>({2005, 3, 23, 12, 35, 20}));
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

TEST(GpsLoad, LocationOnlyLeavesTheClockAlone) {
  GpsHarness h({kValid});
  ASSERT_SIM_STARTED(h);
  h.state.telescope.gpsLocationOnly = true;
  EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
  EXPECT_EQ(h.clock.setTimes.size(), 0u);
  EXPECT_EQ(h.dialogs.Messages(),
            std::vector<std::string>{"Successful GPS Reading. Location has been set"});
  EXPECT_EQ(h.state.place.latitudeDegrees, 48);
}

TEST(GpsLoad, AClockThatRefusesTheTimeIsReportedAndThePlaceStillSet) {
  GpsHarness h({kValid});
  ASSERT_SIM_STARTED(h);
  h.clock.acceptSetTime = false;
  EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
  EXPECT_EQ(h.dialogs.Messages(),
            (std::vector<std::string>{"Windows will not accept GPS Time!",
                                      "Successful GPS Reading. Location and Time have been set."}));
  EXPECT_NE(h.diagnostics.str().find("CAP_SYS_TIME"), std::string::npos) << "the Linux reason";
  EXPECT_EQ(h.state.place.latitudeDegrees, 48);
}

TEST(GpsLoad, ARefusedSentenceCostsTheNextOneTooAndTheOneAfterIsUsed) {
  const std::string first = "$GPRMC,100000,A,1000.000,N,01000.000,W,0,0,010105,0,W";
  const std::string used = "$GPRMC,100005,A,2000.000,S,02000.000,W,0,0,010105,0,W";
  GpsHarness h({kNoFix, first, used});
  ASSERT_SIM_STARTED(h);
  EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
  ASSERT_EQ(h.clock.setTimes.size(), 1u);
  EXPECT_EQ(h.clock.setTimes[0].second, 6) << "10:00:05 plus one second";
  EXPECT_EQ(h.state.place.latitudeDegrees, -20);
}

TEST(GpsLoad, RefusedBeforeAnythingIsOpened) {
  struct Row {
    const char* legend;
    bool realTime;
    bool confirm;
    std::vector<std::string> messages;
  };
  const Row rows[] = {
      {"fictitious time", false, true, {"Must be in Real-Time Mode for GPS Operation"}},
      {"the user said Cancel", true, false, {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    GpsHarness h({kValid});
    ASSERT_SIM_STARTED(h);
    h.state.time.realTimeMode = row.realTime;
    EXPECT_EQ(h.Load(row.confirm), LoadOutcome::kNotStarted);
    EXPECT_EQ(h.dialogs.Messages(), row.messages);
    EXPECT_FALSE(h.monitor.busy);
    EXPECT_EQ(h.statuses.size(), 0u) << "the port was never opened";
  }
}

// The place before a failed reading, to check that nothing changed.
bool PlaceUntouched(const SharedState& state) {
  return state.place.homeLatitude == 0 && !state.place.locationOption &&
         !state.program.configChanged;
}

TEST(GpsLoad, FailuresLeaveThePlaceAsItWas) {
  {
    SCOPED_TRACE("no device behind the port");
    GpsHarness h({kValid});
    ASSERT_SIM_STARTED(h);
    h.state.telescope.comPort = 2;
    EXPECT_EQ(h.Load(), LoadOutcome::kFailed);
    EXPECT_EQ(h.dialogs.Messages(), std::vector<std::string>{"UNABLE TO OPEN COM 2"});
    EXPECT_TRUE(PlaceUntouched(h.state));
  }
  {
    SCOPED_TRACE("receiver unplugged before a fix");
    FeederOptions options;
    options.hangUpAfterSentences = 1;
    GpsHarness h({kNoFix, kValid}, options);
    ASSERT_SIM_STARTED(h);
    EXPECT_EQ(h.Load(), LoadOutcome::kFailed);
    EXPECT_EQ(h.dialogs.Messages(), std::vector<std::string>{"GPS Reading Unsuccessful"});
    EXPECT_TRUE(PlaceUntouched(h.state));
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
  {
    SCOPED_TRACE("no fix ever: the user closes the window");
    FeederOptions options;
    options.repeat = true;
    GpsHarness h({kNoFix, kOtherSentence}, options);
    ASSERT_SIM_STARTED(h);
    h.events.onDoEvents = [&] {
      if (h.feeder.SentCount() >= 6) h.monitor.cancelRequested = true;
    };
    EXPECT_EQ(h.Load(), LoadOutcome::kCancelled);
    EXPECT_EQ(h.dialogs.Messages().size(), 0u);
    EXPECT_EQ(h.statuses.back(), "Waiting for Valid Satellite Data Fix");
    EXPECT_TRUE(PlaceUntouched(h.state));
    EXPECT_FALSE(h.comm.IsOpen(kPort));
    EXPECT_EQ(h.clock.setTimes.size(), 0u);
  }
}

}  // namespace
}  // namespace astel::testing
