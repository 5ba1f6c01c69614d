// The shown object filled from a Solar System body: position, magnitude and the name texts.
#include <cmath>

#include "astro/coordinates.h"
#include "astro/moon_phase.h"
#include "astro/solar_system.h"
#include "core/text_format.h"

namespace astel {

namespace {

// "Diam 17.3\"" for the planets; the Sun's disc in arc-minutes, "Diam 32.4'".
std::string DiameterText(int kind, double diameterArcsec) {
  if (kind == kSun) return "Diam " + FormatFixed(diameterArcsec / 60, "0.0") + "'";
  return "Diam " + FormatFixed(diameterArcsec, "0.0") + "\"";
}

void ShowBody(SharedState& state, int kind) {
  ObjectState& o = state.object;
  const double jd = state.time.julianDate;
  const BodyPosition p = ComputeBody(kind, jd);

  o.objectKind = kind;
  state.form.list1Index = kind;
  SetObjectPosition(o, p.raHours, p.decDegrees);
  // The position is already of date: equal epochs keep the precession step from moving it again.
  o.sourceEpoch = state.time.roundedYear;
  o.targetEpoch = state.time.roundedYear;
  o.magnitude = p.magnitude;
  o.magnitudeText = p.magnitude >= 99 ? "" : FormatFixed(p.magnitude, "0.0");
  o.distanceAu = p.distanceAu;

  o.Name1 = BodyName(kind);
  if (kind == kMoon) {
    o.moonLongitude = p.eclipticLongitudeDeg;
    o.sunLongitude = SunLongitudeForPhase(jd);
    UpdateMoonPhase(o);
    o.Name2 = o.moonPhaseName;
    o.Name3 = o.elongationLabel;
    o.Name4 = DistanceText(p.distanceAu);
  } else {
    o.Name2 = DistanceText(p.distanceAu);
    o.Name3 = DiameterText(kind, p.diameterArcsec);
    o.Name4 = "";
  }
  o.Name5 = "JD " + FormatFixed(jd, "0000000.00");
}

}  // namespace

std::string DistanceText(double distanceAu) {
  const char* pattern = distanceAu < 0.1 ? "0.00000" : distanceAu < 10 ? "0.000" : "00.00";
  return FormatFixed(distanceAu, pattern) + " AU";
}

void SelectBody(SharedState& state, int kind) {
  if (kind < 0 || kind >= kBodyCount) return;
  ShowBody(state, kind);
  state.time.riseSetCurrent = false;
}

void UpdateSelectedBody(SharedState& state) {
  const int kind = state.object.objectKind;
  if (kind < 0 || kind >= kBodyCount) return;
  ShowBody(state, kind);
}

}  // namespace astel
