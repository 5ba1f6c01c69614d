#include "session/place_entry.h"

#include <gtest/gtest.h>

#include "tests/session/session_fixture.h"

namespace astel {
namespace {

using PlaceEntryTest = testing::StartedProgram;

LocationEntry Form(std::string latD, std::string latM, char ns, std::string lonD, std::string lonM,
                   char ew) {
  LocationEntry f;
  f.latitudeDegrees = std::move(latD);
  f.latitudeMinutes = std::move(latM);
  f.north = ns == 'N';
  f.south = ns == 'S';
  f.longitudeDegrees = std::move(lonD);
  f.longitudeMinutes = std::move(lonM);
  f.east = ew == 'E';
  f.west = ew == 'W';
  return f;
}

// The checks themselves are CheckLocationEntry's (tests/catalog/object_entry_test.cpp); here the
// window's OK applies them and then sets the place.
TEST_F(PlaceEntryTest, ApplyingAPlaceSetsRadiansDerivedFieldsAndDateOrder) {
  const double lstBefore = state.time.localSiderealTime;
  ASSERT_TRUE(ApplyLocationEntry(state, dialogs, Form("40", "45.5", 'N', "73", "58.25", 'W')));
  EXPECT_NEAR(state.place.homeLatitude * kDegreesPerRadianExact, 40 + 45.5 / 60, 1e-9);
  EXPECT_NEAR(state.place.homeLongitude * kDegreesPerRadianExact, 73 + 58.25 / 60, 1e-9);
  EXPECT_TRUE(state.place.usDateOrder) << "New York writes month-day-year";
  EXPECT_TRUE(state.program.configChanged);
  EXPECT_FALSE(state.time.riseSetCurrent);
  // 74 degrees west is almost five hours of sidereal time earlier.
  double shift = lstBefore - state.time.localSiderealTime;
  if (shift < 0) shift += 24;
  EXPECT_NEAR(shift, (73 + 58.25 / 60) / 15, 1e-6);
  EXPECT_TRUE(dialogs.messages.empty());

  // South of the equator by half a degree, east of Greenwich: the sign of -0 degrees survives,
  // also in the form offered next time.
  ASSERT_TRUE(ApplyLocationEntry(state, dialogs, Form("0", "30", 'S', "0", "15", 'E')));
  EXPECT_EQ(state.place.latitudeSign, -1);
  EXPECT_EQ(state.place.longitudeSignText, "-");
  EXPECT_FALSE(state.place.usDateOrder);
  const LocationEntry again = LocationEntryFromState(state.place);
  EXPECT_EQ(again.latitudeDegrees, "0");
  EXPECT_EQ(again.latitudeMinutes, "30.000");
  EXPECT_TRUE(again.south && !again.north);
  EXPECT_TRUE(again.east && !again.west);
}

TEST_F(PlaceEntryTest, ARefusedFormChangesNothing) {
  const PlaceState before = state.place;
  EXPECT_FALSE(ApplyLocationEntry(state, dialogs, Form("48", "61", 'N', "2", "0", 'E')));
  EXPECT_EQ(dialogs.messages, std::vector<std::string>{
                                  "Minutes of latitude must be between 0 and 59.999, decimals OK"});
  EXPECT_EQ(state.place.homeLatitude, before.homeLatitude);
  EXPECT_FALSE(state.program.configChanged);
}

TEST_F(PlaceEntryTest, TimeZoneStoredOrFollowingTheComputer) {
  dialogs.answers = {"15", "abc", "5"};
  TimeZoneClick(state, dialogs, clock);
  EXPECT_EQ(dialogs.prompts.front(), kTimeZonePrompt);
  EXPECT_EQ(dialogs.titles.front(), kTimeZoneTitle);
  EXPECT_EQ(dialogs.defaults.front(), "PC") << "the computer's zone is followed at first";
  EXPECT_EQ(dialogs.messages,
            (std::vector<std::string>{kTimeZoneRangeMessage, kTimeZoneRangeMessage}));
  EXPECT_TRUE(state.place.useStoredGmtOffset);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_TRUE(state.program.configChanged);

  // Cancel keeps it; the next question offers the stored value.
  dialogs.answers = {""};
  TimeZoneClick(state, dialogs, clock);
  EXPECT_EQ(dialogs.defaults.back(), "5");
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
