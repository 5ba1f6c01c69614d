#include "astro/time_scales.h"

#include <gtest/gtest.h>

#include <cmath>

#include "astro/date_stamp.h"
#include "tests/support/fake_clock.h"

namespace astel {
namespace {

constexpr double kRadiansPerDegree = 1 / 57.29577957855229;

// The time scales of a local date and time set by hand, as the date entry leaves them; the
// longitude is in degrees, west positive.
SharedState TimesAt(int year, int month, int day, int hour, int minute, int second,
                    double gmtOffset = 0, double westDegrees = 0) {
  SharedState s;
  FillDateTables(s.time);
  TimeState& t = s.time;
  t.realTimeMode = false;
  t.year = year, t.month = month, t.day = day, t.hour = hour, t.minute = minute, t.second = second;
  t.minuteText = std::to_string(minute);
  s.place.gmtOffset = gmtOffset;
  s.place.homeLongitude = westDegrees * kRadiansPerDegree;
  s.place.longitudeDegrees = static_cast<int>(westDegrees);
  EXPECT_TRUE(UpdateTimeScales(s));
  return s;
}

TEST(UpdateTimeScales, JulianDateGmtDayAndTheCenturyRule) {
  struct Case {
    const char* legend;
    int year, month, day, hour, minute, second;
    double gmtOffset, julianDate;
    bool leapYear;
    const char *gmtText, *daySign;  // nullptr: not checked
  } cases[] = {
      {"1980 begins", 1980, 1, 1, 0, 0, 0, 0, 2444239.5, true, nullptr, nullptr},
      // 2100 is no leap year; the day count is the true one on either side of February.
      {"2100 February 28", 2100, 2, 28, 0, 0, 0, 0, 2444239.5 + 43888, false, nullptr, nullptr},
      {"2100 March 1 follows February 28", 2100, 3, 1, 0, 0, 0, 0, 2444239.5 + 43889, false,
       nullptr, nullptr},
      // The program's day fraction divides the seconds by 3600, not 86400.
      {"seconds in hours", 2026, 5, 10, 12, 15, 30, 0, 2461170.5 + 12.25 / 24 + 30.0 / 3600, false,
       nullptr, nullptr},
      {"next day", 2026, 3, 14, 20, 30, 0, 5, 2461114.5 + 1.5 / 24, false, "01:30", "+"},
      {"previous day", 2026, 3, 14, 1, 0, 0, -3, 2461112.5 + 22.0 / 24, false, "22:00", "-"},
      {"a half-hour zone keeps its half hour", 2026, 3, 14, 10, 0, 0, -5.5, 2461113.5 + 4.5 / 24,
       false, "04:30", " "}};
  for (const Case& c : cases) {
    const TimeState t =
        TimesAt(c.year, c.month, c.day, c.hour, c.minute, c.second, c.gmtOffset).time;
    EXPECT_NEAR(t.julianDate, c.julianDate, 1e-9) << c.legend;
    EXPECT_EQ(t.isLeapYear, c.leapYear) << c.legend;
    if (c.gmtText) {
      EXPECT_EQ(t.gmtTimeText + t.gmtDaySign, std::string(c.gmtText) + c.daySign) << c.legend;
      EXPECT_TRUE(t.gmtNextDay == (c.daySign[0] == '+') && t.gmtPrevDay == (c.daySign[0] == '-'))
          << c.legend;
    }
  }
  EXPECT_EQ(TimesAt(2026, 11, 22, 0, 0, 0).time.roundedYear, 2027);

  SharedState s = TimesAt(2026, 1, 1, 0, 0, 0);
  s.time.month = 13;
  s.time.julianDate = 123;
  EXPECT_FALSE(UpdateTimeScales(s)) << "a month outside the table";
  EXPECT_EQ(s.time.julianDate, 123);
}

TEST(UpdateTimeScales, SiderealTimeMatchesTheAlmanacAndStaysInRange) {
  // Greenwich mean sidereal time at 2000 January 1, 12h UT is 18.697374558 h; 75 degrees west is
  // 5 hours earlier.
  EXPECT_NEAR(TimesAt(2000, 1, 1, 12, 0, 0).time.localSiderealTime, 18.697374558, 0.001);
  EXPECT_NEAR(TimesAt(2000, 1, 1, 12, 0, 0, 0, 75).time.localSiderealTime, 13.697374558, 0.001);

  // Near the date line on either side, at every hour of a day: always within [0, 24).
  for (int degrees : {179, -180}) {
    for (int hour = 0; hour < 24; ++hour) {
      SharedState s = TimesAt(2150, 12, 31, hour, 59, 59, 0, degrees);
      s.place.longitudeMinutes = 59;
      ASSERT_TRUE(UpdateTimeScales(s));
      const TimeState& t = s.time;
      EXPECT_TRUE(t.localSiderealTime >= 0 && t.localSiderealTime < 24) << degrees << " " << hour;
      EXPECT_EQ(t.lstHours, static_cast<int>(t.localSiderealTime));
    }
  }

  // 0 degrees 30 minutes east and 0 degrees 30 minutes west are an hour of sidereal time apart:
  // eastern minutes subtract the full longitude.
  SharedState east = TimesAt(2026, 6, 1, 0, 0, 0, 0, -0.5), west = east;
  east.place.longitudeMinutes = west.place.longitudeMinutes = 30;
  west.place.homeLongitude = 0.5 * kRadiansPerDegree;
  ASSERT_TRUE(UpdateTimeScales(east) && UpdateTimeScales(west));
  EXPECT_NEAR(std::fmod(east.time.localSiderealTime - west.time.localSiderealTime + 24, 24),
              1.0 / 15, 1e-9);
}

TEST(TimeZone, LabelFromTheStandardBiasAndDaylight) {
  testing::FakeClock clock;
  struct Row {
    double biasHours;
    bool daylight, storedOffset;
    const char* letters;
  } rows[] = {{5, true, false, "EDT"},   {5, true, true, "EST"},     // a stored offset: standard
              {-3, true, false, "MSK"},  {-3, false, false, "MSD"},  // the swapped row
              {0, true, false, "BST"},   {0, false, false, "GMT"},   {-1, false, false, "CET"},
              {-10, true, false, "AED"}, {-5.5, false, false, "UNK"}};
  for (const Row& r : rows) {
    SharedState s;
    s.place.zoneBiasHours = r.biasHours;
    s.place.useStoredGmtOffset = r.storedOffset;
    clock.zone.daylight = r.daylight;
    UpdateZoneLabel(s, clock);
    EXPECT_EQ(s.time.zoneLetter1 + s.time.zoneLetter2 + s.time.zoneLetter3, r.letters)
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
  } cases[] = {
      {"second into the new year", "23595912312025", 0, 0, 1, true, "00000001012026"},
      {"leap day exists in 2024", "23000002282024", 2, 0, 0, true, "01000002292024"},
      {"2100 has no leap day", "23000002282100", 2, 0, 0, true, "01000003012100"},
      {"borrow back to the leap day", "00000003012024", 0, 0, 1, false, "23595902292024"},
      {"borrow back into the old year", "01000001012026", 3, 0, 0, false, "22000012312025"}};
  for (const Case& c : cases) {
    EXPECT_EQ(
        c.add ? AddToStamp(c.stamp, c.h, c.m, c.s) : SubtractFromStamp(c.stamp, c.h, c.m, c.s),
        c.expected)
        << c.legend;
  }
}

}  // namespace
}  // namespace astel
