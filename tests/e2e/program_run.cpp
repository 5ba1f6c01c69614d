#include "tests/e2e/program_run.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <thread>

extern char** environ;

namespace astel::testing {

std::string FakeTimeProgram() {
  for (const char* path : {"/usr/bin/faketime", "/usr/local/bin/faketime"}) {
    if (::access(path, X_OK) == 0) return path;
  }
  return {};
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

RunResult ProgramRun::Run(const std::vector<std::string>& arguments) const {
  std::vector<std::string> args;
  if (!fakeTime.empty()) {
    args.push_back(FakeTimeProgram());
    if (frozenClock) args.push_back("-f");
    args.push_back(fakeTime);
  }
  args.push_back(program);
  args.insert(args.end(), arguments.begin(), arguments.end());

  // The observer's environment without a display, plus ours.
  std::map<std::string, std::string> env;
  for (char** e = environ; *e; ++e) {
    std::string entry(*e);
    const std::size_t eq = entry.find('=');
    env[entry.substr(0, eq)] = entry.substr(eq + 1);
  }
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "ASTEL_HOME"}) {
    env.erase(name);
  }
  env["ASTEL_HOME"] = home;
  env["TZ"] = "UTC";
  env["HOME"] = home;
  for (const auto& [name, value] : environment)
    env[name] = value;
  std::vector<std::string> envEntries;
  for (const auto& [name, value] : env)
    envEntries.push_back(name + "=" + value);

  std::vector<char*> argv, envp;
  for (auto& a : args)
    argv.push_back(a.data());
  argv.push_back(nullptr);
  for (auto& e : envEntries)
    envp.push_back(e.data());
  envp.push_back(nullptr);

  const std::string errorsPath = home + "/stderr.txt";
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 2, errorsPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  RunResult result;
  pid_t pid = 0;
  const auto start = std::chrono::steady_clock::now();
  if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), envp.data()) != 0) {
    posix_spawn_file_actions_destroy(&actions);
    result.errors = "could not start " + args[0];
    return result;
  }
  posix_spawn_file_actions_destroy(&actions);
  int status = 0;
  while (true) {
    pid_t done = ::waitpid(pid, &status, WNOHANG);
    if (done == pid) break;
    if (std::chrono::steady_clock::now() - start > timeout) {
      ::kill(pid, SIGKILL);
      ::waitpid(pid, &status, 0);
      result.errors = ReadFile(errorsPath) + "\n(killed after the time-out)";
      return result;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  result.errors = ReadFile(errorsPath);
  return result;
}

}  // namespace astel::testing
