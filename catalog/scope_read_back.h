// The telescope read-back that the object entry's third option uses. The telescope code
// implements it (CelestronLoad or MeadeLoad by telescope family); tests use a double.
#pragma once

#include "core/shared_state.h"

namespace astel {

class ScopeReadBack {
 public:
  virtual ~ScopeReadBack() = default;
  // Reads where the telescope points into objRaHours, objRaMinutes, objDecDegrees, objDecMinutes
  // and objDecSign (a position of date). True only when a position was stored; on false the
  // telescope code has already told the user why.
  virtual bool ReadPosition(SharedState& state) = 0;
};

}  // namespace astel
