#include "core/system_ports.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <sstream>
#include <vector>

namespace astel {

namespace {

// Starts argv detached: a first child starts a new session, forks the program and exits, so the
// program is never our child and leaves no zombie. A pipe closed by a successful exec tells the
// result.
bool SpawnDetached(const std::vector<std::string>& args, const std::string& workingDir) {
  if (args.empty()) return false;
  std::vector<char*> argv;
  for (const std::string& a : args)
    argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);
  int status[2];
  if (::pipe2(status, O_CLOEXEC) != 0) return false;
  pid_t child = ::fork();
  if (child < 0) {
    ::close(status[0]);
    ::close(status[1]);
    return false;
  }
  if (child == 0) {
    ::setsid();
    pid_t grandchild = ::fork();
    if (grandchild == 0) {
      if (!workingDir.empty() && ::chdir(workingDir.c_str()) != 0) {
        // Keep the current folder: a missing working folder is no reason not to start.
      }
      ::execvp(argv[0], argv.data());
      int error = errno;
      ssize_t ignored = ::write(status[1], &error, sizeof error);
      (void)ignored;
      ::_exit(127);
    }
    ::_exit(grandchild < 0 ? 1 : 0);
  }
  ::close(status[1]);
  int childStatus = 0;
  while (::waitpid(child, &childStatus, 0) < 0 && errno == EINTR) {
  }
  int error = 0;
  ssize_t n;
  while ((n = ::read(status[0], &error, sizeof error)) < 0 && errno == EINTR) {
  }
  ::close(status[0]);
  return WIFEXITED(childStatus) && WEXITSTATUS(childStatus) == 0 && n == 0;
}

}  // namespace

LocalDateTime SystemClock::Now() {
  std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
          local.tm_hour,        local.tm_min,     local.tm_sec};
}

ZoneInfo SystemClock::Zone() {
  ::tzset();
  std::time_t now = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&now, &local);
  ZoneInfo zone;
  zone.daylight = local.tm_isdst > 0;
  zone.currentBiasMinutes = static_cast<int>(-local.tm_gmtoff / 60);
  // `timezone` is the standard offset, seconds west of Greenwich, as the old bias was.
  zone.standardBiasMinutes = static_cast<int>(::timezone / 60);
  return zone;
}

bool SystemClock::SetSystemTime(const UtcDateTime& utc) {
  std::tm t{};
  t.tm_year = utc.year - 1900;
  t.tm_mon = utc.month - 1;
  t.tm_mday = utc.day;
  t.tm_hour = utc.hour;
  t.tm_min = utc.minute;
  t.tm_sec = utc.second;
  timespec ts{};
  ts.tv_sec = ::timegm(&t);
  ts.tv_nsec = static_cast<long>(utc.millisecond) * 1000000L;
  return ts.tv_sec != -1 && ::clock_settime(CLOCK_REALTIME, &ts) == 0;
}

bool SystemShell::OpenDocument(const std::string& pathOrUrl, const std::string& workingDir) {
  return SpawnDetached({"xdg-open", pathOrUrl}, workingDir);
}

bool SystemShell::StartProgram(const std::string& program, const std::string& parameters) {
  std::vector<std::string> args{program};
  std::istringstream words(parameters);
  for (std::string word; words >> word;)
    args.push_back(word);
  // A document rather than a program is opened with the desktop's default action.
  struct stat st;
  if (::stat(program.c_str(), &st) == 0 && S_ISREG(st.st_mode) &&
      ::access(program.c_str(), X_OK) != 0) {
    return OpenDocument(program, "");
  }
  return SpawnDetached(args, "");
}

}  // namespace astel
