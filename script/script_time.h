// The clock-time arguments of WAIT and EXIT.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace astel {

struct ClockTime {
  int hour = 0, minute = 0, second = 0;
  int MinuteOfDay() const { return hour * 60 + minute; }
  int SecondOfDay() const { return (hour * 60 + minute) * 60 + second; }
};

struct ClockTimeParse {
  std::optional<ClockTime> time;
  std::string error;  // the message when time is empty
};

// "hh:mm" or "hh:mm:ss" (WAIT): hours 0-23, minutes and seconds 0-59.
ClockTimeParse ParseWaitTime(std::string_view text);

// "hh:mm" (EXIT): a ":" is required.
ClockTimeParse ParseExitTime(std::string_view text);

}  // namespace astel
