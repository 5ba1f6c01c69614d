// The command-line script: one command per call, keyword "=" argument, each outcome written to
// the command log. Commands select catalogs, find objects, wait for a time, point the telescope,
// start other programs and set the end of the run.
#pragma once

#include <string>

#include "catalog/search_ports.h"
#include "core/ports.h"
#include "core/shared_state.h"
#include "scope/comm_io.h"

namespace astel {

// Command status values (state.script.commandStatus).
inline constexpr int kCommandRunning = 0;
inline constexpr int kCommandExitTime = 1;
inline constexpr int kCommandFailed = 2;

struct ScriptContext {
  SharedState& state;
  Dialogs& dialogs;
  Clock& clock;
  Events& events;
  Shell& shell;
  CatalogPorts& catalog;
  CommPorts& comm;
};

// Runs one command line and logs its outcome; returns the command status.
int ProcessCommand(ScriptContext& context, const std::string& line);

struct ScriptStep {
  bool finished = false;  // the program ends now
  int exitCode = 0;
};

// The end of each tick while a script runs: past the last command the run ends with 0; otherwise
// the next command runs, and a failed command ends the run with its status as the exit code.
ScriptStep StepScript(ScriptContext& context);

}  // namespace astel
