// Apparent geocentric positions of the Sun, the Moon and the planets (libnova: VSOP87, ELP 2000-82B
// and the Pluto theory), and the shown object filled from them.
#pragma once

#include <string>

#include "core/shared_state.h"

namespace astel {

// objectKind numbering of the Solar System bodies.
enum BodyKind : int {
  kSun = 0,
  kMercury = 1,
  kVenus = 2,
  kMoon = 3,
  kMars = 4,
  kJupiter = 5,
  kSaturn = 6,
  kUranus = 7,
  kNeptune = 8,
  kPluto = 9,
};
inline constexpr int kBodyCount = 10;

struct BodyPosition {
  double raHours = 0;               // apparent right ascension of date
  double decDegrees = 0;            // apparent declination of date
  double distanceAu = 0;            // from the Earth's centre
  double eclipticLongitudeDeg = 0;  // apparent geocentric ecliptic longitude of date
  double magnitude = 99;            // visual magnitude; 99 when unknown
  double diameterArcsec = 0;        // apparent diameter (Jupiter and Saturn: equatorial, no rings)
};

// Position of body `kind` (0..9) at the program's Julian date (GMT). Geocentric, true equator and
// equinox of date, light-time, aberration and nutation applied. A kind outside 0..9 gives the
// default BodyPosition (zero position, unknown magnitude).
BodyPosition ComputeBody(int kind, double julianDate);

// The Sun's apparent ecliptic longitude (degrees) from the short solar theory, within about 0.01
// degree: a few hundred times cheaper than ComputeBody(kSun), which is what lets the Moon's phase
// follow the clock on every tick.
double SunLongitudeForPhase(double julianDate);

// "Sun", "Mercury", ... "Pluto"; "" for a kind outside 0..9.
std::string BodyName(int kind);

// The distance a body is measured against by the Best-of-the-Sky distance ratio (AU); 0 for a kind
// outside 0..9.
double ReferenceDistanceAu(int kind);

// A distance as shown: "0.00000" below 0.1 AU, "0.000" below 10 AU, "00.00" from 10 AU on, then
// " AU".
std::string DistanceText(double distanceAu);

// Makes body `kind` the shown object for state.time.julianDate: objectKind, the planet list's
// selection, position of date, magnitude, distance, Name1..Name5 and, for the Moon, its phase and
// elongation; clears riseSetCurrent so that rise and set are recomputed. A kind outside 0..9
// changes nothing.
void SelectBody(SharedState& state, int kind);

// Recomputes the shown body for the current julianDate (every tick); does nothing for a catalog
// object. Leaves riseSetCurrent alone.
void UpdateSelectedBody(SharedState& state);

}  // namespace astel
