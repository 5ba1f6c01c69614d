// The ports when no one sits at a window: messages go to standard error, questions are answered
// Cancel/No at once (a script must never wait for an answer no one can give).
#pragma once

#include <iosfwd>

#include "core/ports.h"
#include "session/windows.h"

namespace astel {

class HeadlessDialogs : public Dialogs {
 public:
  explicit HeadlessDialogs(std::ostream& out) : out_(out) {}
  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultAnswer) override;
  void MessageBox(const std::string& text, const std::string& title) override;
  bool YesNo(const std::string& text, const std::string& title) override;
  bool OkCancel(const std::string& text, const std::string& title) override;

 private:
  std::ostream& out_;
};

class HeadlessEvents : public Events {
 public:
  void DoEvents() override {}
  void Sleep(int milliseconds) override;
};

class NullClipboard : public Clipboard {
 public:
  void SetText(const std::string&) override {}
};

class NullWindows : public Windows {
 public:
  void OpenScopeSelection() override {}
};

}  // namespace astel
