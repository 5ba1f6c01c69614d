// A started program on a fixed clock with a scripted Dialogs: the base of the tests that drive
// the main window's buttons.
#pragma once

#include <gtest/gtest.h>

#include "core/home_file.h"
#include "core/location.h"
#include "session/main_window.h"
#include "session/startup.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"

namespace astel::testing {

class NoWindows : public Windows {
 public:
  void OpenScopeSelection() override {}
};

class StartedProgram : public ::testing::Test {
 protected:
  void SetUp() override {
    HomeFileRecord r;
    r.homeLatitude = (51 + 28.6 / 60) / kDegreesPerRadianExact;
    r.scopeCode = 10000;
    r.firstStartDate = 2461000.5;
    ASSERT_EQ(SaveHomeFile(dir.path() + "/ASTEL.HOM", r), "");
    clock.now = {2026, 11, 22, 21, 30, 5};
    StartupInputs in{dir.path(), "", "", "", ""};
    ASSERT_EQ(Startup(state, in, dialogs, clock, windows), kExitSuccess);
    logic.Tick();
  }

  TempDir dir;
  FakeClock clock;
  ScriptedDialogs dialogs;
  NoWindows windows;
  SharedState state;
  MainWindowLogic logic{state, clock, dialogs};
};

}  // namespace astel::testing
