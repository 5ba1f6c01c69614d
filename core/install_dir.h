// Where the program keeps its files (home files, catalogs, matches file, log, help pages).
#pragma once

#include <string>
#include <vector>

namespace astel {

struct InstallDirInputs {
  std::string astelHome;      // $ASTEL_HOME, "" when unset
  std::string executableDir;  // the folder of the running program
  std::string userDataHome;   // $XDG_DATA_HOME, or $HOME/.local/share; "" when neither is known
  std::vector<std::string> shippedDataDirs;  // where an installed program's data files are
};

struct InstallDirChoice {
  std::string dir;    // ends in "/"
  std::string error;  // set when the per-user folder could not be created or filled
};

// $ASTEL_HOME when set; else the program's folder when it holds ASTEL.HOM; else the per-user
// folder <userDataHome>/astel, created on first start and filled with every shipped data file
// it does not have yet (an observer's own files are never overwritten).
InstallDirChoice ResolveInstallDir(const InstallDirInputs& inputs);

// "dir/" for "dir" and "dir/"; "" stays "".
std::string WithTrailingSlash(std::string dir);

}  // namespace astel
