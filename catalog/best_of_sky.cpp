#include "catalog/best_of_sky.h"

#include "catalog/search.h"
#include "core/text_format.h"

namespace astel {

bool BestOfTheSky(SharedState& state, CatalogPorts& ports) {
  state.search.bestOfSkyMode = true;
  state.search.secondPassPending = true;
  state.search.minAltitude = kBestOfSkyMinAltitude;
  SearchRequest request;
  request.text = "*&";
  request.secondName = "*^";  // the second pass, not a filter while it is pending
  request.bestOfSky = true;
  return StartSearch(state, ports, request);
}

bool BestOfSkyAvailable(const std::string& catalogFileName) {
  // The main window tests the first four characters, in their case, on every tick.
  return catalogFileName.rfind("FULL", 0) == 0;
}

}  // namespace astel
