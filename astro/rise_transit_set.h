// Rise, transit and set of the shown object in local clock time, from the closed hour-angle
// formula: one evaluation per object and minute, no search.
#pragma once

#include "core/shared_state.h"

namespace astel {

// Writes the three lines (labels and texts) and sets riseSetCurrent. UpdateTimeScales and
// ComputeAltAz must have run for the same moment.
void UpdateRiseTransitSet(SharedState& state);

// The three lines on their own; p is the co-declination and c the co-latitude, in radians.
void ComputeRise(SharedState& state, double p, double c);
void ComputeTransit(SharedState& state);
void ComputeSet(SharedState& state, double p, double c);

}  // namespace astel
