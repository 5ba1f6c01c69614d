#include "catalog/search.h"

#include "astro/coordinates.h"
#include "catalog/catalog_record.h"
#include "catalog/name_matcher.h"
#include "catalog/planet_record.h"
#include "catalog/transient_catalog.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr std::size_t kShortNameLimit = 12;  // longer texts search the 24-column long name

// Asks a number until it lies in [low, high] (or below high when highExclusive). An empty answer
// keeps the current value; a text that is no number is asked again.
void AskLimit(Dialogs& dialogs, const std::string& prompt, const std::string& title, double low,
              double high, bool highExclusive, double& value) {
  std::string answer = dialogs.InputBox(prompt, title, "");
  while (!answer.empty()) {
    const double v = LeadingNumber(answer);
    const bool inRange = v >= low && (highExclusive ? v < high : v <= high);
    if (StartsWithNumber(answer) && inRange) {
      value = v;
      return;
    }
    answer = dialogs.InputBox(prompt, title, "");
  }
}

bool ServeTransient(SharedState& state, CatalogPorts& ports) {
  const bool served = ReloadTransientPosition(state, ports.dialogs) == TransientResult::kLoaded;
  if (served && !state.script.scriptMode) ports.dialogs.MessageBox(kTransientNotSearchable);
  return served;
}

}  // namespace

std::string SearchPrompt(const SharedState& state) {
  std::string prompt = "Name of Object to Search for In Current Catalog " +
                       state.files.catalogFileName + " Up to " + "12" + " Chars";
  if (ToUpperLatin1(state.files.catalogFileName) == "FULL.OBC") {
    prompt +=
        "\n (Example: M31, crab, Mizar, Virgo, galaxy, NGC 7009, Gam Per, IC 434, 61 Cyg, HR "
        "2491, Alp* Lib, etc.)";
  }
  if (state.search.catalogHasLongNames) {
    prompt += "\nCan be up to 16 chars ( > 8 is a Long Name).";
    prompt += "\nDouble-wildcard (**) forces search as Long Name";
  }
  return prompt;
}

std::string SearchingCaption(const SharedState& state) {
  return "Searching for " + state.search.lastSearchText + " " + state.search.secondName +
         " in Catalog " + state.files.catalogFileName;
}

void ResetMatchSaving(SharedState& state) {
  state.form.writeMatchCaption = "Save Matches";
  state.form.writeMatchToolTip =
      "Save all matches to a text file, and go to the final matching object";
  state.search.savingMatches = false;
  state.search.matchesFileComplete = false;
}

void CloseSearch(SearchState& q) {
  q.catalogOpen = false;
  q.catalogOffset = 0;
  q.endOfCatalog = false;
}

void ShowHistoryEntry(SharedState& state, int index) {
  SearchState& q = state.search;
  if (index < 0 || index >= q.matchCount) return;
  const std::string& record = q.matchHistory[static_cast<std::size_t>(index)];
  if (const auto planet = ParsePlanetRecord(record)) {
    ShowPlanet(state, planet->body);
  } else {
    ShowRecord(ParseRecord(record), state.object);
    state.object.targetEpoch = state.time.roundedYear;
    PrecessToDate(state.object);
    state.object.sourceEpoch = state.object.targetEpoch;
  }
  ComputeAltAz(state);
  q.matchIndex = index;
  q.foundState = 1;
  state.time.riseSetCurrent = false;
}

bool StartSearch(SharedState& state, CatalogPorts& ports, const SearchRequest& request) {
  SearchState& q = state.search;
  state.form.catalogNote.clear();
  q.cancelRequested = false;
  if (!request.bestOfSky) q.bestOfSkyMode = q.secondPassPending = false;
  // A transient catalog is not searched by name: it serves the position for the time set.
  if (q.transientCatalog) return ServeTransient(state, ports);

  std::string text;
  if (request.text) {
    text = *request.text;
    q.secondName = request.secondName;
  } else {
    q.minAltitude = -90;
    q.faintestMagnitude = 100;
    q.secondName.clear();
    text = ports.dialogs.InputBox(SearchPrompt(state), "Search for Object in Catalog",
                                  q.lastSearchText);
  }
  if (text.empty()) return false;

  CloseSearch(q);
  q.longNameSearch = false;
  state.object.Name1.clear();
  ResetMatchSaving(state);
  state.form.list1Index = -1;
  const bool longText = text.size() > kShortNameLimit || text.find("**") != std::string::npos;
  if (request.detailed) {
    if (longText) {
      q.longNameSearch = true;
    } else {
      const std::string second = ports.dialogs.InputBox("Second Name to Search for, if any ",
                                                        "Second Name?", q.lastSecondName);
      if (!second.empty()) q.secondName = q.lastSecondName = second;
    }
    double altitude = q.minAltitude;
    AskLimit(ports.dialogs,
             "Specify Minimum Altitude in Degrees (0 to 89 ) or click 'CANCEL' to ignore",
             "Set Minimum Altitude", 0, 89, false, altitude);
    q.minAltitude = static_cast<float>(altitude);
    // The magnitude refuses 19 although the prompt shows it; the altitude accepts 89.
    AskLimit(ports.dialogs, "Specify Faintest Magnitude (0 to 19 ) or click 'CANCEL' to ignore",
             "Set Faintest Magnitude", 0, 19, true, q.faintestMagnitude);
  } else if (longText && q.catalogHasLongNames) {
    q.longNameSearch = true;
  }
  q.searchText = q.lastSearchText = RebuildSearchText(text);
  if (!q.catalogHasLongNames) q.longNameSearch = false;

  ports.searchWindow.Show(SearchingCaption(state));
  ports.events.DoEvents();
  return Scan(state, ports);
}

bool SimpleSearch(SharedState& state, CatalogPorts& ports) {
  return StartSearch(state, ports, SearchRequest{});
}

bool DetailedSearch(SharedState& state, CatalogPorts& ports) {
  SearchRequest request;
  request.detailed = true;
  return StartSearch(state, ports, request);
}

bool FindObject(SharedState& state, CatalogPorts& ports, const std::string& name) {
  SearchRequest request;
  request.text = name;
  request.secondName = state.search.secondName;
  return StartSearch(state, ports, request);
}

bool NextMatch(SharedState& state, CatalogPorts& ports) {
  SearchState& q = state.search;
  q.cancelRequested = false;
  if (q.matchCount > 0 && q.matchIndex < q.matchCount - 1) {
    ShowHistoryEntry(state, q.matchIndex + 1);
    return true;
  }
  if (q.transientCatalog) return ServeTransient(state, ports);
  if (q.searchText.empty()) return false;  // no search has been made
  ports.searchWindow.Show(SearchingCaption(state));
  ports.events.DoEvents();
  return Scan(state, ports);
}

bool PreviousMatch(SharedState& state) {
  SearchState& q = state.search;
  if (q.matchCount == 0) return false;
  ShowHistoryEntry(state, q.matchIndex > 0 ? q.matchIndex - 1 : 0);
  return true;
}

}  // namespace astel
