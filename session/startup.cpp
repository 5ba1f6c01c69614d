#include "session/startup.h"

#include "astro/time_scales.h"
#include "catalog/catalog_select.h"
#include "core/command_line.h"
#include "core/install_dir.h"
#include "core/night_vision.h"
#include "core/sky_chart.h"
#include "session/home_location.h"

namespace astel {

int Startup(SharedState& s, const StartupInputs& in, Dialogs& dialogs, Clock& clock,
            Windows& windows) {
  s.files.installDir = WithTrailingSlash(in.installDir);
  s.files.catalogDirectory = s.files.installDir;
  FillDateTables(s.time);
  FillColourTables(s.display);

  HomeFileContext context{dialogs, clock, windows, in.executablePath, in.desktopDir};
  std::optional<double> firstStart = ReadHomeFile(s, context);
  if (!firstStart) {
    dialogs.MessageBox(HomeFileUnreadableMessage(s));
    return kExitStartupFailed;
  }
  if (*firstStart < kFirstStartUnset) {
    s.time.firstStartDate = s.time.julianDate;
    WriteHomeFile(s, dialogs);
  }

  // The default catalog's header sets the captions and search buttons; a missing catalog is
  // reported when a search needs it.
  OpenCatalog(s, s.files.catalogDirectory, s.files.catalogFileName);

  const bool skyChartFound = ProbeSkyChart(in.pathVariable, s.files);
  s.form.generalHint = ChooseHint(skyChartFound, s.telescope);

  if (ParseCommandLineScript(in.commandLine, s.script) == ScriptParse::kTooManyCommands) {
    dialogs.MessageBox(kTooManyCommandsMessage);
    return kExitStartupFailed;
  }
  return kExitSuccess;
}

}  // namespace astel
