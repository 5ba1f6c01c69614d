// A program on a fixed clock with a scripted Dialogs: the base of the start-up tests, of the tests
// that drive the main window's buttons and of the script tests.
#pragma once

#include <gtest/gtest.h>

#include "core/home_file.h"
#include "core/location.h"
#include "session/main_window.h"
#include "session/startup.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_ports.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"

namespace astel::testing {

// Opening the telescope selection stands for an observer who picks a Meade LX200 there.
struct PickingWindows : Windows {
  explicit PickingWindows(SharedState& s) : state(s) {}
  void OpenScopeSelection() override { state.telescope.scopeCode = 401; }
  SharedState& state;
};

class StartedProgram : public ::testing::Test {
 protected:
  // Greenwich's meridian at 51 28.6 N, no telescope, the clock at 21:30:05 on 22 November 2026.
  StartedProgram() {
    home.homeLatitude = (51 + 28.6 / 60) / kDegreesPerRadianExact;
    home.scopeCode = 10000;
    home.firstStartDate = 2461000.5;
    clock.now = {2026, 11, 22, 21, 30, 5};
  }
  void SetUp() override { Start(""); }

  std::string HomePath(const std::string& name = "ASTEL.HOM") { return dir.path() + "/" + name; }
  // Runs the start-up with the script; `home` is saved as ASTEL.HOM first unless `asIs`.
  int Launch(const std::string& script = "", bool asIs = false) {
    EXPECT_TRUE(asIs || SaveHomeFile(HomePath(), home).empty());
    StartupInputs in{dir.path(), "", script, "/usr/bin/astel", desktop.path()};
    return Startup(state, in, dialogs, clock, windows);
  }
  // A successful start-up followed by the main window's first tick.
  void Start(const std::string& script) {
    ASSERT_EQ(Launch(script), kExitSuccess);
    logic.Tick();
  }

  HomeFileRecord home;
  TempDir dir, desktop;
  FakeClock clock;
  ScriptedDialogs dialogs;
  SharedState state;
  PickingWindows windows{state};
  MainWindowLogic logic{state, clock, dialogs};
};

}  // namespace astel::testing
