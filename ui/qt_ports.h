// The ports of the logic implemented with Qt: modal input and message boxes, the event loop and
// the clipboard.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>

#include "core/ports.h"
#include "session/windows.h"

namespace astel::ui {

inline constexpr const char* kProgramTitle = "ASTEL+S";

// QInputDialog and QMessageBox over the active window. Cancel of an input box returns "".
class QtDialogs : public Dialogs {
 public:
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultAnswer) override;
  void MessageBox(const std::string& text, const std::string& title) override;
  bool YesNo(const std::string& text, const std::string& title) override;
  bool OkCancel(const std::string& text, const std::string& title) override;
};

// DoEvents runs what is pending; Sleep waits in a local event loop so the windows stay alive
// (a telescope exchange sleeping between commands must not freeze the screen).
class QtEvents : public Events {
 public:
  void DoEvents() override;
  void Sleep(int milliseconds) override;
};

class QtClipboard : public Clipboard {
 public:
  void SetText(const std::string& text) override;
};

// Windows the logic opens by itself; the GUI sets what each one does.
class QtWindows : public Windows {
 public:
  std::function<void()> openScopeSelection;
  void OpenScopeSelection() override {
    if (openScopeSelection) openScopeSelection();
  }
};

}  // namespace astel::ui
