// What every window of the program works with: the one shared state and the ports.
#pragma once

#include <string>

#include "core/ports.h"
#include "core/shared_state.h"
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
  std::string executablePath;  // for the desktop launcher made by a home-file read
  std::string desktopDir;
};

}  // namespace astel::ui
