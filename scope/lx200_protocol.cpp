#include "scope/lx200_protocol.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

constexpr int kArcsecondsPerDegree = 3600;

// Characters from position `start` (counted from 1), as the old Mid function cut them.
std::string_view Mid(std::string_view text, std::size_t start, std::size_t length) {
  if (start > text.size()) return {};
  return text.substr(start - 1, length);
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Reads a run of 1 to `maxDigits` digits at `pos`.
std::optional<int> Digits(std::string_view text, std::size_t& pos, std::size_t maxDigits) {
  std::size_t start = pos;
  int value = 0;
  while (pos < text.size() && pos - start < maxDigits && IsDigit(text[pos])) {
    value = value * 10 + (text[pos] - '0');
    ++pos;
  }
  if (pos == start) return std::nullopt;
  return value;
}

// Exactly two digits at `pos`.
std::optional<int> TwoDigitsAt(std::string_view text, std::size_t pos) {
  if (pos + 2 > text.size() || !IsDigit(text[pos]) || !IsDigit(text[pos + 1])) return std::nullopt;
  return (text[pos] - '0') * 10 + (text[pos + 1] - '0');
}

// The reply without its closing "#"; nullopt when there is none.
std::optional<std::string_view> Body(std::string_view reply) {
  if (reply.empty() || reply.back() != '#') return std::nullopt;
  return reply.substr(0, reply.size() - 1);
}

}  // namespace

MeadeRa DecodeMeadeRa(std::string_view reply) {
  return {static_cast<int>(LeadingNumber(Mid(reply, 1, 3))), LeadingNumber(Mid(reply, 4, 4))};
}

MeadeDec DecodeMeadeDec(std::string_view reply) {
  MeadeDec dec;
  dec.degrees = static_cast<int>(LeadingNumber(Mid(reply, 1, 3)));
  dec.minutes = LeadingNumber(Mid(reply, 5, 2));
  dec.sign = !reply.empty() && reply[0] == '-' && dec.degrees == 0 ? -1 : 1;
  return dec;
}

std::optional<int> DecodeLx200Angle(std::string_view reply) {
  auto body = Body(reply);
  if (!body) return std::nullopt;
  std::string_view text = *body;
  std::size_t pos = 0;
  int sign = 1;
  if (pos < text.size() && (text[pos] == '+' || text[pos] == '-'))
    sign = text[pos++] == '-' ? -1 : 1;
  auto degrees = Digits(text, pos, 3);
  if (!degrees || pos >= text.size() || IsDigit(text[pos])) return std::nullopt;
  ++pos;  // "*" or the degree character
  auto minutes = Digits(text, pos, 2);
  if (!minutes || *minutes > 59) return std::nullopt;
  int seconds = 0;
  if (pos < text.size()) {
    ++pos;  // "'" or ":"
    auto s = Digits(text, pos, 2);
    if (!s || *s > 59) return std::nullopt;
    seconds = *s;
  }
  if (pos != text.size()) return std::nullopt;
  return sign * (*degrees * kArcsecondsPerDegree + *minutes * 60 + seconds);
}

std::optional<int> DecodeLx200Longitude(std::string_view reply) {
  auto angle = DecodeLx200Angle(reply);
  if (!angle || std::abs(*angle) > 360 * kArcsecondsPerDegree) return std::nullopt;
  int west = *angle;
  if (west > 180 * kArcsecondsPerDegree) west -= 360 * kArcsecondsPerDegree;
  return west;
}

std::optional<double> DecodeLx200UtcOffset(std::string_view reply) {
  auto body = Body(reply);
  if (!body || body->empty() || !StartsWithNumber(*body)) return std::nullopt;
  for (char c : *body) {
    if (!IsDigit(c) && c != '+' && c != '-' && c != '.') return std::nullopt;
  }
  double hours = LeadingNumber(*body);
  if (std::fabs(hours) > 14) return std::nullopt;
  return hours;
}

std::optional<Lx200Date> DecodeLx200Date(std::string_view reply) {
  auto body = Body(reply);
  if (!body || body->size() != 8 || (*body)[2] != '/' || (*body)[5] != '/') return std::nullopt;
  auto month = TwoDigitsAt(*body, 0);
  auto day = TwoDigitsAt(*body, 3);
  auto year = TwoDigitsAt(*body, 6);
  if (!month || !day || !year || *month < 1 || *month > 12 || *day < 1 || *day > 31) {
    return std::nullopt;
  }
  return Lx200Date{*month, *day, *year};
}

std::optional<Lx200Time> DecodeLx200Time(std::string_view reply) {
  auto body = Body(reply);
  if (!body || body->size() != 8 || (*body)[2] != ':' || (*body)[5] != ':') return std::nullopt;
  auto hour = TwoDigitsAt(*body, 0);
  auto minute = TwoDigitsAt(*body, 3);
  auto second = TwoDigitsAt(*body, 6);
  if (!hour || !minute || !second || *hour > 23 || *minute > 59 || *second > 59) {
    return std::nullopt;
  }
  return Lx200Time{*hour, *minute, *second};
}

}  // namespace astel
