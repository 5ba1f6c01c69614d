// The shown object's equatorial position placed in altitude and azimuth for the observer, with
// refraction, and carried between epochs by annual precession. The truncated constants are the
// program's own and are kept as they are.
#pragma once

#include "core/shared_state.h"

namespace astel {

inline constexpr double kPi = 3.14159265;
inline constexpr double kTwoPi = 6.2831853;
inline constexpr double kDegreesPerRadian = 57.29577957855229;

// Declination of the shown object in degrees, the sign of -0 degrees taken from objDecSign.
double ObjectDeclinationDegrees(const ObjectState& object);

// Altitude (refraction included) and azimuth of the shown object for homeLatitude and
// localSiderealTime; UpdateTimeScales must have run for the moment.
void ComputeAltAz(SharedState& state);

// Refraction in arc-minutes for the true altitude in `altitude`; none below -0.57333 degrees.
void ComputeRefraction(ObjectState& object);

// Carries the shown position from sourceEpoch to targetEpoch (years).
void PrecessToDate(ObjectState& object);

// Splits a right ascension in hours and a declination in degrees into the shown-object fields.
void SetObjectPosition(ObjectState& object, double raHours, double decDegrees);

// The inverse of ComputeAltAz: the right ascension (hours) and declination (degrees) of the point
// seen at the apparent altitude and azimuth (degrees) now, refraction removed.
struct Equatorial {
  double raHours = 0;
  double decDegrees = 0;
};
Equatorial AltAzToEquatorial(const SharedState& state, double altitudeDeg, double azimuthDeg);

}  // namespace astel
