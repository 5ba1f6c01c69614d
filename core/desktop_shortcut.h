// The launcher the program puts on the user's desktop when a home file lacks its telescope
// settings.
#pragma once

#include <string>

#include "core/ports.h"

namespace astel {

// The XDG desktop folder: $XDG_DESKTOP_DIR, else the XDG_DESKTOP_DIR line of
// $XDG_CONFIG_HOME/user-dirs.dirs (or ~/.config/user-dirs.dirs), else ~/Desktop; "" when no home
// folder is known.
std::string FindDesktopDir();

// Writes ASTEL.desktop into desktopDir, starting `executable` in `installDir`. Failures are
// shown with their messages and the program goes on.
void CreateDesktopShortcut(const std::string& desktopDir, const std::string& executable,
                           const std::string& installDir, Dialogs& dialogs);

}  // namespace astel
