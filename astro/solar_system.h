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
  double diameterArcsec = 0;        // apparent diameter
};

// Position of body `kind` (0..9) at the program's Julian date (GMT).
BodyPosition ComputeBody(int kind, double julianDate);

// "Sun", "Mercury", ... "Pluto".
std::string BodyName(int kind);

// The distance a body is measured against by the Best-of-the-Sky distance ratio (AU).
double ReferenceDistanceAu(int kind);

// A distance as shown: "0.000" below 10 AU, "00.00" from 10 AU on, then " AU".
std::string DistanceText(double distanceAu);

// Makes body `kind` the shown object (objectKind, position, names, magnitude, distance, and for
// the Moon its phase and elongation) for state.time.julianDate.
void SelectBody(SharedState& state, int kind);

// Recomputes the shown body for the current julianDate; does nothing for a catalog object.
void UpdateSelectedBody(SharedState& state);

}  // namespace astel
