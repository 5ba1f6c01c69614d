// Reading the home location file into the shared state and writing it back.
#pragma once

#include <optional>
#include <string>

#include "core/ports.h"
#include "core/shared_state.h"
#include "session/windows.h"

namespace astel {

inline constexpr double kFirstStartUnset = 1000000;

// The message shown when installDir + homeFileName cannot be read.
std::string HomeFileUnreadableMessage(const SharedState& state);

struct HomeFileContext {
  Dialogs& dialogs;
  Clock& clock;
  Windows& windows;
  std::string executablePath;  // the launcher's target when one is made
  std::string desktopDir;      // where the launcher goes
};

// Reads installDir + homeFileName and applies it: place, time zone, colours, telescope, derived
// values, time scales; enables the main timer. Returns the stored first-start date, or nothing
// when the file cannot be read or is not a home file, in which case nothing at all has changed.
std::optional<double> ReadHomeFile(SharedState& state, HomeFileContext& context);

// Writes the state under installDir + homeFileName (".HOM" added by the name rule). A file that
// cannot be written is reported and the old file, if any, is left as it was.
bool WriteHomeFile(SharedState& state, Dialogs& dialogs);

// The Save button: asks for a name (default homeFileName) and writes; Cancel does nothing.
void SaveButton(SharedState& state, Dialogs& dialogs);

// Leaving the program with unsaved changes: offers to save under a name.
void OfferSaveOnExit(SharedState& state, Dialogs& dialogs);

// The FileSelect window's "Load the selected file". An unreadable file is reported and the
// current place kept (the program goes on); a file without a first-start date gets one.
bool LoadSelectedHomeFile(SharedState& state, HomeFileContext& context,
                          const std::string& selectedName);

}  // namespace astel
