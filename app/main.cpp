// astel: the observing assistant. A command line, joined with blanks, is a script of commands
// separated by ";"; without a display (or with ASTEL_HEADLESS=1) the program runs without windows.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>

#include "app/headless_ports.h"
#include "app/headless_runner.h"
#include "core/desktop_shortcut.h"
#include "core/install_dir.h"
#include "core/system_ports.h"
#include "session/startup.h"

#ifndef ASTEL_INSTALLED_DATA_DIR
#define ASTEL_INSTALLED_DATA_DIR "/usr/local/share/astel"
#endif

namespace {

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

std::string ExecutablePath(const char* argv0) {
  std::error_code ec;
  auto self = std::filesystem::read_symlink("/proc/self/exe", ec);
  return ec ? std::string(argv0) : self.string();
}

void PrintHelp() {
  std::cout
      << "Usage: astel ['SCRIPT']\n"
         "       astel --help | --version\n\n"
         "ASTEL+S, an observing assistant that also drives GoTo telescopes.\n"
         "Without a script the main window opens. A script is up to 25 commands separated by\n"
         "';', run one per 0.9 s, for example:\n"
         "  astel 'CAT=FULL.OBC;FIND=M57;GOTO=1'\n"
         "Without a display (or with ASTEL_HEADLESS=1) a script runs without windows, its\n"
         "messages on standard error.\n\n"
         "Exit codes: 0 the script ran to its end (or its exit time), 1 the program could not\n"
         "start (no home location file, more than 25 commands), 2 a script command failed.\n\n"
         "Environment: ASTEL_HOME (the program's folder), ASTEL_COM1..ASTEL_COM4 (the serial\n"
         "devices of COM1..COM4), ASTEL_HEADLESS=1, TZ.\n";
}

}  // namespace

int main(int argc, char** argv) {
  std::string commandLine;
  for (int i = 1; i < argc; ++i) {
    if (i > 1) commandLine += ' ';
    commandLine += argv[i];
  }
  if (commandLine == "--help" || commandLine == "-h") {
    PrintHelp();
    return 0;
  }
  if (commandLine == "--version") {
    std::cout << "ASTEL+S 6.12\n";
    return 0;
  }

  const std::string executable = ExecutablePath(argv[0]);
  std::string userData = Env("XDG_DATA_HOME");
  if (userData.empty() && !Env("HOME").empty()) userData = Env("HOME") + "/.local/share";
  const std::string exeDir = std::filesystem::path(executable).parent_path().string();
  astel::InstallDirChoice installDir =
      astel::ResolveInstallDir({Env("ASTEL_HOME"),
                                exeDir,
                                userData,
                                {exeDir + "/../share/astel", ASTEL_INSTALLED_DATA_DIR}});
  if (!installDir.error.empty()) std::cerr << "astel: " << installDir.error << "\n";

  astel::SharedState state;
  astel::SystemClock clock;
  astel::SystemShell shell;
  astel::HeadlessDialogs dialogs(std::cerr);
  astel::HeadlessEvents events;
  astel::NullClipboard clipboard;
  astel::NullWindows windows;
  astel::StartupInputs inputs{installDir.dir, Env("PATH"), commandLine, executable,
                              astel::FindDesktopDir()};
  if (int failed = astel::Startup(state, inputs, dialogs, clock, windows)) return failed;

  astel::Ports ports{dialogs, clock, events, shell, clipboard};
  return astel::RunHeadless(state, ports, std::cout);
}
