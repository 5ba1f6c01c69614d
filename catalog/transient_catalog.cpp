#include "catalog/transient_catalog.h"

#include <cmath>
#include <filesystem>
#include <system_error>

#include "astro/coordinates.h"
#include "catalog/catalog_reader.h"
#include "catalog/catalog_record.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr double kHourDays = 1.0 / 24;
constexpr double kTimeSlackDays = 1e-6;  // well below a second

int TwoDigits(std::string_view t, std::size_t at) {
  const char a = t[at], b = t[at + 1];
  if (a < '0' || a > '9' || b < '0' || b > '9') return -1;
  return (a - '0') * 10 + (b - '0');
}

struct Served {
  std::string record;
  double time = 0;
};

// The position records of the file at `path`, read again only when its size or modification time
// differ from what `cache` holds; a file that cannot be read holds no positions.
const TransientRecords& CurrentRecords(const std::string& path, TransientRecords& cache) {
  std::error_code error;
  const auto modified = std::filesystem::last_write_time(path, error);
  const std::uintmax_t size = error ? 0 : std::filesystem::file_size(path, error);
  const std::int64_t stamp = error ? 0 : modified.time_since_epoch().count();
  if (!error && cache.path == path && cache.modified == stamp && cache.size == size) return cache;

  cache = TransientRecords{error ? std::string() : path, stamp, size, {}};
  CatalogReader reader;
  std::string record;
  if (error || !reader.Open(path) || !reader.NextRaw(record)) return cache;
  while (reader.Next(record)) {
    if (record[87] != 'T') continue;
    if (const std::optional<double> time = TransientRecordTime(record))
      cache.byTime.emplace_back(*time, record);
  }
  return cache;
}

}  // namespace

std::string TransientTimeText(int year, int month, int day, int hour) {
  return FormatFixed(year % 100, "00") + FormatFixed(month, "00") + FormatFixed(day, "00") + " " +
         FormatFixed(hour, "00");
}

double JulianDateOf(int year, int month, int day, double hours) {
  if (month <= 2) {
    year -= 1;
    month += 12;
  }
  const int a = year / 100;
  const int b = 2 - a + a / 4;
  return std::floor(365.25 * (year + 4716)) + std::floor(30.6001 * (month + 1)) + day + b - 1524.5 +
         hours / 24;
}

std::optional<double> TransientRecordTime(std::string_view record) {
  if (record.size() < 87) return std::nullopt;
  const std::string_view t = record.substr(78, 9);
  const int yy = TwoDigits(t, 0), mm = TwoDigits(t, 2), dd = TwoDigits(t, 4);
  const int hh = TwoDigits(t, 7);
  if (yy < 0 || mm < 1 || mm > 12 || dd < 1 || dd > 31 || t[6] != ' ' || hh < 0 || hh > 23)
    return std::nullopt;
  return JulianDateOf(2000 + yy, mm, dd, hh);
}

double GmtJulianDate(const TimeState& t) {
  return t.julianDate - t.second / 3600 + t.second / 86400;
}

std::string TransientOutOfDateMessage(const std::string& fileName, int headerYear,
                                      int currentYear) {
  std::string m = "The Transient Catalog " + fileName +
                  " contains no positions for the time set in ASTEL. Either change the time, or "
                  "change catalogs.";
  if (currentYear > headerYear)
    m += "\nThis catalog appears to be obsolete, and should be deleted.";
  return m;
}

TransientResult ReloadTransientPosition(SharedState& state, Dialogs& dialogs) {
  SearchState& q = state.search;
  if (!q.transientCatalog) return TransientResult::kNotTransient;
  const double now = GmtJulianDate(state.time);

  const TransientRecords& records = CurrentRecords(
      CatalogPath(state.files.catalogDirectory, state.files.catalogFileName), q.transientRecords);
  std::optional<Served> at, next;
  for (const auto& [time, record] : records.byTime) {
    if (time <= now + kTimeSlackDays) {
      if (!at || time > at->time) at = Served{record, time};
    } else if (!next || time < next->time) {
      next = Served{record, time};
    }
  }

  if (!at || now - at->time >= kHourDays - kTimeSlackDays) {
    if (!q.transientReported) {
      q.transientReported = true;
      dialogs.MessageBox(TransientOutOfDateMessage(
          state.files.catalogFileName, ParseHeader(q.catalogDescription).year, state.time.year));
    }
    q.foundState = 0;
    state.object.Name1.clear();
    return TransientResult::kNoPosition;
  }

  CatalogRecord shown = ParseRecord(at->record);
  if (next && next->time - at->time <= kHourDays + kTimeSlackDays) {
    const CatalogRecord following = ParseRecord(next->record);
    const double f = (now - at->time) / (next->time - at->time);
    double raNext = following.raHours;
    if (raNext - shown.raHours > 12) raNext -= 24;  // across 0h
    if (shown.raHours - raNext > 12) raNext += 24;
    shown.raHours = std::fmod(shown.raHours + f * (raNext - shown.raHours) + 24, 24.0);
    shown.decDegrees += f * (following.decDegrees - shown.decDegrees);
    shown.decNegative = shown.decDegrees < 0;
  }
  q.transientReported = false;
  ShowRecord(shown, state.object);
  state.object.targetEpoch = state.time.roundedYear;
  PrecessToDate(state.object);
  state.object.sourceEpoch = state.object.targetEpoch;
  q.foundState = 1;
  return TransientResult::kLoaded;
}

}  // namespace astel
