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
  return s;
}

TEST(ComputeAltAz, ZenithHorizonAndSidesOfTheMeridian) {
  SharedState s = Sky(40, 5, 5, 40);
  ComputeAltAz(s);
  EXPECT_NEAR(s.object.altitude, 90, 1e-4);  // the formula refracts by -0.002' there
  EXPECT_EQ(s.object.azimuth, 0) << "the zenith has azimuth 0";

  // From the equator, an object on the celestial equator six hours east of the meridian rises
  // due east; six hours west it sets due west. Refraction lifts both by about 29'.
  s = Sky(0, 12, 18, 0);
  ComputeAltAz(s);
  EXPECT_NEAR(s.object.azimuth, 90, 1e-5);
  EXPECT_NEAR(s.object.altitude, s.object.refraction / 60, 1e-5);
  EXPECT_GT(s.object.refraction, 28);
  s = Sky(0, 12, 6, 0);
  ComputeAltAz(s);
  EXPECT_NEAR(s.object.azimuth, 270, 1e-5);

  // Due south on the meridian from the north: altitude 90 - latitude + dec.
  s = Sky(50, 3, 3, -10);
  ComputeAltAz(s);
  EXPECT_NEAR(s.object.altitude - s.object.refraction / 60, 30, 1e-5);
  EXPECT_NEAR(s.object.azimuth, 180, 1e-5);
  EXPECT_EQ(s.object.altitudeCopy, s.object.altitude);
}

TEST(ComputeRefraction, ThresholdAndFormula) {
  ObjectState o;
  o.altitude = -0.6;
  ComputeRefraction(o);
  EXPECT_EQ(o.refraction, 0);
  o.altitude = -0.5;
  ComputeRefraction(o);
  EXPECT_DOUBLE_EQ(o.refraction, 1.02 / std::tan((-0.5 + 10.3 / 4.61) / kDegreesPerRadian));
  o.altitude = 45;
  ComputeRefraction(o);
  EXPECT_NEAR(o.refraction, 1.0, 0.05);  // about one arc-minute at 45 degrees
}

TEST(ComputeAltAz, AltitudeTextsKeepTheSignOfMinusZero) {
  // On the equator an equatorial object 90.72 degrees west of the meridian stands 0.72 degrees
  // below the horizon, under the refraction limit: "-0" degrees and 43 minutes.
  SharedState s = Sky(0, 0, 24 - 90.72 / 15, 0);
  ComputeAltAz(s);
  EXPECT_NEAR(s.object.altitude, -0.72, 1e-6);
  EXPECT_EQ(s.object.altitudeDegText, "-0");
  EXPECT_EQ(s.object.altitudeMinText, " 43");
  EXPECT_NEAR(s.object.altitudeMinutes, 43.2, 1e-4);

  s = Sky(50, 3, 3, 30);  // 70 degrees high
  ComputeAltAz(s);
  EXPECT_EQ(s.object.altitudeDegText, " 70");
}

TEST(ObjectDeclination, MinusZeroComesFromTheSign) {
  ObjectState o;
  o.objDecDegrees = 0;
  o.objDecMinutes = 30;
  o.objDecSign = -1;
  EXPECT_DOUBLE_EQ(ObjectDeclinationDegrees(o), -0.5);
  o.objDecDegrees = -5;
  o.objDecMinutes = 23;
  o.objDecSign = 1;  // whole degrees carry their own sign
  EXPECT_DOUBLE_EQ(ObjectDeclinationDegrees(o), -5 - 23 / 60.0);
  SetObjectPosition(o, 0.25, -0.5);
  EXPECT_EQ(o.objDecDegrees, 0);
  EXPECT_EQ(o.objDecSign, -1);
  EXPECT_NEAR(o.objDecMinutes, 30, 1e-9);
  EXPECT_EQ(o.objRaHours, 0);
  EXPECT_NEAR(o.objRaMinutes, 15, 1e-9);
}

TEST(PrecessToDate, AgreesWithRigorousPrecessionOverDecades) {
  // libnova's rigorous (IAU 1976) precession as the reference. The program's annual rates carry
  // their own constants (their century terms run about 0.3"/yr high), so allow half an arc-second
  // per year of interval: a wrong sign or a swapped rate is off by arc-minutes.
  constexpr double kTolArcsecPerYear = 0.5, kTolArcsecBase = 2;
  struct Case {
    const char* legend;
    double raHours, decDeg, toYear;
  };
  const Case cases[] = {{"M31", 0.7123, 41.269, 2026},
                        {"Sirius", 6.7525, -16.716, 2026},
                        {"south of -0", 12.5, -0.5, 2050},
                        {"Vega", 18.6156, 38.784, 1990},
                        {"Antares", 16.4901, -26.432, 2100}};
  for (const Case& c : cases) {
    ObjectState o;
    SetObjectPosition(o, c.raHours, c.decDeg);
    o.sourceEpoch = 2000;
    o.targetEpoch = c.toYear;
    PrecessToDate(o);
    ln_equ_posn mean{c.raHours * 15, c.decDeg}, moved{};
    double toJd = 2451545.0 + (c.toYear - 2000) * 365.25;
    ln_get_equ_prec2(&mean, 2451545.0, toJd, &moved);
    double ra = 15 * (o.objRaHours + o.objRaMinutes / 60);
    double dec = ObjectDeclinationDegrees(o);
    double raErr = (ra - moved.ra) * std::cos(dec / kDegreesPerRadian) * kArcsecPerDegree;
    double decErr = (dec - moved.dec) * kArcsecPerDegree;
    EXPECT_LE(std::hypot(raErr, decErr),
              kTolArcsecBase + kTolArcsecPerYear * std::fabs(c.toYear - 2000))
        << c.legend;
  }

  ObjectState o;
  SetObjectPosition(o, 5.5, 22.0);
  o.sourceEpoch = o.targetEpoch = 2000;
  PrecessToDate(o);
  EXPECT_EQ(o.objRaHours, 5);
  EXPECT_DOUBLE_EQ(o.objRaMinutes, 30);
}

TEST(AltAzToEquatorial, IsTheInverseOfComputeAltAz) {
  for (double lat : {51.5, -33.9, 0.0}) {
    for (double az : {10.0, 95.0, 180.0, 275.5, 359.9}) {
      for (double alt : {5.0, 30.0, 80.0}) {
        SharedState s;
        s.place.homeLatitude = lat / kDegreesPerRadian;
        s.time.localSiderealTime = 7.25;
        Equatorial eq = AltAzToEquatorial(s, alt, az);
        SetObjectPosition(s.object, eq.raHours, eq.decDegrees);
        ComputeAltAz(s);
        EXPECT_NEAR(s.object.altitude, alt, 1e-4) << lat << " " << az << " " << alt;
        double azErr = std::remainder(s.object.azimuth - az, 360);
        EXPECT_NEAR(azErr * std::cos(alt / kDegreesPerRadian), 0, 1e-4)
            << lat << " " << az << " " << alt;
      }
    }
  }
}

}  // namespace
}  // namespace astel
