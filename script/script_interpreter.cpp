#include "script/script_interpreter.h"

#include <algorithm>
#include <cmath>
#include <ctime>

#include "astro/coordinates.h"
#include "astro/solar_system.h"
#include "catalog/catalog_select.h"
#include "catalog/search.h"
#include "core/observing_log.h"
#include "core/text_format.h"
#include "scope/goto_scope.h"
#include "script/script_position.h"
#include "script/script_time.h"

namespace astel {

namespace {

constexpr int kSecondsPerDay = 86400;
constexpr int kWaitPollMs = 450;
constexpr double kLowestGotoAltitude = 1;  // degrees

struct Command {
  const std::string& line;     // as written
  const std::string& upper;    // upper-cased, for the keyword and the RA parse
  const std::string argument;  // after the first "=", as written
};

std::string Trim(std::string_view text) {
  const std::size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  return std::string(text.substr(start, text.find_last_not_of(' ') - start + 1));
}

// The argument as a number, when all of it (blanks aside) is one.
std::optional<double> NumberArgument(const std::string& argument) {
  const std::string text = Trim(argument);
  if (text.empty() || !StartsWithNumber(text)) return std::nullopt;
  for (char c : text) {
    if (!((c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+')) return std::nullopt;
  }
  return LeadingNumber(text);
}

std::optional<int> WholeArgument(const std::string& argument) {
  auto value = NumberArgument(argument);
  if (!value || *value != std::floor(*value)) return std::nullopt;
  return static_cast<int>(*value);
}

int SecondOfDay(const LocalDateTime& t) {
  return (t.hour * 60 + t.minute) * 60 + t.second;
}

// A clock time counts as reached when it lies at most twelve hours in the past, so that a time
// after midnight given in the evening is still ahead.
bool Reached(int targetSecondOfDay, const LocalDateTime& now) {
  int since = (SecondOfDay(now) - targetSecondOfDay + kSecondsPerDay) % kSecondsPerDay;
  return since < kSecondsPerDay / 2;
}

void Log(ScriptContext& c, const std::string& text) {
  WriteLogEntry(c.state, c.dialogs, text);
}

std::string Prefix(const ScriptContext& c, const Command& cmd) {
  return "Command" + std::to_string(c.state.script.scriptLineIndex) + ": " + cmd.line;
}

// Lets the window breathe while a script waits; false when the window is closing.
bool Pause(ScriptContext& c, int milliseconds) {
  c.events.Sleep(milliseconds);
  c.events.DoEvents();
  return !c.state.script.stopRequested;
}

std::string Cat(ScriptContext& c, const Command& cmd) {
  const std::string name = Trim(cmd.argument);
  std::string directory = c.state.files.catalogDirectory, file = name;
  if (const std::size_t slash = name.rfind('/'); slash != std::string::npos) {
    directory = name.substr(0, slash + 1);
    file = name.substr(slash + 1);
  }
  if (file.empty() || !OpenCatalog(c.state, directory, file)) return "Cannot Open Catalog " + name;
  return {};
}

std::string Find(ScriptContext& c, const Command& cmd) {
  if (!FindObject(c.state, c.catalog, cmd.argument)) {
    return "Object not found in " + c.state.files.catalogFileName;
  }
  return {};
}

std::string Date(ScriptContext& c, const Command& cmd) {
  auto day = WholeArgument(cmd.argument);
  if (!day || *day < 1 || *day > 31) return "Invalid date";
  c.state.script.waitDay = static_cast<std::int16_t>(*day);
  return {};
}

// Seconds from now until the WAIT time: on the DATE day when one was given, otherwise at the
// next occurrence within twelve hours (a time passed less than twelve hours ago is now).
long SecondsUntil(const ClockTime& target, int waitDay, const LocalDateTime& now) {
  const long nowSecond = SecondOfDay(now);
  if (waitDay == 0) {
    if (Reached(target.SecondOfDay(), now)) return 0;
    return (target.SecondOfDay() - nowSecond + kSecondsPerDay) % kSecondsPerDay;
  }
  std::tm day{};
  day.tm_year = now.year - 1900;
  day.tm_mon = now.month - 1;
  day.tm_mday = now.day;
  day.tm_hour = 12;  // noon keeps daylight-time changes from moving the date
  for (int ahead = 0; ahead < 62; ++ahead) {
    std::tm probe = day;
    probe.tm_mday += ahead;
    std::mktime(&probe);
    if (probe.tm_mday != waitDay) continue;
    const long wait = ahead * static_cast<long>(kSecondsPerDay) + target.SecondOfDay() - nowSecond;
    return std::max(0L, wait);
  }
  return 0;
}

std::string Wait(ScriptContext& c, const Command& cmd) {
  ClockTimeParse parsed = ParseWaitTime(Trim(cmd.argument));
  if (!parsed.time) return parsed.error;
  Log(c, Prefix(c, cmd) + " Start Waiting");
  c.state.form.timer1Enabled = false;  // the display stands still while the script waits
  const int waitDay = c.state.script.waitDay;
  const LocalDateTime start = c.clock.Now();
  const long total = SecondsUntil(*parsed.time, waitDay, start);
  std::string error;
  // Poll the clock: the computer may sleep, or its time be set, while we wait.
  long remaining = total;
  while (remaining > 0) {
    if (!Pause(c, kWaitPollMs)) {
      error = "Script stopped";
      break;
    }
    LocalDateTime now = c.clock.Now();
    remaining = SecondsUntil(*parsed.time, waitDay, now);
    if (waitDay == 0 && remaining > total) remaining = 0;  // the time went past it
  }
  c.state.script.waitDay = 0;  // DATE names the day of the next WAIT only
  c.state.form.timer1Enabled = true;
  return error;
}

std::string Goto(ScriptContext& c, const Command&) {
  SharedState& s = c.state;
  if (s.telescope.scopeType < 1 || s.telescope.scopeType > 4) {
    return "Invalid telescope selection for automation";
  }
  if (s.search.foundState == 0 && s.object.objectKind < 0) {
    return "No object selected or object not visible";
  }
  ComputeAltAz(s);
  if (s.object.altitude < kLowestGotoAltitude) return "No object selected or object not visible";
  if (!GotoScope(s, c.comm, c.dialogs, c.events)) return "error processing Goto command";
  return {};
}

std::string Exit(ScriptContext& c, const Command& cmd) {
  ClockTimeParse parsed = ParseExitTime(Trim(cmd.argument));
  if (!parsed.time) return parsed.error;
  c.state.script.exitHour = static_cast<std::int16_t>(parsed.time->hour);
  c.state.script.exitMinute = static_cast<std::int16_t>(parsed.time->minute);
  c.state.script.exitTimeSet = true;
  return {};
}

std::string Sleep(ScriptContext& c, const Command& cmd) {
  auto seconds = NumberArgument(cmd.argument);
  if (!seconds || *seconds <= 0 || *seconds >= kSecondsPerDay) return "Invalid Interval";
  Log(c, Prefix(c, cmd) + " Start Sleeping");
  c.state.form.timer1Enabled = false;
  long remainingMs = std::lround(*seconds * 1000);
  std::string error;
  while (remainingMs > 0) {
    const int slice = static_cast<int>(std::min<long>(remainingMs, kWaitPollMs));
    if (!Pause(c, slice)) {
      error = "Script stopped";
      break;
    }
    remainingMs -= slice;
  }
  c.state.form.timer1Enabled = true;
  return error;
}

std::string Match(ScriptContext& c, const Command&) {
  if (!NextMatch(c.state, c.catalog)) return "Match not found";
  return {};
}

std::string Name2(ScriptContext& c, const Command& cmd) {
  c.state.search.secondName = cmd.argument;
  c.state.search.lastSecondName = cmd.argument;
  return {};
}

std::string ShellCommand(ScriptContext& c, const Command& cmd) {
  const std::string text = Trim(cmd.argument);
  const std::size_t space = text.find(' ');
  const std::string program = text.substr(0, space);
  const std::string parameters = space == std::string::npos ? "" : text.substr(space + 1);
  if (program.empty() || !c.shell.StartProgram(program, CommaToPoint(parameters))) {
    return "Error Running Program";
  }
  return {};
}

std::string Planet(ScriptContext& c, const Command& cmd) {
  auto body = WholeArgument(cmd.argument);
  if (!body || *body < 0 || *body >= kBodyCount) return "Invalid Planet Number";
  SelectBody(c.state, *body);
  c.state.object.Name3.clear();
  c.state.object.Name4.clear();
  c.state.search.foundState = 1;
  ComputeAltAz(c.state);  // the log line of this command gives its altitude
  return {};
}

std::string MinAlt(ScriptContext& c, const Command& cmd) {
  auto degrees = NumberArgument(cmd.argument);
  if (!degrees || *degrees < 1 || *degrees >= 90) return "Invalid Minimum Altitude";
  c.state.search.minAltitude = static_cast<float>(*degrees);
  return {};
}

std::string MinMag(ScriptContext& c, const Command& cmd) {
  auto magnitude = NumberArgument(cmd.argument);
  if (!magnitude || *magnitude < -2 || *magnitude >= 90) return "Invalid Minimum Magnitude";
  c.state.search.faintestMagnitude = *magnitude;
  return {};
}

std::string Position(ScriptContext& c, const Command& cmd) {
  ScriptPositionParse parsed = ParseScriptPosition(cmd.upper);
  if (!parsed.position) return parsed.error;
  const ScriptPosition& p = *parsed.position;
  SharedState& s = c.state;
  ObjectState& o = s.object;
  o.objectKind = -1;
  o.objRaHours = p.raHours;
  o.objRaMinutes = p.raMinutes;
  o.objDecDegrees = p.decDegrees;
  o.objDecMinutes = p.decMinutes;
  o.objDecSign = p.decSign;
  o.sourceEpoch = p.epoch;
  o.targetEpoch = s.time.roundedYear;
  PrecessToDate(o);
  o.Name1 = PadRight(cmd.argument, 12);
  o.Name2.clear();
  o.Name3 = "Epoch " + FormatFixed(p.epoch, "0");
  o.Name4 = "ScriptCmd=" + std::to_string(s.script.scriptLineIndex);
  o.Name5.clear();
  o.magnitudeText.clear();
  o.magnitude = 99;
  s.form.list1Index = -1;
  s.search.foundState = 1;
  s.time.riseSetCurrent = false;
  ComputeAltAz(s);
  return {};
}

std::string Jump(ScriptContext& c, const Command& cmd) {
  auto number = WholeArgument(cmd.argument);
  ScriptState& sc = c.state.script;
  if (!number || *number < 1 || *number > sc.scriptLineCount) return "Invalid Command Number";
  sc.scriptLineIndex = static_cast<std::int16_t>(*number - 1);  // the step adds one
  return {};
}

using Handler = std::string (*)(ScriptContext&, const Command&);

struct Keyword {
  std::string_view text;
  Handler handler;
};

// Tried in this order; the first whose letters stand right before the first "=" wins. STAY goes
// to the telescope exactly as GOTO does.
constexpr Keyword kKeywords[] = {
    {"CAT", Cat},       {"FIND", Find},     {"DATE", Date},          {"WAIT", Wait},
    {"STAY", Goto},     {"GOTO", Goto},     {"EXIT", Exit},          {"SLEEP", Sleep},
    {"MATCH", Match},   {"NAME2", Name2},   {"SHELL", ShellCommand}, {"PLANET", Planet},
    {"MINALT", MinAlt}, {"MINMAG", MinMag}, {"RA", Position},        {"COMMAND", Jump},
};

}  // namespace

int ProcessCommand(ScriptContext& c, const std::string& line) {
  ScriptState& sc = c.state.script;
  const std::string upper = ToUpperLatin1(line);
  sc.scriptRunning = true;
  sc.message.clear();
  sc.commandStatus = kCommandRunning;
  c.state.form.statusText =
      "Processing Command" + std::to_string(sc.scriptLineIndex) + ":  " + line;

  const std::size_t equal = upper.find('=');
  const std::string argument = equal == std::string::npos ? "" : line.substr(equal + 1);
  const Command cmd{line, upper, argument};
  if (equal == std::string::npos) {
    sc.commandStatus = kCommandFailed;
    sc.message = "No 'equal sign' in command";
  } else if (sc.exitTimeSet && Reached((sc.exitHour * 60 + sc.exitMinute) * 60, c.clock.Now())) {
    sc.scriptLineIndex = sc.scriptLineCount;
    sc.commandStatus = kCommandExitTime;
    Log(c, "Exit time detected");
    sc.scriptRunning = false;
    return sc.commandStatus;
  } else {
    const std::string_view before(upper.data(), equal);
    const Keyword* match = nullptr;
    for (const Keyword& k : kKeywords) {
      if (before.size() >= k.text.size() &&
          before.substr(before.size() - k.text.size()) == k.text) {
        match = &k;
        break;
      }
    }
    sc.message = match ? match->handler(c, cmd) : "Command not Recognized";
    if (!sc.message.empty()) sc.commandStatus = kCommandFailed;
  }
  Log(c, Prefix(c, cmd) +
             (sc.commandStatus == kCommandFailed ? " Error: " + sc.message : " Successful"));
  sc.scriptRunning = false;
  return sc.commandStatus;
}

ScriptStep StepScript(ScriptContext& c) {
  ScriptState& sc = c.state.script;
  if (!sc.scriptMode) return {};
  if (sc.scriptLineIndex > sc.scriptLineCount) return {true, 0};
  const int status = ProcessCommand(c, sc.scriptLines[sc.scriptLineIndex]);
  if (status == kCommandFailed) return {true, status};
  ++sc.scriptLineIndex;
  return {};
}

}  // namespace astel
