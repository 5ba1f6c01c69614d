#include "astro/coordinates.h"

#include <gtest/gtest.h>
#include <libnova/precession.h>

#include <cmath>

namespace astel {
namespace {

constexpr double kArcsecPerDegree = 3600;

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
  struct Case {
    const char* legend;
    double latitude, lst, ra, dec;
    double trueAltitude, azimuth;  // altitude before refraction
    const char *degText, *minText;
  } cases[] = {
      {"zenith: azimuth 0, and -0.002' of refraction truncated", 40, 5, 5, 40, 90, 0, " 89", " 59"},
      {"rising due east from the equator, 28.98' truncated", 0, 12, 18, 0, 0, 90, " 0", " 28"},
      {"due south: 90 - latitude + dec", 50, 3, 3, -10, 30, 180, " 30", " 1"},
      {"below the refraction limit: -0 degrees", 0, 0, 24 - 90.72 / 15, 0, -0.72, 270, "-0",
       " 43"}};
  for (const Case& c : cases) {
    const ObjectState o = Sky(c.latitude, c.lst, c.ra, c.dec).object;
    EXPECT_NEAR(o.altitude - o.refraction / 60, c.trueAltitude, 1e-4) << c.legend;
    EXPECT_NEAR(o.azimuth, c.azimuth, 1e-5) << c.legend;
    EXPECT_EQ(o.altitudeDegText, c.degText) << c.legend;
    EXPECT_EQ(o.altitudeMinText, c.minText) << c.legend;
    EXPECT_EQ(o.altitudeCopy, o.altitude) << c.legend;
  }
}

TEST(ComputeRefraction, ThresholdAndValues) {
  // None below -0.57333 degrees (34.4' under the horizon); about 29' at the horizon, 1' at 45.
  struct Case {
    double altitude, arcmin, tolerance;
  } cases[] = {{-0.58, 0, 0}, {-0.57, 34.40, 0.01}, {0, 28.98, 0.01}, {45, 1.01, 0.01}};
  for (const Case& c : cases) {
    ObjectState o;
    o.altitude = c.altitude;
    ComputeRefraction(o);
    EXPECT_NEAR(o.refraction, c.arcmin, c.tolerance) << c.altitude;
  }
}

TEST(PrecessToDate, AgreesWithRigorousPrecessionOverDecades) {
  // libnova's rigorous (IAU 1976) precession as the reference. The program's annual rates carry
  // their own constants (their century terms run about 0.3"/yr high), so allow half an arc-second
  // per year of interval: a wrong sign or a swapped rate is off by arc-minutes.
  constexpr double kTolArcsecPerYear = 0.5, kTolArcsecBase = 2;
  struct Case {
    const char* legend;
    double raHours, decDeg, toYear;
  } cases[] = {{"M31", 0.7123, 41.269, 2026},
               {"south of -0", 12.5, -0.5, 2050},
               {"Vega, backwards", 18.6156, 38.784, 1990},
               {"Antares, a century", 16.4901, -26.432, 2100}};
  for (const Case& c : cases) {
    ObjectState o;
    SetObjectPosition(o, c.raHours, c.decDeg);
    o.sourceEpoch = 2000;
    o.targetEpoch = c.toYear;
    PrecessToDate(o);
    ln_equ_posn mean{c.raHours * 15, c.decDeg}, moved{};
    ln_get_equ_prec2(&mean, 2451545.0, 2451545.0 + (c.toYear - 2000) * 365.25, &moved);
    const double ra = 15 * (o.objRaHours + o.objRaMinutes / 60);
    const double dec = ObjectDeclinationDegrees(o);
    const double raErr = (ra - moved.ra) * std::cos(dec / kDegreesPerRadian) * kArcsecPerDegree;
    const double decErr = (dec - moved.dec) * kArcsecPerDegree;
    EXPECT_LE(std::hypot(raErr, decErr),
              kTolArcsecBase + kTolArcsecPerYear * std::fabs(c.toYear - 2000))
        << c.legend;
  }
}

}  // namespace
}  // namespace astel
