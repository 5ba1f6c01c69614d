#include "session/sky_chart_launch.h"

#include <cmath>

#include "astro/coordinates.h"
#include "core/sky_chart.h"
#include "core/text_format.h"
#include "session/main_window.h"

namespace astel {

namespace {
constexpr double kMinutesPerUnit = 60;
}

std::string SkyChartParameters(const ObjectState& o) {
  const double raHours = o.objRaHours + o.objRaMinutes / kMinutesPerUnit;
  const double decDegrees = ObjectDeclinationDegrees(o);
  const std::string decSign = decDegrees < 0 ? "" : "+";
  return CommaToPoint("--unique --nosplash --ra=" + FormatFixed(raHours, "0.00000") +
                      " --dec=" + decSign + FormatFixed(decDegrees, "0.0000") +
                      " --fov=" + FormatFixed(kSkyChartFieldDegrees, "0.0"));
}

bool SkyChartClick(const SharedState& s, Dialogs& dialogs, Shell& shell) {
  if (!s.files.skyChartInstalled) {
    dialogs.MessageBox(kSkyChartMissingMessage);
    return false;
  }
  if (!HasShownObject(s)) {
    dialogs.MessageBox(kSkyChartNoObjectMessage);
    return false;
  }
  const std::string program = s.files.skyChartDir + kSkyChartProgram;
  if (!shell.StartProgram(program, SkyChartParameters(s.object))) {
    dialogs.MessageBox("Cannot start the sky chart program " + program);
    return false;
  }
  return true;
}

}  // namespace astel
