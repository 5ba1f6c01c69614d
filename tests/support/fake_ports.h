// Test doubles of the ports, for every test that drives logic without windows.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "core/ports.h"
#include "scope/timer_port.h"

namespace astel::testing {

// Answers prompts in the order they were queued and records everything it was shown. With its
// queue empty an input box answers Cancel (""), a question No and an OK/Cancel box Cancel, and
// `unanswered` counts it, so a test can tell an unexpected prompt from an expected one.
class ScriptedDialogs : public Dialogs {
 public:
  enum class Kind { kInput, kMessage, kYesNo, kOkCancel };
  struct Shown {
    Kind kind;
    std::string text;
    std::string title;
    std::string defaultAnswer;
  };

  void QueueInput(std::string answer) { inputs_.push_back(std::move(answer)); }
  void QueueYesNo(bool yes) { yesNo_.push_back(yes); }
  void QueueOkCancel(bool ok) { okCancel_.push_back(ok); }

  std::string InputBox(const std::string& prompt, const std::string& title,
                       const std::string& defaultAnswer) override;
  void MessageBox(const std::string& text, const std::string& title = "") override;
  bool YesNo(const std::string& text, const std::string& title = "") override;
  bool OkCancel(const std::string& text, const std::string& title = "") override;

  // The texts of the message boxes, in order.
  std::vector<std::string> Messages() const;
  // The texts of every prompt of the given kind, in order.
  std::vector<std::string> Prompts(Kind kind) const;

  std::vector<Shown> shown;
  int unanswered = 0;
  std::function<void(const Shown&)> onShow;  // runs as each box appears

 private:
  void Record(Shown item);
  std::deque<std::string> inputs_;
  std::deque<bool> yesNo_;
  std::deque<bool> okCancel_;
};

// Counts event passes and pauses. Sleep really sleeps unless `fakeSleep` is set (then it only
// advances `sleptMs`): wire tests need real time, since the simulated mount answers in it.
class FakeEvents : public Events {
 public:
  explicit FakeEvents(bool fakeSleep = false) : fakeSleep_(fakeSleep) {}
  void DoEvents() override;
  void Sleep(int milliseconds) override;

  int doEventsCount = 0;
  long sleptMs = 0;
  std::vector<int> sleeps;
  // Runs at every event pass: the place where a test plays the user (closes a window, releases a
  // button, fires a timer) while a telescope exchange waits.
  std::function<void()> onDoEvents;

 private:
  bool fakeSleep_;
  bool inHook_ = false;
};

// A clock that says what the test sets and records the times it was asked to set.
class FakeClock : public Clock {
 public:
  LocalDateTime Now() override { return now; }
  ZoneInfo Zone() override { return zone; }
  bool SetSystemTime(const UtcDateTime& utc) override {
    setTimes.push_back(utc);
    return acceptSetTime;
  }

  LocalDateTime now;
  ZoneInfo zone;
  bool acceptSetTime = true;
  std::vector<UtcDateTime> setTimes;
};

// A window timer that only remembers whether it runs; the test fires it by calling the logic.
class FakeTimer : public Timer {
 public:
  void Start(int ms) override {
    running = true;
    intervalMs = ms;
    ++starts;
  }
  void Stop() override { running = false; }

  bool running = false;
  int intervalMs = 0;
  int starts = 0;
};

}  // namespace astel::testing
