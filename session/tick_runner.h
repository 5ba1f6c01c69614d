// The 900 ms tick of the whole program: the main window's recalculation, then one command of a
// running script. The Qt window's timer and the headless runner both call this.
#pragma once

#include "script/script_interpreter.h"
#include "session/main_window.h"

namespace astel {

inline constexpr int kTickMilliseconds = 900;

struct TickOutcome {
  bool exitProgram = false;
  int exitCode = 0;
};

// One tick. A tick that arrives while a script command is still running (events are processed
// while WAIT and SLEEP wait) does nothing.
TickOutcome RunTick(MainWindowLogic& window, ScriptContext& script);

}  // namespace astel
