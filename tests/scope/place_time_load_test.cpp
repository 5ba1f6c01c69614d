// Loading place and time: $GPRMC framing and decoding, how a reading sets the observer's place,
// the whole reading from a GPS receiver that sends NMEA over a pseudo-terminal, and the same from
// the telescope's own site and clock (NexStar "w"/"h", LX200 :Gt :Gg :GG :GC :GL).
#include <unistd.h>

#include <gtest/gtest.h>

#include <tuple>

#include "scope/gps_load.h"
#include "scope/nmea.h"
#include "scope/scope_gps_load.h"
#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr double kDegreesPerRadian = 57.29577957855229;
constexpr double kRadianTolerance = 1e-12;
constexpr int kArcsec = 3600;
const std::string kValid = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kOtherSentence = "$GPGGA,123519,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,";

TEST(Nmea, FramesAndDecodesGprmcSentencesFieldByField) {
  NmeaFramer framer;
  std::string handed;  // other sentences and noise dropped, a "$" starts afresh, CR LF ends
  for (char c :
       std::string("\x01noise\r\n$GPGGA,1\r\n$GPRMC,cut$GPRMC,a\n$GPRMC,b\r\n$GPRMC,c\r\n"))
    if (auto sentence = framer.Feed(c)) handed += *sentence + "|";
  EXPECT_EQ(handed, "$GPRMC,b|$GPRMC,c|");

  auto replaced = [](std::string text, const std::string& from, const std::string& to) {
    return text.replace(text.find(from), from.size(), to);
  };
  const struct {
    const char* legend;
    std::string sentence;
    const char* utc;
  } rows[] = {
      {"matching checksum", kValid + "*62", "2005-03-23 12:35:20.000"},
      {"checksum that does not match", kValid + "*6A", "refused"},
      {"59 s: the added second would carry", replaced(kValid, "123519", "123559"), "refused"},
  };
  for (const auto& row : rows) {
    std::optional<GpsFix> fix = ParseGprmc(row.sentence, "2005");
    EXPECT_EQ(fix ? Text(fix->utc) : "refused", row.utc) << row.legend;
  }

  SharedState state;  // half a degree south and east: the sign without whole degrees
  state.time.riseSetCurrent = true;
  ApplyPlaceFix(state,
                PlaceOfGpsFix(*ParseGprmc(
                    replaced(kValid, "4807.038,N,01131.000,E", "0030.000,S,00030.000,E"), "2005")));
  const PlaceState& p = state.place;
  EXPECT_EQ(std::tuple(p.latitudeDegrees, p.latitudeMinutes, p.latitudeSign, p.longitudeDegrees,
                       p.longitudeMinutes, p.longitudeSign),
            std::tuple(0, 30.0, -1, 0, 30.0, -1));
  EXPECT_NEAR(p.homeLatitude, -0.5 / kDegreesPerRadian, kRadianTolerance);
  EXPECT_NEAR(p.homeLongitude, -0.5 / kDegreesPerRadian, kRadianTolerance);
  EXPECT_FALSE(state.time.riseSetCurrent) << "rise and set times are due again";
}

// The receiver sends another sentence, then a valid fix, one at every event pass while the
// program has the line open: the reading loop lets events run only after the open and its flush,
// so nothing is lost.
struct GpsHarness : PortRig {
  GpsHarness() : PortRig([this] { return line.SlavePath(); }) {
    started = line.Create();
    clock.now = {2005, 3, 23, 13, 35, 20};
    dialogs.choices = {true};
    events.onDoEvents = [this] {
      if (!comm.IsOpen(kPort) || line.Master() < 0 || sent == 2) return;
      if (sent == hangUpAfter) return line.HangUp();
      if (sent == closeWindowAfter) {
        monitor.cancelRequested = true;
        return;
      }
      const std::string text = (sent++ == 0 ? kOtherSentence : kValid) + "\r\n";
      [[maybe_unused]] auto written = ::write(line.Master(), text.data(), text.size());
    };
  }
  PtyEndpoint line;
  int sent = 0, hangUpAfter = -1, closeWindowAfter = -1;  // in sentences
};

