// Loading place and time from the telescope itself (the FileSelect window's ScopeGPS button):
// a Celestron NexStar with GPS (type 1) or an LX200-protocol telescope (type 4) is asked for its
// site and, unless only the location is wanted, its clock; the place is set like a GPS receiver
// reading sets it and the computer clock is set to the telescope's UTC time.
//
// Commands used (each sent again until the telescope answers, like every query of the program):
//   NexStar: "w" site, "h" clock (see nexstar_protocol.h).
//   LX200:   "#:Gt#" latitude, "#:Gg#" longitude, then "#:GG#" UTC offset, "#:GC#" date,
//            "#:GL#" local time (see lx200_protocol.h).
// The telescope's UTC is its local time plus its offset; for the LX200 the offset is read back
// the way the upload sends it (one hour more while the computer keeps daylight time, unless the
// model keeps its own shift), and model 401 with a GPS keeps the Greenwich date with the local
// time, so that an upload read back gives the same moment.
#pragma once

#include "scope/exchange_monitor.h"
#include "scope/gps_load.h"
#include "scope/lx200_protocol.h"
#include "scope/nexstar_protocol.h"
#include "scope/scope_link.h"

namespace astel {

// A clock reading of the telescope: its local date and time and the hours to add for UTC.
struct ScopeClockReading {
  int year = 2000, month = 1, day = 1, hour = 0, minute = 0, second = 0;
  double hoursToUtc = 0;
  bool dateIsGreenwich = false;  // the date is already Greenwich's, only the time is local
};

UtcDateTime UtcOfScopeClock(const ScopeClockReading& reading);

// The place and clock of the two protocol families' replies. The year's century comes from
// `yearText`, as for a GPS receiver.
PlaceFix PlaceOfNexStarLocation(const NexStarLocation& location);
ScopeClockReading ClockOfNexStarTime(const NexStarTime& time, std::string_view yearText);
PlaceFix PlaceOfLx200Site(int latitudeArcsec, int longitudeWestArcsec);

LoadOutcome ScopeGpsLoad(ScopeContext& context, ExchangeMonitor& monitor);

}  // namespace astel
