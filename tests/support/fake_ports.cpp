#include "tests/support/fake_ports.h"

#include <chrono>
#include <thread>

namespace astel::testing {

void ScriptedDialogs::Record(Shown item) {
  shown.push_back(item);
  if (onShow) onShow(shown.back());
}

std::string ScriptedDialogs::InputBox(const std::string& prompt, const std::string& title,
                                      const std::string& defaultAnswer) {
  Record({Kind::kInput, prompt, title, defaultAnswer});
  if (inputs_.empty()) {
    ++unanswered;
    return "";
  }
  std::string answer = inputs_.front();
  inputs_.pop_front();
  return answer;
}

void ScriptedDialogs::MessageBox(const std::string& text, const std::string& title) {
  Record({Kind::kMessage, text, title, ""});
}

bool ScriptedDialogs::YesNo(const std::string& text, const std::string& title) {
  Record({Kind::kYesNo, text, title, ""});
  if (yesNo_.empty()) {
    ++unanswered;
    return false;
  }
  bool answer = yesNo_.front();
  yesNo_.pop_front();
  return answer;
}

bool ScriptedDialogs::OkCancel(const std::string& text, const std::string& title) {
  Record({Kind::kOkCancel, text, title, ""});
  if (okCancel_.empty()) {
    ++unanswered;
    return false;
  }
  bool answer = okCancel_.front();
  okCancel_.pop_front();
  return answer;
}

std::vector<std::string> ScriptedDialogs::Messages() const {
  return Prompts(Kind::kMessage);
}

std::vector<std::string> ScriptedDialogs::Prompts(Kind kind) const {
  std::vector<std::string> texts;
  for (const Shown& item : shown) {
    if (item.kind == kind) texts.push_back(item.text);
  }
  return texts;
}

void FakeEvents::DoEvents() {
  ++doEventsCount;
  // A hook that itself lets events run must not recurse into itself.
  if (onDoEvents && !inHook_) {
    inHook_ = true;
    onDoEvents();
    inHook_ = false;
  }
}

void FakeEvents::Sleep(int milliseconds) {
  sleeps.push_back(milliseconds);
  sleptMs += milliseconds;
  if (!fakeSleep_ && milliseconds > 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }
}

}  // namespace astel::testing
