#include "astro/date_stamp.h"

#include <fmt/format.h>

#include "core/text_format.h"

namespace astel {

namespace {

struct Stamp {
  int hour, minute, second, month, day, year;
};

Stamp ParseStamp(std::string_view s) {
  auto field = [&](std::size_t pos, std::size_t len) {
    return pos < s.size() ? static_cast<int>(LeadingNumber(s.substr(pos, len))) : 0;
  };
  return {field(0, 2), field(2, 2), field(4, 2), field(6, 2), field(8, 2), field(10, 4)};
}

std::string FormatStamp(const Stamp& t) {
  return fmt::format("{:02}{:02}{:02}{:02}{:02}{:04}", t.hour, t.minute, t.second, t.month, t.day,
                     t.year);
}

void NextDay(Stamp& t) {
  if (++t.day > DaysInMonthOf(t.month, t.year)) {
    t.day = 1;
    if (++t.month > 12) {
      t.month = 1;
      ++t.year;
    }
  }
}

void PreviousDay(Stamp& t) {
  if (--t.day < 1) {
    if (--t.month < 1) {
      t.month = 12;
      --t.year;
    }
    t.day = DaysInMonthOf(t.month, t.year);
  }
}

}  // namespace

int DaysInMonthOf(int month, int year) {
  static constexpr int kLengths[13] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 31;
  if (month == 2 && year % 4 == 0 && year != 2100) return 29;
  return kLengths[month];
}

std::string AddToStamp(std::string_view stamp, int hours, int minutes, int seconds) {
  Stamp t = ParseStamp(stamp);
  t.second += seconds;
  t.minute += minutes + t.second / 60;
  t.second %= 60;
  t.hour += hours + t.minute / 60;
  t.minute %= 60;
  int days = t.hour / 24;
  t.hour %= 24;
  while (days-- > 0)
    NextDay(t);
  return FormatStamp(t);
}

std::string SubtractFromStamp(std::string_view stamp, int hours, int minutes, int seconds) {
  Stamp t = ParseStamp(stamp);
  t.second -= seconds;
  while (t.second < 0)
    t.second += 60, t.minute -= 1;
  t.minute -= minutes;
  while (t.minute < 0)
    t.minute += 60, t.hour -= 1;
  t.hour -= hours;
  while (t.hour < 0) {
    t.hour += 24;
    PreviousDay(t);
  }
  return FormatStamp(t);
}

}  // namespace astel
