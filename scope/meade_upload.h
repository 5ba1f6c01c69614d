// UploadMeade: sends the home location, the time-zone offset, the date and the time to an LX200
// protocol telescope, one command after another, each repeated until the telescope answers.
#pragma once

#include <string>
#include <string_view>

#include "core/shared_state.h"
#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"

namespace astel {

// Longitude, positive west, as the LX200 wants it (0 to 360 degrees westward):
//   "#:Sg DDD*MM#"  e.g. #:Sg 359*30# for 0 deg 30 min east (12 characters); answer "1" or "0"
std::string EncodeMeadeLongitude(const PlaceState& place);
// Latitude: "#:St sDD*MM#"  e.g. #:St +48*07# (12 characters); answer "1" or "0"
std::string EncodeMeadeLatitude(const PlaceState& place);
// Hours to add to local time for UTC: "#:SGsHH.H#" e.g. #:SG+05.0# (10 characters), or in the
// whole-hour form that some firmware insists on "#:SGsHH#" e.g. #:SG+05# (8); answer "1" or "0"
std::string EncodeMeadeOffset(double offsetHours, bool wholeHours);
// Date: "#:SC MM/DD/YY#"  e.g. #:SC 03/23/05# (14 characters); answer "1" followed by
// "Updating Planetary Data#" and a line of blanks and "#", or "0"
std::string EncodeMeadeDate(std::string_view month, std::string_view day, std::string_view year2);
// Local time: "#:SL hh:mm:ss#"  e.g. #:SL 21:05:09# (14 characters); answer "1" or "0"
std::string EncodeMeadeTime(const TimeState& time);

// The offset sent: gmtOffset, plus one hour while the computer keeps daylight time, unless the
// model keeps its own daylight shift (scopeNoDstShift).
double UploadOffsetHours(const SharedState& state, Clock& clock);

// The date sent as MM, DD and YY. Model 401 with a GPS wants the Greenwich date (with the local
// time); every other model the local date.
struct MeadeDate {
  std::string month, day, year2;
};
MeadeDate UploadDate(const SharedState& state);

// True after the telescope accepted the time. `startedFromUpload`: the user started it with the
// Upload button; only then are write failures of the longitude and latitude steps reported.
bool UploadMeade(ScopeContext& context, ExchangeMonitor& monitor, bool startedFromUpload);

}  // namespace astel
