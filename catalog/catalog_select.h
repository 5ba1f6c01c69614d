// Catalog selection: opening a catalog (CatalogSelect's file list, its DefaultCat button, the
// script's CAT) and creating a new one (NewCatalog).
#pragma once

#include <string>

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

inline constexpr const char* kDefaultCatalogName = "FULL.OBC";
inline constexpr const char* kLongNameCaption =
    "This catalog uses long names. One name can be up to 16 chars long. Name3 and Name 4 are 8 "
    "chars each.";

// Opens `fileName` in `directory` as the current catalog: reads its header (description, long
// names, transient), closes any open search, and sets the main window's catalog texts
// (catalogNote, catalogPath "Catalog = " + path, catalogLabel, the search buttons for an ordinary
// catalog, BestOf for the default one). False, changing nothing, when the file cannot be read.
// The script's CAT=name calls OpenCatalog(state, state.files.catalogDirectory, name) and reports
// "Cannot Open Catalog " + name on false.
bool OpenCatalog(SharedState& state, const std::string& directory, const std::string& fileName);

// File1 click: OpenCatalog, with the message "Cannot Open Catalog " + name when it fails.
bool SelectCatalogFile(SharedState& state, Dialogs& dialogs, const std::string& directory,
                       const std::string& fileName);

// DefaultCat click: "FULL.OBC" in `directory`.
bool OpenDefaultCatalog(SharedState& state, Dialogs& dialogs, const std::string& directory);

// DefaultCat's state when CatalogSelect loads.
struct DefaultCatalogButton {
  bool enabled = false;
  std::string toolTip;
};
DefaultCatalogButton DefaultCatalogButtonState(const SharedState& state);

// The main window's catalog label: the file name lower-cased and cut to 22 characters.
std::string CatalogLabel(const std::string& fileName);

// A new catalog's file name: ".OBC" unless it already ends so (any case); an extension after the
// last "." is replaced ("mystars.txt" -> "mystars.OBC").
std::string WithCatalogExtension(const std::string& name);

// NewCatalog click: asks the name (default: the current catalog) and the epoch (1900-2100), writes
// a header line (name, epoch year in columns 9-12) into a new file and opens it. An existing file
// is opened as it is, never overwritten. False when cancelled or the file cannot be written
// ("Cannot Create Catalog " + path).
bool NewCatalog(SharedState& state, Dialogs& dialogs, const std::string& directory);

}  // namespace astel
