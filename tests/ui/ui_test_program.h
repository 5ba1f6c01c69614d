// A started program for the window tests: a home file in a fresh folder, a clock that stands
// still, and ports that record what the windows asked of them instead of opening boxes.
#pragma once

#include <QtTest>
#include <deque>
#include <string>
#include <vector>

#include "core/home_file.h"
#include "core/location.h"
#include "session/startup.h"
#include "tests/support/fake_clock.h"
#include "tests/support/temp_dir.h"
#include "ui/gui_context.h"

namespace astel::uitest {

// Answers input boxes from a list (Cancel when it runs out) and records everything shown.
class RecordingDialogs : public Dialogs {
 public:
  std::deque<std::string> answers;
  std::vector<std::string> prompts, titles, messages;
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string&) override {
    prompts.push_back(prompt);
    titles.push_back(title);
    if (answers.empty()) return "";
    std::string a = answers.front();
    answers.pop_front();
    return a;
  }
  void MessageBox(const std::string& text, const std::string&) override {
    messages.push_back(text);
  }
  bool YesNo(const std::string&, const std::string&) override { return false; }
  bool OkCancel(const std::string&, const std::string&) override { return false; }
};

class RecordingShell : public Shell {
 public:
  std::vector<std::string> opened, started;
  bool OpenDocument(const std::string& path, const std::string&) override {
    opened.push_back(path);
    return true;
  }
  bool StartProgram(const std::string& program, const std::string& parameters) override {
    started.push_back(program + " " + parameters);
    return true;
  }
};

class RecordingClipboard : public Clipboard {
 public:
  std::vector<std::string> texts;
  void SetText(const std::string& text) override { texts.push_back(text); }
};

class QueueEvents : public Events {
 public:
  void DoEvents() override { QCoreApplication::processEvents(); }
  void Sleep(int) override { QCoreApplication::processEvents(); }
};

class NoWindows : public Windows {
 public:
  void OpenScopeSelection() override {}
};

struct TestProgram {
  TestProgram() {
    HomeFileRecord r;
    r.homeLatitude = (51 + 28.6 / 60) / kDegreesPerRadianExact;
    r.scopeCode = 10000;
    r.firstStartDate = 2461000.5;
    SaveHomeFile(dir.path() + "/ASTEL.HOM", r);
    clock.now = {2026, 11, 22, 21, 30, 5};
    StartupInputs in{dir.path(), "", "", "", ""};
    started = Startup(state, in, dialogs, clock, windows) == kExitSuccess;
  }

  testing::TempDir dir;
  testing::FakeClock clock;
  RecordingDialogs dialogs;
  QueueEvents events;
  RecordingShell shell;
  RecordingClipboard clipboard;
  NoWindows windows;
  SharedState state;
  bool started = false;
  ui::GuiContext context{state, dialogs, clock, events, shell, clipboard, windows, "", ""};
};

}  // namespace astel::uitest
