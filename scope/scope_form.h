// The telescope selection dialog (ScopeForm) as logic: the Qt window forwards its clicks here and
// shows `monitor().status` in its ScopeStatus label; while `monitor().busy` its buttons are
// disabled. The window must stay alive until UploadClick returns: the upload lets window events
// run, and closing the window during it only asks the upload to stop.
#pragma once

#include <array>
#include <string_view>

#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"

namespace astel {

// The port list, "Com1" to "Com8" (numbers above 4 are offered but can never be opened).
inline constexpr std::array<std::string_view, 8> kComPortRows = {"Com1", "Com2", "Com3", "Com4",
                                                                 "Com5", "Com6", "Com7", "Com8"};

class ScopeFormLogic {
 public:
  explicit ScopeFormLogic(ScopeContext& context) : context_(context) {}

  // A telescope row was clicked: a telescope without a port gets a reminder to choose one.
  void List1Click(std::string_view row);
  // A port row was clicked: "Com1".."Com8" sets comPort.
  void List2Click(std::string_view row);
  // OK with the selected telescope row (empty when none). True when the dialog closes, with the
  // model code, its flags and the family stored; false keeps it open and changes nothing.
  bool OkClick(std::string_view selectedRow);
  // Upload of place, date and time (LX200 models only, in real time).
  void UploadClick();
  // The dialog closes: a running upload is asked to stop (it closes the port itself), otherwise
  // the port is closed here; the main window's command buttons are enabled again.
  void Close();

  ExchangeMonitor& monitor() { return monitor_; }

 private:
  ScopeContext& context_;
  ExchangeMonitor monitor_;
};

}  // namespace astel
