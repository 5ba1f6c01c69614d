// Night vision: our windows switch to dark red and back. The colour values are the program's
// designed ones (state.display.nightColors, numbered like the old system colours); the window
// layer turns them into its palette and gives back exactly the palette it had before.
#pragma once

#include "core/shared_state.h"

namespace astel {

// The old system colour numbers that the window layer maps onto its palette.
enum SystemColour : int {
  kColourScrollBar = 0,
  kColourWindow = 5,
  kColourWindowText = 8,
  kColourActiveBorder = 10,
  kColourHighlight = 13,
  kColourHighlightText = 14,
  kColourButtonFace = 15,
  kColourButtonShadow = 16,
  kColourGrayText = 17,
  kColourButtonText = 18,
  kColourButtonHighlight = 20,
  kColourDarkShadow = 21,
  kColourLight = 22,
  kColourToolTipText = 23,
  kColourToolTipBack = 24,
};

inline constexpr Colour kNightBackColor = 128;    // dark red
inline constexpr Colour kNightAccentColor = 128;  // dark red

// ToggleRedScreen (the Night Vision check box). Turning on keeps the day text, background and
// accent colours and takes the night ones (text: the window-text colour of the night table);
// turning off gives the day colours back exactly, a background the user chose included. The
// caller re-runs the main window's load handler and recolours its windows.
void ToggleRedScreen(DisplayState& display);

// Label1's click: a new background colour. While night vision is on it becomes the day
// background that night vision gives back. White also makes the accent white, as a home file
// with a white background does. Marks the configuration changed.
void SetBackgroundColour(SharedState& state, Colour colour);

}  // namespace astel
