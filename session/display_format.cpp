#include "session/display_format.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

const std::string kDegree(1, kDegreeSign);

std::string Two(double v) {
  return FormatFixed(v, "00");
}

// Whole units and a fraction counted in `unitsPerWhole`, rounded to `decimals` places with the
// carry into the whole units, so 59.96 minutes never shows as "60.0".
std::pair<long, double> SplitRounded(long whole, double part, double unitsPerWhole, int decimals) {
  const double scale = std::pow(10.0, decimals);
  double rounded = std::round(part * scale) / scale;
  if (rounded >= unitsPerWhole) {
    rounded -= unitsPerWhole;
    whole += 1;
  }
  return {whole, rounded};
}

}  // namespace

std::string DateCaption(const TimeState& t, bool usDateOrder) {
  const std::string day = Two(t.day), month = Two(t.month), year = FormatFixed(t.year, "0000");
  return usDateOrder ? month + "-" + day + "-" + year : day + "-" + month + "-" + year;
}

std::string TimeCaption(const TimeState& t) {
  return Two(t.hour) + ":" + Two(t.minute) + ":" + Two(std::floor(t.second)) + " " + t.zoneLetter1 +
         t.zoneLetter2 + t.zoneLetter3;
}

std::string GmtCaption(const TimeState& t, const PlaceState& p) {
  std::string caption = "GMT " + t.gmtTimeText + ":" + Two(std::floor(t.second));
  if (t.gmtDaySign != " ") caption += " " + t.gmtDaySign + "1 day";
  return caption + "  (offset " + NumberText(p.gmtOffset).substr(p.gmtOffset < 0 ? 0 : 1) + " h)";
}

std::string SiderealCaption(const TimeState& t) {
  return "Sidereal " + Two(t.lstHours) + ":" + Two(t.lstMinutes) + ":" + Two(t.lstSeconds);
}

std::string LatitudeCaption(const PlaceState& p) {
  auto [degrees, minutes] = SplitRounded(std::abs(p.latitudeDegrees), p.latitudeMinutes, 60, 1);
  std::string hemisphere = p.latitudeSignText == "-" ? "S" : "N";
  return "Lat  " + Two(static_cast<double>(degrees)) + kDegree + FormatFixed(minutes, "00.0") +
         "' " + hemisphere + (p.locationOption ? " (GPS)" : "");
}

std::string LongitudeCaption(const PlaceState& p) {
  auto [degrees, minutes] = SplitRounded(std::abs(p.longitudeDegrees), p.longitudeMinutes, 60, 1);
  std::string side = p.longitudeSignText == "-" ? "E" : "W";
  return "Long " + FormatFixed(static_cast<double>(degrees), "000") + kDegree +
         FormatFixed(minutes, "00.0") + "' " + side + (p.locationOption ? " (GPS)" : "");
}

std::string ScopeTypeCaption(const TelescopeState& t) {
  if (t.scopeType == 0) return "Type 0  no GoTo scope";
  return "Type " + std::to_string(t.scopeType) + "  COM" + std::to_string(t.comPort);
}

std::string RightAscensionCaption(const ObjectState& o) {
  auto [hours, minutes] = SplitRounded(o.objRaHours, o.objRaMinutes, 60, 1);
  if (hours >= 24) hours -= 24;
  return "RA  " + Two(static_cast<double>(hours)) + "h " + FormatFixed(minutes, "00.0") + "m";
}

std::string DeclinationText(const ObjectState& o) {
  const bool south = o.objDecDegrees < 0 || (o.objDecDegrees == 0 && o.objDecSign < 0);
  auto [degrees, minutes] = SplitRounded(std::abs(o.objDecDegrees), o.objDecMinutes, 60, 0);
  return std::string(south ? "-" : "+") + Two(static_cast<double>(degrees)) + kDegree + " " +
         Two(minutes) + "'";
}

std::string DeclinationCaption(const ObjectState& o) {
  return "Dec " + DeclinationText(o);
}

std::string AltitudeCaption(const ObjectState& o) {
  return "Alt " + o.altitudeDegText + kDegree + o.altitudeMinText + "'";
}

std::string AzimuthCaption(const ObjectState& o) {
  return "Az  " + FormatFixed(std::floor(o.azimuth), "000") + kDegree +
         Two(std::floor(o.azimuthMinutes)) + "'";
}

std::string MagnitudeCaption(const ObjectState& o) {
  const double value = LeadingNumber(o.magnitudeText);
  if (!StartsWithNumber(o.magnitudeText) || value >= 99) return "Mag";
  std::string text = o.magnitudeText;
  text.erase(0, text.find_first_not_of(' '));
  text.erase(text.find_last_not_of(' ') + 1);
  return "Mag " + text;
}

}  // namespace astel
