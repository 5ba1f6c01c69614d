#include "core/observing_log.h"

#include "core/file_write.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr const char* kLineEnd = "\r\n";
const std::string kDegree(1, kDegreeSign);

// A number item: its text with a blank (or "-") in front and one blank after.
std::string NumberItem(double value) {
  return NumberText(value) + " ";
}

double RoundedToTenths(double value) {
  return LeadingNumber(FormatFixed(value, "0.0"));
}

std::string DateText(const SharedState& s) {
  const TimeState& t = s.time;
  return s.place.usDateOrder ? t.monthText + "-" + t.dayText + "-" + t.yearText
                             : t.dayText + "-" + t.monthText + "-" + t.yearText;
}

std::string TimeText(const TimeState& t) {
  return t.hourText + ":" + t.minuteText + ":" + t.secondText;
}

// gmtTimeText already holds hours and minutes, so the minutes appear twice; kept as it always was.
std::string GmtText(const TimeState& t) {
  return t.gmtTimeText + ":" + t.minuteText + ":" + t.secondText + " " + t.gmtDaySign;
}

std::string AltitudeItem(const ObjectState& o) {
  return NumberItem(RoundedToTenths(o.altitude)) + kDegree;
}

std::string ObjectLine(const SharedState& s, const std::string& when) {
  const ObjectState& o = s.object;
  switch (o.objectKind) {
    case 0:  // the Sun
      return o.Name1 + " Dist=" + o.Name2 + ". Alt=" + AltitudeItem(o) + " " + o.Name5 + " " + when;
    case 3:  // the Moon
      return o.Name1 + " " + o.Name2 + " " + o.Name3 + " " + o.Name4 + " " + o.Name5 +
             " . Alt=" + AltitudeItem(o) + " " + when;
    default:
      break;
  }
  if (o.objectKind > 0) {
    return o.Name1 + " Dist=" + o.Name2 + " " + o.Name3 + ". Alt=" + AltitudeItem(o) + " " +
           o.Name5 + " " + when;
  }
  std::string line = o.Name1 + " " + o.Name2 + " " + o.Name3 + " " + o.Name4 + " " + o.Name5 +
                     " Alt=" + AltitudeItem(o);
  std::string magnitude = o.magnitudeText;
  magnitude.erase(0, magnitude.find_first_not_of(' '));
  if (!magnitude.empty()) line += " MAG=" + magnitude.substr(0, 5);
  return line + " " + when;
}

}  // namespace

std::string ComposeLogEntry(SharedState& s, const std::string& text) {
  const std::string date = DateText(s), time = TimeText(s.time);
  std::string entry;
  if (s.program.lastLoggedName.empty()) {
    s.program.lastLoggedName = "  ";
    entry += "  ";
    entry += kLineEnd;
    entry += s.script.scriptMode ? "COMMAND LOG WRITTEN " : "OBSERVING NOTES WRITTEN ";
    entry += date + " STARTING " + time + " LOCAL TIME, GMT= " + GmtText(s.time);
    entry += " LOCATION FILE: " + s.files.homeFileName;
    entry += " LAT=" + NumberItem(s.place.latitudeDegrees) + kDegree +
             NumberItem(RoundedToTenths(s.place.latitudeMinutes));
    entry += "' LONG=" + NumberItem(s.place.longitudeDegrees) + kDegree +
             NumberItem(RoundedToTenths(s.place.longitudeMinutes));
    entry += "' GOTO SCOPE=" + NumberItem(s.telescope.scopeType);
    entry += kLineEnd;
    entry += "  ";
    entry += kLineEnd;
  }
  if (s.search.foundState == 0) {
    entry += "No Object Selected  " + date + " " + time + kLineEnd;
  } else if (!(s.script.scriptMode && s.object.Name1 == s.program.lastLoggedName)) {
    // A script repeats no object line while the same object stays selected.
    s.program.lastLoggedName = s.object.Name1;
    entry += ObjectLine(s, date + " " + time) + kLineEnd;
  }
  return entry + text + kLineEnd;
}

bool WriteLogEntry(SharedState& s, Dialogs& dialogs, const std::string& text) {
  const std::string path = s.files.installDir + s.files.logFileName;
  const std::string before = s.program.lastLoggedName;
  const std::string entry = ComposeLogEntry(s, text);
  // One write of whole lines, so entries never interleave or break in the middle.
  const std::string error = AppendToFile(path, entry);
  const bool ok = error.empty();
  if (!ok) {
    s.program.lastLoggedName = before;
    dialogs.MessageBox("Unable to write the observing log " + error);
  }
  return ok;
}

void TakeObservingNotes(SharedState& s, Dialogs& dialogs) {
  const std::string& name =
      (s.search.transientCatalog && s.object.objectKind < 0) ? s.object.Name2 : s.object.Name1;
  const std::string prompt = "Enter Observing Notes for " + name + " - a blank line exits";
  std::string title = "Write to Observing Log  " + s.files.logFileName;
  while (true) {
    std::string note = dialogs.InputBox(prompt, title, "");
    if (note.empty()) return;
    if (!WriteLogEntry(s, dialogs, note)) return;
    title = "Write to Observing Log";
  }
}

}  // namespace astel
