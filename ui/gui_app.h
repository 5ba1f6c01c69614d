// The program with its windows: start-up with Qt's dialogs, then the main window until it closes.
#pragma once

#include "session/startup.h"

namespace astel::ui {

// Developer switches, read from the environment:
//   ASTEL_SCREENSHOT_DIR=dir    opens every window in turn, saves each as a PNG in dir, and quits
//   ASTEL_EXIT_AFTER_PAINT=1    quits as soon as the main window has been painted (start-up timing)
int RunGui(int& argc, char** argv, const StartupInputs& inputs);

}  // namespace astel::ui
