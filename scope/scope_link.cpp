#include "scope/scope_link.h"

#include "core/text_format.h"

namespace astel {

std::string PortName(int comPort) {
  return "COM" + FormatFixed(comPort, comPort < 10 ? "0" : "00");
}

std::string PortMessage(std::string_view text, int comPort) {
  return std::string(text) + std::to_string(comPort);
}

bool OpenScopePort(CommPorts& comm, Dialogs& dialogs, int comPort, std::string_view mode,
                   bool showMessage) {
  comm.CommClose(comPort);
  if (comm.CommOpen(comPort, PortName(comPort), mode) == 0) return true;
  if (showMessage) dialogs.MessageBox(PortMessage(kUnableToOpenCom, comPort));
  comm.CommFlush(comPort);
  comm.CommClose(comPort);
  return false;
}

void ReportClockRefused(Dialogs& dialogs, std::ostream& diagnostics) {
  dialogs.MessageBox(std::string(kClockRefused));
  diagnostics << "astel: the system clock was not set: setting the time needs root or the "
                 "CAP_SYS_TIME capability (the location was still applied)\n";
  diagnostics.flush();
}

}  // namespace astel
