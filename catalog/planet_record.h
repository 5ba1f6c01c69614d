// "!Planet=" lines: a Sun, Moon or planet offered by Best of the Sky when it stands high enough and
// is near enough to the Earth.
//
//   columns 1-8   "!Planet="
//           9-10  body number: 0 Sun, 1 Mercury, 2 Venus, 3 Moon, 4 Mars, 5 Jupiter, 6 Saturn,
//                 7 Uranus, 8 Neptune, 9 Pluto
//           12    the Best-of-the-Sky mark ("&" first pass, "^" second pass)
//           13-14 minimum altitude in degrees
//           25-26 largest ratio of the current distance to the body's reference distance
//                 (ReferenceDistanceAu: the smallest geocentric distance the body reaches, so a
//                 ratio of 1 is as close as it ever comes); blank or 0 = no distance limit
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/shared_state.h"

namespace astel {

inline constexpr std::string_view kPlanetPrefix = "!Planet=";

struct PlanetRecord {
  int body = 0;
  double minAltitude = 0;       // degrees
  double maxDistanceRatio = 0;  // 0: no limit
};

// The planet line's fields; nullopt for any other line and for a body number outside 0..9 (such a
// line is skipped like any other "!" line).
std::optional<PlanetRecord> ParsePlanetRecord(std::string_view record);

// The fixed Name1 texts: "Sun         ", "Mercury    ", ... "Pluto      ".
const std::string& PlanetDisplayName(int body);

// Makes the body the shown object for state.time.julianDate: position of date (no precession
// follows), fixed name in Name1, the distance text ("1.234 AU") in Name2, Name3-Name5 blank,
// magnitude, objectKind = body, distanceAu; for the Moon also its phase and elongation. Altitude
// and azimuth are not computed here.
void ShowPlanet(SharedState& state, int body);

// Current distance over the reference distance.
double DistanceRatio(int body, double distanceAu);

}  // namespace astel
