// The observer's place and time zone typed by hand: the main window's Latitude and Longitude
// buttons open the DataEntry window in its location mode (both coordinates on one form, each with
// whole degrees, minutes and a hemisphere), and a click on the gmt label asks for the time zone.
#pragma once

#include <string>

#include "catalog/object_entry.h"
#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

// The location mode of DataEntry holds a LocationEntry (catalog/object_entry.h), whose checks
// (CheckLocationEntry) are the window's own.

// The form filled from the current place: unsigned whole degrees, minutes with three decimals,
// and the hemispheres (a latitude of -0 degrees 30 minutes is South).
LocationEntry LocationEntryFromState(const PlaceState& place);

// OK in the location mode: the first fault CheckLocationEntry finds is shown and false returned
// (the window stays open); otherwise the place is set (radians, derived degrees and signs, date
// order), the time scales follow, rise and set are recomputed, configChanged is set, and true is
// returned.
bool ApplyLocationEntry(SharedState& state, Dialogs& dialogs, const LocationEntry& entry);

// A click on the gmt label: the hours added to local time to give GMT, or "PC" to follow the
// computer's time zone. Cancel changes nothing; a bad answer is explained and asked again.
void TimeZoneClick(SharedState& state, Dialogs& dialogs, Clock& clock);

inline constexpr const char* kTimeZonePrompt =
    "Hours to add to your local time to get GMT (-14 to 12, decimals OK; positive west "
    "of Greenwich, e.g. 5 for New York, -1 for Paris). Enter PC to follow the computer's time "
    "zone, daylight time included.";
inline constexpr const char* kTimeZoneTitle = "Time Zone";
inline constexpr const char* kTimeZoneRangeMessage =
    "The time zone must be a number of hours between -14 and 12, decimals OK, or PC";
inline constexpr const char* kFollowComputerZone = "PC";

}  // namespace astel
