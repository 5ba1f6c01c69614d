#include "catalog/matches_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>

#include "astro/date_stamp.h"
#include "astro/solar_system.h"
#include "catalog/search.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr std::size_t kFlushSize = 1 << 16;

struct CalendarDate {
  int day, month, year;
};

CalendarDate ShiftDays(CalendarDate d, int days) {
  if (days > 0) {
    if (++d.day > DaysInMonthOf(d.month, d.year)) {
      d.day = 1;
      if (++d.month > 12) d.month = 1, ++d.year;
    }
  } else if (days < 0) {
    if (--d.day < 1) {
      if (--d.month < 1) d.month = 12, --d.year;
      d.day = DaysInMonthOf(d.month, d.year);
    }
  }
  return d;
}

std::string DateText(const SharedState& s, CalendarDate d) {
  const std::string day = FormatFixed(d.day, "00"), month = FormatFixed(d.month, "00");
  const std::string year = FormatFixed(d.year, "0000");
  return s.place.usDateOrder ? month + "-" + day + "-" + year : day + "-" + month + "-" + year;
}

std::string Degrees(int wholeDegrees, double minutes) {
  return PlainNumber(std::abs(wholeDegrees)) + kDegreeSign +
         PlainNumber(std::round(minutes * 10) / 10) + "' ";
}

std::string SearchDescription(const SharedState& s) {
  const SearchState& q = s.search;
  if (q.bestOfSkyMode) return "\"Best of the Sky\"";
  std::string d = "\"" + q.searchText + "\"";
  if (!q.secondName.empty()) d += " and \"" + q.secondName + "\"";
  if (q.minAltitude >= 0) d += ". Objects above " + PlainNumber(q.minAltitude) + kDegreeSign;
  if (q.faintestMagnitude != 100) d += ", Brighter than Mag" + NumberText(q.faintestMagnitude);
  return d;
}

bool MagnitudeUnknown(const ObjectState& o) {
  return o.magnitude >= 99 || o.magnitudeText.find_first_not_of(' ') == std::string::npos;
}

std::string RiseSetText(const ObjectState& o) {
  return " " + o.riseLabel + o.riseText + " " + o.transitLabel + o.transitText + " " + o.setLabel +
         o.setText;
}

std::string AltitudeText(const ObjectState& o) {
  return ". Alt=" + NumberText(std::round(o.altitude * 10) / 10) + kDegreeSign;
}

}  // namespace

std::string MatchesFilePath(const SharedState& s) {
  std::string dir = s.files.installDir;
  if (!dir.empty() && dir.back() != '/') dir += '/';
  return dir + s.files.matchesFileName;
}

std::string PlainNumber(double value) {
  std::string text = NumberText(value);
  if (!text.empty() && text[0] == ' ') text.erase(0, 1);
  return text;
}

std::string MatchesHeader(const SharedState& s) {
  const TimeState& t = s.time;
  const CalendarDate local{t.day, t.month, t.year};
  const CalendarDate gmt = ShiftDays(local, t.gmtNextDay ? 1 : t.gmtPrevDay ? -1 : 0);
  std::string h = "ASTEL+S Search= " + SearchDescription(s) + kLineEnd;
  h += "Data is for " + DateText(s, local) + " at " + t.hourText + ":" + t.minuteText + ":" +
       t.secondText + " Local Time, GMT= " + t.gmtTimeText + ":" + t.secondText + " " +
       DateText(s, gmt) + kLineEnd;
  const PlaceState& p = s.place;
  h += "Lat=" + Degrees(p.latitudeDegrees, p.latitudeMinutes) + (p.homeLatitude < 0 ? "S" : "N") +
       ", Long=" + Degrees(p.longitudeDegrees, p.longitudeMinutes) +
       (p.homeLongitude < 0 ? "E" : "W") + ", Location File= " + s.files.homeFileName +
       ", Catalog= " + s.files.catalogFileName + kLineEnd;
  h += std::string("    ") + kLineEnd;
  return h;
}

