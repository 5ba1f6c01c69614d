// Loading place and time from a GPS receiver that sends NMEA over a pseudo-terminal.
#include "scope/gps_load.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"
#include "tests/support/pty_endpoint.h"

namespace astel::testing {
namespace {

const std::string kValid = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kNoFix = "$GPRMC,123519,V,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kOtherSentence = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";

// The receiver sends its next sentence at every event pass while the program has the line open:
// the reading loop lets events run only after the open and its flush, so nothing is lost.
struct GpsHarness : PortRig {
  explicit GpsHarness(std::vector<std::string> list)
      : PortRig([this] { return line.SlavePath(); }), sentences(std::move(list)) {
    started = line.Create(true);
    clock.now = {2005, 3, 23, 13, 35, 20};
    events.onDoEvents = [this] { Send(); };
  }
  void Send() {
    if (!comm.IsOpen(kPort) || line.Master() < 0) return;
    if (sent == hangUpAfter) return line.HangUp();
    if (sent == closeWindowAfter) monitor.cancelRequested = true;
    if (sent == closeWindowAfter || (closeWindowAfter < 0 && sent == std::ssize(sentences))) return;
    const std::string text =
        sentences[static_cast<std::size_t>(sent++) % sentences.size()] + "\r\n";
    [[maybe_unused]] auto written = ::write(line.Master(), text.data(), text.size());
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
  PtyEndpoint line;
  std::vector<std::string> sentences;
  int sent = 0;
  int hangUpAfter = -1;       // sentences, then the receiver is unplugged
  int closeWindowAfter = -1;  // sentences (the list repeating), then the user closes the window
};

TEST(GpsLoad, AValidFixSetsThePlaceAndTheClockUnlessTheUserOrTheSystemSaysNo) {
  const std::string timeSet = "Successful GPS Reading. Location and Time have been set.";
  const struct {
    const char* legend;
    bool locationOnly, clockAccepts;
    std::vector<std::string> messages;
  } rows[] = {
      {"place and clock", false, true, {timeSet}},
      {"location only", true, true, {"Successful GPS Reading. Location has been set"}},
      {"the clock refuses", false, false, {"Windows will not accept GPS Time!", timeSet}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    GpsHarness h({kOtherSentence, kValid});
    ASSERT_SIM_STARTED(h);
    h.state.telescope.gpsLocationOnly = row.locationOnly;
    h.clock.acceptSetTime = row.clockAccepts;
    EXPECT_EQ(h.Load(), LoadOutcome::kLoaded);
    EXPECT_EQ(h.dialogs.questions,
              Shown("Disconnect Telescope. Configure GPS interface to send NMEA 0183 V2 data, then "
                    "connect GPS to COM1, using a special GPS data cable. Click 'OK' when ready"));
    EXPECT_EQ(h.dialogs.shown[0].title, "Connect Up GPS Device");
    EXPECT_EQ(h.dialogs.messages, row.messages);
    if (row.locationOnly) {
      EXPECT_TRUE(h.clock.setTimes.empty());
    } else {
      ASSERT_EQ(h.clock.setTimes.size(), 1u);
      EXPECT_EQ(Fields(h.clock.setTimes[0]), std::vector<int>({2005, 3, 23, 12, 35, 20}));
    }
    EXPECT_EQ(h.state.time.hourText, row.locationOnly ? "21" : "13") << "the clock read again";
    EXPECT_EQ(h.diagnostics.str().find("CAP_SYS_TIME") != std::string::npos, !row.clockAccepts)
        << "the Linux reason of a refusal";
    EXPECT_EQ(h.state.place.latitudeDegrees, 48);
    EXPECT_EQ(h.state.place.longitudeDegrees, -11);
    EXPECT_EQ(h.statuses,
              (std::vector<std::string>{
                  "No valid NMEA data yet seen. Verify GPS Configuration and Connection",
                  "Waiting for Valid Satellite Data Fix",
                  "GPS Data Valid",
              }));
    EXPECT_FALSE(h.monitor.busy);
    EXPECT_FALSE(h.comm.IsOpen(kPort));
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

TEST(GpsLoad, RefusalsAndFailuresLeaveThePlaceAsItWas) {
  const struct {
    const char* legend;
    bool realTime, confirm;
    int port, hangUpAfter, closeWindowAfter;
    LoadOutcome outcome;
    const char* message;
  } rows[] = {
      {"fictitious time", false, true, kPort, -1, -1, LoadOutcome::kNotStarted,
       "Must be in Real-Time Mode for GPS Operation"},
      {"the user said Cancel", true, false, kPort, -1, -1, LoadOutcome::kNotStarted, nullptr},
      {"no device", true, true, 2, -1, -1, LoadOutcome::kFailed, "UNABLE TO OPEN COM 2"},
      {"unplugged", true, true, kPort, 1, -1, LoadOutcome::kFailed, "GPS Reading Unsuccessful"},
      {"no fix until the window is closed", true, true, kPort, -1, 6, LoadOutcome::kCancelled,
       nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    GpsHarness h({kNoFix, kOtherSentence});
    ASSERT_SIM_STARTED(h);
    h.state.time.realTimeMode = row.realTime;
    h.state.telescope.comPort = row.port;
    h.hangUpAfter = row.hangUpAfter;
    h.closeWindowAfter = row.closeWindowAfter;
    EXPECT_EQ(h.Load(row.confirm), row.outcome);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.statuses.empty(), row.outcome == LoadOutcome::kNotStarted || row.port != kPort)
        << "statuses begin once the port is open";
    EXPECT_TRUE(h.PlaceUntouched());
    EXPECT_TRUE(h.clock.setTimes.empty());
    EXPECT_FALSE(h.monitor.busy);
    EXPECT_FALSE(h.comm.IsOpen(row.port));
  }
}

}  // namespace
}  // namespace astel::testing
