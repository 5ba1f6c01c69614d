#include "scope/place_fix.h"

#include <string>

#include "astro/time_scales.h"

namespace astel {

namespace {

constexpr double kDegreesPerRadian = 57.29577957855229;
constexpr double kMaxMinutes = 59.9999;

void ApplyAxis(int degrees, double minutes, bool negative, bool degreesZero, int& outDegrees,
               double& outMinutes, int& outSign, std::string& outSignText, double& outRadians) {
  outDegrees = degrees;
  outMinutes = minutes;
  if (!negative) {
    outSign = 1;
    outSignText = "";
  } else {
    outSignText = "-";
    outDegrees = -outDegrees;
    if (degreesZero) outSign = -1;
  }
  if (outSign < 0 || outDegrees < 0) {
    outRadians = (outDegrees - outMinutes / 60) / kDegreesPerRadian;
  } else {
    outRadians = (outDegrees + outMinutes / 60) / kDegreesPerRadian;
  }
  if (outMinutes > kMaxMinutes) outMinutes = kMaxMinutes;
}

}  // namespace

void ApplyPlaceFix(SharedState& state, const PlaceFix& fix) {
  PlaceState& p = state.place;
  p.locationOption = true;
  ApplyAxis(fix.latitudeDegrees, fix.latitudeMinutes, fix.south, fix.latitudeDegreesZero,
            p.latitudeDegrees, p.latitudeMinutes, p.latitudeSign, p.latitudeSignText,
            p.homeLatitude);
  ApplyAxis(fix.longitudeDegrees, fix.longitudeMinutes, fix.east, fix.longitudeDegreesZero,
            p.longitudeDegrees, p.longitudeMinutes, p.longitudeSign, p.longitudeSignText,
            p.homeLongitude);
  state.program.configChanged = true;
  state.time.riseSetCurrent = false;
}

void ReportPlaceLoaded(SharedState& state, Clock& clock, Dialogs& dialogs, std::string_view what,
                       bool timeSet) {
  std::string message = std::string(what) + " Location ";
  if (timeSet) {
    ReadClock(state, clock);
    UpdateTimeScales(state);
    message += "and Time have been set.";
  } else {
    message += "has been set";
  }
  dialogs.MessageBox(message);
}

}  // namespace astel
