#include "astro/solar_system.h"

#include <libnova/earth.h>
#include <libnova/jupiter.h>
#include <libnova/lunar.h>
#include <libnova/mars.h>
#include <libnova/mercury.h>
#include <libnova/neptune.h>
#include <libnova/pluto.h>
#include <libnova/saturn.h>
#include <libnova/uranus.h>
#include <libnova/venus.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/apparent_place.h"

namespace astel {

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180;
constexpr double kKmPerAu = 149597870.7;
constexpr double kLightTimeDaysPerAu = 0.0057755183;

// Terms of ELP 2000-82B smaller than this (radians for the angles, km for the distance) are left
// out. The full series costs about 1.7 ms, this about 30 us (most of it is libnova walking the
// term tables), and the position stays within 20 arc-seconds of the full theory.
constexpr double kMoonTruncation = 0.00001;

// Moon: semidiameter in arc-seconds times the distance in km (the geocentric value).
constexpr double kMoonSemidiameterArcsecKm = 358473400;

using HelioFunction = void (*)(double, ln_helio_posn*);

// Per body: the shown name; the smallest geocentric distance the body reaches (AU), against which
// Best of the Sky measures "how close is it now"; the semidiameter seen from 1 AU (arc-seconds);
// the heliocentric theory; and the magnitude law V = v0 + 5 log10(r * delta) + phase polynomial
// (phase angle in degrees, linear, square and cube coefficients): the Astronomical Almanac's laws
// for the planets, Allen's for the Moon (plus a fourth-power term), the Sun's -26.74 at 1 AU.
//
//   body     reference distance
//   Sun      0.983   (perihelion)
//   Mercury  0.549
//   Venus    0.255
//   Moon     0.00239 (perigee, about 357,000 km)
//   Mars     0.372
//   Jupiter  3.95
//   Saturn   7.99
//   Uranus   17.3
//   Neptune  28.8
//   Pluto    28.6    (near its 1989 perihelion)
//
// Other modules rely on these values; change them only together with the catalog's limits.
struct BodyFacts {
  const char* name;
  double referenceDistanceAu;
  double semidiameterAt1AuArcsec;
  HelioFunction heliocentric;
  double v0;
  double phase1, phase2, phase3;
};

constexpr BodyFacts kBodies[kBodyCount] = {
    {"Sun", 0.983, 959.63, nullptr, -26.74, 0, 0, 0},
    {"Mercury", 0.549, 3.36, ln_get_mercury_helio_coords, -0.42, 0.0380, -0.000273, 0.000002},
    {"Venus", 0.255, 8.41, ln_get_venus_helio_coords, -4.40, 0.0009, 0.000239, -0.00000065},
    {"Moon", 0.00239, 0, nullptr, 0.21, 0.026, 0, 0},
    {"Mars", 0.372, 4.68, ln_get_mars_helio_coords, -1.52, 0.016, 0, 0},
    {"Jupiter", 3.95, 98.44, ln_get_jupiter_helio_coords, -9.40, 0.005, 0, 0},
    {"Saturn", 7.99, 82.73, ln_get_saturn_helio_coords, -8.88, 0, 0, 0},
    {"Uranus", 17.3, 35.02, ln_get_uranus_helio_coords, -7.19, 0, 0, 0},
    {"Neptune", 28.8, 33.50, ln_get_neptune_helio_coords, -6.87, 0, 0, 0},
    {"Pluto", 28.6, 1.64, ln_get_pluto_helio_coords, -1.00, 0, 0, 0},
};

bool IsBody(int kind) {
  return kind >= 0 && kind < kBodyCount;
}

struct Vector3 {
  double x = 0, y = 0, z = 0;
};

double Length(const Vector3& v) {
  return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

// Spherical ecliptic (degrees) to rectangular, in the unit of the radius.
Vector3 Rectangular(double lonDeg, double latDeg, double radius) {
  const double lon = lonDeg * kRadiansPerDegree, lat = latDeg * kRadiansPerDegree;
  return {radius * std::cos(lat) * std::cos(lon), radius * std::cos(lat) * std::sin(lon),
          radius * std::sin(lat)};
}

EclipticPoint Spherical(const Vector3& v) {
  EclipticPoint p;
  p.lonDeg = NormalizeDegrees(std::atan2(v.y, v.x) / kRadiansPerDegree);
  p.latDeg = std::atan2(v.z, std::hypot(v.x, v.y)) / kRadiansPerDegree;
  return p;
}

// Angle at the body between the Sun and the Earth, from the triangle's sides (degrees).
double PhaseAngleDeg(double sunBody, double earthBody, double earthSun) {
  const double c =
      (sunBody * sunBody + earthBody * earthBody - earthSun * earthSun) / (2 * sunBody * earthBody);
  return std::acos(std::clamp(c, -1.0, 1.0)) / kRadiansPerDegree;
}

double MagnitudeLaw(const BodyFacts& f, double sunBody, double earthBody, double phaseDeg) {
  const double i = phaseDeg;
  return f.v0 + 5 * std::log10(sunBody * earthBody) + f.phase1 * i + f.phase2 * i * i +
         f.phase3 * i * i * i;
}

// Saturn's brightness depends on how open its rings are: B is the tilt of the ring plane to the
// line of sight, dU the difference of the Saturnicentric longitudes of the Sun and the Earth.
double SaturnRingTerm(EclipticPoint geocentric, EclipticPoint heliocentric, double jde) {
  const double t = CenturiesSinceJ2000(jde);
  const double incl = (28.075216 - 0.012998 * t + 0.000004 * t * t) * kRadiansPerDegree;
  const double node = (169.508470 + 1.394681 * t + 0.000412 * t * t) * kRadiansPerDegree;
  auto ringLongitude = [&](EclipticPoint p, double* sinTilt) {
    const double lon = p.lonDeg * kRadiansPerDegree, lat = p.latDeg * kRadiansPerDegree;
    *sinTilt =
        std::sin(incl) * std::cos(lat) * std::sin(lon - node) - std::cos(incl) * std::sin(lat);
    return std::atan2(
        std::sin(incl) * std::sin(lat) + std::cos(incl) * std::cos(lat) * std::sin(lon - node),
        std::cos(lat) * std::cos(lon - node));
  };
  double sinB = 0, unused = 0;
  const double earthSide = ringLongitude(geocentric, &sinB);
  const double sunSide = ringLongitude(heliocentric, &unused);
  double du = std::fabs(earthSide - sunSide) / kRadiansPerDegree;
  if (du > 180) du = 360 - du;
  return 0.044 * du - 2.60 * std::fabs(sinB) + 1.25 * sinB * sinB;
}

// Nutation added and the ecliptic place of date turned into right ascension and declination.
BodyPosition ApparentPosition(EclipticPoint geometricOfDate, const Nutation& nutation) {
  EclipticPoint apparent = geometricOfDate;
  apparent.lonDeg = NormalizeDegrees(apparent.lonDeg + nutation.longitudeDeg);
  const EquatorialPoint eq = EquatorialFromEcliptic(apparent, nutation.trueObliquityDeg);
  BodyPosition out;
  out.raHours = eq.raHours;
  out.decDegrees = eq.decDegrees;
  out.eclipticLongitudeDeg = apparent.lonDeg;
  return out;
}

// Heliocentric position on the ecliptic and equinox of date. libnova's heliocentric series (VSOP87
// for the planets and the Earth, the Pluto theory) are all referred to J2000.
ln_helio_posn HeliocentricOfDate(HelioFunction heliocentric, double jde) {
  ln_helio_posn h;
  heliocentric(jde, &h);
  const EclipticPoint p = PrecessEclipticFromJ2000({h.L, h.B}, jde);
  h.L = p.lonDeg;
  h.B = p.latDeg;
  return h;
}

BodyPosition ComputeSun(double jde) {
  const ln_helio_posn earth = HeliocentricOfDate(ln_get_earth_helio_coords, jde);
  EclipticPoint sun{NormalizeDegrees(earth.L + 180), -earth.B};
  // Aberration of the Sun (which also absorbs the light time): 20.4898" / R backwards.
  sun.lonDeg = NormalizeDegrees(sun.lonDeg - 20.4898 / 3600 / earth.R);
  BodyPosition out = ApparentPosition(sun, NutationAt(jde));
  const BodyFacts& f = kBodies[kSun];
  out.distanceAu = earth.R;
  out.magnitude = f.v0 + 5 * std::log10(earth.R);
  out.diameterArcsec = 2 * f.semidiameterAt1AuArcsec / earth.R;
  return out;
}

BodyPosition ComputePlanet(int kind, double jde) {
  const BodyFacts& f = kBodies[kind];
  const ln_helio_posn earth = HeliocentricOfDate(ln_get_earth_helio_coords, jde);
  const Vector3 e = Rectangular(earth.L, earth.B, earth.R);

  // Light time: the body is seen where it was when the light left it. Two passes are enough; the
  // second light time is off by far less than a second.
  ln_helio_posn planet{};
  Vector3 g;
  double lightTime = 0;
  for (int pass = 0; pass < 2; ++pass) {
    planet = HeliocentricOfDate(f.heliocentric, jde - lightTime);
    const Vector3 p = Rectangular(planet.L, planet.B, planet.R);
    g = {p.x - e.x, p.y - e.y, p.z - e.z};
    lightTime = kLightTimeDaysPerAu * Length(g);
  }
  const double delta = Length(g);
  const EclipticPoint geometric = Spherical(g);
  const EclipticPoint aberrated =
      AddAnnualAberration(geometric, NormalizeDegrees(earth.L + 180), jde);

  BodyPosition out = ApparentPosition(aberrated, NutationAt(jde));
  out.distanceAu = delta;
  out.diameterArcsec = 2 * f.semidiameterAt1AuArcsec / delta;
  const double phase = PhaseAngleDeg(planet.R, delta, earth.R);
  out.magnitude = MagnitudeLaw(f, planet.R, delta, phase);
  if (kind == kSaturn) out.magnitude += SaturnRingTerm(geometric, {planet.L, planet.B}, jde);
  return out;
}

// The short solar theory: geometric longitude and radius vector, and the apparent longitude.
struct ShortSun {
  double apparentLonDeg;
  double radiusAu;
};

ShortSun ComputeShortSun(double jde) {
  const double t = CenturiesSinceJ2000(jde);
  const double meanLon = 280.46646 + 36000.76983 * t + 0.0003032 * t * t;
  const double anomaly = 357.52911 + 35999.05029 * t - 0.0001537 * t * t;
  const double e = 0.016708634 - 0.000042037 * t - 0.0000001267 * t * t;
  const double m = anomaly * kRadiansPerDegree;
  const double centre = (1.914602 - 0.004817 * t - 0.000014 * t * t) * std::sin(m) +
                        (0.019993 - 0.000101 * t) * std::sin(2 * m) + 0.000289 * std::sin(3 * m);
  const double trueAnomaly = (anomaly + centre) * kRadiansPerDegree;
  const double node = (125.04 - 1934.136 * t) * kRadiansPerDegree;
  ShortSun sun;
  sun.apparentLonDeg = NormalizeDegrees(meanLon + centre - 0.00569 - 0.00478 * std::sin(node));
  sun.radiusAu = 1.000001018 * (1 - e * e) / (1 + e * std::cos(trueAnomaly));
  return sun;
}

BodyPosition ComputeMoon(double jde) {
  // libnova's ELP 2000-82B gives the geometric position on the mean ecliptic and equinox of J2000.
  ln_rect_posn m;
  ln_get_lunar_geo_posn(jde, &m, kMoonTruncation);
  const Vector3 v{m.X, m.Y, m.Z};
  const double km = Length(v);
  // Aberration is left out: the Earth and the Moon share their motion round the Sun.
  const EclipticPoint geometric = PrecessEclipticFromJ2000(Spherical(v), jde);
  BodyPosition out = ApparentPosition(geometric, NutationAt(jde));
  out.distanceAu = km / kKmPerAu;
  out.diameterArcsec = 2 * kMoonSemidiameterArcsecKm / km;

  // Brightness from the phase angle; the short solar theory is ample for it.
  const ShortSun sun = ComputeShortSun(jde);
  const double cosElongation =
      std::cos(geometric.latDeg * kRadiansPerDegree) *
      std::cos((out.eclipticLongitudeDeg - sun.apparentLonDeg) * kRadiansPerDegree);
  const double elongation = std::acos(std::clamp(cosElongation, -1.0, 1.0));
  const double phase = std::atan2(sun.radiusAu * std::sin(elongation),
                                  out.distanceAu - sun.radiusAu * std::cos(elongation)) /
                       kRadiansPerDegree;
  const double i = std::fabs(phase);
  out.magnitude =
      MagnitudeLaw(kBodies[kMoon], sun.radiusAu, out.distanceAu, i) + 4e-9 * i * i * i * i;
  return out;
}

}  // namespace

BodyPosition ComputeBody(int kind, double julianDate) {
  if (!IsBody(kind)) return {};
  const double jde = DynamicalTime(julianDate);
  if (kind == kSun) return ComputeSun(jde);
  if (kind == kMoon) return ComputeMoon(jde);
  return ComputePlanet(kind, jde);
}

double SunLongitudeForPhase(double julianDate) {
  return ComputeShortSun(DynamicalTime(julianDate)).apparentLonDeg;
}

std::string BodyName(int kind) {
  return IsBody(kind) ? kBodies[kind].name : "";
}

double ReferenceDistanceAu(int kind) {
  return IsBody(kind) ? kBodies[kind].referenceDistanceAu : 0;
}

}  // namespace astel
