#include "script/script_position.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

// The text between two positions with blanks and commas trimmed.
std::string_view Trimmed(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" ,");
  if (start == std::string_view::npos) return {};
  return text.substr(start, text.find_last_not_of(" ,") - start + 1);
}

// The whole text is one number (sign, digits, point).
bool IsNumber(std::string_view text) {
  if (text.empty() || !StartsWithNumber(text)) return false;
  for (char c : text) {
    if (!((c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+')) return false;
  }
  return true;
}

constexpr double kFirstEpoch = 1900, kLastEpoch = 2100;

}  // namespace

ScriptPositionParse ParseScriptPosition(std::string_view line) {
  ScriptPosition p;
  const std::size_t raStart = line.find('=') + 1;
  const std::size_t decKey = line.find("DEC=", raStart);
  const std::size_t raEnd = decKey == std::string_view::npos ? line.size() : decKey;
  const std::size_t h = line.substr(0, raEnd).find('H', raStart);
  if (h == std::string_view::npos) return {std::nullopt, "'hour' not specified"};

  std::string_view hours = Trimmed(line.substr(raStart, h - raStart));
  const double hourValue = LeadingNumber(hours);
  if (!IsNumber(hours) || hourValue < 0 || hourValue >= 24 || hourValue != std::floor(hourValue)) {
    return {std::nullopt, "invalid RA hour"};
  }
  p.raHours = static_cast<int>(hourValue);
  const std::size_t m = line.substr(0, raEnd).find('M', h);
  std::string_view minutes =
      Trimmed(line.substr(h + 1, (m == std::string_view::npos ? raEnd : m) - h - 1));
  p.raMinutes = LeadingNumber(minutes);
  if (!IsNumber(minutes) || p.raMinutes < 0 || p.raMinutes >= 60) {
    return {std::nullopt, "invalid RA minutes"};
  }

  if (decKey == std::string_view::npos) return {std::nullopt, "'dec=' not specified"};
  const std::size_t decStart = decKey + 4;
  const std::size_t d = line.find('D', decStart);
  std::string_view degrees =
      Trimmed(line.substr(decStart, (d == std::string_view::npos ? line.size() : d) - decStart));
  const double degreeValue = LeadingNumber(degrees);
  if (d == std::string_view::npos || !IsNumber(degrees) || degreeValue < -90 || degreeValue > 90 ||
      degreeValue != std::trunc(degreeValue)) {
    return {std::nullopt, "invalid Dec degrees"};
  }
  p.decDegrees = static_cast<int>(degreeValue);
  p.decSign = degrees.front() == '-' ? -1 : 1;
  const std::size_t dm = line.find('M', d);
  std::string_view decMinutes =
      Trimmed(line.substr(d + 1, (dm == std::string_view::npos ? line.size() : dm) - d - 1));
  p.decMinutes = LeadingNumber(decMinutes);
  if (!IsNumber(decMinutes) || p.decMinutes < 0 || p.decMinutes >= 60 ||
      (std::abs(p.decDegrees) == 90 && p.decMinutes > 0)) {
    return {std::nullopt, "invalid Dec minutes"};
  }

  std::string_view rest = dm == std::string_view::npos ? std::string_view{} : line.substr(dm + 1);
  if (const std::size_t key = rest.find("EPOCH="); key != std::string_view::npos) {
    rest = rest.substr(key + 6);
  }
  rest = Trimmed(rest);
  if (!rest.empty()) {
    p.epoch = LeadingNumber(rest);
    if (!IsNumber(rest) || p.epoch < kFirstEpoch || p.epoch > kLastEpoch) {
      return {std::nullopt, "Invalid epoch Specified"};
    }
  }
  return {p, {}};
}

}  // namespace astel
