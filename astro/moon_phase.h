// The Moon's elongation from the Sun, evening or morning side, and its eight-character phase name.
#pragma once

#include "core/shared_state.h"

namespace astel {

// Reads moonLongitude and sunLongitude (ecliptic, degrees); writes moonPhaseName, elongationText,
// elongationDegreesText and elongationLabel.
void UpdateMoonPhase(ObjectState& object);

}  // namespace astel
