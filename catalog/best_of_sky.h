// Best of the Sky: the showpieces marked in the default catalog that stand at least 20 degrees
// high now, "&" records first and then "^" records, each pass in file order. "!Planet=" lines
// take part in the pass of their mark, with their own altitude and distance limits
// (planet_record.h), which replace the 20 degrees. Next Match and Previous step through the
// suggestions like any search.
#pragma once

#include <string>

#include "catalog/search_ports.h"
#include "core/shared_state.h"

namespace astel {

inline constexpr float kBestOfSkyMinAltitude = 20.0f;

// BestOf: true when a suggestion is shown. The faintest magnitude stays as it is.
bool BestOfTheSky(SharedState& state, CatalogPorts& ports);

// True for the default catalog (file name "FULL" with any extension, any case).
bool BestOfSkyAvailable(const std::string& catalogFileName);

}  // namespace astel
