// What every telescope and GPS exchange shares: the line settings, the port name, the
// message texts, and opening a port the way every caller does.
#pragma once

#include <string>
#include <string_view>

#include "core/ports.h"
#include "core/shared_state.h"
#include "scope/comm_io.h"

namespace astel {

// Mode strings. Only the GoTo of the NexStar family uses two stop bits; every other telescope
// exchange (the NexStar ones included) uses one.
inline constexpr std::string_view kModeNexStarGoto = "baud=9600 parity=N data=8 stop=2";
inline constexpr std::string_view kModeTelescope = "baud=9600 parity=N data=8 stop=1";
inline constexpr std::string_view kModeGpsReceiver = "baud=4800 parity=N data=8 stop=1";

// Messages; the port number follows the first three.
inline constexpr std::string_view kUnableToOpenCom = "UNABLE TO OPEN COM ";
inline constexpr std::string_view kUnableToWriteCom = "UNABLE TO WRITE TO COM ";
inline constexpr std::string_view kUnableToCloseCom = "UNABLE TO CLOSE COM ";
inline constexpr std::string_view kInvalidScopeResponse = "Invalid Scope Response";
inline constexpr std::string_view kNoScopeResponseYet = "No scope response yet. Verify Connection.";
inline constexpr std::string_view kClockRefused = "Windows will not accept GPS Time!";
// The line break inside status texts.
inline constexpr std::string_view kLineBreak = "\n";

// "COM" followed by the port number ("0" pattern below 10, "00" from 10 on).
std::string PortName(int comPort);

// A message followed by the port number, e.g. "UNABLE TO OPEN COM 2".
std::string PortMessage(std::string_view text, int comPort);

// What a telescope exchange works with besides its own window.
struct ScopeContext {
  SharedState& state;
  CommPorts& comm;
  Dialogs& dialogs;
  Events& events;
  Clock& clock;
};

// Releases a port left open and opens `comPort` with `mode`. On failure: "UNABLE TO OPEN COM n"
// (when `showMessage`), then flush and close as every caller does, and false.
bool OpenScopePort(CommPorts& comm, Dialogs& dialogs, int comPort, std::string_view mode,
                   bool showMessage);

// The clock refused the time: the message, and on Linux the likely reason on the
// diagnostics stream, since the message alone does not say that a right is missing.
void ReportClockRefused(Dialogs& dialogs, std::ostream& diagnostics);

}  // namespace astel
