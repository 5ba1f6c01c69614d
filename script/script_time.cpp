#include "script/script_time.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

// A whole number within [low, high], written as digits (blanks around allowed).
std::optional<int> Field(std::string_view text, int low, int high) {
  std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return std::nullopt;
  std::size_t end = text.find_last_not_of(' ');
  text = text.substr(start, end - start + 1);
  for (char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
  }
  if (text.size() > 4) return std::nullopt;
  const int value = static_cast<int>(LeadingNumber(text));
  if (value < low || value > high) return std::nullopt;
  return value;
}

ClockTimeParse Parse(std::string_view text, bool secondsAllowed) {
  const std::size_t first = text.find(':');
  const std::string_view hourText = text.substr(0, first);
  std::string_view minuteText, secondText;
  bool hasSeconds = false;
  if (first != std::string_view::npos) {
    std::string_view rest = text.substr(first + 1);
    const std::size_t second = rest.find(':');
    minuteText = rest.substr(0, second);
    if (second != std::string_view::npos) {
      hasSeconds = true;
      secondText = rest.substr(second + 1);
    }
  }
  ClockTime t;
  auto hour = Field(hourText, 0, 23);
  if (!hour) return {std::nullopt, "Invalid time format: invalid hour"};
  auto minute = Field(minuteText, 0, 59);
  if (!minute) return {std::nullopt, "Invalid time format: invalid minutes"};
  t.hour = *hour;
  t.minute = *minute;
  if (hasSeconds) {
    auto second = secondsAllowed ? Field(secondText, 0, 59) : std::nullopt;
    if (!second) {
      return {std::nullopt, secondsAllowed ? "Invalid time format: invalid seconds"
                                           : "Invalid time format: invalid minutes"};
    }
    t.second = *second;
  }
  return {t, {}};
}

}  // namespace

ClockTimeParse ParseWaitTime(std::string_view text) {
  return Parse(text, true);
}

ClockTimeParse ParseExitTime(std::string_view text) {
  if (text.find(':') == std::string_view::npos) {
    return {std::nullopt, "Invalid time format - no ':'"};
  }
  return Parse(text, false);
}

}  // namespace astel
