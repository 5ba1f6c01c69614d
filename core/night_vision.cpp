#include "core/night_vision.h"

namespace astel {

void FillColourTables(DisplayState& d) {
  static constexpr Colour kNightColors[25] = {64,  0,   64,  0, 128,      128, 0,       0, 0,
                                              255, 128, 64,  0, 128,      255, 128,     0, 0x808080,
                                              0,   128, 255, 0, 0xDFDFDF, 0,   0xE1FFFF};
  for (int i = 0; i < 25; ++i)
    d.nightColors[i] = kNightColors[i];
  for (int i = 0; i < 26; ++i)
    d.sysColorIndex[i] = i < 25 ? i : 0;
  d.nightVision = false;
}

}  // namespace astel
