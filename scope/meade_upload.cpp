#include "scope/meade_upload.h"

#include <cmath>
#include <cstdlib>
#include <functional>

#include "astro/date_stamp.h"
#include "astro/time_scales.h"
#include "core/text_format.h"
#include "scope/scope_query.h"

namespace astel {

namespace {

constexpr int kPauseBeforeCommandMs = 5;
constexpr int kPauseBeforeReplyMs = 100;
constexpr int kPauseAfterDateMs = 500;  // the telescope recomputes planets and says so at length

std::string TwoDigits(std::string_view text) {
  return FormatFixed(LeadingNumber(text), "00");
}

struct UploadStep {
  std::string_view waitingText;
  std::string_view errorText;
  int length;
  bool writeFailureNeedsUserStart;  // a failed write is reported only for a user's upload
  std::function<std::string()> build;
};

enum class StepResult { kAccepted, kRejected, kWriteFailed, kCancelled };

// Sends one step until the telescope answers, and judges the answer.
StepResult RunStep(ScopeContext& context, ExchangeMonitor& monitor, const UploadStep& step,
                   bool startedFromUpload, std::string& reply) {
  const int port = context.state.telescope.comPort;
  RepeatedQuery query;
  query.command = [&] { return CommaToPoint(step.build()); };
  query.writeCount = step.length;
  query.pauseBeforeMs = kPauseBeforeCommandMs;
  query.pauseAfterMs = kPauseBeforeReplyMs;
  query.replyLength = 1;
  query.waitingText = std::string(step.waitingText);
  switch (RunRepeatedQuery(context, port, monitor, query, reply)) {
    case QueryResult::kCancelled:
      return StepResult::kCancelled;
    case QueryResult::kWriteFailed:
      if (!step.writeFailureNeedsUserStart || startedFromUpload) {
        context.dialogs.MessageBox(PortMessage(kUnableToWriteCom, port));
      }
      return StepResult::kWriteFailed;
    case QueryResult::kAnswered:
      return reply[0] == '1' ? StepResult::kAccepted : StepResult::kRejected;
  }
  return StepResult::kWriteFailed;
}

}  // namespace

std::string EncodeMeadeLongitude(const PlaceState& place) {
  double degrees = place.longitudeDegrees;
  double minutes = place.longitudeMinutes;
  if (!(place.longitudeDegrees >= 0 && place.longitudeSign > 0)) {
    // East of Greenwich: the telescope counts westward all round the circle.
    double west = 360 - (std::abs(place.longitudeDegrees) + place.longitudeMinutes / 60);
    degrees = std::trunc(west);
    minutes = (west - degrees) * 60;
  }
  return "#:Sg " + FormatFixed(degrees, "000") + "*" + FormatFixed(minutes, "00") + "#";
}

std::string EncodeMeadeLatitude(const PlaceState& place) {
  bool south = place.latitudeDegrees < 0 || place.latitudeSign < 0;
  return std::string("#:St ") + (south ? "-" : "+") +
         FormatFixed(std::abs(place.latitudeDegrees), "00") + "*" +
         FormatFixed(place.latitudeMinutes, "00") + "#";
}

std::string EncodeMeadeOffset(double offsetHours, bool wholeHours) {
  return std::string("#:SG") + (offsetHours >= 0 ? "+" : "-") +
         FormatFixed(std::fabs(offsetHours), wholeHours ? "00" : "00.0") + "#";
}

std::string EncodeMeadeDate(std::string_view month, std::string_view day, std::string_view year2) {
  return "#:SC " + std::string(month) + "/" + std::string(day) + "/" + std::string(year2) + "#";
}

std::string EncodeMeadeTime(const TimeState& time) {
  return "#:SL " + TwoDigits(time.hourText) + ":" + TwoDigits(time.minuteText) + ":" +
         TwoDigits(time.secondText) + "#";
}

double UploadOffsetHours(const SharedState& state, Clock& clock) {
  double offset = state.place.gmtOffset;
  if (IsDaylightTime(clock) && !state.telescope.scopeNoDstShift) offset += 1;
  return offset;
}

MeadeDate UploadDate(const SharedState& state) {
  const TimeState& t = state.time;
  MeadeDate date{TwoDigits(t.monthText), TwoDigits(t.dayText),
                 t.yearText.size() >= 4 ? t.yearText.substr(2, 2) : t.yearText};
  const bool greenwichDate = state.telescope.scopeCode == 401 && state.telescope.scopeHasGps;
  if (!greenwichDate || (t.gmtDaySign != "+" && t.gmtDaySign != "-")) return date;
  std::string stamp = TwoDigits(t.hourText) + TwoDigits(t.minuteText) + TwoDigits(t.secondText) +
                      date.month + date.day + FormatFixed(LeadingNumber(t.yearText), "0000");
  stamp = t.gmtDaySign == "+" ? AddToStamp(stamp, 24, 0, 0) : SubtractFromStamp(stamp, 24, 0, 0);
  return {stamp.substr(6, 2), stamp.substr(8, 2), stamp.substr(12, 2)};
}

bool UploadMeade(ScopeContext& context, ExchangeMonitor& monitor, bool startedFromUpload) {
  SharedState& state = context.state;
  Dialogs& dialogs = context.dialogs;
  const int port = state.telescope.comPort;

  if (!state.time.realTimeMode) {
    dialogs.MessageBox("Must be in Real-Time Mode to Upload Data");
    return false;
  }
  // From 23:59:56 on, the date could be sent before midnight and the time after it.
  if (LeadingNumber(state.time.hourText) == 23 && LeadingNumber(state.time.minuteText) == 59 &&
      LeadingNumber(state.time.secondText) > 55) {
    dialogs.MessageBox("Date rollover, possible inconsistency. Try Again");
    return false;
  }
  const double offset = UploadOffsetHours(state, context.clock);

  if (!OpenScopePort(context.comm, dialogs, port, kModeTelescope, true)) return false;
  context.comm.CommFlush(port);
  monitor.ShowStatus(std::string(kNoScopeResponseYet) + std::string(kLineBreak));

  const UploadStep longitude{"Waiting for Scope Response to Longitude.",
                             "Invalid Scope Response to Set Longitude=", 12, true,
                             [&] { return EncodeMeadeLongitude(state.place); }};
  const UploadStep latitude{"Waiting for Scope Response to Latitude.",
                            "Invalid Scope Response to Set Latitude= ", 12, true,
                            [&] { return EncodeMeadeLatitude(state.place); }};
  const UploadStep decimalOffset{"Waiting for Scope Response to GMT Offset.",
                                 "Invalid Scope Response to Set GMT Offset= ", 10, false,
                                 [&] { return EncodeMeadeOffset(offset, false); }};
  const UploadStep wholeOffset{"Waiting for Scope Response to GMT Offset.",
                               "Invalid Scope Response to Set GMT Offset= ", 8, false,
                               [&] { return EncodeMeadeOffset(offset, true); }};
  const UploadStep date{"Waiting for Scope Response to Date Upload",
                        "Invalid Scope Response to Date Upload= ", 14, false, [&] {
                          MeadeDate d = UploadDate(state);
                          return EncodeMeadeDate(d.month, d.day, d.year2);
                        }};
  const UploadStep time{"Waiting for Scope Response to Time Upload.",
                        "Invalid Scope Response to Time Upload= ", 14, false,
                        [&] { return EncodeMeadeTime(state.time); }};

  const UploadStep* steps[] = {&longitude, &latitude, &decimalOffset, &date, &time};
  for (const UploadStep* step : steps) {
    std::string reply;
    StepResult result = RunStep(context, monitor, *step, startedFromUpload, reply);
    if (result == StepResult::kRejected && step == &decimalOffset) {
      // Some firmware takes whole hours only; one more try in that form.
      step = &wholeOffset;
      result = RunStep(context, monitor, *step, startedFromUpload, reply);
    }
    if (result == StepResult::kRejected) {
      dialogs.MessageBox(std::string(step->errorText) + reply);
    }
    if (result != StepResult::kAccepted) {
      context.comm.CommClose(port);
      return false;
    }
    if (step == &date) {
      context.events.Sleep(kPauseAfterDateMs);
      context.comm.CommFlush(port);
    }
  }
  context.comm.CommFlush(port);
  context.comm.CommClose(port);
  return true;
}

}  // namespace astel
