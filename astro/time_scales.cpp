#include "astro/time_scales.h"

#include <fmt/format.h>

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

constexpr std::int16_t kDaysBeforeMonth[13] = {0,   0,   31,  59,  90,  120, 151,
                                               181, 212, 243, 273, 304, 334};
constexpr std::int16_t kDaysInMonth[13] = {0, 31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// 1980 January 1, 0h GMT.
constexpr double kJulianDate1980 = 2444239.5;

}  // namespace

void FillDateTables(TimeState& time) {
  for (int m = 0; m <= 12; ++m) {
    time.daysBeforeMonth[m] = kDaysBeforeMonth[m];
    time.daysInMonth[m] = kDaysInMonth[m];
  }
}

void ReadClock(SharedState& state, Clock& clock) {
  TimeState& t = state.time;
  if (!t.realTimeMode) return;
  LocalDateTime now = clock.Now();
  // The old code formatted "mm/dd/yyyy" and "hh:mm:ss" and cut the texts by position.
  std::string date = fmt::format("{:02}/{:02}/{:04}", now.month, now.day, now.year);
  std::string time = fmt::format("{:02}:{:02}:{:02}", now.hour, now.minute, now.second);
  t.monthText = date.substr(0, 2);
  t.dayText = date.substr(3, 2);
  t.yearText = date.substr(6, 4);
  t.hourText = time.substr(0, 2);
  t.minuteText = time.substr(3, 2);
  t.secondText = time.substr(6, 2);
  t.month = now.month;
  t.day = now.day;
  t.year = now.year;
  t.hour = now.hour;
  t.minute = now.minute;
  t.second = now.second;
  if (t.second == 0) t.riseSetCurrent = false;
}

bool UpdateTimeScales(SharedState& state) {
  TimeState& t = state.time;
  const PlaceState& place = state.place;

  t.gmtNextDay = false;
  t.gmtPrevDay = false;
  t.gmtDaySign = " ";
  t.roundedYear = t.year + (t.month > 6 ? 1 : 0);
  t.gmtHour = t.hour + place.gmtOffset;

  const double minuteValue = LeadingNumber(t.minuteText);
  double m = 60 * t.gmtHour + minuteValue;
  if (m >= 1440) {
    t.gmtHour -= 24;
    m -= 1440;
    t.gmtNextDay = true;
    t.gmtDaySign = "+";
  }
  if (m < 0) {
    t.gmtHour += 24;
    m += 1440;
    t.gmtPrevDay = true;
    t.gmtDaySign = "-";
  }
  const double gmtHours = m / 60;
  t.gmtTimeText = FormatFixed(std::floor(gmtHours), "00") + ":" +
                  FormatFixed(60 * (gmtHours - std::floor(gmtHours)), "00");

  if (t.month < 1 || t.month > 12) return false;  // the old code stopped with an index error

  // Days since 1980 January 0 under the every-fourth-year rule, corrected for 2100 below.
  const int y = t.year - 1980;
  double d = t.day + t.daysBeforeMonth[t.month] + 365.0 * y;
  d += std::floor(y / 4.0);
  if (t.year / 4.0 == std::floor(t.year / 4.0)) {
    t.isLeapYear = true;
    if (t.month < 3) d -= 1;
  } else {
    t.isLeapYear = false;
  }
  if (t.gmtNextDay) d += 1;
  if (t.gmtPrevDay) d -= 1;
  if (t.year > 2100) d -= 1;
  if (t.year == 2100) {
    t.isLeapYear = false;
    if (t.month > 2) d -= 1;
  }

  const double j0 = d + kJulianDate1980;
  // The seconds are divided by 3600, not 86400: the program's Julian date runs up to 59/3600 of
  // a day ahead within each minute. Every position inherits this; keep it.
  t.julianDate = j0 + t.gmtHour / 24 + minuteValue / 1440 + t.second / 3600;

  double s = d * 0.06570983 + 6.65438028;
  s += 0.06570983 * (t.gmtHour + t.minute / 60.0 + t.second / 3600) / 24;
  const double u = s + t.gmtHour;
  double lst;
  if (place.homeLongitude >= 0) {
    lst = u - (place.longitudeDegrees / 15.0 + place.longitudeMinutes / 900) + t.minute / 60.0 +
          t.second / 3600;
  } else {
    // East: the degrees are negative and the minutes unsigned, so both forms subtract the full
    // west-positive longitude.
    lst = u - (place.longitudeDegrees / 15.0 - place.longitudeMinutes / 900) + t.minute / 60.0 +
          t.second / 3600;
  }
  // Ten days' worth of hours at a time first: the day count makes the value large.
  while (lst >= 240)
    lst -= 240;
  while (lst >= 24)
    lst -= 24;
  while (lst < -24)
    lst += 24;
  if (lst < 0) lst += 24;

  t.localSiderealTime = lst;
  t.lstHours = static_cast<int>(std::floor(lst));
  const double r = (lst - std::floor(lst)) * 60;
  t.lstSeconds = static_cast<int>(std::floor(60 * (r - std::floor(r))));
  t.lstMinutes = static_cast<int>(std::floor(r));
  return true;
}

bool IsDaylightTime(Clock& clock) {
  return clock.Zone().daylight;
}

float CurrentZoneOffset(SharedState& state, Clock& clock) {
  ZoneInfo zone = clock.Zone();
  state.place.zoneBiasHours = zone.standardBiasMinutes / 60.0;
  return static_cast<float>(zone.currentBiasMinutes / 60.0);
}

void UpdateZoneLabel(SharedState& state, Clock& clock) {
  struct Row {
    int hours;
    const char* daylight;
    const char* standard;
  };
  // The -3 row has its columns swapped compared with every other row; it is kept so.
  static constexpr Row kRows[] = {
      {-10, "AED", "AES"}, {-9, "ACD", "ACS"}, {-8, "AWD", "AWS"}, {-3, "MSK", "MSD"},
      {-2, "EES", "EET"},  {-1, "CES", "CET"}, {0, "BST", "GMT"},  {4, "ADT", "AST"},
      {5, "EDT", "EST"},   {6, "CDT", "CST"},  {7, "MDT", "MST"},  {8, "PDT", "PST"},
      {9, "AKD", "AKS"},   {10, "HDT", "HST"},
  };
  const int h = static_cast<int>(std::floor(state.place.zoneBiasHours));
  const bool daylight = IsDaylightTime(clock) && !state.place.useStoredGmtOffset;
  const char* letters = "UNK";
  for (const Row& row : kRows) {
    if (row.hours == h) letters = daylight ? row.daylight : row.standard;
  }
  state.time.zoneLetter1 = std::string(1, letters[0]);
  state.time.zoneLetter2 = std::string(1, letters[1]);
  state.time.zoneLetter3 = std::string(1, letters[2]);
}

}  // namespace astel
