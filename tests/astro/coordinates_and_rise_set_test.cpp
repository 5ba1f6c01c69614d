#include <gtest/gtest.h>
#include <libnova/precession.h>

#include <cmath>
#include <tuple>

#include "astro/coordinates.h"
#include "astro/rise_transit_set.h"

namespace astel {
namespace {

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
    EXPECT_EQ(o.altitudeCopy, o.altitude) << legend;
  }
  // None below -0.57333 degrees (34.4' under the horizon); about 1' at 45 degrees.
  for (auto [altitude, arcmin] : {std::pair{-0.58, 0.0}, {-0.57, 34.40}, {45.0, 1.01}}) {
    ObjectState o;
    o.altitude = altitude;
    ComputeRefraction(o);
    EXPECT_NEAR(o.refraction, arcmin, 0.01) << altitude;
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
    o.sourceEpoch = 2000;
    o.targetEpoch = toYear;
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
  s.time.hourText = clock.substr(0, 2);
  s.time.minuteText = clock.substr(3, 2);
  s.time.secondText = clock.substr(6, 2);
  s.object.objectKind = kind;
  if (upNow) s.object.altitudeCopy = 0.1;
  UpdateRiseTransitSet(s);
  EXPECT_TRUE(s.time.riseSetCurrent);
  const ObjectState& o = s.object;
  return "|" + o.riseLabel + o.riseText + "|" + o.transitLabel + o.transitText + "|" + o.setLabel +
         o.setText + "|";
}

TEST(RiseTransitSet, CircumpolarNeverRisingAndClockTimes) {
  EXPECT_TRUE(Times(50, 3, -45, 1, "22:00:00").starts_with("|RiseTime = Never Rises|   |"));
  EXPECT_TRUE(Times(-35, 3, -80, 1, "22:00:00").starts_with("|RiseTime = Always Up|TransitTime"));
  // Just inside the circumpolar limit, north and south: these rise and set.
  for (double latitude : {50, -35}) {
    EXPECT_EQ(Times(latitude, 3, latitude > 0 ? 39 : -54, 1, "22:00:00").find("Never"),
              std::string::npos)
        << latitude;
  }

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
