#include "session/date_time_entry.h"

#include <cmath>

#include "astro/coordinates.h"
#include "astro/solar_system.h"
#include "astro/time_scales.h"
#include "catalog/search.h"
#include "catalog/transient_catalog.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr int kFirstYear = 1980, kLastYear = 2199;
constexpr int kNoLeapCentury = 2100;  // the one century year in range that is not a leap year
// Seeds the loops so that the question is always asked at least once.
constexpr const char* kAlwaysAsk = "99";

// The time changed: a transient catalog's object moves to the position of the new hour. A Sun,
// Moon or planet chosen from the list stays the shown object (the tick recomputes it).
void ReloadTransientObject(SharedState& s, Dialogs& dialogs) {
  if (s.object.objectKind < 0) ReloadTransientPosition(s, dialogs);
}

// The date changed: a transient catalog serves its position for the new moment, a catalog object
// is carried to the new date, and a Sun, Moon or planet is computed afresh.
void RecomputeForNewDate(SharedState& s, Dialogs& dialogs) {
  UpdateTimeScales(s);
  if (s.object.objectKind >= 0) {
    SelectBody(s, s.object.objectKind);
    return;
  }
  ReloadTransientObject(s, dialogs);
  if (HasShownObject(s)) {
    s.object.targetEpoch = s.time.roundedYear;
    PrecessToDate(s.object);
    s.object.sourceEpoch = s.object.targetEpoch;
  }
}

// What both chains do once the moment is set: the open search starts again from the first
// record at the next Next Match, the matches file no longer fits the moment, the captions follow
// and the main timer runs again.
void FinishMomentChange(SharedState& s, MainWindowLogic& window) {
  CloseSearch(s.search);
  ResetMatchSaving(s);
  UpdateTimeScales(s);
  window.Load();
  s.form.timer1Enabled = true;
}

}  // namespace

std::string JulianDateTitle(const TimeState& time) {
  return "JulianDate = " + FormatFixed(time.julianDate, "0000000.00000");
}

void DateButtonClick(SharedState& s, Dialogs& dialogs, MainWindowLogic& window) {
  s.form.timer1Enabled = false;
  TimeState& t = s.time;
  const std::string monthPrompt =
      "Input Month, 1-12, press OK to Keep Current Value, press 'CANCEL' to use System Time";
  const std::string title = JulianDateTitle(t);
  std::string answer = dialogs.InputBox(monthPrompt, title, t.monthText);
  if (answer.empty()) {
    window.BackToRealTime();
    RecomputeForNewDate(s, dialogs);
    FinishMomentChange(s, window);
    return;
  }
  t.realTimeMode = false;
  t.riseSetCurrent = false;
  while (LeadingNumber(answer) < 1 || LeadingNumber(answer) > 12) {
    answer = dialogs.InputBox(monthPrompt, title, t.monthText);
  }
  t.monthText = answer;
  t.month = RoundToInt(LeadingNumber(answer));

  answer = kAlwaysAsk;
  while (LeadingNumber(answer) < 1 || LeadingNumber(answer) > t.daysInMonth[t.month] ||
         answer.empty()) {
    answer = dialogs.InputBox("Input date", "Set Day of Month", t.dayText);
  }
  t.dayText = answer;
  t.day = RoundToInt(LeadingNumber(answer));

  const bool leapRequired = t.day == 29 && t.month == 2;
  std::string yearPrompt = "Input year, 1980-2199";
  answer = kAlwaysAsk;
  for (;;) {
    const double value = LeadingNumber(answer);
    if (value >= kFirstYear && value <= kLastYear && !answer.empty()) break;
    answer = dialogs.InputBox(yearPrompt, "Set The Year", t.yearText);
    const double asked = LeadingNumber(answer);
    if (leapRequired && std::fmod(asked, 4) != 0) {
      yearPrompt = "Must be valid leap year, 1980-2199";
      answer = kAlwaysAsk;
    } else if (leapRequired && asked == kNoLeapCentury) {
      yearPrompt = "Must be valid leap year, 1980-2199, not 2100";
      answer = kAlwaysAsk;
    }
  }
  t.yearText = answer;
  t.year = RoundToInt(LeadingNumber(answer));

  RecomputeForNewDate(s, dialogs);
  FinishMomentChange(s, window);
}

void TimeButtonClick(SharedState& s, Dialogs& dialogs, MainWindowLogic& window) {
  s.form.timer1Enabled = false;
  TimeState& t = s.time;
  std::string answer = dialogs.InputBox("Input Hour, 0-23 (OR press 'CANCEL' to use System Time)",
                                        JulianDateTitle(t), t.hourText);
  if (answer.empty()) {
    window.BackToRealTime();
    ReloadTransientObject(s, dialogs);
    FinishMomentChange(s, window);
    return;
  }
  t.realTimeMode = false;
  t.riseSetCurrent = false;
  while (LeadingNumber(answer) < 0 || LeadingNumber(answer) > 23) {
    answer = dialogs.InputBox("Input Hour, 0-23 (OR press 'CANCEL' to use System Time)",
                              "Input Hour", t.hourText);
  }
  t.hourText = answer;
  t.hour = RoundToInt(LeadingNumber(answer));

  // Only the value is tested here, so Cancel (value 0) is accepted with an empty text.
  answer = kAlwaysAsk;
  while (LeadingNumber(answer) < 0 || LeadingNumber(answer) > 59) {
    answer = dialogs.InputBox("Input minutes, 0-59", "Input Minutes", t.minuteText);
  }
  t.minuteText = answer;
  t.minute = RoundToInt(LeadingNumber(answer));

  answer = kAlwaysAsk;
  while (LeadingNumber(answer) < 0 || LeadingNumber(answer) > 59) {
    answer = dialogs.InputBox("Input seconds, 0-59", "Input Seconds", t.secondText);
  }
  t.secondText = answer;
  t.second = LeadingNumber(answer);

  UpdateTimeScales(s);
  ReloadTransientObject(s, dialogs);
  FinishMomentChange(s, window);
}

}  // namespace astel
