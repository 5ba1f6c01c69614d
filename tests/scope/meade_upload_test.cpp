// The LX200 upload of place, time-zone offset, date and time: its commands, and the whole
// exchange against a simulated LX200.
#include "scope/meade_upload.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

PlaceState Place(int latDeg, double latMin, int latSign, int lonDeg, double lonMin, int lonSign) {
  PlaceState place;
  place.latitudeDegrees = latDeg;
  place.latitudeMinutes = latMin;
  place.latitudeSign = latSign;
  place.longitudeDegrees = lonDeg;
  place.longitudeMinutes = lonMin;
  place.longitudeSign = lonSign;
  return place;
}

// The upload exchange below sends 48 deg 7 min north, 11 deg 31 min east, +5 h and two-digit
// clock texts; here the other forms.
TEST(MeadeUploadCommands, SignsWrapsAndPadding) {
  const PlaceState minusZero = Place(0, 30, -1, 0, 30, -1);
  EXPECT_EQ(EncodeMeadeLongitude(minusZero), "#:Sg 359*30#") << "the sign alone makes it east";
  EXPECT_EQ(EncodeMeadeLatitude(minusZero), "#:St -00*30#");
  EXPECT_EQ(EncodeMeadeLongitude(Place(0, 0, 1, 75, 30.2, 1)), "#:Sg 075*30#") << "west";
  EXPECT_EQ(EncodeMeadeLongitude(Place(0, 0, 1, 0, 0, 1)), "#:Sg 000*00#") << "Greenwich";
  EXPECT_EQ(EncodeMeadeOffset(5, true), "#:SG+05#");
  EXPECT_EQ(EncodeMeadeOffset(-5.5, false), "#:SG-05.5#");
  EXPECT_EQ(EncodeMeadeOffset(0, false), "#:SG+00.0#");
  TimeState time;
  time.hourText = "7";
  time.minuteText = "05";
  time.secondText = "9";
  EXPECT_EQ(EncodeMeadeTime(time), "#:SL 07:05:09#");
}

TEST(MeadeUploadCommands, DaylightTimeAddsAnHourUnlessTheModelShiftsItself) {
  auto sent = [](bool daylight, bool noDstShift) {
    SharedState state;
    FakeClock clock;
    state.place.gmtOffset = 4;
    state.telescope.scopeNoDstShift = noDstShift;
    clock.zone.daylight = daylight;
    return UploadOffsetHours(state, clock);
  };
  EXPECT_EQ(sent(false, false), 4);
  EXPECT_EQ(sent(true, false), 5);
  EXPECT_EQ(sent(true, true), 4);
}

TEST(MeadeUploadCommands, Model401WithGpsGetsTheGreenwichDate) {
  auto sent = [](int code, bool gps, const char* daySign, const char* month, const char* day,
                 const char* year) {
    SharedState state;
    state.telescope.scopeCode = code;
    state.telescope.scopeHasGps = gps;
    state.time.gmtDaySign = daySign;
    state.time.monthText = month;
    state.time.dayText = day;
    state.time.yearText = year;
    MeadeDate date = UploadDate(state);
    return date.month + "/" + date.day + "/" + date.year2;
  };
  EXPECT_EQ(sent(401, true, "+", "12", "31", "2005"), "01/01/06") << "a day ahead, new year";
  EXPECT_EQ(sent(401, true, "-", "03", "01", "2004"), "02/29/04") << "a day behind, leap year";
  EXPECT_EQ(sent(401, false, "+", "12", "31", "2005"), "12/31/05") << "no GPS: the local date";
  EXPECT_EQ(sent(405, true, "+", "12", "31", "2005"), "12/31/05") << "another model";
}

// An LX200 harness with the observer 48 deg 7 min north, 11 deg 31 min east, 5 hours west of
// Greenwich in offset, on 23 March 2005 at 21:05:09.
struct UploadHarness : WireHarness {
  explicit UploadHarness(SimBehaviour behaviour = {}) : WireHarness(4, behaviour) {
    state.telescope.scopeCode = 402;
    state.place = Place(48, 7.038, 1, -11, 31, 1);
    state.place.gmtOffset = 5;
  }
};

