#include "core/sky_chart.h"

#include <unistd.h>

#include <string_view>

namespace astel {

bool ProbeSkyChart(const std::string& pathVariable, FileState& files) {
  std::string_view rest = pathVariable;
  while (!rest.empty()) {
    std::size_t colon = rest.find(':');
    std::string dir(rest.substr(0, colon));
    rest = colon == std::string_view::npos ? std::string_view{} : rest.substr(colon + 1);
    if (dir.empty()) continue;
    if (dir.back() != '/') dir += '/';
    if (::access((dir + kSkyChartProgram).c_str(), X_OK) == 0) {
      files.skyChartDir = dir;
      files.skyChartInstalled = true;
      return true;
    }
  }
  return false;
}

std::string ChooseHint(bool skyChartFound, const TelescopeState& t) {
  if (!skyChartFound) {
    return "Hint: If you install the 'Skycharts' program (see documentation), you can get an "
           "'instant skychart' of any selected object.";
  }
  if (t.scopeHasGps && t.scopeType == 1) {
    return "Hint: You can download your location and set your system time from your Celestron "
           "GPS. Click Location/Option 'Load'.";
  }
  if (t.scopeType != 4) {
    return "Hint: If you're going to set Location and Time from a GPS device, do so now before "
           "you start observing. Click Location/Option 'Load'.";
  }
  return "Hint: You can upload ('Scope') or download ('Load') your position and the time to or "
         "from your telescope.";
}

}  // namespace astel
