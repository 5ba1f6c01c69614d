// Catalog search and match navigation: the main window's search buttons, the script's FIND and
// MATCH, and the engine under Best of the Sky and Save Matches.
//
// The search walks the current catalog from its first record and stops at each record whose names
// match (name_matcher.h) and whose position passes the minimum altitude and faintest magnitude.
// The match becomes the shown object, is written to the matches file and is kept in the match
// history. Between two "Next Match" calls no file stays open: state.search.catalogOffset holds the
// byte offset after the last record read and the next call reopens the file there.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "catalog/search_ports.h"
#include "core/shared_state.h"

namespace astel {

struct SearchRequest {
  // Set: searched without a prompt (Best of the Sky, the script). Unset: asked for.
  std::optional<std::string> text;
  std::string secondName;  // with a passed text only
  bool detailed = false;   // DetailedSearch: second name, altitude and magnitude prompts
  bool bestOfSky = false;  // keeps the Best-of-the-Sky flags that BestOfTheSky set
};

// The general entry: true when a match was found and is shown.
bool StartSearch(SharedState& state, CatalogPorts& ports, const SearchRequest& request);

// The main window's buttons.
bool SimpleSearch(SharedState& state, CatalogPorts& ports);    // SimpleSearch
bool DetailedSearch(SharedState& state, CatalogPorts& ports);  // DetailedSearch

// The script's FIND=name: no prompts and no message boxes, the current second name and limits.
// False when nothing was found (the script reports "Object not found in " + catalog file name).
bool FindObject(SharedState& state, CatalogPorts& ports, const std::string& name);

// NextMatchButton and the script's MATCH: the next history entry, or the scan continued after the
// last match. False when no further match exists (the script reports "Match not found").
bool NextMatch(SharedState& state, CatalogPorts& ports);

// PreviousMatch: the previous history entry (not before the first). False without a history.
bool PreviousMatch(SharedState& state);

// WriteMatchButton back to "Save Matches" and the saving flags cleared.
void ResetMatchSaving(SharedState& state);

// Closes any open search so that the next scan starts from the first record: a change of
// catalog, date or time calls this.
void CloseSearch(SearchState& search);

// The prompt of the search dialog for the current catalog.
std::string SearchPrompt(const SharedState& state);

// The caption of the Searching window for the current search.
std::string SearchingCaption(const SharedState& state);

// Makes history entry `index` the shown object again (position for the current time).
void ShowHistoryEntry(SharedState& state, int index);

// The scan of the current search (the catalog reopened where it stopped, or from the first
// record); true when it stopped at a match. Used by NextMatch, Best of the Sky and Save Matches.
bool Scan(SharedState& state, CatalogPorts& ports);

}  // namespace astel
