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

TEST(MeadeUploadCommands, SiteCommandsCountLongitudeWestwardAllRoundTheCircle) {
  const struct {
    const char* legend;
    PlaceState place;
    const char *longitude, *latitude;
  } rows[] = {
      {"-0 deg 30 min: the sign alone makes it east", Place(0, 30, -1, 0, 30, -1), "#:Sg 359*30#",
       "#:St -00*30#"},
      {"west and north as they are", Place(48, 7.038, 1, 75, 30.2, 1), "#:Sg 075*30#",
       "#:St +48*07#"},
      {"Greenwich", Place(51, 28.6, 1, 0, 0, 1), "#:Sg 000*00#", "#:St +51*29#"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(EncodeMeadeLongitude(row.place), row.longitude) << row.legend;
    EXPECT_EQ(EncodeMeadeLatitude(row.place), row.latitude) << row.legend;
  }
}

TEST(MeadeUploadCommands, OffsetAndTimeForms) {
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
  const struct {
    const char* legend;
    double gmtOffset;
    bool daylight, noDstShift;
    double sent;
  } rows[] = {
      {"standard time", 5, false, false, 5},
      {"daylight time", 4, true, false, 5},
      {"daylight time, model keeps its own shift", 4, true, true, 4},
  };
  for (const auto& row : rows) {
    SharedState state;
    FakeClock clock;
    state.place.gmtOffset = row.gmtOffset;
    state.telescope.scopeNoDstShift = row.noDstShift;
    clock.zone.daylight = row.daylight;
    EXPECT_EQ(UploadOffsetHours(state, clock), row.sent) << row.legend;
  }
}

TEST(MeadeUploadCommands, Model401WithGpsGetsTheGreenwichDate) {
  const struct {
    const char* legend;
    int code;
    bool gps;
    const char *daySign, *month, *day, *year;  // local date texts
    const char* sent;                          // MM/DD/YY
  } rows[] = {
      {"a day ahead at the year's end", 401, true, "+", "12", "31", "2005", "01/01/06"},
      {"a day behind in a leap year", 401, true, "-", "03", "01", "2004", "02/29/04"},
      {"401 without GPS keeps the local date", 401, false, "+", "12", "31", "2005", "12/31/05"},
      {"another model keeps the local date", 405, true, "+", "12", "31", "2005", "12/31/05"},
  };
  for (const auto& row : rows) {
    SharedState state;
    state.telescope.scopeCode = row.code;
    state.telescope.scopeHasGps = row.gps;
    state.time.gmtDaySign = row.daySign;
    state.time.monthText = row.month;
    state.time.dayText = row.day;
    state.time.yearText = row.year;
    state.time.hourText = "22";
    MeadeDate date = UploadDate(state);
    EXPECT_EQ(date.month + "/" + date.day + "/" + date.year2, row.sent) << row.legend;
  }
}

// An LX200 harness with the observer 48 deg 7 min north, 11 deg 31 min east, 5 hours west of
// Greenwich in offset, on 23 March 2005 at 21:05:09.
struct UploadHarness : WireHarness {
  explicit UploadHarness(SimBehaviour behaviour = {}) : WireHarness(4, behaviour) {
    state.telescope.scopeCode = 402;
    state.place = Place(48, 7.038, 1, -11, 31, 1);
    state.place.gmtOffset = 5;
  }
  bool Upload(bool fromUploadButton = true) {
    return UploadMeade(context, monitor, fromUploadButton);
  }
};

TEST(UploadMeade, SendsTheFiveStepsAndTheTelescopeTakesThem) {
  UploadHarness h;
  ASSERT_SIM_STARTED(h);
  EXPECT_TRUE(h.Upload());
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

TEST(UploadMeade, StepsAreSentAgainUntilAnsweredAndARefusalEndsTheUploadWithTheReply) {
  const struct {
    const char* legend;
    int ignoreFirstQueries, refuseOffsetForms;
    bool refuseAllSets;
    const char* message;
    std::size_t commandsSent;
  } rows[] = {
      {"the longitude sent three times", 2, 0, false, nullptr, 7},
      {"decimal offset refused: whole hours", 0, 1, false, nullptr, 6},
      {"both offset forms refused", 0, 2, false, "Invalid Scope Response to Set GMT Offset= 0", 4},
      {"longitude refused", 0, 0, true, "Invalid Scope Response to Set Longitude=0", 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    UploadHarness h({.ignoreFirstQueries = row.ignoreFirstQueries,
                     .rules = {row.refuseOffsetForms, row.refuseAllSets}});
    ASSERT_SIM_STARTED(h);
    EXPECT_EQ(h.Upload(), row.message == nullptr);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.Commands().size(), row.commandsSent);
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

TEST(UploadMeade, RefusedOutsideRealTimeAndInTheLastSecondsBeforeMidnight) {
  const struct {
    const char* legend;
    bool realTime;
    const char* time;  // hh:mm:ss
    const char* message;
  } rows[] = {
      {"fictitious time", false, "21:05:09", "Must be in Real-Time Mode to Upload Data"},
      {"23:59:56", true, "23:59:56", "Date rollover, possible inconsistency. Try Again"},
      {"23:59:55 still goes", true, "23:59:55", nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    UploadHarness h;
    ASSERT_SIM_STARTED(h);
    h.state.time.realTimeMode = row.realTime;
    const std::string time = row.time;
    h.state.time.hourText = time.substr(0, 2);
    h.state.time.minuteText = time.substr(3, 2);
    h.state.time.secondText = time.substr(6, 2);
    EXPECT_EQ(h.Upload(), row.message == nullptr);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.ReceivedBytes().empty(), row.message != nullptr) << "nothing sent if refused";
  }
}

TEST(UploadMeade, AHangUpIsReportedExceptForASiteWriteOfAnUploadNotStartedByTheUser) {
  const struct {
    const char* legend;
    int hangUpAfterBytes;
    bool fromUploadButton;
    const char* message;
  } rows[] = {
      {"during the longitude, user's upload", 5, true, "UNABLE TO WRITE TO COM 1"},
      {"during the longitude, other upload", 5, false, nullptr},
      {"during the offset, other upload", 30, false, "UNABLE TO WRITE TO COM 1"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    UploadHarness h({.hangUpAfterBytes = row.hangUpAfterBytes});
    ASSERT_SIM_STARTED(h);
    EXPECT_FALSE(h.Upload(row.fromUploadButton));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_FALSE(h.comm.IsOpen(kPort));
  }
}

}  // namespace
}  // namespace astel::testing
