// astel_scope_sim: a simulated telescope for end-to-end runs of the whole program.
//   astel_scope_sim --type 4 --link /tmp/x/ttyS0 [--log bytes.bin] [--fault silent|garbage|short]
//                   [--not-aligned] [--refuse-offset 1|2] [--hangup-after N]
// Creates a pseudo-terminal, points a symbolic link at it (point ASTEL_COMn at the link), answers
// as a mount of the given family until killed (SIGTERM or SIGINT), appends every received byte,
// unchanged, to the log file, and removes the link on the way out.
#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "tests/support/scope_simulator.h"

namespace {

int Usage() {
  std::fprintf(stderr,
               "usage: astel_scope_sim --type 1|2|3|4 --link PATH [--log FILE] "
               "[--fault silent|garbage|short] [--not-aligned] [--refuse-offset 1|2] "
               "[--hangup-after N]\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace astel::testing;
  int type = 0;
  std::string link;
  std::string logPath;
  SimBehaviour behaviour;
  bool aligned = true;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    auto value = [&]() -> std::string { return i + 1 < argc ? argv[++i] : ""; };
    if (arg == "--type") {
      type = std::atoi(value().c_str());
    } else if (arg == "--link") {
      link = value();
    } else if (arg == "--log") {
      logPath = value();
    } else if (arg == "--fault") {
      std::string fault = value();
      if (fault == "silent") {
        behaviour.fault = ReplyFault::kSilent;
      } else if (fault == "garbage") {
        behaviour.fault = ReplyFault::kGarbage;
      } else if (fault == "short") {
        behaviour.fault = ReplyFault::kShort;
      } else {
        return Usage();
      }
    } else if (arg == "--not-aligned") {
      aligned = false;
    } else if (arg == "--refuse-offset") {
      behaviour.rules.refuseOffsetForms = std::atoi(value().c_str());
    } else if (arg == "--hangup-after") {
      behaviour.hangUpAfterBytes = std::atoi(value().c_str());
    } else {
      return Usage();
    }
  }
  if (type < 1 || type > 4 || link.empty()) return Usage();

  std::ofstream log;
  if (!logPath.empty()) {
    log.open(logPath, std::ios::binary | std::ios::app);
    if (!log) {
      std::fprintf(stderr, "astel_scope_sim: cannot write %s: %s\n", logPath.c_str(),
                   std::strerror(errno));
      return 1;
    }
  }

  // The stop signals are taken by sigwait below, never by the simulator's thread, which inherits
  // this mask.
  sigset_t stopSignals;
  sigemptyset(&stopSignals);
  sigaddset(&stopSignals, SIGTERM);
  sigaddset(&stopSignals, SIGINT);
  pthread_sigmask(SIG_BLOCK, &stopSignals, nullptr);

  ScopeSimulator simulator(type, behaviour);
  MountState mount;
  mount.aligned = aligned;
  simulator.SetMount(mount);
  if (log.is_open()) {
    simulator.onByte = [&log](unsigned char byte) {
      log.put(static_cast<char>(byte));
      log.flush();
    };
  }
  if (!simulator.Start()) {
    std::fprintf(stderr, "astel_scope_sim: no pseudo-terminal: %s\n", std::strerror(errno));
    return 1;
  }
  ::unlink(link.c_str());
  if (::symlink(simulator.DevicePath().c_str(), link.c_str()) != 0) {
    std::fprintf(stderr, "astel_scope_sim: cannot link %s: %s\n", link.c_str(),
                 std::strerror(errno));
    return 1;
  }
  std::printf("%s\n", simulator.DevicePath().c_str());
  std::fflush(stdout);

  int received = 0;
  sigwait(&stopSignals, &received);
  ::unlink(link.c_str());
  return 0;
}
