// A started program for the window tests: a home file in a fresh folder, a clock that stands
// still, and ports that record what the windows asked of them instead of opening boxes. The serial
// ports are real: COM1 is `devicePath` (a simulated telescope's pseudo-terminal when a test sets
// one), every other port a device that does not exist.
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>
#include <sstream>
#include <string>
#include <vector>

#include "core/home_file.h"
#include "core/location.h"
#include "scope/comm_io.h"
#include "session/startup.h"
#include "tests/support/fake_clock.h"
#include "tests/support/fake_ports.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"
#include "ui/gui_context.h"

namespace astel::uitest {

struct RecordingClipboard : Clipboard {
  void SetText(const std::string& text) override { texts.push_back(text); }
  std::vector<std::string> texts;
};

// Window events run at every pass; a pause really lasts (a simulated telescope answers in real
// time) while the events keep running.
struct QueueEvents : Events {
  void DoEvents() override { QCoreApplication::processEvents(); }
  void Sleep(int milliseconds) override {
    QElapsedTimer t;
    t.start();
    do {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    } while (t.elapsed() < milliseconds);
  }
};

struct NoWindows : Windows {
  void OpenScopeSelection() override {}
};

struct TestProgram {
  explicit TestProgram(const std::string& script = "") {
    HomeFileRecord r;
    r.homeLatitude = (51 + 28.6 / 60) / kDegreesPerRadianExact;
    r.scopeCode = 10000;
    r.firstStartDate = 2461000.5;
    SaveHomeFile(dir.path() + "/ASTEL.HOM", r);
    clock.now = {2026, 11, 22, 21, 30, 5};
    StartupInputs in{dir.path(), "", script, "", ""};
    EXPECT_EQ(Startup(state, in, dialogs, clock, windows), kExitSuccess);
  }
  std::string Folder() const { return dir.path() + "/"; }

  testing::TempDir dir;
  testing::FakeClock clock;
  testing::ScriptedDialogs dialogs;  // an unexpected input box is a failure
  QueueEvents events;
  testing::RecordingShell shell;
  RecordingClipboard clipboard;
  NoWindows windows;
  SharedState state;
  std::string devicePath = "/nonexistent/ttyASTEL";
  std::ostringstream diagnostics;
  CommPorts comm{events, diagnostics, [this](int n) {
                   return n == 1 ? devicePath : "/nonexistent/ttyASTEL" + std::to_string(n);
                 }};
  ui::GuiContext context{state,   dialogs, clock, events, shell, clipboard,
                         windows, comm,    "",    "",     {}};
};

// Each suite's cleanup() fails on an input box or question no answer was queued for.
#define ASTEL_NO_UNEXPECTED_BOX() \
  QVERIFY2(!::testing::UnitTest::GetInstance()->Failed(), "a box no answer was queued for")

inline void ClickRow(QListWidget* list, int row) {
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(row)).center());
}

// The main window's controls by name.
inline QString Text(QWidget& w, const char* name) {
  return w.findChild<QLabel*>(name)->text();
}
inline void Click(QWidget& w, const char* name) {
  QTest::mouseClick(w.findChild<QPushButton*>(name), Qt::LeftButton);
}

}  // namespace astel::uitest
