#include "astro/time_scales.h"

#include <gtest/gtest.h>

#include <cmath>

#include "astro/date_stamp.h"
#include "tests/support/fake_clock.h"

namespace astel {
namespace {

// A state set to a local date and time by hand, as the date entry leaves it.
SharedState StateAt(int year, int month, int day, int hour, int minute, int second,
                    double gmtOffset = 0) {
  SharedState s;
  FillDateTables(s.time);
  s.time.realTimeMode = false;
  s.time.year = year;
  s.time.month = month;
  s.time.day = day;
  s.time.hour = hour;
  s.time.minute = minute;
  s.time.second = second;
  s.time.minuteText = std::to_string(minute);
  s.place.gmtOffset = gmtOffset;
  return s;
}

constexpr double kJulianDate1980 = 2444239.5;

TEST(UpdateTimeScales, JulianDateDayCountAndCenturyRule) {
  SharedState s = StateAt(1980, 1, 1, 0, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_DOUBLE_EQ(s.time.julianDate, kJulianDate1980);
  EXPECT_TRUE(s.time.isLeapYear);

  // 2100 counts as a leap year only for January and February; the day count is the true one.
  s = StateAt(2100, 3, 1, 0, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_DOUBLE_EQ(s.time.julianDate - kJulianDate1980, 43889);
  EXPECT_FALSE(s.time.isLeapYear);
  s = StateAt(2100, 2, 28, 0, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_DOUBLE_EQ(s.time.julianDate - kJulianDate1980, 43888);
  s = StateAt(2101, 1, 1, 0, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_DOUBLE_EQ(s.time.julianDate - kJulianDate1980, 44195);

  // A date of this century against the astronomical calendar: 2026 November 22, 0h = 2461366.5.
  s = StateAt(2026, 11, 22, 0, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_DOUBLE_EQ(s.time.julianDate, 2461366.5);
  EXPECT_EQ(s.time.roundedYear, 2027);
}

TEST(UpdateTimeScales, SecondsAreDividedBy3600) {
  SharedState at0 = StateAt(2026, 5, 10, 12, 15, 0);
  SharedState at30 = StateAt(2026, 5, 10, 12, 15, 30);
  ASSERT_TRUE(UpdateTimeScales(at0));
  ASSERT_TRUE(UpdateTimeScales(at30));
  EXPECT_NEAR(at30.time.julianDate - at0.time.julianDate, 30.0 / 3600, 1e-9);
}

TEST(UpdateTimeScales, GmtDayRollsBothWays) {
  SharedState s = StateAt(2026, 3, 14, 20, 30, 0, 5);
  SharedState sameDayAtNoon = StateAt(2026, 3, 14, 12, 0, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  ASSERT_TRUE(UpdateTimeScales(sameDayAtNoon));
  EXPECT_EQ(s.time.gmtHour, 1);
  EXPECT_EQ(s.time.gmtTimeText, "01:30");
  EXPECT_EQ(s.time.gmtDaySign, "+");
  EXPECT_TRUE(s.time.gmtNextDay);
  EXPECT_DOUBLE_EQ(std::floor(s.time.julianDate - 0.5),
                   std::floor(sameDayAtNoon.time.julianDate - 0.5) + 1);

  s = StateAt(2026, 3, 14, 1, 0, 0, -3);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_EQ(s.time.gmtHour, 22);
  EXPECT_EQ(s.time.gmtDaySign, "-");
  EXPECT_TRUE(s.time.gmtPrevDay);
  EXPECT_DOUBLE_EQ(s.time.julianDate, 2461112.5 + 22.0 / 24);  // 2026-03-13 22h GMT

  // A half-hour zone keeps its half hour.
  s = StateAt(2026, 3, 14, 10, 0, 0, -5.5);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_EQ(s.time.gmtTimeText, "04:30");
  EXPECT_EQ(s.time.gmtDaySign, " ");
}

TEST(UpdateTimeScales, SiderealTimeMatchesTheAlmanacAndStaysInRange) {
  // Greenwich mean sidereal time at 2000 January 1, 12h UT is 18.697374558 h.
  SharedState s = StateAt(2000, 1, 1, 12, 0, 0);
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_NEAR(s.time.localSiderealTime, 18.697374558, 0.001);

  // 75 degrees west: 5 hours earlier.
  s.place.homeLongitude = 75 / 57.29577957855229;
  s.place.longitudeDegrees = 75;
  ASSERT_TRUE(UpdateTimeScales(s));
  EXPECT_NEAR(s.time.localSiderealTime, 13.697374558, 0.001);

  // Near the date line on either side, at every hour of a day: always within [0, 24).
  for (int degrees : {179, -179, -180}) {
    for (int hour = 0; hour < 24; ++hour) {
      SharedState t = StateAt(2150, 12, 31, hour, 59, 59);
      t.place.homeLongitude = degrees / 57.29577957855229;
      t.place.longitudeDegrees = degrees;
      t.place.longitudeMinutes = 59;
      ASSERT_TRUE(UpdateTimeScales(t));
      EXPECT_GE(t.time.localSiderealTime, 0) << degrees << " " << hour;
      EXPECT_LT(t.time.localSiderealTime, 24) << degrees << " " << hour;
      EXPECT_EQ(t.time.lstHours, static_cast<int>(t.time.localSiderealTime));
    }
  }
}

TEST(UpdateTimeScales, EasternMinutesSubtractTheFullLongitude) {
  // 0 degrees 30 minutes east and 0 degrees 30 minutes west are an hour of sidereal time apart.
  SharedState east = StateAt(2026, 6, 1, 0, 0, 0);
  east.place.homeLongitude = -0.5 / 57.29577957855229;
  east.place.longitudeDegrees = 0;
  east.place.longitudeMinutes = 30;
  SharedState west = east;
  west.place.homeLongitude = 0.5 / 57.29577957855229;
  ASSERT_TRUE(UpdateTimeScales(east));
  ASSERT_TRUE(UpdateTimeScales(west));
  EXPECT_NEAR(std::fmod(east.time.localSiderealTime - west.time.localSiderealTime + 24, 24),
              1.0 / 15, 1e-9);
}

TEST(UpdateTimeScales, MonthOutsideTheTableFailsWithoutAJulianDate) {
  SharedState s = StateAt(2026, 13, 1, 0, 0, 0);
  s.time.julianDate = 123;
  EXPECT_FALSE(UpdateTimeScales(s));
  EXPECT_EQ(s.time.julianDate, 123);
}

TEST(ReadClock, CopiesTheClockOnlyInRealTime) {
  testing::FakeClock clock;
  clock.now = {2026, 11, 22, 21, 5, 0};
  SharedState s;
  s.time.riseSetCurrent = true;
  ReadClock(s, clock);
  EXPECT_EQ(s.time.monthText, "11");
  EXPECT_EQ(s.time.dayText, "22");
  EXPECT_EQ(s.time.yearText, "2026");
  EXPECT_EQ(s.time.hourText, "21");
  EXPECT_EQ(s.time.minuteText, "05");
  EXPECT_EQ(s.time.secondText, "00");
  EXPECT_EQ(s.time.minute, 5);
  EXPECT_FALSE(s.time.riseSetCurrent) << "second 0 starts a new minute";

  s.time.riseSetCurrent = true;
  clock.now.second = 7;
  ReadClock(s, clock);
  EXPECT_TRUE(s.time.riseSetCurrent);

  s.time.realTimeMode = false;
  clock.now = {2030, 1, 2, 3, 4, 5};
  ReadClock(s, clock);
  EXPECT_EQ(s.time.yearText, "2026");
}

TEST(TimeZone, OffsetsAndLabels) {
  testing::FakeClock clock;
  SharedState s;
  clock.zone = {300, 240, true};  // New York in summer
  EXPECT_FLOAT_EQ(CurrentZoneOffset(s, clock), 4);
  EXPECT_DOUBLE_EQ(s.place.zoneBiasHours, 5);
  UpdateZoneLabel(s, clock);
  EXPECT_EQ(s.time.zoneLetter1 + s.time.zoneLetter2 + s.time.zoneLetter3, "EDT");
  s.place.useStoredGmtOffset = true;  // a stored offset shows the standard column
  UpdateZoneLabel(s, clock);
  EXPECT_EQ(s.time.zoneLetter1 + s.time.zoneLetter2 + s.time.zoneLetter3, "EST");

  struct Row {
    double biasHours;
    bool daylight;
    const char* letters;
  };
  const Row rows[] = {{-3, true, "MSK"},  {-3, false, "MSD"},  // the swapped row
                      {0, true, "BST"},   {0, false, "GMT"},  {-1, false, "CET"},
                      {-10, true, "AED"}, {3, false, "UNK"},  {-5.5, false, "UNK"}};
  for (const Row& r : rows) {
    SharedState t;
    t.place.zoneBiasHours = r.biasHours;
    clock.zone.daylight = r.daylight;
    UpdateZoneLabel(t, clock);
    EXPECT_EQ(t.time.zoneLetter1 + t.time.zoneLetter2 + t.time.zoneLetter3, r.letters)
        << r.biasHours << (r.daylight ? " daylight" : " standard");
  }
}

TEST(DateStamp, CarriesAndBorrowsThroughTheCalendar) {
  struct Case {
    const char* legend;
    const char* stamp;
    int h, m, s;
    bool add;
    const char* expected;
  };
  const Case cases[] = {
      {"second into the new year", "23595912312025", 0, 0, 1, true, "00000001012026"},
      {"hours into the next day", "22300003142026", 5, 0, 0, true, "03300003152026"},
      {"minutes carry", "10555002012026", 0, 10, 20, true, "11061002012026"},
      {"leap day exists in 2024", "23000002282024", 2, 0, 0, true, "01000002292024"},
      {"2100 has no leap day", "23000002282100", 2, 0, 0, true, "01000003012100"},
      {"borrow back to the leap day", "00000003012024", 0, 0, 1, false, "23595902292024"},
      {"borrow back into the old year", "01000001012026", 3, 0, 0, false, "22000012312025"},
      {"borrow minutes and seconds", "10000006152026", 0, 30, 30, false, "09293006152026"},
  };
  for (const Case& c : cases) {
    std::string result =
        c.add ? AddToStamp(c.stamp, c.h, c.m, c.s) : SubtractFromStamp(c.stamp, c.h, c.m, c.s);
    EXPECT_EQ(result, c.expected) << c.legend;
  }
}

}  // namespace
}  // namespace astel