TEST(GpsLoad, AValidFixSetsThePlaceAndTheClockAndEveryOtherEndLeavesThemAsTheyWere) {
  using enum LoadOutcome;
  const char* timeSet = "Successful GPS Reading. Location and Time have been set.";
  const struct {
    const char* legend;
    bool realTime, locationOnly, clockAccepts;
    int hangUpAfter, closeWindowAfter;  // sentences; -1 never
    LoadOutcome outcome;
    const char* message;  // the last one shown
  } rows[] = {
      {"place and clock", true, false, true, -1, -1, kLoaded, timeSet},
      {"the clock refuses", true, false, false, -1, -1, kLoaded, timeSet},
      {"fictitious time", false, false, true, -1, -1, kNotStarted,
       "Must be in Real-Time Mode for GPS Operation"},
      {"unplugged", true, false, true, 1, -1, kFailed, "GPS Reading Unsuccessful"},
      {"no fix until the window is closed", true, false, true, -1, 1, kCancelled, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    GpsHarness h;
    ASSERT_SIM_STARTED(h);
    h.state.time.realTimeMode = row.realTime;
    h.state.telescope.gpsLocationOnly = row.locationOnly;
    h.clock.acceptSetTime = row.clockAccepts;
    std::tie(h.hangUpAfter, h.closeWindowAfter) = std::tuple(row.hangUpAfter, row.closeWindowAfter);
    EXPECT_EQ(GpsLoad(h.context, h.monitor), row.outcome);
    std::vector<std::string> messages = Shown(row.message);
    if (!row.clockAccepts) messages.insert(messages.begin(), "Windows will not accept GPS Time!");
    EXPECT_EQ(h.dialogs.messages, messages);
    EXPECT_EQ(
        h.dialogs.questions,
        Shown(row.realTime ? "Disconnect Telescope. Configure GPS interface to send NMEA 0183 "
                             "V2 data, then connect GPS to COM1, using a special GPS data "
                             "cable. Click 'OK' when ready"
                           : nullptr));
    const bool loaded = row.outcome == kLoaded, clockSet = loaded && !row.locationOnly;
    EXPECT_EQ(SetTimes(h.clock), clockSet ? "2005-03-23 12:35:20.000|" : "");
    EXPECT_EQ(h.state.time.hourText, clockSet ? "13" : "21") << "the clock read again";
    EXPECT_EQ(h.diagnostics.str().find("CAP_SYS_TIME") != std::string::npos, !row.clockAccepts)
        << "the Linux reason of a refusal";
    const PlaceState& p = h.state.place;
    EXPECT_EQ(std::tuple(p.latitudeDegrees, p.longitudeDegrees, p.locationOption),
              loaded ? std::tuple(48, -11, true) : std::tuple(0, 0, false));
    EXPECT_EQ(h.statuses.empty(), row.outcome == kNotStarted) << "statuses once the port is open";
    EXPECT_FALSE(h.monitor.busy);
  }
}

TEST(ScopeSiteReplies, Lx200AnglesAndTheTelescopeClock) {
  // \337 is 0xDF, the degree sign an LX200 sends; -0 keeps its sign.
  EXPECT_EQ(DecodeLx200Angle("-00\33730#"), -30 * 60);
  EXPECT_EQ(DecodeLx200Angle("+48*07'30#"), 48 * kArcsec + 7 * 60 + 30) << "high precision";
  EXPECT_EQ(DecodeLx200UtcOffset("-05.5#"), -5.5);
  EXPECT_EQ(Text(UtcOfScopeClock({2005, 1, 1, 3, 0, 0, -5.5, false})), "2004-12-31 21:30:00.000")
      << "a half-hour zone east, back into the old year";
}

// The telescope stands 48 deg 7 min (NexStar: 7 min 30 s) north, 11 deg 31 min east; its clock
// reads 21:30:00 on 23 March 2005, five hours behind Greenwich (the NexStar's EST in daylight
// time: four). The NexStar answers with one byte a value, the zone as 256 less the hours west.
SimBehaviour Site() {
  return {ReplyFault::kNone,
          0,
          -1,
          {{"w", {48, 7, 30, 0, 11, 31, 0, 0, '#'}},
           {"h", {21, 30, 0, 3, 23, 5, char(251), 1, '#'}},
           {":Gt", "+48\33707#"},
           {":Gg", "348\33729#"},
           {":GG", "+05#"}}};
}

TEST(ScopeGpsLoad, SiteAndClockSetThePlaceAndTheComputerClockUnlessOnlyThePlaceIsWanted) {
  const std::string lx200 = "#:Gt##:Gg##:GG##:GC##:GL#";
  const struct {
    const char* legend;
    int type;
    bool daylight, locationOnly;  // daylight time on the computer
    std::string wire;
    double latitudeMinutes;
    const char* utc;  // as the clock was asked to set
  } rows[] = {
      {"LX200", 4, false, false, lx200, 7, "2005-03-24 02:30:00.000|"},
      {"LX200, daylight time: the upload sent one hour more than the offset", 4, true, false, lx200,
       7, "2005-03-24 01:30:00.000|"},
      {"NexStar", 1, false, false, "wh", 7.5, "2005-03-24 01:30:00.000|"},
      {"NexStar, location only", 1, false, true, "w", 7.5, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(row.type, Site());
    ASSERT_SIM_STARTED(h);
    h.clock.now = {2005, 3, 23, 21, 30, 1};
    h.clock.zone.daylight = row.daylight;
    h.state.telescope.gpsLocationOnly = row.locationOnly;
    EXPECT_EQ(ScopeGpsLoad(h.context, h.monitor), LoadOutcome::kLoaded);
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    EXPECT_EQ(SetTimes(h.clock), row.utc);
    const PlaceState& p = h.state.place;
    EXPECT_EQ(
        std::tuple(p.latitudeDegrees, p.latitudeMinutes, p.longitudeDegrees, p.longitudeMinutes),
        std::tuple(48, row.latitudeMinutes, -11, 31.0));
    EXPECT_EQ(
        h.dialogs.messages,
        Shown(row.locationOnly ? "Successful Scope Reading. Location has been set"
                               : "Successful Scope Reading. Location and Time have been set."));
    EXPECT_EQ(h.state.time.secondText, row.locationOnly ? "09" : "01") << "the clock read again";
    EXPECT_FALSE(h.monitor.busy);
  }
}

}  // namespace
}  // namespace astel::testing
