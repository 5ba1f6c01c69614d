#include "core/install_dir.h"

#include <filesystem>
#include <system_error>

namespace astel {

namespace fs = std::filesystem;

std::string WithTrailingSlash(std::string dir) {
  if (!dir.empty() && dir.back() != '/') dir += '/';
  return dir;
}

InstallDirChoice ResolveInstallDir(const InstallDirInputs& in) {
  if (!in.astelHome.empty()) return {WithTrailingSlash(in.astelHome), {}};
  std::error_code ec;
  if (!in.executableDir.empty() && fs::exists(fs::path(in.executableDir) / "ASTEL.HOM", ec)) {
    return {WithTrailingSlash(in.executableDir), {}};
  }
  if (in.userDataHome.empty()) {
    return {WithTrailingSlash(in.executableDir), "No home folder is known (HOME is not set)."};
  }
  const fs::path target = fs::path(in.userDataHome) / "astel";
  InstallDirChoice choice{WithTrailingSlash(target.string()), {}};
  fs::create_directories(target, ec);
  if (ec) {
    choice.error = target.string() + ": " + ec.message();
    return choice;
  }
  for (const std::string& source : in.shippedDataDirs) {
    if (!fs::is_directory(source, ec)) continue;
    for (const auto& entry : fs::directory_iterator(source, ec)) {
      if (!entry.is_regular_file(ec)) continue;
      const fs::path destination = target / entry.path().filename();
      if (fs::exists(destination, ec)) continue;
      fs::copy_file(entry.path(), destination, ec);
      if (ec) choice.error = destination.string() + ": " + ec.message();
    }
    break;  // the first shipped folder that exists is the program's own
  }
  return choice;
}

}  // namespace astel
