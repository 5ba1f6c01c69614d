// Scripted doubles of the ports the catalog code talks to. The dialogs answer input boxes from a
// queue, in order, and record every prompt, title and message they were shown. (A shared set of
// port doubles for all test folders is on its way; these are the catalog's own until then.)
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "catalog/scope_read_back.h"
#include "catalog/search_ports.h"

namespace astel::testing {

class ScriptedDialogs : public Dialogs {
 public:
  struct Prompt {
    std::string prompt, title, defaultAnswer;
  };
  std::deque<std::string> answers;  // input boxes take these in order; "" (Cancel) when empty
  std::deque<bool> yesNoAnswers;    // false when empty
  std::vector<Prompt> prompts;
  std::vector<std::string> messages;
  std::vector<std::string> questions;  // YesNo and OkCancel texts

  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultAnswer) override {
    prompts.push_back({prompt, title, defaultAnswer});
    if (answers.empty()) return "";
    std::string a = answers.front();
    answers.pop_front();
    return a;
  }
  void MessageBox(const std::string& text, const std::string&) override {
    messages.push_back(text);
  }
  bool YesNo(const std::string& text, const std::string&) override {
    questions.push_back(text);
    if (yesNoAnswers.empty()) return false;
    const bool a = yesNoAnswers.front();
    yesNoAnswers.pop_front();
    return a;
  }
  bool OkCancel(const std::string& text, const std::string& title) override {
    return YesNo(text, title);
  }
  std::vector<std::string> Titles() const {
    std::vector<std::string> t;
    for (const Prompt& p : prompts)
      t.push_back(p.title);
    return t;
  }
};

// DoEvents runs an optional hook: that is where a test "clicks" Cancel.
class FakeEvents : public Events {
 public:
  int doEventsCalls = 0;
  std::function<void(int)> onDoEvents;
  void DoEvents() override {
    ++doEventsCalls;
    if (onDoEvents) onDoEvents(doEventsCalls);
  }
  void Sleep(int) override {}
};

class FakeSearchWindow : public SearchWindow {
 public:
  std::vector<std::string> captions, progress;
  bool visible = false;
  void Show(const std::string& caption) override {
    captions.push_back(caption);
    visible = true;
  }
  void SetProgress(const std::string& text) override { progress.push_back(text); }
  void Hide() override { visible = false; }
};

class FakeShell : public Shell {
 public:
  std::vector<std::string> opened, workingDirs;
  bool OpenDocument(const std::string& path, const std::string& workingDir) override {
    opened.push_back(path);
    workingDirs.push_back(workingDir);
    return true;
  }
  bool StartProgram(const std::string&, const std::string&) override { return true; }
};

class FakeScope : public ScopeReadBack {
 public:
  bool succeed = true;
  int calls = 0;
  int raHours = 0;
  double raMinutes = 0;
  int decDegrees = 0;
  double decMinutes = 0;
  int decSign = 1;
  bool ReadPosition(SharedState& state) override {
    ++calls;
    if (!succeed) return false;
    state.object.objRaHours = raHours;
    state.object.objRaMinutes = raMinutes;
    state.object.objDecDegrees = decDegrees;
    state.object.objDecMinutes = decMinutes;
    state.object.objDecSign = decSign;
    return true;
  }
};

// All the ports of a catalog call in one place.
struct CatalogRig {
  ScriptedDialogs dialogs;
  FakeEvents events;
  FakeSearchWindow window;
  FakeShell shell;
  CatalogPorts ports{dialogs, events, window, shell};
};

}  // namespace astel::testing
