#include "astro/time_scales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

#include "astro/date_stamp.h"

namespace astel {
namespace {

constexpr double kRadiansPerDegree = 1 / 57.29577957855229;

// The time scales of a local date and time set by hand, as the date entry leaves them; the
// longitude is in degrees, west positive.
SharedState TimesAt(int year, int month, int day, int hour, int minute, int second,
                    double gmtOffset = 0, double westDegrees = 0, int longitudeMinutes = 0) {
  SharedState s;
  FillDateTables(s.time);
  TimeState& t = s.time;
  t.realTimeMode = false;
  t.year = year, t.month = month, t.day = day, t.hour = hour, t.minute = minute, t.second = second;
  t.minuteText = std::to_string(minute);
  s.place.gmtOffset = gmtOffset;
  s.place.homeLongitude = westDegrees * kRadiansPerDegree;
  s.place.longitudeDegrees = static_cast<int>(westDegrees);
  s.place.longitudeMinutes = longitudeMinutes;
  EXPECT_TRUE(UpdateTimeScales(s));
  return s;
}

TEST(UpdateTimeScales, JulianDateGmtDayAndTheCenturyRule) {
  // The day count from 1980; 2100 is no leap year, so March 1 follows February 28.
  const TimeState y1980 = TimesAt(1980, 1, 1, 0, 0, 0).time;
  const TimeState y2100 = TimesAt(2100, 3, 1, 0, 0, 0).time;
  EXPECT_TRUE(y1980.isLeapYear && !y2100.isLeapYear);
  EXPECT_NEAR(y1980.julianDate, 2444239.5, 1e-9);
  EXPECT_NEAR(y2100.julianDate, 2444239.5 + 43889, 1e-9);
  // The program's day fraction divides the seconds by 3600, not 86400.
  EXPECT_NEAR(TimesAt(2026, 5, 10, 12, 15, 30).time.julianDate,
              2461170.5 + 12.25 / 24 + 30.0 / 3600, 1e-9);
  // 2026-03-14 local: GMT on the next day, on the previous day, and in a half-hour zone.
  for (auto [hour, minute, offset, jd, gmt] :
       {std::tuple{20, 30, 5.0, 2461114.5 + 1.5 / 24, "01:30+"},
        {1, 0, -3.0, 2461112.5 + 22.0 / 24, "22:00-"},
        {10, 0, -5.5, 2461113.5 + 4.5 / 24, "04:30 "}}) {
    const TimeState t = TimesAt(2026, 3, 14, hour, minute, 0, offset).time;
    EXPECT_NEAR(t.julianDate, jd, 1e-9) << gmt;
    EXPECT_EQ(t.gmtTimeText + t.gmtDaySign, gmt);
    EXPECT_TRUE(t.gmtNextDay == (t.gmtDaySign == "+") && t.gmtPrevDay == (t.gmtDaySign == "-"));
  }
  EXPECT_EQ(TimesAt(2026, 11, 22, 0, 0, 0).time.roundedYear, 2027);

  SharedState s = TimesAt(2026, 1, 1, 0, 0, 0);
  s.time.month = 13;
  s.time.julianDate = 123;
  EXPECT_FALSE(UpdateTimeScales(s) || s.time.julianDate != 123) << "a month outside the table";
}

TEST(UpdateTimeScales, SiderealTimeMatchesTheAlmanacAndStaysInRange) {
  // Greenwich mean sidereal time at 2000 January 1, 12h UT is 18.697374558 h; 75 degrees west is
  // 5 hours earlier.
  EXPECT_NEAR(TimesAt(2000, 1, 1, 12, 0, 0).time.localSiderealTime, 18.697374558, 0.001);
  EXPECT_NEAR(TimesAt(2000, 1, 1, 12, 0, 0, 0, 75).time.localSiderealTime, 13.697374558, 0.001);

  // Each hour of a day, just west and just east of the date line: always within [0, 24).
  for (int i = 0; i < 48; ++i) {
    const TimeState t = TimesAt(2150, 12, 31, i % 24, 59, 59, 0, i < 24 ? 179 : -180, 59).time;
    EXPECT_TRUE(t.localSiderealTime >= 0 && t.localSiderealTime < 24) << i;
    EXPECT_EQ(t.lstHours, static_cast<int>(t.localSiderealTime));
  }

  // 0 degrees 30 minutes east and west are an hour of sidereal time apart: eastern minutes
  // subtract the full longitude.
  const double east = TimesAt(2026, 6, 1, 0, 0, 0, 0, -0.5, 30).time.localSiderealTime;
  const double west = TimesAt(2026, 6, 1, 0, 0, 0, 0, 0.5, 30).time.localSiderealTime;
  EXPECT_NEAR(std::fmod(east - west + 24, 24), 1.0 / 15, 1e-9);
}

TEST(DateStamp, CarriesAndBorrowsThroughTheCalendar) {
  // Into the new year; 2100 has no leap day; back to the 2024 leap day; back into the old year.
  EXPECT_EQ(AddToStamp("23595912312025", 0, 0, 1), "00000001012026");
  EXPECT_EQ(AddToStamp("23000002282100", 2, 0, 0), "01000003012100");
  EXPECT_EQ(SubtractFromStamp("00000003012024", 0, 0, 1), "23595902292024");
  EXPECT_EQ(SubtractFromStamp("01000001012026", 3, 0, 0), "22000012312025");
}

}  // namespace
}  // namespace astel
