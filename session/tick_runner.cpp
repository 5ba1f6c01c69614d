#include "session/tick_runner.h"

namespace astel {

TickOutcome RunTick(MainWindowLogic& window, ScriptContext& script) {
  const ScriptState& sc = script.state.script;
  if (sc.scriptRunning) return {};
  window.Tick();
  if (!sc.scriptMode) return {};
  const int commandBefore = sc.scriptLineIndex;
  ScriptStep step = StepScript(script);
  if (step.finished) return {true, step.exitCode};
  // Show what the command did (an object found, a body chosen) without waiting a tick.
  if (sc.scriptLineIndex != commandBefore) window.Load();
  return {};
}

}  // namespace astel
