// The program without windows: a script runs on the same ticks as under the main window; without
// a script the main window's texts are printed once.
#pragma once

#include <iosfwd>

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

int RunHeadless(SharedState& state, Ports& ports, std::ostream& out);

}  // namespace astel
