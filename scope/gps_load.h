// Loading place and time from a hand-held GPS receiver on the telescope's port (the FileSelect
// window's GPSload button). The window shows `monitor.status` in its GPSstatus label, keeps its
// GPSload, ScopeGPS and Command1 buttons disabled while `monitor.busy`, and sets
// `monitor.cancelRequested` when it is closed: that is the only way out of a receiver that never
// sends a valid fix.
#pragma once

#include "scope/exchange_monitor.h"
#include "scope/nmea.h"
#include "scope/scope_link.h"

namespace astel {

// How a load from a GPS receiver or a telescope ended, and so what the window does next.
enum class LoadOutcome {
  kNotStarted,  // refused or the user said Cancel: the window stays open
  kLoaded,      // place (and time) set, message shown: the window closes; the caller also resets
                // the main window's match saving
  kFailed,      // message shown: the window closes
  kCancelled,   // the window was closed during the reading: nothing shown, nothing changed
};

// Applies a valid fix: unless `gpsLocationOnly`, the clock is re-read, the time scales updated and
// the computer clock set to the fix's UTC time (a refusal shows its message and the reading still
// counts); then the place.
void ApplyGpsFix(ScopeContext& context, const GpsFix& fix);

LoadOutcome GpsLoad(ScopeContext& context, ExchangeMonitor& monitor);

}  // namespace astel
