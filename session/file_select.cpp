#include "session/file_select.h"

namespace astel {

ScopeGpsButton ScopeGpsButtonState(const TelescopeState& t) {
  ScopeGpsButton b;
  if (t.scopeType == 1) {
    b.caption = "Load from Celestron GPS Scope";
    b.enabled = t.scopeHasGps;
  } else if (t.scopeType == 4) {
    b.caption = "Load Position from Meade Scope";
    b.toolTip = "Begin the process of loading data from a Meade Goto telescope";
    b.enabled = true;
  }
  return b;
}

void SetLoadTime(SharedState& s, bool checked) {
  s.telescope.gpsLocationOnly = !checked;
  s.program.configChanged = true;
}

}  // namespace astel
