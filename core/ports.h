// What the logic asks of the outside world. The Qt windows, the headless runner and the test
// doubles each implement these, so no logic code touches a window, the clock or the shell.
#pragma once

#include <string>

namespace astel {

// Modal questions and messages. Texts are Latin-1 bytes.
class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // An input box; returns the answer, or "" for Cancel (an empty answer and Cancel are the same).
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& defaultAnswer) = 0;
  // A message box with only an OK button. An empty title means the program's default title.
  virtual void MessageBox(const std::string& text, const std::string& title = "") = 0;
  virtual bool YesNo(const std::string& text, const std::string& title = "") = 0;
  virtual bool OkCancel(const std::string& text, const std::string& title = "") = 0;
};

// A calendar moment of the local clock.
struct LocalDateTime {
  int year = 2000, month = 1, day = 1;
  int hour = 0, minute = 0, second = 0;
};

// The computer's time zone as the old platform reported it: minutes, positive west of Greenwich.
struct ZoneInfo {
  int standardBiasMinutes = 0;  // standard offset
  int currentBiasMinutes = 0;   // offset in force now, daylight time included
  bool daylight = false;        // daylight time is in force now
};

// A UTC moment to set the computer clock to.
struct UtcDateTime {
  int year = 2000, month = 1, day = 1;
  int hour = 0, minute = 0, second = 0, millisecond = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual LocalDateTime Now() = 0;
  virtual ZoneInfo Zone() = 0;
  // False when the system refuses (typically: the program lacks the right to set the time).
  virtual bool SetSystemTime(const UtcDateTime& utc) = 0;
};

// The event loop: lets pending window events run, and waits.
class Events {
 public:
  virtual ~Events() = default;
  virtual void DoEvents() = 0;
  virtual void Sleep(int milliseconds) = 0;
};

// Documents and programs started outside the program.
class Shell {
 public:
  virtual ~Shell() = default;
  // Opens a document or web page with the desktop's default action.
  virtual bool OpenDocument(const std::string& pathOrUrl, const std::string& workingDir = "") = 0;
  // Starts a program detached, with its parameters as one text.
  virtual bool StartProgram(const std::string& program, const std::string& parameters) = 0;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  virtual void SetText(const std::string& text) = 0;
};

// The ports bundled, as most procedures that talk to the user need several of them.
struct Ports {
  Dialogs& dialogs;
  Clock& clock;
  Events& events;
  Shell& shell;
  Clipboard& clipboard;
};

}  // namespace astel