std::string MatchNumberText(int n) {
  std::string text = n < 10 ? " " : "";
  text += std::to_string(n);
  text += n < 100 ? ". " : ".";
  return text;
}

std::string MatchLines(const SharedState& s, int n) {
  const ObjectState& o = s.object;
  const std::string number = MatchNumberText(n);
  if (o.objectKind == kMoon) {
    return number + o.Name1 + " " + o.moonPhaseName + " " + o.elongationText +
           " Dist=" + DistanceText(o.distanceAu) + AltitudeText(o) + RiseSetText(o) + kLineEnd;
  }
  if (o.objectKind >= 0) {
    return number + o.Name1 + "Dist=" + DistanceText(o.distanceAu) + AltitudeText(o) +
           RiseSetText(o) + kLineEnd;
  }
  const std::string blank12(12, ' ');
  std::string line = number + PadRight(o.Name1, 12) + " " + PadRight(o.Name2, 12) + " " +
                     PadRight(o.Name3, 12) + " " + PadRight(o.Name4, 12) + "        " +
                     PadRight(o.Name5, 12) + kLineEnd;
  line += "    Alt=" + FormatFixed(o.altitude, "00.0") + kDegreeSign;
  if (o.azimuth > 0) line += "    Az=" + FormatFixed(o.azimuth, "000.0") + kDegreeSign;
  line += MagnitudeUnknown(o) ? blank12 : "    Mag=" + PadRight(o.magnitudeText, 4).substr(0, 4);
  line += "     R.A. = " + FormatFixed(o.objRaHours, "00") + "h " +
          FormatFixed(o.objRaMinutes, "00.0") + "m";
  std::string degrees = NumberText(o.objDecDegrees);
  if (o.objDecDegrees == 0 && o.objDecSign < 0) degrees[0] = '-';  // -0 degrees keeps its sign
  line += "    Dec = " + degrees + kDegreeSign + " " + FormatFixed(o.objDecMinutes, "00.0") + "'";
  line += kLineEnd;
  return line;
}

MatchesWriter::~MatchesWriter() {
  Close();
}

bool MatchesWriter::Open(const std::string& path, bool truncate) {
  Close();
  failed_ = false;
  const int flags = O_WRONLY | O_CREAT | O_CLOEXEC | (truncate ? O_TRUNC : O_APPEND);
  do {
    fd_ = ::open(path.c_str(), flags, 0644);
  } while (fd_ < 0 && errno == EINTR);
  failed_ = fd_ < 0;
  return !failed_;
}

void MatchesWriter::Write(const std::string& text) {
  if (fd_ < 0) return;
  buffer_ += text;
  if (buffer_.size() >= kFlushSize) Flush();
}

void MatchesWriter::Flush() {
  std::size_t done = 0;
  while (fd_ >= 0 && done < buffer_.size()) {
    const ssize_t n = ::write(fd_, buffer_.data() + done, buffer_.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      failed_ = true;
      break;
    }
    done += static_cast<std::size_t>(n);
  }
  buffer_.clear();
}

void MatchesWriter::Close() {
  if (fd_ < 0) return;
  Flush();
  ::close(fd_);
  fd_ = -1;
}

void WriteMatchButtonClick(SharedState& state, CatalogPorts& ports) {
  SearchState& q = state.search;
  const std::string path = MatchesFilePath(state);
  if (q.matchesFileComplete) {
    ports.shell.OpenDocument(path, state.files.installDir);
    return;
  }
  if (q.searchText.empty()) return;  // no search yet: nothing to save
  q.savingMatches = true;
  q.cancelRequested = false;
  ports.searchWindow.Show("Saving Matches - line " + std::to_string(q.recordsRead));
  Scan(state, ports);
  if (!q.matchesFileComplete) return;  // cancelled
  if (ports.dialogs.YesNo(std::to_string(q.matchCount) +
                          " Matches written to 'matches.txt'. View list of matches?")) {
    ports.shell.OpenDocument(path, state.files.installDir);
  }
}

}  // namespace astel
