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

class RecordingClipboard : public Clipboard {
 public:
  std::vector<std::string> texts;
  void SetText(const std::string& text) override { texts.push_back(text); }
};

// Window events run at every pass; a pause really lasts (a simulated telescope answers in real
// time) while the events keep running.
class QueueEvents : public Events {
 public:
  void DoEvents() override { QCoreApplication::processEvents(); }
  void Sleep(int milliseconds) override {
    QElapsedTimer t;
    t.start();
    do {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    } while (t.elapsed() < milliseconds);
  }
};

class NoWindows : public Windows {
 public:
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
    started = Startup(state, in, dialogs, clock, windows) == kExitSuccess;
  }

  std::string Folder() const { return dir.path() + "/"; }

  testing::TempDir dir;
  testing::FakeClock clock;
  testing::ScriptedDialogs dialogs;  // an unexpected box is a failure
  QueueEvents events;
  testing::RecordingShell shell;
  RecordingClipboard clipboard;
  NoWindows windows;
  SharedState state;
  bool started = false;
  std::string devicePath = "/nonexistent/ttyASTEL";
  std::ostringstream diagnostics;
  CommPorts comm{events, diagnostics, [this](int n) {
                   return n == 1 ? devicePath : "/nonexistent/ttyASTEL" + std::to_string(n);
                 }};
  ui::GuiContext context{state,   dialogs, clock, events, shell, clipboard,
                         windows, comm,    "",    "",     {}};
};

// An input box or question no answer was queued for is a GoogleTest failure (see ScriptedDialogs);
// each suite's cleanup() checks this.
inline bool NoUnexpectedBox() {
  return !::testing::UnitTest::GetInstance()->Failed();
}

// A click on a list's row, and the row that shows a text (-1 when none does).
inline void ClickRow(QListWidget* list, int row) {
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(row)).center());
}
inline int RowOf(QListWidget* list, const QString& text) {
  const auto found = list->findItems(text, Qt::MatchExactly);
  return found.isEmpty() ? -1 : list->row(found.front());
}

// The main window's controls by name; a missing label reads "<missing>".
inline QString Text(QWidget& w, const char* name) {
  QLabel* label = w.findChild<QLabel*>(name);
  return label ? label->text() : QString("<missing>");
}
inline QPushButton* Button(QWidget& w, const char* name) {
  return w.findChild<QPushButton*>(name);
}
inline void Click(QWidget& w, const char* name) {
  QPushButton* b = Button(w, name);
  QVERIFY2(b, name);
  QTest::mouseClick(b, Qt::LeftButton);
}

}  // namespace astel::uitest
