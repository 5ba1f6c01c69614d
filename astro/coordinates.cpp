#include "astro/coordinates.h"

#include <algorithm>
#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

double Clamp1(double v) {
  return std::isnan(v) ? 0 : std::clamp(v, -1.0, 1.0);
}

// The angle whose cosine is given, by the arc-tangent route the program has always used.
double AngleFromCosine(double cosine) {
  if (cosine == 0) return kPi / 2;
  double angle = std::atan(std::fabs(std::sqrt(1 - cosine * cosine) / cosine));
  return cosine < 0 ? kPi - angle : angle;
}

}  // namespace

double ObjectDeclinationDegrees(const ObjectState& o) {
  double dec = o.objDecDegrees < 0 ? o.objDecDegrees - o.objDecMinutes / 60
                                   : o.objDecDegrees + o.objDecMinutes / 60;
  if (o.objDecDegrees == 0) dec *= o.objDecSign;  // the sign of -0 degrees lives only here
  return dec;
}

void ComputeAltAz(SharedState& state) {
  ObjectState& o = state.object;
  const double dec = ObjectDeclinationDegrees(o) / kDegreesPerRadian;
  double ra = o.objRaHours + o.objRaMinutes / 60;
  const double s = state.time.localSiderealTime;
  if (ra < s) ra += 24;
  double x = ra - s;  // minus the hour angle; its sign tells the side of the meridian
  if (x > 12) x -= 24;
  const double hourAngle = 15 * x / kDegreesPerRadian;

  const double p = kPi / 2 - dec;
  const double c = kPi / 2 - state.place.homeLatitude;
  const double cosZ =
      Clamp1(std::cos(p) * std::cos(c) + std::sin(p) * std::sin(c) * std::cos(hourAngle));
  const double z = AngleFromCosine(cosZ);
  const double h = kPi / 2 - z;

  double a = 0;
  const double denominator = std::sin(c) * std::sin(z);
  if (std::sin(z) != 0 && denominator != 0) {
    a = AngleFromCosine(Clamp1((std::cos(p) - std::cos(c) * cosZ) / denominator));
  }
  if (x < 0) a = kTwoPi - a;

  o.altitude = kDegreesPerRadian * h;
  ComputeRefraction(o);
  o.altitude += o.refraction / 60;
  o.altitudeCopy = o.altitude;

  const double wholeDegrees = std::trunc(o.altitude);
  o.altitudeMinutes = std::fabs(60 * (o.altitude - wholeDegrees));
  o.altitudeDegText = NumberText(wholeDegrees);
  o.altitudeMinText = NumberText(std::floor(o.altitudeMinutes));
  if (wholeDegrees == 0 && o.altitude < 0) o.altitudeDegText[0] = '-';  // "-0"

  o.azimuth = kDegreesPerRadian * a;
  if (o.azimuth < 0) o.azimuth += 360;
  if (o.azimuth >= 360) o.azimuth -= 360;
  o.azimuthMinutes = 60 * (o.azimuth - std::floor(o.azimuth));
}

void ComputeRefraction(ObjectState& o) {
  o.refraction = 0;
  if (o.altitude < -0.57333) return;
  o.refraction = 1.02 / std::tan((o.altitude + 10.3 / (o.altitude + 5.11)) / kDegreesPerRadian);
}

void SetObjectPosition(ObjectState& o, double raHours, double decDegrees) {
  o.objRaHours = static_cast<int>(std::floor(raHours));
  o.objRaMinutes = (raHours - o.objRaHours) * 60;
  o.objDecDegrees = static_cast<int>(std::trunc(decDegrees));
  const double size = std::fabs(decDegrees);
  o.objDecMinutes = (size - std::floor(size)) * 60;
  o.objDecSign = decDegrees < 0 ? -1 : 1;
}

void PrecessToDate(ObjectState& o) {
  if (o.sourceEpoch == o.targetEpoch) return;
  double ra = 15 * (o.objRaHours + o.objRaMinutes / 60);  // degrees
  const bool south = o.objDecDegrees < 0 || (o.objDecDegrees == 0 && o.objDecSign < 0);
  double dec = std::abs(o.objDecDegrees) + o.objDecMinutes / 60;
  if (south) dec = -dec;

  // Annual rates evaluated at the middle of the interval, in centuries since 1900.
  const double t = ((o.sourceEpoch + o.targetEpoch) / 2 - 1900.0) / 100;
  const double m = 46.08506 + 0.27945 * t + 0.00012 * t * t;
  const double n = 20.04685 - 0.08533 * t - 0.00037 * t * t;
  const double raRad = ra / kDegreesPerRadian, decRad = dec / kDegreesPerRadian;
  const double raRate = m / 15 + (n / 15) * std::sin(raRad) * std::tan(decRad);  // s of time/yr
  const double decRate = n * std::cos(raRad);                                    // arcsec/yr
  const double years = o.targetEpoch - o.sourceEpoch;

  double raHours = ra / 15 + raRate * years / 3600;
  dec += decRate * years / 3600;
  raHours -= 24 * std::trunc(raHours / 24);
  if (raHours < 0) raHours += 24;  // the truncating reduction leaves a value just below 0h there
  SetObjectPosition(o, raHours, dec);
}

Equatorial AltAzToEquatorial(const SharedState& state, double altitudeDeg, double azimuthDeg) {
  // Remove the refraction that ComputeAltAz adds: find the true altitude whose apparent value is
  // the one given (a few fixed-point steps converge well below an arc-second).
  double trueAltitude = altitudeDeg;
  for (int i = 0; i < 20; ++i) {
    ObjectState probe;
    probe.altitude = trueAltitude;
    ComputeRefraction(probe);
    trueAltitude = altitudeDeg - probe.refraction / 60;
  }
  const double lat = state.place.homeLatitude;
  const double h = trueAltitude / kDegreesPerRadian, az = azimuthDeg / kDegreesPerRadian;
  const double sinDec = std::sin(lat) * std::sin(h) + std::cos(lat) * std::cos(h) * std::cos(az);
  const double dec = std::asin(Clamp1(sinDec));
  // Hour angle, positive west.
  const double hourAngle =
      std::atan2(-std::sin(az) * std::cos(h),
                 std::cos(lat) * std::sin(h) - std::sin(lat) * std::cos(h) * std::cos(az));
  double ra = state.time.localSiderealTime - hourAngle * kDegreesPerRadian / 15;
  ra = std::fmod(ra, 24.0);
  if (ra < 0) ra += 24;
  return {ra, dec * kDegreesPerRadian};
}

}  // namespace astel
