// Colour tables for night vision: the dark red colours of our windows at the telescope.
#pragma once

#include "core/shared_state.h"

namespace astel {

// Fills nightColors (system colour numbers 0..24) and sysColorIndex (entry i = i).
void FillColourTables(DisplayState& display);

}  // namespace astel
