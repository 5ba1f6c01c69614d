// What the catalog functions ask of the windows: the "Searching" window with its Cancel button,
// plus the ports of core/ports.h that a search, Best of the Sky or Save Matches needs.
#pragma once

#include <string>

#include "core/ports.h"

namespace astel {

// The progress window of a catalog scan. Its Cancel button sets state.search.cancelRequested;
// the scan sees it after the next Events::DoEvents (every 100 records).
class SearchWindow {
 public:
  virtual ~SearchWindow() = default;
  virtual void Show(const std::string& caption) = 0;
  virtual void SetProgress(const std::string& text) = 0;
  virtual void Hide() = 0;
};

struct CatalogPorts {
  Dialogs& dialogs;
  Events& events;
  SearchWindow& searchWindow;
  Shell& shell;
};

}  // namespace astel
