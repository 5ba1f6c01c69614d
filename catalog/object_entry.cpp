#include "catalog/object_entry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <optional>

#include "astro/coordinates.h"
#include "catalog/catalog_record.h"
#include "core/file_write.h"
#include "core/text_format.h"

namespace astel {

namespace {

struct Range {
  double low, high;
  bool highExclusive;
  bool Holds(double v) const { return v >= low && (highExclusive ? v < high : v <= high); }
};
constexpr Range kHours{0, 23, false}, kMinutes{0, 60, true}, kDeclination{-90, 90, false};
constexpr Range kAltitude{0, 90, false}, kAzimuth{0, 360, true}, kEpoch{1000, 3000, false};

// Asks until the answer is a number in range; nullopt for an empty answer (Cancel).
std::optional<double> AskNumber(Dialogs& dialogs, const std::string& prompt,
                                const std::string& title, Range range,
                                const std::string& defaultAnswer = "") {
  for (;;) {
    const std::string answer = dialogs.InputBox(prompt, title, defaultAnswer);
    if (answer.empty()) return std::nullopt;
    const double v = LeadingNumber(answer);
    if (StartsWithNumber(answer) && range.Holds(v)) return v;
  }
}

bool StartsWithMinus(const std::string& text) {
  const std::size_t i = text.find_first_not_of(' ');
  return i != std::string::npos && text[i] == '-';
}

// Option1. Leaves the position, at the date's epoch, in o.
bool AskCoordinates(SharedState& state, Dialogs& dialogs, ObjectState& o) {
  const auto hours = AskNumber(dialogs, "Enter Hours of Right Ascension of object (0 to 23 )",
                               "Hours of Right Ascension", kHours);
  if (!hours) return false;
  const auto minutes =
      AskNumber(dialogs, "Enter minutes Right Ascension (0 to 59.9 ). Decimals are OK",
                "Set Minutes of Right Ascension", kMinutes);
  if (!minutes) return false;

  // The sign is read from the text, so that "-0" keeps it.
  const std::string decPrompt = "Enter Declination of Object in Degrees (-90 to 90 )";
  std::string decAnswer;
  for (;;) {
    decAnswer = dialogs.InputBox(decPrompt, "Degrees of Declination", "");
    if (decAnswer.empty()) return false;
    if (StartsWithNumber(decAnswer) && kDeclination.Holds(LeadingNumber(decAnswer))) break;
  }
  const bool south = StartsWithMinus(decAnswer);
  const double decSize = std::fabs(LeadingNumber(decAnswer));
  std::optional<double> decMinutes;
  do {  // 90 degrees takes no minutes
    decMinutes = AskNumber(dialogs, "Enter Minutes of Declination (0 to 59.9 ). Decimals are OK",
                           "Minutes of Declination", kMinutes);
    if (!decMinutes) return false;
  } while (decSize + *decMinutes / 60 > 90);
  const auto epoch = AskNumber(dialogs, "Epoch of those Coordinates?", "Epoch?", kEpoch, "2000");
  if (!epoch) return false;

  const double dec = decSize + *decMinutes / 60;
  SetObjectPosition(o, std::fmod(*hours + *minutes / 60, 24.0), south ? -dec : dec);
  o.sourceEpoch = *epoch;
  o.targetEpoch = state.time.roundedYear;
  PrecessToDate(o);
  o.sourceEpoch = o.targetEpoch;
  return true;
}

// Option2: the point seen at that altitude and azimuth now, a position of date.
bool AskAltAz(SharedState& state, Dialogs& dialogs, ObjectState& o) {
  std::optional<double> altitude, altMinutes;
  altitude = AskNumber(dialogs, "Enter Apparent Altitude of Object in Degrees (0 to 90 )",
                       "Degrees of Altitude", kAltitude);
  if (!altitude) return false;
  do {
    altMinutes = AskNumber(dialogs, "Enter Minutes of Altitude (0 to 59.9 ). Decimals are OK",
                           "Minutes of Altitude", kMinutes);
    if (!altMinutes) return false;
  } while (*altitude + *altMinutes / 60 > 90);
  // 360 is refused although the prompt shows it.
  const auto azimuth = AskNumber(dialogs, "Enter Degrees of Azimuth of object (0 to 360 )",
                                 "Degrees of Azimuth", kAzimuth);
  if (!azimuth) return false;
  const auto azMinutes =
      AskNumber(dialogs, "Enter minutes of Azimuth (0 to 59.9 ). Decimals are OK",
                "Set Minutes of Azimuth", kMinutes);
  if (!azMinutes) return false;
  const Equatorial eq =
      AltAzToEquatorial(state, *altitude + *altMinutes / 60, *azimuth + *azMinutes / 60);
  SetObjectPosition(o, eq.raHours, eq.decDegrees);
  o.sourceEpoch = o.targetEpoch = state.time.roundedYear;
  return true;
}

std::string AskName(Dialogs& dialogs, const std::string& prompt, const std::string& title) {
  return PadRight(dialogs.InputBox(prompt, title, ""), kNameWidth);
}

std::string Trimmed(const std::string& text) {
  const std::size_t end = text.find_last_not_of(' ');
  return end == std::string::npos ? "" : text.substr(0, end + 1);
}

}  // namespace

bool DataEntryOk(SharedState& state, Dialogs& dialogs, ScopeReadBack& scope,
                 const DataEntryForm& form) {
  if (form.option == EntryOption::kNone) {
    dialogs.MessageBox("Choose one of the Options for getting Object Data");
    return false;
  }
  if (Trimmed(form.name1).empty() && Trimmed(form.name2).empty()) {
    dialogs.MessageBox("The Object must have at least one name!");
    return false;
  }
  ObjectState o = state.object;
  switch (form.option) {
    case EntryOption::kTelescope:
      if (!state.time.realTimeMode) {
        dialogs.MessageBox("Must be in Real-Time Mode for Scope Load");
        return false;
      }
      if (!scope.ReadPosition(state)) return false;
      o.objRaHours = state.object.objRaHours;
      o.objRaMinutes = state.object.objRaMinutes;
      o.objDecDegrees = state.object.objDecDegrees;
      o.objDecMinutes = state.object.objDecMinutes;
      o.objDecSign = state.object.objDecSign;
      o.sourceEpoch = o.targetEpoch = state.time.roundedYear;  // the telescope points of date
      break;
    case EntryOption::kCoordinates:
      if (!AskCoordinates(state, dialogs, o)) return false;
      break;
    case EntryOption::kAltAz:
      if (!AskAltAz(state, dialogs, o)) return false;
      break;
    case EntryOption::kNone:
      return false;
  }
  o.Name1 = PadRight(form.name1, kNameWidth);
  o.Name2 = PadRight(form.name2, kNameWidth);
  o.Name3 = AskName(dialogs, "Add Third Name for Object?", "Third Name?");
  o.Name4 = AskName(dialogs, "Add Fourth Name for Object?", "Fourth Name?");
  o.Name5 = AskName(dialogs, "Add Fifth Name for Object?", "Fifth Name?");
  const std::string magnitude =
      dialogs.InputBox("Enter object's magnitude, if known", "Object's magnitude?", "");
  if (StartsWithNumber(magnitude)) {
    o.magnitudeText = PadRight(magnitude, kMagnitudeWidth);
    o.magnitude = LeadingNumber(magnitude);
  } else {
    o.magnitudeText = PadRight("99", kMagnitudeWidth);  // unknown
    o.magnitude = kUnknownMagnitude;
  }
  o.objectKind = -1;
  o.distanceAu = 0;

  state.object = std::move(o);
  state.telescope.positionFromScope = form.option == EntryOption::kTelescope;
  state.search.foundState = 1;
  state.form.list1Index = -1;
  state.time.riseSetCurrent = false;
  ComputeAltAz(state);
  return true;
}

bool AppendCatalogLine(const std::string& path, const std::string& record) {
  const int fd = ::open(path.c_str(), O_RDWR | O_APPEND | O_CLOEXEC);
  if (fd < 0) return false;
  // Follow the file's own line ending, and never glue the record to an unfinished last line.
  std::string lineEnd = "\r\n";
  char head[4096];
  const ssize_t n = ::pread(fd, head, sizeof head, 0);
  for (ssize_t i = 0; i < n; ++i) {
    if (head[i] == '\n') {
      if (i == 0 || head[i - 1] != '\r') lineEnd = "\n";
      break;
    }
  }
  std::string text;
  struct stat st;
  char last = '\n';
  if (::fstat(fd, &st) == 0 && st.st_size > 0 && ::pread(fd, &last, 1, st.st_size - 1) == 1 &&
      last != '\n') {
    text = lineEnd;
  }
  text += record + lineEnd;
  const bool ok = WriteAll(fd, text);
  ::close(fd);
  return ok;
}

bool AddObject(SharedState& state, Dialogs& dialogs) {
  const std::string& file = state.files.catalogFileName;
  if (!dialogs.YesNo("Do you want to add the object " + Trimmed(state.object.Name1) +
                     " to catalog " + file + " ?")) {
    return false;
  }
  const std::string path = CatalogPath(state.files.catalogDirectory, file);
  if (!AppendCatalogLine(path, ComposeRecord(FieldsOfObject(state.object)))) {
    dialogs.MessageBox("Cannot Open Catalog " + file);
    return false;
  }
  return true;
}

std::string CheckLocationEntry(const LocationEntry& e) {
  auto whole = [](const std::string& t) {
    return LeadingNumber(t) == std::floor(LeadingNumber(t)) && t.find('.') == std::string::npos;
  };
  auto inRange = [](const std::string& t, double high) {
    return StartsWithNumber(t) && LeadingNumber(t) >= 0 && LeadingNumber(t) <= high;
  };
  auto minutesOk = [](const std::string& t) {
    return StartsWithNumber(t) && LeadingNumber(t) >= 0 && LeadingNumber(t) < 60;
  };
  if (!inRange(e.latitudeDegrees, 89)) return "Degrees of latitude must be between 0 and 89";
  if (!whole(e.latitudeDegrees)) return "Enter Whole Number of Degrees Only";
  if (!minutesOk(e.latitudeMinutes))
    return "Minutes of latitude must be between 0 and 59.999, decimals OK";
  if (e.north == e.south) return "Select 'North' or 'South'";
  if (!inRange(e.longitudeDegrees, 179)) return "Degrees of longitude must be between 0 and 179";
  if (!whole(e.longitudeDegrees)) return "Enter Whole Number of Degrees Only";
  if (!minutesOk(e.longitudeMinutes))
    return "Minutes of longitude must be between 0 and 59.999, decimals OK";
  if (e.east == e.west) return "Select 'East' or 'West'";
  return "";
}

}  // namespace astel
