// Doubles of the ports the catalog code talks to, beside the shared scripted dialogs: events with
// a hook for Cancel, the Searching window, the shell and the telescope read-back.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "astro/coordinates.h"
#include "catalog/scope_read_back.h"
#include "catalog/search_ports.h"
#include "tests/support/scripted_dialogs.h"

namespace astel::testing {

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
  std::vector<std::string> opened;
  bool OpenDocument(const std::string& path, const std::string&) override {
    opened.push_back(path);
    return true;
  }
  bool StartProgram(const std::string&, const std::string&) override { return true; }
};

// A telescope that reports a fixed position of date, or fails.
class FakeScope : public ScopeReadBack {
 public:
  bool succeed = true;
  int calls = 0;
  double raHours = 0, decDegrees = 0;
  bool ReadPosition(SharedState& state) override {
    ++calls;
    if (succeed) SetObjectPosition(state.object, raHours, decDegrees);
    return succeed;
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
