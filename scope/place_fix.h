// Setting the observer's place from a reading of a GPS receiver or of a telescope's GPS.
#pragma once

#include <string_view>

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

// A place as a device reports it: unsigned whole degrees and minutes and the hemisphere.
struct PlaceFix {
  int latitudeDegrees = 0;
  double latitudeMinutes = 0;
  bool south = false;
  bool latitudeDegreesZero = false;  // the degree field reads all zeros
  int longitudeDegrees = 0;
  double longitudeMinutes = 0;
  bool east = false;
  bool longitudeDegreesZero = false;
};

// Writes the place into the shared state: signed degrees (south and east negative, longitudes
// being positive west), unsigned minutes, the sign for a zero degree (set to -1 only when the
// degree field is zero; otherwise a southern or eastern reading keeps the sign it had), the sign
// texts and the radians; minutes above 59.9999 are clamped after the radians are computed.
// Marks the location as set, the configuration as changed and rise and set as out of date.
void ApplyPlaceFix(SharedState& state, const PlaceFix& fix);

// The end of a successful place load: when the clock was set, the date and time are read again;
// then `what` + " Location and Time have been set." or `what` + " Location has been set".
void ReportPlaceLoaded(SharedState& state, Clock& clock, Dialogs& dialogs, std::string_view what,
                       bool timeSet);

}  // namespace astel
