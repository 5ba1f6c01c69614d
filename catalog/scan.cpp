// The scan under every search: reads records after the last one read, tests each, and reports
// when the catalog is used up.
#include <optional>

#include "astro/coordinates.h"
#include "astro/rise_transit_set.h"
#include "catalog/catalog_reader.h"
#include "catalog/catalog_record.h"
#include "catalog/matches_file.h"
#include "catalog/name_matcher.h"
#include "catalog/planet_record.h"
#include "catalog/search.h"
#include "catalog/transient_catalog.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr int kProgressEvery = 100;  // records between progress updates and event processing
constexpr std::size_t kHistoryStep = 25;

struct ScanContext {
  SharedState& state;
  std::string upperText, upperSecond;
  ObjectState candidate;  // swapped with the shown object while a record is tested
  MatchesWriter matches;
};

bool OpenAtFirstRecord(CatalogReader& reader, const std::string& path) {
  std::string header;
  return reader.Open(path) && reader.NextRaw(header);  // the header is never searched
}

void AddToHistory(SearchState& q, std::string_view record) {
  if (q.matchHistory.size() <= static_cast<std::size_t>(q.matchCount)) {
    // The history grows 25 entries at a time; the storage beneath it doubles, so that saving
    // the matches of a whole catalog does not move every entry again for each step.
    if (q.matchHistory.capacity() < q.matchHistory.size() + kHistoryStep)
      q.matchHistory.reserve(2 * q.matchHistory.capacity() + kHistoryStep);
    q.matchHistory.resize(q.matchHistory.size() + kHistoryStep);
  }
  q.matchHistory[static_cast<std::size_t>(q.matchCount)] = FitRecord(record);
  q.matchIndex = q.matchCount;
  ++q.matchCount;
}

// The record test: names first (cheap), then the position, then the limits.
bool TestRecord(ScanContext& c, std::string_view record) {
  SharedState& state = c.state;
  SearchState& q = state.search;
  const bool keepMarks = q.bestOfSkyMode;
  const bool named = q.longNameSearch
                         ? MatchNameField(record, 0, kLongNameWidth, c.upperText, keepMarks) > 0
                         : MatchAnyName(record, c.upperText, keepMarks);
  if (!named) return false;
  if (!c.upperSecond.empty() && !q.longNameSearch && !q.secondPassPending &&
      !MatchAnyName(record, c.upperSecond, keepMarks)) {
    return false;
  }
  std::optional<PlanetRecord> planet;
  if (record[0] == '!') {
    if (q.bestOfSkyMode) planet = ParsePlanetRecord(record);
    if (!planet) return false;
  }

  std::swap(state.object, c.candidate);
  ObjectState& o = state.object;
  if (planet) {
    ShowPlanet(state, planet->body);
  } else {
    ShowRecord(ParseRecord(record), o);
    o.targetEpoch = state.time.roundedYear;
    PrecessToDate(o);
    o.sourceEpoch = o.targetEpoch;
  }
  ComputeAltAz(state);
  // A planet line's own minimum altitude replaces the general one: the catalog sets it per body
  // (a low Mercury is worth showing, a low Uranus is not).
  bool pass = planet ? o.altitude >= planet->minAltitude &&
                           (planet->maxDistanceRatio <= 0 ||
                            DistanceRatio(planet->body, o.distanceAu) <= planet->maxDistanceRatio)
                     : o.altitude >= q.minAltitude;
  pass = pass && o.magnitude <= q.faintestMagnitude;
  if (!pass) {
    std::swap(state.object, c.candidate);
    return false;
  }

  q.foundState = 2;
  AddToHistory(q, record);
  state.time.riseSetCurrent = false;
  if (planet) UpdateRiseTransitSet(state);  // the planet's match line carries rise and set
  c.matches.Write(MatchLines(state, q.matchCount));
  return true;
}

void ShowProgress(const SharedState& state, CatalogPorts& ports) {
  const SearchState& q = state.search;
  std::string text;
  if (q.bestOfSkyMode) {
    text = "Searching for the Very Best!";
  } else if (q.savingMatches) {
    text = "Saving Matches - line " + std::to_string(q.recordsRead);
  } else {
    text = SearchingCaption(state) + "    " + std::to_string(q.recordsRead);
  }
  ports.searchWindow.SetProgress(text);
  ports.events.DoEvents();
}

