// Start-up: the shared state gets its defaults, tables, home file, hint and script, in the order
// the program has always followed, before the main window (or the headless runner) takes over.
#pragma once

#include <string>

#include "core/ports.h"
#include "core/shared_state.h"
#include "session/windows.h"

namespace astel {

// Exit codes of the program.
inline constexpr int kExitSuccess = 0;
inline constexpr int kExitStartupFailed = 1;  // no home file, or a script that cannot run
inline constexpr int kExitCommandFailed = 2;  // a script command failed (its command status)

struct StartupInputs {
  std::string installDir;      // the program's folder
  std::string pathVariable;    // $PATH, for the sky-chart program
  std::string commandLine;     // the script: the command line joined with blanks
  std::string executablePath;  // for the desktop launcher
  std::string desktopDir;      // for the desktop launcher
};

// Runs the start-up steps on a default-constructed state. On failure the message has been shown
// and the result is the exit code to end with; kExitSuccess means the main window may open.
int Startup(SharedState& state, const StartupInputs& inputs, Dialogs& dialogs, Clock& clock,
            Windows& windows);

}  // namespace astel
