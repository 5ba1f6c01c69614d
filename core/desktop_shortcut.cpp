#include "core/desktop_shortcut.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>

namespace astel {

namespace {

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

// The value of XDG_DESKTOP_DIR="$HOME/Desktop" in a user-dirs.dirs file.
std::string DesktopFromUserDirs(const std::string& file, const std::string& home) {
  std::ifstream in(file);
  std::string line;
  const std::string key = "XDG_DESKTOP_DIR=";
  while (std::getline(in, line)) {
    if (line.rfind(key, 0) != 0) continue;
    std::string value = line.substr(key.size());
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
      value = value.substr(1, value.size() - 2);
    }
    if (value.rfind("$HOME", 0) == 0) value = home + value.substr(5);
    return value;
  }
  return {};
}

}  // namespace

std::string FindDesktopDir() {
  if (std::string dir = Env("XDG_DESKTOP_DIR"); !dir.empty()) return dir;
  const std::string home = Env("HOME");
  if (home.empty()) return {};
  std::string config = Env("XDG_CONFIG_HOME");
  if (config.empty()) config = home + "/.config";
  if (std::string dir = DesktopFromUserDirs(config + "/user-dirs.dirs", home); !dir.empty()) {
    return dir;
  }
  return home + "/Desktop";
}

void CreateDesktopShortcut(const std::string& desktopDir, const std::string& executable,
                           const std::string& installDir, Dialogs& dialogs) {
  if (desktopDir.empty()) {
    dialogs.MessageBox("Cannot Find Location of Desktop Special Folder");
    return;
  }
  const std::string path = desktopDir + "/ASTEL.desktop";
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) {
    const int error = errno;
    if (error == ENOENT || error == ENOTDIR) {
      dialogs.MessageBox("Path Not Found Error, Desktop Directory = " + desktopDir);
    } else if (error == EACCES || error == EPERM || error == EROFS) {
      dialogs.MessageBox("Permission Denied, Desktop Directory = " + desktopDir);
    } else {
      dialogs.MessageBox("Error " + std::to_string(error) +
                         ": Cannot Create Shortcut to Desktop Directory " + desktopDir);
    }
    return;
  }
  out << "[Desktop Entry]\n"
      << "Type=Application\n"
      << "Name=ASTEL+S\n"
      << "Comment=Observing assistant and GoTo telescope control\n"
      << "Exec=\"" << executable << "\"\n"
      << "Path=" << installDir << "\n"
      << "Icon=astel\n"
      << "Terminal=false\n"
      << "Categories=Education;Science;Astronomy;\n";
  out.close();
  // Desktops only start launchers that are executable.
  ::chmod(path.c_str(), 0755);
}

}  // namespace astel