void ReportEndOfScan(SharedState& state, CatalogPorts& ports) {
  SearchState& q = state.search;
  const std::string& file = state.files.catalogFileName;
  std::string message;
  if (q.transientCatalog) {
    message = kTransientNotSearchable;
  } else if (q.foundState == 0) {
    message = "Object " + q.searchText + " " + q.secondName + " Not Found in Catalog " + file;
  } else if (q.searchText.size() > 12) {
    message = "No More Matches for " + q.searchText + " " + " found in Catalog " + file;
  } else {
    message =
        "No More Matches for " + q.searchText + " " + q.secondName + " found in Catalog " + file;
  }
  bool limited = false;
  if (q.minAltitude != -90) {
    message += "\nAbove " + PlainNumber(q.minAltitude) + " Degrees";
    limited = true;
  }
  if (q.faintestMagnitude != 100) {
    message += "\nBrighter than Mag" + NumberText(q.faintestMagnitude);
    limited = true;
  }
  if (limited) {
    q.foundState = 0;
    state.object.Name1 = std::string(11, ' ');
  }
  if (q.matchCount > 0) ShowHistoryEntry(state, q.matchCount - 1);  // the last match stays shown
  if (q.bestOfSkyMode) {
    message = q.matchCount == 0 ? "Object not found in " + file : "No More 'Best of the Sky'";
  }
  // Saving runs to the end on purpose; a script logs its own outcome and must not wait on a box.
  if (!q.savingMatches && !state.script.scriptMode) ports.dialogs.MessageBox(message);
  q.matchesFileComplete = true;
  state.form.writeMatchCaption = "View Matches";
  state.form.writeMatchToolTip =
      "View the list of " + std::to_string(q.matchCount) + " saved matches";
}

}  // namespace

bool Scan(SharedState& state, CatalogPorts& ports) {
  SearchState& q = state.search;
  const std::string path = CatalogPath(state.files.catalogDirectory, state.files.catalogFileName);
  ScanContext c{state, ToUpperLatin1(q.searchText), ToUpperLatin1(q.secondName), state.object, {}};
  CatalogReader reader;
  q.endOfCatalog = false;
  if (!q.catalogOpen) {
    // A fresh scan: from the first record, with a new matches file and an empty history.
    const bool saving = q.savingMatches;
    q.foundState = 0;
    ResetMatchSaving(state);
    q.savingMatches = saving;
    q.matchCount = q.matchIndex = 0;
    q.recordsRead = 0;
    q.catalogOpen = OpenAtFirstRecord(reader, path);
    c.matches.Open(MatchesFilePath(state), true);
    c.matches.Write(MatchesHeader(state));
    for (std::string* name :
         {&state.object.Name2, &state.object.Name3, &state.object.Name4, &state.object.Name5}) {
      *name = std::string(kNameWidth, ' ');
    }
  } else {
    // The catalog "stayed open": reopen it where the last record ended.
    q.catalogOpen = reader.Open(path, q.catalogOffset);
    c.matches.Open(MatchesFilePath(state), false);
  }
  q.endOfCatalog = !q.catalogOpen;  // an unreadable catalog ends the scan at once

  std::string record;
  for (;;) {
    while (!q.endOfCatalog) {
      ++q.recordsRead;
      if (!q.transientCatalog && ++q.progressCounter >= kProgressEvery) {
        q.progressCounter = 0;
        ShowProgress(state, ports);
      }
      if (q.cancelRequested) {
        CloseSearch(q);
        ports.searchWindow.Hide();
        return false;
      }
      if (!reader.Next(record)) {
        q.endOfCatalog = true;
        break;
      }
      if (TestRecord(c, record)) {
        q.foundState = 1;
        if (!q.savingMatches) {
          q.catalogOffset = reader.Offset();
          ports.searchWindow.Hide();
          return true;
        }
      }
    }
    reader.Close();
    CloseSearch(q);
    if (q.secondName.empty() || !q.secondPassPending) break;
    // Best of the Sky: the "^" pass follows the "&" pass, from the first record again.
    q.secondPassPending = false;
    q.searchText = q.secondName;
    q.secondName.clear();
    c.upperText = ToUpperLatin1(q.searchText);
    c.upperSecond.clear();
    q.catalogOpen = OpenAtFirstRecord(reader, path);
    q.endOfCatalog = !q.catalogOpen;
  }
  c.matches.Close();
  ReportEndOfScan(state, ports);
  q.savingMatches = false;
  ports.searchWindow.Hide();
  return false;
}

}  // namespace astel
