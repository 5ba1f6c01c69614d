// The SkyChart button: an "instant sky chart" centred on the shown object, drawn by the external
// Skychart (Cartes du Ciel) program when it is installed.
//
// Command line passed (one word each, numbers always with a decimal point):
//   skychart --unique --nosplash --ra=HH.HHHHH --dec=+DD.DDDD --fov=DD.D
//   e.g. skychart --unique --nosplash --ra=0.71228 --dec=+41.2689 --fov=10.0
// --unique hands the request to a chart that is already open instead of starting a second one;
// --ra is the right ascension in decimal hours and --dec the declination in decimal degrees, both
// of date (the position the main window shows); --fov is the width of the chart in degrees.
#pragma once

#include <string>

#include "core/ports.h"
#include "core/shared_state.h"

namespace astel {

inline constexpr double kSkyChartFieldDegrees = 10;

inline constexpr const char* kSkyChartMissingMessage =
    "The 'instant sky chart' needs the free Skychart (Cartes du Ciel) program. Install it from "
    "your distribution's packages or from the Cartes du Ciel web site, so that the command "
    "'skychart' is on your PATH, then start ASTEL+S again.";
inline constexpr const char* kSkyChartNoObjectMessage =
    "Select an object first (a search, the Solar System list or 'Object'), then click SkyChart.";

// The parameters for the shown object, as one text.
std::string SkyChartParameters(const ObjectState& object);

// The click: the program is started on the shown object, or the user is told what is missing.
// True when the program was started.
bool SkyChartClick(const SharedState& state, Dialogs& dialogs, Shell& shell);

}  // namespace astel
