#include <gtest/gtest.h>
#include <libnova/precession.h>

#include <cmath>
#include <tuple>

#include "astro/coordinates.h"
#include "astro/date_stamp.h"
#include "astro/rise_transit_set.h"
#include "astro/time_scales.h"

namespace astel {
namespace {

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
  s.place.gmtOffset = gmtOffset, s.place.longitudeMinutes = longitudeMinutes;
  s.place.homeLongitude = westDegrees / kDegreesPerRadian;
  s.place.longitudeDegrees = static_cast<int>(westDegrees);
  EXPECT_TRUE(UpdateTimeScales(s));
  return s;
}

TEST(UpdateTimeScales, JulianDateGmtDayAndTheCenturyRule) {
  // The day count from 1980; 2100 is no leap year, so March 1 follows February 28.
  EXPECT_NEAR(TimesAt(1980, 1, 1, 0, 0, 0).time.julianDate, 2444239.5, 1e-9);
  EXPECT_NEAR(TimesAt(2100, 3, 1, 0, 0, 0).time.julianDate, 2444239.5 + 43889, 1e-9);
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

  SharedState s = TimesAt(2026, 1, 1, 0, 0, 0);
  s.time.month = 13, s.time.julianDate = 123;
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
  // Into the new year; back to the 2024 leap day; back into the old year.
  EXPECT_EQ(AddToStamp("23595912312025", 0, 0, 1), "00000001012026");
  EXPECT_EQ(SubtractFromStamp("00000003012024", 0, 0, 1), "23595902292024");
  EXPECT_EQ(SubtractFromStamp("01000001012026", 3, 0, 0), "22000012312025");
}

// An observer at the given latitude with the given sidereal time, and an object at ra/dec.
SharedState Sky(double latitudeDeg, double lstHours, double raHours, double decDeg) {
  SharedState s;
  s.place.homeLatitude = latitudeDeg / kDegreesPerRadian;
  s.time.localSiderealTime = lstHours;
  SetObjectPosition(s.object, raHours, decDeg);
  ComputeAltAz(s);
  return s;
}

TEST(ComputeAltAz, ZenithHorizonMeridianAndTheMinusZeroAltitude) {
  // Latitude, sidereal time, ra, dec; the altitude before refraction, the azimuth, and the shown
  // degrees and minutes (truncated, refraction included).
  for (auto [legend, lat, lst, ra, dec, trueAltitude, azimuth, shown] :
       {std::tuple{"zenith, -0.002' of refraction", 40, 5, 5.0, 40, 90.0, 0, " 89 59"},
        {"rising due east from the equator, 28.98' of refraction", 0, 12, 18.0, 0, 0.0, 90,
         " 0 28"},
        {"due south: 90 - latitude + dec", 50, 3, 3.0, -10, 30.0, 180, " 30 1"},
        {"below the refraction limit: -0 degrees", 0, 0, 24 - 90.72 / 15, 0, -0.72, 270,
         "-0 43"}}) {
    const ObjectState o = Sky(lat, lst, ra, dec).object;
    EXPECT_NEAR(o.altitude - o.refraction / 60, trueAltitude, 1e-4) << legend;
    EXPECT_NEAR(o.azimuth, azimuth, 1e-5) << legend;
    EXPECT_EQ(o.altitudeDegText + o.altitudeMinText, shown) << legend;
  }
}

TEST(PrecessToDate, AgreesWithRigorousPrecessionOverDecades) {
  // libnova's rigorous (IAU 1976) precession as the reference. The program's annual rates carry
  // their own constants (their century terms run about 0.3"/yr high), so allow half an arc-second
  // per year of interval: a wrong sign or a swapped rate is off by arc-minutes.
  constexpr double kTolArcsecPerYear = 0.5, kTolArcsecBase = 2, kArcsecPerDegree = 3600;
  // Just south of the equator (the "-0" degrees) to 2050, and Antares over a century.
  for (auto [raHours, decDeg, toYear] : {std::tuple{12.5, -0.5, 2050}, {16.4901, -26.432, 2100}}) {
    ObjectState o;
    SetObjectPosition(o, raHours, decDeg);
    o.sourceEpoch = 2000, o.targetEpoch = toYear;
    PrecessToDate(o);
    ln_equ_posn mean{raHours * 15, decDeg}, moved{};
    ln_get_equ_prec2(&mean, 2451545.0, 2451545.0 + (toYear - 2000) * 365.25, &moved);
    const double dec = ObjectDeclinationDegrees(o);
    const double raErr = (15 * (o.objRaHours + o.objRaMinutes / 60) - moved.ra) *
                         std::cos(dec / kDegreesPerRadian) * kArcsecPerDegree;
    EXPECT_LE(std::hypot(raErr, (dec - moved.dec) * kArcsecPerDegree),
              kTolArcsecBase + kTolArcsecPerYear * (toYear - 2000))
        << raHours;
  }
}

// The rise, transit and set of an object at `clock` ("hh:mm:ss"), as "|rise|transit|set|";
// `upNow` marks it above the horizon whatever its computed altitude.
std::string Times(double latitudeDeg, double raHours, double decDeg, double lstHours,
                  const std::string& clock, int kind = -1, bool upNow = false) {
  SharedState s = Sky(latitudeDeg, lstHours, raHours, decDeg);
  s.time.hourText = clock.substr(0, 2), s.time.minuteText = clock.substr(3, 2);
  s.time.secondText = clock.substr(6, 2), s.object.objectKind = kind;
  if (upNow) s.object.altitudeCopy = 0.1;
  UpdateRiseTransitSet(s);
  const ObjectState& o = s.object;
  return "|" + o.riseLabel + o.riseText + "|" + o.transitLabel + o.transitText + "|" + o.setLabel +
         o.setText + "|";
}

TEST(RiseTransitSet, CircumpolarNeverRisingAndClockTimes) {
  EXPECT_TRUE(Times(50, 3, -45, 1, "22:00:00").starts_with("|RiseTime = Never Rises|   |"));
  EXPECT_TRUE(Times(-35, 3, -80, 1, "22:00:00").starts_with("|RiseTime = Always Up|TransitTime"));

  // At latitude 0 an equatorial object (dec 0) has cos H = cos z0 exactly, so its horizon hour
  // angle is z0 - 90 degrees more than six hours: 6.0382 h for a star, 6.0549 h for the Sun.
  // The sidereal time is 10 h; the rows give the object's ra after it, the clock, its kind, and
  // whether it is up now.
  const double h = 90.57333 / 15;
  for (auto [legend, raFromLst, clock, kind, upNow, expected] :
       {std::tuple{"star, two sidereal hours before rising: 10 + 2 x 0.9973 h", 2 + h, "10:00:00",
                   -1, false, "|NextRise = 11:59  |"},
        {"Moon: a horizon 0.25 deg lower and a clock rate of 1.0366", 2 + h, "10:00:00", 3, false,
         "|NextRise = 12:03  |"},
        {"Sun: a quarter degree lower horizon rises a minute earlier", 2 + h, "06:00:00", 0, false,
         "|NextRise = 07:58  |"},
        {"up now, rising computed a minute ahead: it rose yesterday", 1.0 / 60 + h, "12:00:00", -1,
         true, "|Rose At = 12:00 -|"},
        {"transit tomorrow: 22:30 + 2.9919 h = 25:29.5", 3, "22:30:00", -1, false,
         "|NextTransit = 01:30 +|"},
        {"up, setting after midnight: 23:00 + 1.9946 h", 2 - h, "23:00:00", -1, false,
         "|Sets At = 01:00 +|"}}) {
    const std::string all = Times(0, 10 + raFromLst, 0, 10, clock, kind, upNow);
    EXPECT_NE(all.find(expected), std::string::npos) << legend << ": " << all;
  }
}

}  // namespace
}  // namespace astel
