#include "session/place_entry.h"

#include <cmath>

#include "astro/time_scales.h"
#include "core/location.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr double kMaxLatitudeDegrees = 89, kMaxLongitudeDegrees = 179;
constexpr double kMinutesPerDegree = 60;
constexpr double kWestmostZone = 12, kEastmostZone = -14;  // hours added to local time for GMT

bool InRange(const std::string& text, double high) {
  return StartsWithNumber(text) && LeadingNumber(text) >= 0 && LeadingNumber(text) <= high;
}

bool Whole(const std::string& text) {
  return text.find('.') == std::string::npos && text.find(',') == std::string::npos;
}

bool MinutesOk(const std::string& text) {
  return StartsWithNumber(text) && LeadingNumber(text) >= 0 &&
         LeadingNumber(text) < kMinutesPerDegree;
}

std::string Trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

PlaceForm PlaceFormFromState(const PlaceState& p) {
  PlaceForm f;
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

std::string CheckPlaceForm(const PlaceForm& f) {
  if (!InRange(f.latitudeDegrees, kMaxLatitudeDegrees))
    return "Degrees of latitude must be between 0 and 89";
  if (!Whole(f.latitudeDegrees)) return "Enter Whole Number of Degrees Only";
  if (!MinutesOk(f.latitudeMinutes))
    return "Minutes of latitude must be between 0 and 59.999, decimals OK";
  if (f.north == f.south) return "Select 'North' or 'South'";
  if (!InRange(f.longitudeDegrees, kMaxLongitudeDegrees))
    return "Degrees of longitude must be between 0 and 179";
  if (!Whole(f.longitudeDegrees)) return "Enter Whole Number of Degrees Only";
  if (!MinutesOk(f.longitudeMinutes))
    return "Minutes of longitude must be between 0 and 59.999, decimals OK";
  if (f.east == f.west) return "Select 'East' or 'West'";
  return "";
}

bool ApplyPlaceForm(SharedState& s, Dialogs& dialogs, const PlaceForm& f) {
  if (std::string fault = CheckPlaceForm(f); !fault.empty()) {
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
