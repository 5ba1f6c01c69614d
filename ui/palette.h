// Colours: the program's 0x00BBGGRR values as Qt colours, and night vision as the application
// palette of all our windows.
#pragma once

#include <QColor>
#include <QPalette>

#include "core/shared_state.h"

namespace astel::ui {

QColor ToQColor(Colour colour);
Colour FromQColor(const QColor& colour);

// The palette of our windows with the night colours (numbered like the old system colours) in
// the roles that play the same part.
QPalette NightPalette(const QPalette& day, const std::array<Colour, 25>& nightColors);

// The colours of a palette under the old system colour numbers 1..24 (entry 0 stays as it is).
void ReadSystemColours(const QPalette& palette, std::array<Colour, 26>& colours);

// Keeps the application palette as it was at start and switches it for night vision.
class PaletteKeeper {
 public:
  // Saves the current application palette and fills savedSysColors from it.
  explicit PaletteKeeper(DisplayState& display);
  // Night colours while display.nightVision, otherwise exactly the palette saved at start.
  void Apply(const DisplayState& display) const;
  void Restore() const;
  const QPalette& DayPalette() const { return day_; }

 private:
  QPalette day_;
};

}  // namespace astel::ui
