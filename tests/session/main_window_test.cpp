// The main window's logic on a started program: what it shows, and the date, time, place and
// time zone entries that change it.
#include "session/main_window.h"

#include <gtest/gtest.h>

#include "session/date_time_entry.h"
#include "session/place_entry.h"
#include "tests/session/session_fixture.h"

namespace astel {
namespace {

using MainWindowTest = testing::StartedProgram;
const std::string kDeg(1, kDegreeSign);
constexpr const char* kMonth =
    "Input Month, 1-12, press OK to Keep Current Value, press 'CANCEL' to use System Time";
constexpr const char *kYear = "Input year, 1980-2199",
                     *kLeap = "Must be valid leap year, 1980-2199",
                     *kLeapNot2100 = "Must be valid leap year, 1980-2199, not 2100";

TEST_F(MainWindowTest, PlaceAndTimeCaptions) {
  const MainDisplay& d = logic.Display();
  EXPECT_EQ(d.date, "22-11-2026");
  EXPECT_EQ(d.time, "21:30:05 GMT");
  EXPECT_EQ(d.gmt, "GMT 21:30:05  (offset 0 h)");
  EXPECT_EQ(d.latitude, "Lat  51" + kDeg + "28.6' N");
  EXPECT_EQ(d.longitude, "Long 000" + kDeg + "00.0' W");
  // Greenwich mean sidereal time at 2026-11-22 21:30:05 UT is 01:37.7 (almanac); the program's
  // day-count series gives 01:37.6.
  EXPECT_EQ(d.siderealTime.substr(0, 14), "Sidereal 01:37");

  // Month first, a zone west of Greenwich past midnight GMT, half a degree south, east.
  state.place.usDateOrder = true;
  clock.zone = {300, 300, false};
  state.place.gmtOffset = state.place.zoneBiasHours = 5;
  state.place.homeLongitude = -10.5 / kDegreesPerRadianExact;
  state.place.homeLatitude = -0.5 / kDegreesPerRadianExact;
  DeriveLocationFields(state.place);
  logic.Tick();
  EXPECT_EQ(d.date, "11-22-2026");
  EXPECT_EQ(d.time, "21:30:05 EST");
  EXPECT_EQ(d.gmt, "GMT 02:30:05 +1 day  (offset 5 h)");
  EXPECT_EQ(d.latitude, "Lat  00" + kDeg + "30.0' S");
  EXPECT_EQ(d.longitude, "Long 010" + kDeg + "30.0' E");
}

TEST_F(MainWindowTest, ShownObjectCaptionsAndPrecessionToANewDate) {
  state.object.Name1 = "M31         ";
  state.object.sourceEpoch = state.object.targetEpoch = 2000;
  state.object.objRaMinutes = 42.74;
  state.object.objDecDegrees = 41;
  state.object.objDecMinutes = 15.996;
  state.object.magnitudeText = "    3.44";
  state.time.riseSetCurrent = false;
  logic.Tick();
  const MainDisplay& d = logic.Display();
  EXPECT_EQ(d.rightAsc, "RA  00h 42.7m");
  EXPECT_EQ(d.declination, "Dec +41\xB0 16'");
  EXPECT_EQ(d.riseTime, "RiseTime = Always Up");  // 41 degrees north from 51.5 north
  dialogs.answers = {"1", "1", "2100"};
  DateButtonClick(state, dialogs, logic);
  EXPECT_EQ(state.object.sourceEpoch, 2100);
  EXPECT_GT(state.object.objRaMinutes, 42.74 + 4) << "a century of precession moves M31 east";
  state.object.objDecDegrees = 0;  // -0 degrees keeps its sign
  state.object.objDecMinutes = 30;
  state.object.objDecSign = -1;
  logic.Load();
  EXPECT_EQ(d.declination, "Dec -00\xB0 30'");
}

TEST_F(MainWindowTest, DateChainSetsAFictitiousDate) {
  const std::string title = JulianDateTitle(state.time);
  EXPECT_EQ(title.rfind("JulianDate = 2461", 0), 0u) << title;
  EXPECT_EQ(title.size(), std::string("JulianDate = 0000000.00000").size());
  dialogs.answers = {"3", "14", "2027"};
  DateButtonClick(state, dialogs, logic);
  EXPECT_EQ(dialogs.prompts, (std::vector<std::string>{kMonth, "Input date", kYear}));
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{title, "Set Day of Month", "Set The Year"}));
  EXPECT_EQ(dialogs.defaults, (std::vector<std::string>{"11", "22", "2026"}));
  EXPECT_TRUE(state.form.timer1Enabled);
  logic.Tick();  // the timer keeps ticking but the fictitious date stays
  EXPECT_EQ(logic.Display().date, "14-03-2027");

