// The observer's civil date and time turned into GMT, the Julian date and the local sidereal time,
// and the computer clock and time zone read through the Clock port.
#pragma once

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

// Fills daysBeforeMonth and daysInMonth (February held as 29; the leap test is separate).
void FillDateTables(TimeState& time);

// Real-time mode only: copies the clock's local date and time into the date and time fields, and
// clears riseSetCurrent when the seconds are 0 so that rise and set are recomputed once a minute.
void ReadClock(SharedState& state, Clock& clock);

// GMT hour and day sign, Julian date and local sidereal time from the date, time, gmtOffset and
// longitude. Returns false, writing nothing past gmtTimeText, when the month is outside 1..12.
bool UpdateTimeScales(SharedState& state);

// True when the computer's zone is on daylight time now.
bool IsDaylightTime(Clock& clock);

// The offset of the computer's clock from GMT in hours (positive west, daylight time included);
// also stores the standard offset in zoneBiasHours.
float CurrentZoneOffset(SharedState& state, Clock& clock);

// The three letters of the zone label from the whole hours of zoneBiasHours and daylight time.
void UpdateZoneLabel(SharedState& state, Clock& clock);

}  // namespace astel
