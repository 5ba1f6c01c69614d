#include "session/place_entry.h"

#include <cmath>

#include "astro/time_scales.h"
#include "core/location.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr double kMinutesPerDegree = 60;
constexpr double kWestmostZone = 12, kEastmostZone = -14;  // hours added to local time for GMT

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

LocationEntry LocationEntryFromState(const PlaceState& p) {
  LocationEntry f;
  f.latitudeDegrees = std::to_string(std::abs(p.latitudeDegrees));
  f.latitudeMinutes = FormatFixed(p.latitudeMinutes, "0.000");
  f.south = p.latitudeSignText == "-";
  f.north = !f.south;
  f.longitudeDegrees = std::to_string(std::abs(p.longitudeDegrees));
  f.longitudeMinutes = FormatFixed(p.longitudeMinutes, "0.000");
  f.east = p.longitudeSignText == "-";
  f.west = !f.east;
  return f;
}

bool ApplyLocationEntry(SharedState& s, Dialogs& dialogs, const LocationEntry& f) {
  if (std::string fault = CheckLocationEntry(f); !fault.empty()) {
    dialogs.MessageBox(fault);
    return false;
  }
  const double latitude =
      LeadingNumber(f.latitudeDegrees) + LeadingNumber(f.latitudeMinutes) / kMinutesPerDegree;
  const double longitude =
      LeadingNumber(f.longitudeDegrees) + LeadingNumber(f.longitudeMinutes) / kMinutesPerDegree;
  // Latitude is kept positive north, longitude positive west.
  SetHomeLatitude(s.place, f.south ? -latitude : latitude);
  SetHomeLongitude(s.place, f.east ? -longitude : longitude);
  s.place.locationOption = false;  // typed by hand, no longer a GPS reading
  s.place.usDateOrder = ComputeUsDateOrder(s.place);
  UpdateTimeScales(s);
  s.time.riseSetCurrent = false;
  s.program.configChanged = true;
  return true;
}

void TimeZoneClick(SharedState& s, Dialogs& dialogs, Clock& clock) {
  const std::string current =
      s.place.useStoredGmtOffset ? Trimmed(NumberText(s.place.gmtOffset)) : kFollowComputerZone;
  std::string answer;
  for (;;) {
    answer = Trimmed(dialogs.InputBox(kTimeZonePrompt, kTimeZoneTitle, current));
    if (answer.empty()) return;
    if (ToUpperLatin1(answer) == kFollowComputerZone) break;
    const double hours = LeadingNumber(answer);
    if (StartsWithNumber(answer) && hours >= kEastmostZone && hours <= kWestmostZone) break;
    dialogs.MessageBox(kTimeZoneRangeMessage);
  }
  if (ToUpperLatin1(answer) == kFollowComputerZone) {
    s.place.useStoredGmtOffset = false;
    s.place.gmtOffset = CurrentZoneOffset(s, clock);
  } else {
    s.place.useStoredGmtOffset = true;
    s.place.gmtOffset = LeadingNumber(answer);
    s.place.zoneBiasHours = s.place.gmtOffset;
  }
  UpdateZoneLabel(s, clock);
  UpdateTimeScales(s);
  s.time.riseSetCurrent = false;
  s.program.configChanged = true;
}

}  // namespace astel
