#include "session/night_vision_toggle.h"

namespace astel {

namespace {
constexpr Colour kWhite = 0xFFFFFF;
}

void ToggleRedScreen(DisplayState& d) {
  if (!d.nightVision) {
    d.nightVision = true;
    d.dayForeColor = d.foreColor;
    d.dayBackColor = d.backColor;
    d.dayAccentColor = d.accentColor;
    d.foreColor = d.nightColors[kColourWindowText];
    d.accentColor = kNightAccentColor;
    d.backColor = kNightBackColor;
  } else {
    d.nightVision = false;
    d.foreColor = d.dayForeColor;
    d.backColor = d.dayBackColor;
    d.accentColor = d.dayAccentColor;
  }
}

void SetBackgroundColour(SharedState& s, Colour colour) {
  DisplayState& d = s.display;
  Colour& back = d.nightVision ? d.dayBackColor : d.backColor;
  Colour& accent = d.nightVision ? d.dayAccentColor : d.accentColor;
  back = colour & kWhite;
  if (back == kWhite) accent = kWhite;
  s.program.configChanged = true;
}

}  // namespace astel
