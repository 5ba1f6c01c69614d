#include "app/headless_runner.h"

#include <iostream>
#include <ostream>

#include "app/terminal_text.h"
#include "catalog/search_ports.h"
#include "scope/comm_io.h"
#include "session/main_window.h"
#include "session/startup.h"
#include "session/tick_runner.h"

namespace astel {

namespace {

// Without windows a scan shows no progress: it only ever runs for a script.
class NoSearchWindow : public SearchWindow {
 public:
  void Show(const std::string&) override {}
  void SetProgress(const std::string&) override {}
  void Hide() override {}
};

void PrintDisplay(const MainDisplay& d, std::ostream& out) {
  out << ToUtf8(d.label1) << "\n"
      << ToUtf8(d.date) << "  " << ToUtf8(d.time) << "  " << ToUtf8(d.gmt) << "\n"
      << ToUtf8(d.siderealTime) << "  " << ToUtf8(d.latitude) << "  " << ToUtf8(d.longitude) << "\n"
      << "Catalog " << ToUtf8(d.catalog) << "  " << ToUtf8(d.scopeType) << "\n";
  if (!d.name1.empty()) {
    out << ToUtf8(d.name1) << " " << ToUtf8(d.name2) << " " << ToUtf8(d.name3) << "\n"
        << ToUtf8(d.rightAsc) << "  " << ToUtf8(d.declination) << "  " << ToUtf8(d.altitude) << "  "
        << ToUtf8(d.azimuth) << "\n"
        << ToUtf8(d.riseTime) << "  " << ToUtf8(d.transitTime) << "  " << ToUtf8(d.setTime) << "\n";
  }
  out << ToUtf8(d.general) << "\n";
}

}  // namespace

int RunHeadless(SharedState& state, Ports& ports, std::ostream& out) {
  MainWindowLogic window(state, ports.clock, ports.dialogs);
  NoSearchWindow searchWindow;
  CatalogPorts catalogPorts{ports.dialogs, ports.events, searchWindow, ports.shell};
  CommPorts comm(ports.events, std::cerr);
  ScriptContext script{state,       ports.dialogs, ports.clock, ports.events,
                       ports.shell, catalogPorts,  comm};
  if (!state.script.scriptMode) {
    window.Tick();
    PrintDisplay(window.Display(), out);
    return kExitSuccess;
  }
  while (true) {
    TickOutcome outcome = RunTick(window, script);
    if (outcome.exitProgram) return outcome.exitCode;
    ports.events.Sleep(kTickMilliseconds);
  }
}

}  // namespace astel
