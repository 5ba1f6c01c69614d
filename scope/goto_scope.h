// GotoScope: sends the telescope to the selected object (main window's GoTo button, the script's
// GOTO). Opens the port, sends the form of the telescope's family, closes; never reads an answer.
#pragma once

#include <string_view>

#include "core/ports.h"
#include "core/shared_state.h"
#include "scope/comm_io.h"

namespace astel {

// Shown after every type 3 GoTo, in script mode too: that hand controller locks up when a second
// GoTo arrives before a key was pressed.
inline constexpr std::string_view kStarGuideKeyReminder =
    "You must press a key on the scope before next 'GOTO' to prevent telescope lockup ";

// The mode string of a telescope type's GoTo; empty for types without a GoTo form of their own.
std::string_view GotoModeString(int scopeType);

// True when the command went out. Failures show their message unless a script runs.
bool GotoScope(SharedState& state, CommPorts& comm, Dialogs& dialogs, Events& events);

}  // namespace astel
