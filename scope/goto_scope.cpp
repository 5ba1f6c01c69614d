#include "scope/goto_scope.h"

#include <array>

#include "scope/goto_encoding.h"
#include "scope/scope_link.h"

namespace astel {

namespace {

// Indexed by telescope type 0..4.
constexpr std::array<std::string_view, 5> kGotoModes = {"", kModeNexStarGoto, kModeTelescope,
                                                        kModeTelescope, kModeTelescope};

}  // namespace

std::string_view GotoModeString(int scopeType) {
  if (scopeType < 0 || scopeType >= static_cast<int>(kGotoModes.size())) return "";
  return kGotoModes[scopeType];
}

bool GotoScope(SharedState& state, CommPorts& comm, Dialogs& dialogs, Events& events) {
  const int port = state.telescope.comPort;
  const int type = state.telescope.scopeType;
  const bool showErrors = !state.script.scriptMode;

  if (!OpenScopePort(comm, dialogs, port, GotoModeString(type), showErrors)) return false;
  comm.CommFlush(port);
  for (const Transfer& transfer : GotoTransfers(type, state.object)) {
    if (transfer.pauseBeforeMs > 0) events.Sleep(transfer.pauseBeforeMs);
    if (transfer.bytes.empty()) continue;
    if (comm.CommWrite(port, transfer.bytes) != transfer.expectedCount) {
      // A type 1 command stops at the failing character; the mount may hold a partial command.
      if (showErrors) dialogs.MessageBox(PortMessage(kUnableToWriteCom, port));
      comm.CommClose(port);
      return false;
    }
  }
  if (type == 3) dialogs.MessageBox(std::string(kStarGuideKeyReminder));
  if (comm.CommClose(port) != 0 && showErrors) {
    dialogs.MessageBox(PortMessage(kUnableToCloseCom, port));
  }
  return true;
}

}  // namespace astel
