// Linked into the catalog tests only while astro/solar_system.cpp has not arrived: the same
// functions straight from libnova's apparent positions, so that planet records can be tested.
// tests/catalog/CMakeLists.txt drops this file as soon as the real one exists.
#include <libnova/earth.h>
#include <libnova/jupiter.h>
#include <libnova/lunar.h>
#include <libnova/mars.h>
#include <libnova/mercury.h>
#include <libnova/neptune.h>
#include <libnova/pluto.h>
#include <libnova/saturn.h>
#include <libnova/solar.h>
#include <libnova/uranus.h>
#include <libnova/venus.h>

#include "astro/solar_system.h"
#include "core/text_format.h"

namespace astel {

BodyPosition ComputeBody(int kind, double jd) {
  BodyPosition out;
  ln_equ_posn equ{};
  switch (kind) {
    case kSun:
      ln_get_solar_equ_coords(jd, &equ);
      out.distanceAu = ln_get_earth_solar_dist(jd);
      out.magnitude = -26.7;
      break;
    case kMoon:
      ln_get_lunar_equ_coords(jd, &equ);
      out.distanceAu = ln_get_lunar_earth_dist(jd) / 149597870.7;
      out.magnitude = -10;
      break;
#define ASTEL_PLANET(K, name)                        \
  case K:                                            \
    ln_get_##name##_equ_coords(jd, &equ);            \
    out.distanceAu = ln_get_##name##_earth_dist(jd); \
    out.magnitude = ln_get_##name##_magnitude(jd);   \
    break;
      ASTEL_PLANET(kMercury, mercury)
      ASTEL_PLANET(kVenus, venus)
      ASTEL_PLANET(kMars, mars)
      ASTEL_PLANET(kJupiter, jupiter)
      ASTEL_PLANET(kSaturn, saturn)
      ASTEL_PLANET(kUranus, uranus)
      ASTEL_PLANET(kNeptune, neptune)
      ASTEL_PLANET(kPluto, pluto)
#undef ASTEL_PLANET
    default:
      return out;
  }
  out.raHours = equ.ra / 15;
  out.decDegrees = equ.dec;
  ln_lnlat_posn ecl{};
  if (kind == kMoon) {
    ln_get_lunar_ecl_coords(jd, &ecl, 0);
    out.eclipticLongitudeDeg = ecl.lng;
  } else if (kind == kSun) {
    ln_get_solar_ecl_coords(jd, &ecl);
    out.eclipticLongitudeDeg = ecl.lng;
  }
  return out;
}

std::string BodyName(int kind) {
  static const char* kNames[] = {"Sun",     "Mercury", "Venus",  "Moon",    "Mars",
                                 "Jupiter", "Saturn",  "Uranus", "Neptune", "Pluto"};
  return kind >= 0 && kind < kBodyCount ? kNames[kind] : "";
}

double ReferenceDistanceAu(int kind) {
  static const double kReference[] = {0.983, 0.549, 0.255, 0.00239, 0.372,
                                      3.95,  7.99,  17.3,  28.8,    28.6};
  return kind >= 0 && kind < kBodyCount ? kReference[kind] : 0;
}

std::string DistanceText(double au) {
  return FormatFixed(au, au < 10 ? "0.000" : "00.00") + " AU";
}

void SelectBody(SharedState&, int) {}
void UpdateSelectedBody(SharedState&) {}

}  // namespace astel
