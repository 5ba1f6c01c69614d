// Transient catalogs: hourly positions of one comet or asteroid. The header has "T" in column 88
// and in columns 9-12 the year of its last position; every position record has "T" in column 88.
//
// Which record serves a time: columns 79-87 of each record hold the GMT date and hour of its
// position as "YYMMDD hh" (two-digit year for 2000-2099, month, day, a blank, the hour 00-23;
// for example "261122 14" is 2026 November 22, 14h GMT). The record whose hour contains the GMT
// moment of the program's date and time serves it, that is the latest record whose time is at or
// before that moment and less than one hour before it; when the record of the following hour
// exists, the position is interpolated linearly between the two, so the object moves smoothly
// between the hourly records. Records may stand in any order. When no record serves the time, the
// program says so, and adds that the catalog is obsolete once the current year is later than the
// header's year.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

inline constexpr const char* kTransientCaption =
    "This catalog contains the positions of a single object (comet or asteroid) at various times.";
inline constexpr const char* kTransientNotSearchable =
    "This Transient Catalog contains the positions of a single object (comet or asteroid) at "
    "various times. It cannot be searched.";

// "YYMMDD hh" for a GMT date and hour.
std::string TransientTimeText(int year, int month, int day, int hour);

// The Julian date (GMT) of a record's columns 79-87; nullopt when they hold no valid time.
std::optional<double> TransientRecordTime(std::string_view record);

// The Julian date of a Gregorian GMT date and time.
double JulianDateOf(int year, int month, int day, double hours);

// The GMT moment of the program's date and time as a true Julian date (the program's own
// julianDate counts the seconds in hours; that is undone here so records change on the hour).
double GmtJulianDate(const TimeState& time);

// "The Transient Catalog " + name + " contains no positions ..." and, when the current year is
// later than the header's year, the obsolete line.
std::string TransientOutOfDateMessage(const std::string& fileName, int headerYear, int currentYear);

enum class TransientResult {
  kNotTransient,  // the current catalog is an ordinary one: nothing done
  kLoaded,        // the position for the time set is the shown object
  kNoPosition,    // no record serves the time (the message was shown once)
};

// The main window's load handler calls this on every tick, and the date and time entry after
// every change: for a transient catalog the shown object becomes the position for the time in
// state (found state 1). When no record serves the time, the out-of-date message is shown once
// until a position is served again or another catalog is opened, and no object is shown.
TransientResult ReloadTransientPosition(SharedState& state, Dialogs& dialogs);

}  // namespace astel
