#include "scope/nmea.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

constexpr std::string_view kGprmcStart = "$GPRMC,";
constexpr char kCarriageReturn = '\r';

bool StartsWithGprmc(std::string_view s) {
  return s.substr(0, kGprmcStart.size()) == kGprmcStart;
}

// Character positions count from 1 here, as the field layout is described.
std::string Mid(std::string_view s, std::size_t start, std::size_t length) {
  if (start < 1 || start > s.size()) return "";
  return std::string(s.substr(start - 1, length));
}

// Position of the first "," at or after `start`; 0 when there is none.
std::size_t Comma(std::string_view s, std::size_t start) {
  if (start < 1) start = 1;
  if (start > s.size()) return 0;
  std::size_t found = s.find(',', start - 1);
  return found == std::string_view::npos ? 0 : found + 1;
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// True when the sentence has no checksum, or one that matches its characters.
bool ChecksumMatches(std::string_view s) {
  std::size_t star = s.rfind('*');
  if (star == std::string_view::npos) return true;
  if (star + 3 != s.size()) return false;
  int high = HexValue(s[star + 1]);
  int low = HexValue(s[star + 2]);
  if (high < 0 || low < 0) return false;
  unsigned char sum = 0;
  for (std::size_t i = 1; i < star; ++i)
    sum ^= static_cast<unsigned char>(s[i]);
  return sum == high * 16 + low;
}

int Rounded(std::string_view text) {
  return RoundToInt(LeadingNumber(text));
}

bool AllZeros(std::string_view text) {
  return !text.empty() && text.find_first_not_of('0') == std::string_view::npos;
}

}  // namespace

std::optional<std::string> NmeaFramer::Feed(char c) {
  if (refusedPending_) {
    if (c != '$') return std::nullopt;
    refusedPending_ = false;
    droppingSentence_ = true;
    return std::nullopt;
  }
  if (droppingSentence_) {
    if (c != '$') return std::nullopt;
    droppingSentence_ = false;
  }
  if (c == '$') {
    inSentence_ = true;
    sentence_.clear();
  }
  if (c != kCarriageReturn) {
    if (inSentence_) sentence_ += c;
    return std::nullopt;
  }
  inSentence_ = false;
  std::string complete;
  complete.swap(sentence_);
  if (!StartsWithGprmc(complete)) return std::nullopt;
  return complete;
}

void NmeaFramer::Refused() {
  refusedPending_ = true;
  droppingSentence_ = false;
}

std::optional<GpsFix> ParseGprmc(std::string_view s, std::string_view yearText) {
  if (!StartsWithGprmc(s) || !ChecksumMatches(s)) {
    return std::nullopt;
  }
  GpsFix fix;

  const std::size_t p1 = Comma(s, 8);
  if (p1 < 14) return std::nullopt;
  const std::string hours = Mid(s, 8, 2);
  const std::string minutes = Mid(s, 10, 2);
  const std::string seconds = Mid(s, 12, p1 - 12);

  const std::size_t p2 = Comma(s, p1 + 1);
  if (p2 < p1 + 2 || Mid(s, p1 + 1, 1) != "A") return std::nullopt;

  const std::size_t p3 = Comma(s, p2 + 1);
  if (p3 < p2 + 7) return std::nullopt;
  fix.latitudeDegreesText = Mid(s, p2 + 1, 2);
  fix.latitudeMinutesText = Mid(s, p2 + 3, p3 - (p2 + 3));

  const std::size_t p4 = Comma(s, p3 + 1);
  if (p4 < p3 + 2) return std::nullopt;
  fix.hemisphere = s[p3];  // position p3 + 1

  const std::size_t p5 = Comma(s, p4 + 1);
  if (p5 < p4 + 8) return std::nullopt;
  fix.longitudeDegreesText = Mid(s, p4 + 1, 3);
  fix.longitudeMinutesText = Mid(s, p4 + 4, p5 - (p4 + 4));

  const std::size_t p6 = Comma(s, p5 + 1);
  if (p6 < p5 + 2) return std::nullopt;
  fix.eastWest = s[p5];  // position p5 + 1

  // Speed and course are skipped; a sentence that ends before them has no date.
  const std::size_t p7 = Comma(s, p6 + 1);
  const std::size_t p8 = p7 == 0 ? 0 : Comma(s, p7 + 1);
  if (p8 == 0) return std::nullopt;
  const std::size_t p9 = Comma(s, p8 + 1);
  if (p9 < p8 + 7) return std::nullopt;
  const std::string day = Mid(s, p8 + 1, 2);
  const std::string month = Mid(s, p8 + 3, 2);
  const std::string year = std::string(yearText.substr(0, 2)) + Mid(s, p8 + 5, 2);

  double second = LeadingNumber(seconds);
  if (second >= 59) return std::nullopt;
  second += 1;

  fix.utc.year = Rounded(year);
  fix.utc.month = Rounded(month);
  fix.utc.day = Rounded(day);
  fix.utc.hour = Rounded(hours);
  fix.utc.minute = Rounded(minutes);
  fix.utc.second = static_cast<int>(std::floor(second));
  fix.utc.millisecond = RoundToInt((second - std::floor(second)) * 1000);
  return fix;
}

PlaceFix PlaceOfGpsFix(const GpsFix& fix) {
  PlaceFix place;
  place.latitudeDegrees = static_cast<int>(LeadingNumber(fix.latitudeDegreesText));
  place.latitudeMinutes = LeadingNumber(fix.latitudeMinutesText);
  place.south = fix.hemisphere == 'S';
  place.latitudeDegreesZero = AllZeros(fix.latitudeDegreesText);
  place.longitudeDegrees = static_cast<int>(LeadingNumber(fix.longitudeDegreesText));
  place.longitudeMinutes = LeadingNumber(fix.longitudeMinutesText);
  place.east = fix.eastWest == 'E';
  place.longitudeDegreesZero = AllZeros(fix.longitudeDegreesText);
  return place;
}

}  // namespace astel
