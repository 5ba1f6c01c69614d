// Objects that are not in the catalog: the DataEntry window's OK (by coordinates, by altitude and
// azimuth seen now, or from the telescope), the main window's AddObject, and the checks of a
// location typed into the same window.
#pragma once

#include <string>

#include "catalog/scope_read_back.h"
#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

enum class EntryOption { kNone, kCoordinates, kAltAz, kTelescope };  // Option1..Option3

// What the DataEntry window holds when OK is clicked.
struct DataEntryForm {
  EntryOption option = EntryOption::kNone;
  std::string name1;  // Text1
  std::string name2;  // Text2
};

// OK on DataEntry: checks the form, asks the position (Option1: right ascension, declination
// and epoch, precessed to the date; Option2: altitude and azimuth turned into the position of
// date; Option3: the telescope), then the third to fifth names and the magnitude, and makes the
// object the shown one (found state 1). Each number prompt repeats until the answer is valid; an
// empty answer (Cancel) to a position prompt abandons the entry and leaves the shown object as it
// was. True when the object is shown and the window may close.
bool DataEntryOk(SharedState& state, Dialogs& dialogs, ScopeReadBack& scope,
                 const DataEntryForm& form);

// AddObject: asks "Do you want to add the object ..." and appends the shown object to the current
// catalog as one record (one write of the whole line, in the file's own line ending). True when
// the record was written.
bool AddObject(SharedState& state, Dialogs& dialogs);

// Appends one record line to a catalog file in a single write, with the file's line ending (CRLF
// unless the file uses LF), after a line end when the file does not end in one.
bool AppendCatalogLine(const std::string& path, const std::string& record);

// A location typed into DataEntry.
struct LocationEntry {
  std::string latitudeDegrees, latitudeMinutes;
  bool north = false, south = false;
  std::string longitudeDegrees, longitudeMinutes;
  bool east = false, west = false;
};

// "" when the location is acceptable, otherwise the message for the first fault found.
std::string CheckLocationEntry(const LocationEntry& entry);

}  // namespace astel