  // Each row is one whole date chain: the answers in order, the prompt that refused a year, the
  // date set.
  const struct {
    const char* legend;
    std::vector<std::string> answers;
    const char* yearPrompt;
    const char* date;
  } cases[] = {
      {"leap day in 2003 refused", {"2", "29", "2003", "2004"}, kLeap, "29-02-2004"},
      {"leap day in 2100 refused", {"2", "29", "2100", "2096"}, kLeapNot2100, "29-02-2096"},
      {"30 February asked again", {"2", "30", "28", "2003"}, kYear, "28-02-2003"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.legend);
    dialogs.answers.assign(c.answers.begin(), c.answers.end());
    const std::size_t asked = dialogs.prompts.size();
    DateButtonClick(state, dialogs, logic);
    EXPECT_EQ(dialogs.prompts.size() - asked, c.answers.size());
    EXPECT_EQ(dialogs.prompts.back(), c.yearPrompt);
    EXPECT_EQ(logic.Display().date, c.date);
  }
}

TEST_F(MainWindowTest, TimeChainAcceptsCancelledMinutesAsZero) {
  constexpr const char* kHour = "Input Hour, 0-23 (OR press 'CANCEL' to use System Time)";
  dialogs.answers = {"24", "3", "", "75", "7.5"};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_EQ(dialogs.prompts,
            (std::vector<std::string>{kHour, kHour, "Input minutes, 0-59", "Input seconds, 0-59",
                                      "Input seconds, 0-59"}));
  EXPECT_FALSE(state.time.realTimeMode);
  EXPECT_EQ(logic.Display().time.substr(0, 8), "03:00:07");

  // Cancel on the hour goes back to the computer's clock and zone.
  clock.zone = {-60, -60, false};
  dialogs.answers = {""};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_TRUE(state.time.realTimeMode);
  EXPECT_EQ(logic.Display().time.substr(0, 8), "21:30:05");
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, -1);
}

// The checks themselves are CheckLocationEntry's (tests/catalog); here the window's OK applies
// them and then sets the place, or changes nothing when they refuse it.
TEST_F(MainWindowTest, PlaceEntrySetsRadiansDerivedFieldsAndDateOrder) {
  ASSERT_TRUE(
      ApplyLocationEntry(state, dialogs, {"40", "45.5", true, false, "73", "58.25", false, true}));
  EXPECT_NEAR(state.place.homeLatitude * kDegreesPerRadianExact, 40 + 45.5 / 60, 1e-9);
  EXPECT_NEAR(state.place.homeLongitude * kDegreesPerRadianExact, 73 + 58.25 / 60, 1e-9);
  EXPECT_TRUE(state.place.usDateOrder) << "New York writes month-day-year";

  // South of the equator by half a degree, east of Greenwich: the sign of -0 degrees survives,
  // also in the form offered next time.
  ASSERT_TRUE(ApplyLocationEntry(state, dialogs, {"0", "30", false, true, "0", "15", true, false}));
  EXPECT_EQ(state.place.latitudeSign, -1);
  const LocationEntry again = LocationEntryFromState(state.place);
  EXPECT_EQ(again.latitudeDegrees + again.latitudeMinutes, "030.000");
  EXPECT_TRUE(again.south && !again.north && again.east && !again.west);

  const PlaceState before = state.place;
  state.program.configChanged = false;
  EXPECT_FALSE(
      ApplyLocationEntry(state, dialogs, {"48", "61", true, false, "2", "0", true, false}));
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{
                                  "Minutes of latitude must be between 0 and 59.999, decimals OK"});
  EXPECT_EQ(state.place.homeLatitude, before.homeLatitude);
  EXPECT_FALSE(state.program.configChanged);
}

TEST_F(MainWindowTest, TimeZoneStoredOrFollowingTheComputer) {
  dialogs.answers = {"15", "5"};
  TimeZoneClick(state, dialogs, clock);
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{kTimeZoneRangeMessage});
  EXPECT_TRUE(state.place.useStoredGmtOffset);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);

  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 5);

  clock.zone = {-60, -120, true};
  dialogs.answers = {"pc"};
  TimeZoneClick(state, dialogs, clock);
  EXPECT_FALSE(state.place.useStoredGmtOffset);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, -2);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, -1);
}

}  // namespace
}  // namespace astel
