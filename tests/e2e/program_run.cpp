#include "tests/e2e/program_run.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "tests/catalog/catalog_files.h"

namespace astel::testing {

namespace {

// One word for /bin/sh, whatever it holds.
std::string Quoted(const std::string& word) {
  std::string quoted = "'";
  for (char c : word)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace

std::string FakeTimeProgram() {
  for (const char* path : {"/usr/bin/faketime", "/usr/local/bin/faketime"}) {
    if (::access(path, X_OK) == 0) return path;
  }
  return {};
}

RunResult ProgramRun::Run(const std::vector<std::string>& arguments) const {
  // The observer's environment without a display, plus ours; a program that hangs is killed.
  std::map<std::string, std::string> env{{"ASTEL_HOME", home}, {"HOME", home}, {"TZ", "UTC"}};
  for (const auto& [name, value] : environment)
    env[name] = value;
  std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM";
  for (const auto& [name, value] : env)
    command += " " + Quoted(name + "=" + value);
  command += " timeout -s KILL " + std::to_string(timeout.count());
  if (!fakeTime.empty()) {
    command += " " + FakeTimeProgram() + (frozenClock ? " -f " : " ") + Quoted(fakeTime);
  }
  command += " " + Quoted(program);
  for (const std::string& argument : arguments)
    command += " " + Quoted(argument);
  const std::string errorsPath = home + "/stderr.txt";
  command += " >/dev/null 2>" + Quoted(errorsPath);

  const auto start = std::chrono::steady_clock::now();
  const int status = std::system(command.c_str());
  RunResult result;
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  result.errors = ReadFile(errorsPath);
  const int code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  if (code == 124 || code == 128 + SIGKILL) {
    result.errors += "\n(killed after the time-out)";
  } else {
    result.exitCode = code;
  }
  return result;
}

}  // namespace astel::testing
