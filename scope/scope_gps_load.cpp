#include "scope/scope_gps_load.h"

#include <cmath>
#include <cstdlib>

#include "astro/date_stamp.h"
#include "astro/time_scales.h"
#include "core/text_format.h"
#include "scope/scope_query.h"

namespace astel {

namespace {

// A reply that arrived without its "#" gets this many more short waits for the rest.
constexpr int kRestOfReplyPolls = 20;
constexpr int kRestOfReplyPollMs = 10;

std::string TwoDigitText(int value) {
  return FormatFixed(value, "00");
}

int CenturyOf(std::string_view yearText) {
  return static_cast<int>(LeadingNumber(yearText.substr(0, 2))) * 100;
}

// The query failed: the message for it (none for a cancel), and the port closed.
LoadOutcome Abandon(ScopeContext& context, ExchangeMonitor& monitor, QueryResult result) {
  const int port = context.state.telescope.comPort;
  context.comm.CommClose(port);
  monitor.busy = false;
  if (result == QueryResult::kCancelled) return LoadOutcome::kCancelled;
  if (result == QueryResult::kWriteFailed) {
    context.dialogs.MessageBox(PortMessage(kUnableToWriteCom, port));
  } else {
    context.dialogs.MessageBox(std::string(kInvalidScopeResponse));
  }
  return LoadOutcome::kFailed;
}

// Sends a query until it is answered; an answer without its "#" waits a little for the rest.
QueryResult Ask(ScopeContext& context, ExchangeMonitor& monitor, std::string_view command,
                int replyLength, int maxReplyLength, std::string_view waitingText,
                std::string& reply) {
  const int port = context.state.telescope.comPort;
  RepeatedQuery query = FixedQuery(command, replyLength);
  query.waitingText = std::string(waitingText);
  QueryResult result = RunRepeatedQuery(context, port, monitor, query, reply);
  for (int poll = 0; result == QueryResult::kAnswered && poll < kRestOfReplyPolls &&
                     reply.back() != '#' && static_cast<int>(reply.size()) < maxReplyLength;
       ++poll) {
    context.events.Sleep(kRestOfReplyPollMs);
    std::string more;
    context.comm.CommRead(port, more, 1);
    reply += more;
  }
  return result;
}

struct ScopeReading {
  PlaceFix place;
  std::optional<ScopeClockReading> clock;
};

// NexStar: "w" and "h". nullopt with `failure` set when a query failed.
std::optional<ScopeReading> ReadNexStar(ScopeContext& context, ExchangeMonitor& monitor,
                                        bool wantTime, QueryResult& failure) {
  std::string reply;
  failure = Ask(context, monitor, kNexStarLocationQuery, kNexStarSiteReplyLength,
                kNexStarSiteReplyLength, "Waiting for Scope Location.", reply);
  if (failure != QueryResult::kAnswered) return std::nullopt;
  auto location = DecodeNexStarLocation(reply);
  if (!location) return std::nullopt;
  ScopeReading reading{PlaceOfNexStarLocation(*location), std::nullopt};
  if (!wantTime) return reading;

  failure = Ask(context, monitor, kNexStarTimeQuery, kNexStarSiteReplyLength,
                kNexStarSiteReplyLength, "Waiting for Scope Time.", reply);
  if (failure != QueryResult::kAnswered) return std::nullopt;
  auto time = DecodeNexStarTime(reply);
  if (!time) return std::nullopt;
  reading.clock = ClockOfNexStarTime(*time, context.state.time.yearText);
  return reading;
}

// LX200: site, then offset, date and time.
std::optional<ScopeReading> ReadLx200(ScopeContext& context, ExchangeMonitor& monitor,
                                      bool wantTime, QueryResult& failure) {
  std::string reply;
  auto ask = [&](std::string_view command, std::string_view waiting) {
    failure = Ask(context, monitor, command, kLx200SiteReplyMinLength, kLx200SiteReplyMaxLength,
                  waiting, reply);
    return failure == QueryResult::kAnswered;
  };
  if (!ask(kLx200LatitudeQuery, "Waiting for Scope Latitude.")) return std::nullopt;
  auto latitude = DecodeLx200Angle(reply);
  if (!ask(kLx200LongitudeQuery, "Waiting for Scope Longitude.")) return std::nullopt;
  auto longitude = DecodeLx200Longitude(reply);
  if (!latitude || !longitude || std::abs(*latitude) > 90 * 3600) return std::nullopt;
  ScopeReading reading{PlaceOfLx200Site(*latitude, *longitude), std::nullopt};
  if (!wantTime) return reading;

  if (!ask(kLx200UtcOffsetQuery, "Waiting for Scope Time.")) return std::nullopt;
  auto offset = DecodeLx200UtcOffset(reply);
  if (!ask(kLx200DateQuery, "Waiting for Scope Time.")) return std::nullopt;
  auto date = DecodeLx200Date(reply);
  if (!ask(kLx200TimeQuery, "Waiting for Scope Time.")) return std::nullopt;
  auto time = DecodeLx200Time(reply);
  if (!offset || !date || !time) return std::nullopt;

  const SharedState& state = context.state;
  ScopeClockReading clock;
  clock.year = CenturyOf(state.time.yearText) + date->year2;
  clock.month = date->month;
  clock.day = date->day;
  clock.hour = time->hour;
  clock.minute = time->minute;
  clock.second = time->second;
  // The inverse of the upload's offset rule.
  clock.hoursToUtc = *offset;
  if (IsDaylightTime(context.clock) && !state.telescope.scopeNoDstShift) clock.hoursToUtc -= 1;
  clock.dateIsGreenwich = state.telescope.scopeCode == 401 && state.telescope.scopeHasGps;
  reading.clock = clock;
  return reading;
}

}  // namespace

UtcDateTime UtcOfScopeClock(const ScopeClockReading& reading) {
  std::string stamp = TwoDigitText(reading.hour) + TwoDigitText(reading.minute) +
                      TwoDigitText(reading.second) + TwoDigitText(reading.month) +
                      TwoDigitText(reading.day) + FormatFixed(reading.year, "0000");
  const int totalMinutes = RoundToInt(std::fabs(reading.hoursToUtc) * 60);
  const int hours = totalMinutes / 60;
  const int minutes = totalMinutes % 60;
  std::string shifted = reading.hoursToUtc >= 0 ? AddToStamp(stamp, hours, minutes, 0)
                                                : SubtractFromStamp(stamp, hours, minutes, 0);
  auto field = [](const std::string& s, std::size_t pos, std::size_t len) {
    return static_cast<int>(LeadingNumber(std::string_view(s).substr(pos, len)));
  };
  const std::string& dateSource = reading.dateIsGreenwich ? stamp : shifted;
  UtcDateTime utc;
  utc.hour = field(shifted, 0, 2);
  utc.minute = field(shifted, 2, 2);
  utc.second = field(shifted, 4, 2);
  utc.month = field(dateSource, 6, 2);
  utc.day = field(dateSource, 8, 2);
  utc.year = field(dateSource, 10, 4);
  return utc;
}

PlaceFix PlaceOfNexStarLocation(const NexStarLocation& location) {
  PlaceFix place;
  place.latitudeDegrees = location.latitudeDegrees;
  place.latitudeMinutes = location.latitudeMinutes + location.latitudeSeconds / 60.0;
  place.south = location.south;
  place.latitudeDegreesZero = location.latitudeDegrees == 0;
  place.longitudeDegrees = location.longitudeDegrees;
  place.longitudeMinutes = location.longitudeMinutes + location.longitudeSeconds / 60.0;
  place.east = location.east;
  place.longitudeDegreesZero = location.longitudeDegrees == 0;
  return place;
}

ScopeClockReading ClockOfNexStarTime(const NexStarTime& time, std::string_view yearText) {
  ScopeClockReading clock;
  clock.year = CenturyOf(yearText) + time.year2;
  clock.month = time.month;
  clock.day = time.day;
  clock.hour = time.hour;
  clock.minute = time.minute;
  clock.second = time.second;
  // The zone counts hours east, and daylight time is one more hour ahead of Greenwich.
  clock.hoursToUtc = -(time.zoneHoursEast + (time.daylight ? 1 : 0));
  return clock;
}

PlaceFix PlaceOfLx200Site(int latitudeArcsec, int longitudeWestArcsec) {
  PlaceFix place;
  const int lat = std::abs(latitudeArcsec);
  place.latitudeDegrees = lat / 3600;
  place.latitudeMinutes = (lat % 3600) / 60.0;
  place.south = latitudeArcsec < 0;
  place.latitudeDegreesZero = place.latitudeDegrees == 0;
  const int lon = std::abs(longitudeWestArcsec);
  place.longitudeDegrees = lon / 3600;
  place.longitudeMinutes = (lon % 3600) / 60.0;
  place.east = longitudeWestArcsec < 0;
  place.longitudeDegreesZero = place.longitudeDegrees == 0;
  return place;
}

LoadOutcome ScopeGpsLoad(ScopeContext& context, ExchangeMonitor& monitor) {
  SharedState& state = context.state;
  Dialogs& dialogs = context.dialogs;
  const int port = state.telescope.comPort;
  const int type = state.telescope.scopeType;

  if (!state.time.realTimeMode) {
    dialogs.MessageBox("Must be in Real-Time Mode for Scope Load");
    return LoadOutcome::kNotStarted;
  }
  if (type != 1 && type != 4) {
    dialogs.MessageBox("Function not Available");
    return LoadOutcome::kNotStarted;
  }

  monitor.busy = true;
  monitor.cancelRequested = false;
  if (!OpenScopePort(context.comm, dialogs, port, kModeTelescope, true)) {
    monitor.busy = false;
    return LoadOutcome::kFailed;
  }
  context.comm.CommFlush(port);
  monitor.ShowStatus(std::string(kNoScopeResponseYet));

  const bool wantTime = !state.telescope.gpsLocationOnly;
  QueryResult failure = QueryResult::kAnswered;
  auto reading = type == 1 ? ReadNexStar(context, monitor, wantTime, failure)
                           : ReadLx200(context, monitor, wantTime, failure);
  if (!reading) return Abandon(context, monitor, failure);
  context.comm.CommFlush(port);
  context.comm.CommClose(port);
  monitor.busy = false;

  if (reading->clock) {
    if (!context.clock.SetSystemTime(UtcOfScopeClock(*reading->clock))) {
      ReportClockRefused(dialogs, context.comm.Diagnostics());
    }
  }
  ApplyPlaceFix(state, reading->place);
  ReportPlaceLoaded(state, context.clock, dialogs, "Successful Scope Reading.",
                    reading->clock.has_value());
  return LoadOutcome::kLoaded;
}

}  // namespace astel
