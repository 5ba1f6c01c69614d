// What every window of the program works with: the one shared state, the ports and the serial
// ports.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "core/ports.h"
#include "core/shared_state.h"
#include "scope/comm_io.h"
#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"
#include "session/windows.h"

namespace astel::ui {

struct GuiContext {
  SharedState& state;
  Dialogs& dialogs;
  Clock& clock;
  Events& events;
  Shell& shell;
  Clipboard& clipboard;
  Windows& windows;
  CommPorts& comm;
  std::string executablePath;  // for the desktop launcher made by a home-file read
  std::string desktopDir;

  // Telescope and GPS exchanges of the windows that are open now. An exchange may wait on a
  // silent device without limit; ending the program asks each of them to stop.
  std::vector<ExchangeMonitor*> liveExchanges;

  ScopeContext Scope() { return {state, comm, dialogs, events, clock}; }
  void CancelLiveExchanges() {
    for (ExchangeMonitor* m : liveExchanges)
      m->cancelRequested = true;
  }
};

// Keeps a window's exchange monitor in GuiContext::liveExchanges while the window exists.
class LiveExchange {
 public:
  LiveExchange(GuiContext& context, ExchangeMonitor& monitor)
      : context_(context), monitor_(monitor) {
    context_.liveExchanges.push_back(&monitor_);
  }
  ~LiveExchange() {
    auto& live = context_.liveExchanges;
    live.erase(std::remove(live.begin(), live.end(), &monitor_), live.end());
  }
  LiveExchange(const LiveExchange&) = delete;
  LiveExchange& operator=(const LiveExchange&) = delete;

 private:
  GuiContext& context_;
  ExchangeMonitor& monitor_;
};

}  // namespace astel::ui
