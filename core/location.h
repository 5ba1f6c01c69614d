// The observer's place: the displayed degrees, minutes and signs derived from the radians, and the
// date order that follows from it.
#pragma once

#include "core/shared_state.h"

namespace astel {

inline constexpr double kDegreesPerRadianExact = 57.29577957855229;

// Sets latitudeDegrees, latitudeMinutes, latitudeSign, latitudeSignText and the same for the
// longitude from homeLatitude and homeLongitude. Minutes of 59.95 or more become 0 and the whole
// degrees move one away from zero, so 40.9995 degrees shows as 41 degrees 0 minutes.
void DeriveLocationFields(PlaceState& place);

// Month-day-year dates for North America: whole degrees of latitude >= 32 with longitude > 55
// west, or latitude >= 24 with longitude between 55 and 115 west.
bool ComputeUsDateOrder(const PlaceState& place);

// Sets the place from signed decimal degrees (latitude north, longitude west positive) and derives
// the displayed fields.
void SetHomeLatitude(PlaceState& place, double degrees);
void SetHomeLongitude(PlaceState& place, double degrees);

}  // namespace astel
