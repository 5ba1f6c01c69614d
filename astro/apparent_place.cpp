#include "astro/apparent_place.h"

#include <libnova/dynamical_time.h>
#include <libnova/nutation.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace astel {

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180;
constexpr double kDegreesPerArcsec = 1.0 / 3600;
constexpr double kJ2000 = 2451545.0;
constexpr double kAberrationConstantArcsec = 20.49552;

double SinDeg(double deg) {
  return std::sin(deg * kRadiansPerDegree);
}
double CosDeg(double deg) {
  return std::cos(deg * kRadiansPerDegree);
}

}  // namespace

double NormalizeDegrees(double angle) {
  angle = std::fmod(angle, 360.0);
  if (angle < 0) angle += 360;
  return angle >= 360 ? 0 : angle;
}

double CenturiesSinceJ2000(double jde) {
  return (jde - kJ2000) / 36525;
}

double DynamicalTime(double julianDate) {
  return ln_get_jde(julianDate);
}

Nutation NutationAt(double jde) {
  // libnova keeps the last result (in a static: one thread only) and recomputes only when the
  // date moves by more than a tenth of a day, which keeps the once-a-second recalculation cheap;
  // the error of that is far below an arc-second.
  ln_nutation n;
  ln_get_nutation(jde, &n);
  return {n.longitude, n.ecliptic + n.obliquity};
}

EclipticPoint PrecessEclipticFromJ2000(EclipticPoint j2000, double jde) {
  const double t = CenturiesSinceJ2000(jde);
  const double eta = (47.0029 * t - 0.03302 * t * t + 0.000060 * t * t * t) * kDegreesPerArcsec;
  const double pi = 174.876384 - (869.8089 * t - 0.03536 * t * t) * kDegreesPerArcsec;
  const double p = (5029.0966 * t + 1.11113 * t * t - 0.000006 * t * t * t) * kDegreesPerArcsec;
  const double lon0 = j2000.lonDeg, lat0 = j2000.latDeg;
  const double a = CosDeg(eta) * CosDeg(lat0) * SinDeg(pi - lon0) - SinDeg(eta) * SinDeg(lat0);
  const double b = CosDeg(lat0) * CosDeg(pi - lon0);
  const double c = CosDeg(eta) * SinDeg(lat0) + SinDeg(eta) * CosDeg(lat0) * SinDeg(pi - lon0);
  EclipticPoint out;
  out.lonDeg = NormalizeDegrees(p + pi - std::atan2(a, b) / kRadiansPerDegree);
  out.latDeg = std::asin(std::clamp(c, -1.0, 1.0)) / kRadiansPerDegree;
  return out;
}

EclipticPoint AddAnnualAberration(EclipticPoint point, double sunLongitudeDeg, double jde) {
  const double t = CenturiesSinceJ2000(jde);
  const double e = 0.016708634 - 0.000042037 * t - 0.0000001267 * t * t;
  const double perihelion = 102.93735 + 1.71946 * t + 0.00046 * t * t;
  const double k = kAberrationConstantArcsec * kDegreesPerArcsec;
  const double lon = point.lonDeg, lat = point.latDeg;
  const double cosLat = CosDeg(lat);
  if (cosLat != 0) {
    point.lonDeg +=
        (-k * CosDeg(sunLongitudeDeg - lon) + e * k * CosDeg(perihelion - lon)) / cosLat;
  }
  point.latDeg -= k * SinDeg(lat) * (SinDeg(sunLongitudeDeg - lon) - e * SinDeg(perihelion - lon));
  point.lonDeg = NormalizeDegrees(point.lonDeg);
  return point;
}

EquatorialPoint EquatorialFromEcliptic(EclipticPoint point, double obliquityDeg) {
  const double lon = point.lonDeg * kRadiansPerDegree, lat = point.latDeg * kRadiansPerDegree;
  const double eps = obliquityDeg * kRadiansPerDegree;
  const double ra =
      std::atan2(std::sin(lon) * std::cos(eps) - std::tan(lat) * std::sin(eps), std::cos(lon));
  const double sinDec =
      std::sin(lat) * std::cos(eps) + std::cos(lat) * std::sin(eps) * std::sin(lon);
  EquatorialPoint out;
  out.raHours = NormalizeDegrees(ra / kRadiansPerDegree) / 15;
  out.decDegrees = std::asin(std::clamp(sinDec, -1.0, 1.0)) / kRadiansPerDegree;
  return out;
}

}  // namespace astel