TEST(UploadMeade, SendsTheFiveStepsAndTheTelescopeTakesThem) {
  UploadHarness h;
  ASSERT_SIM_STARTED(h);
  EXPECT_TRUE(UploadMeade(h.context, h.monitor, true));
  EXPECT_EQ(h.sim.ReceivedBytes(),
            "#:Sg 348*29##:St +48*07##:SG+05.0##:SC 03/23/05##:SL 21:05:09#");
  EXPECT_EQ(h.dialogs.shown.size(), 0u) << "success is announced by the dialog, not here";
  EXPECT_EQ(h.statuses, (std::vector<std::string>{
                            "No scope response yet. Verify Connection.\n",
                            "Waiting for Scope Response to Longitude.",
                            "Waiting for Scope Response to Latitude.",
                            "Waiting for Scope Response to GMT Offset.",
                            "Waiting for Scope Response to Date Upload",
                            "Waiting for Scope Response to Time Upload.",
                        }));
  EXPECT_FALSE(h.comm.IsOpen(kPort));
  EXPECT_EQ(std::count(h.events.sleeps.begin(), h.events.sleeps.end(), 500), 1)
      << "the date's long answer is waited out once";
}

TEST(UploadMeade, RepeatsRefusalsAndHangUps) {
  const struct {
    const char* legend;
    SimBehaviour sim;
    bool fromUploadButton;
    const char* time;  // hh:mm:ss shown; nullptr: fictitious time
    bool uploaded;
    const char* message;
    std::size_t commands;  // received by the telescope
  } rows[] = {
      {"no answer twice: the longitude sent three times",
       {.ignoreFirstQueries = 2},
       true,
       "21:05:09",
       true,
       nullptr,
       7},
      {"decimal offset refused: whole hours",
       {.rules = {1, false}},
       true,
       "21:05:09",
       true,
       nullptr,
       6},
      {"both offset forms refused",
       {.rules = {2, false}},
       true,
       "21:05:09",
       false,
       "Invalid Scope Response to Set GMT Offset= 0",
       4},
      {"longitude refused",
       {.rules = {0, true}},
       true,
       "21:05:09",
       false,
       "Invalid Scope Response to Set Longitude=0",
       1},
      {"hung up in the longitude, the user's upload",
       {.hangUpAfterBytes = 5},
       true,
       "21:05:09",
       false,
       "UNABLE TO WRITE TO COM 1",
       0},
      {"hung up in the longitude, another upload",
       {.hangUpAfterBytes = 5},
       false,
       "21:05:09",
       false,
       nullptr,
       0},
      {"hung up in the offset, another upload",
       {.hangUpAfterBytes = 30},
       false,
       "21:05:09",
       false,
       "UNABLE TO WRITE TO COM 1",
       2},
      {"fictitious time", {}, true, nullptr, false, "Must be in Real-Time Mode to Upload Data", 0},
      {"23:59:56",
       {},
       true,
       "23:59:56",
       false,
       "Date rollover, possible inconsistency. Try Again",
       0},
      {"23:59:55 still goes", {}, true, "23:59:55", true, nullptr, 5},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    UploadHarness h(row.sim);
    ASSERT_SIM_STARTED(h);
    h.state.time.realTimeMode = row.time != nullptr;
    if (row.time != nullptr) {
      const std::string time = row.time;
      h.state.time.hourText = time.substr(0, 2);
      h.state.time.minuteText = time.substr(3, 2);
      h.state.time.secondText = time.substr(6, 2);
    }
    EXPECT_EQ(UploadMeade(h.context, h.monitor, row.fromUploadButton), row.uploaded);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.Commands().size(), row.commands);
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

}  // namespace
}  // namespace astel::testing
