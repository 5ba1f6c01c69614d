#include "catalog/planet_record.h"

#include <array>
#include <cmath>

#include "astro/coordinates.h"
#include "astro/moon_phase.h"
#include "astro/solar_system.h"
#include "catalog/catalog_record.h"
#include "core/text_format.h"

namespace astel {

std::optional<PlanetRecord> ParsePlanetRecord(std::string_view r) {
  if (r.substr(0, kPlanetPrefix.size()) != kPlanetPrefix) return std::nullopt;
  const std::string fitted = FitRecord(r);
  const std::string_view f = fitted;
  const std::string_view number = f.substr(8, 2);
  if (!StartsWithNumber(number)) return std::nullopt;
  const double body = LeadingNumber(number);
  if (body < 0 || body >= kBodyCount || body != std::floor(body)) return std::nullopt;
  PlanetRecord p;
  p.body = static_cast<int>(body);
  p.minAltitude = LeadingNumber(f.substr(12, 2));
  p.maxDistanceRatio = LeadingNumber(f.substr(24, 2));
  return p;
}

const std::string& PlanetDisplayName(int body) {
  static const std::array<std::string, kBodyCount> kNames = {
      "Sun         ", "Mercury    ", "Venus      ", "Moon       ", "Mars       ",
      "Jupiter    ",  "Saturn     ", "Uranus     ", "Neptune    ", "Pluto      "};
  static const std::string kNone;
  return body >= 0 && body < kBodyCount ? kNames[body] : kNone;
}

void ShowPlanet(SharedState& state, int body) {
  ObjectState& o = state.object;
  const BodyPosition pos = ComputeBody(body, state.time.julianDate);
  SetObjectPosition(o, pos.raHours, pos.decDegrees);
  o.sourceEpoch = o.targetEpoch;  // already of date
  o.Name1 = PlanetDisplayName(body);
  o.Name2 = PadRight(DistanceText(pos.distanceAu), kNameWidth);
  o.Name3 = o.Name4 = o.Name5 = std::string(kNameWidth, ' ');
  o.magnitude = pos.magnitude;
  o.magnitudeText = pos.magnitude >= kUnknownMagnitude
                        ? PadRight("99", kMagnitudeWidth)
                        : PadRight(FormatFixed(pos.magnitude, "0.00"), kMagnitudeWidth);
  o.objectKind = body;
  o.distanceAu = pos.distanceAu;
  if (body == kMoon) {
    o.moonLongitude = pos.eclipticLongitudeDeg;
    o.sunLongitude = ComputeBody(kSun, state.time.julianDate).eclipticLongitudeDeg;
    UpdateMoonPhase(o);
  }
}

double DistanceRatio(int body, double distanceAu) {
  const double reference = ReferenceDistanceAu(body);
  return reference > 0 ? distanceAu / reference : 0;
}

}  // namespace astel
