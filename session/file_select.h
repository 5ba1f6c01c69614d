// The FileSelect window's state that follows from the telescope: the ScopeGPS button and the
// "Load Time From GPS or Scope" check box.
#pragma once

#include <string>

#include "core/shared_state.h"

namespace astel {

struct ScopeGpsButton {
  std::string caption = "Load Position from Telescope";
  std::string toolTip = "Begin the process of loading data from a Celestron GPS telescope";
  bool enabled = false;
};

// Disabled unless the telescope can give its place: a Celestron family 1 telescope with a GPS,
// or a Meade (family 4) telescope.
ScopeGpsButton ScopeGpsButtonState(const TelescopeState& telescope);

// Check1 as the window opens: checked unless the GPS is to set the location only.
inline bool LoadTimeChecked(const TelescopeState& telescope) {
  return !telescope.gpsLocationOnly;
}

// Check1 clicked.
void SetLoadTime(SharedState& state, bool checked);

}  // namespace astel
