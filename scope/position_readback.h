// Reading the telescope's pointing position into the selected object (the object-entry dialog's
// "load from the telescope" choice). The dialog shows `monitor.status` in its Label3 and sets
// `monitor.cancelRequested` when it is closed: each query is repeated until the telescope
// answers, so closing the dialog is the way out of a silent telescope.
//
// On success the position is stored in objRaHours, objRaMinutes, objDecDegrees, objDecMinutes
// and objDecSign and telescope.positionFromScope is set; on any failure nothing changes.
#pragma once

#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"

namespace astel {

// Celestron NexStar (type 1): alignment ("J"), then position ("E"). `startedByUser`: the user
// asked for this load (the dialog always does), so a failed write is reported rather than ending
// the load silently.
bool CelestronLoad(ScopeContext& context, ExchangeMonitor& monitor, bool startedByUser);

// LX200 (type 4): "#:GR#" then "#:GD#".
bool MeadeLoad(ScopeContext& context, ExchangeMonitor& monitor);

}  // namespace astel
