// A telescope on a pseudo-terminal: a thread that frames the received bytes into commands as a
// mount of the chosen family does, answers them as a healthy mount would (or as the test says),
// records every byte with its arrival time and the line settings in force, and can misbehave on
// request. Its replies come from the published command sets, never from the program's encoders:
// the simulator checks the program, so it must not share its code.
#pragma once

#include <fcntl.h>
#include <pty.h>
#include <termios.h>

#include <chrono>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "scope/unique_fd.h"

namespace astel::testing {

// The far end of a pseudo-terminal: the program under test opens the slave path as its serial
// device, the simulated device reads and writes the master.
class PtyEndpoint {
 public:
  // Creates the pair, holding a slave descriptor for the whole life of the endpoint, so that the
  // master never sees a hang-up between the program's sessions and the line settings the program
  // chose can be read back. Returns false (with errno) when no pty is free.
  bool Create() {
    int master = -1, slave = -1;
    char name[128] = {};
    if (::openpty(&master, &slave, name, nullptr, nullptr) != 0) return false;
    master_ = UniqueFd(master);
    slave_ = UniqueFd(slave);
    slavePath_ = name;
    ::fcntl(master, F_SETFD, FD_CLOEXEC);
    ::fcntl(slave, F_SETFD, FD_CLOEXEC);
    ::fcntl(master, F_SETFL, ::fcntl(master, F_GETFL) | O_NONBLOCK);
    // Raw from the start: nothing the device sends before the program sets the line may be echoed.
    termios settings{};
    ::tcgetattr(slave, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(slave, TCSANOW, &settings);
    return true;
  }
  const std::string& SlavePath() const { return slavePath_; }
  int Master() const { return master_.Get(); }
  int Slave() const { return slave_.Get(); }
  // Drops both ends, as a device that is unplugged: the program's descriptor is hung up.
  void HangUp() {
    slave_.Reset();
    master_.Reset();
  }

 private:
  UniqueFd master_, slave_;
  std::string slavePath_;
};

struct MotorCommand {
  int axis = 0;       // 16 azimuth, 17 altitude
  int direction = 0;  // 36 positive, 37 negative
  int rate = 0;       // 0 stops
};

struct MountState {
  std::vector<MotorCommand> motions{};  // the NexStar pass-through motor commands, in order
};

// Silent never answers, Garbage answers "?" bytes of the right length, Short lacks the last byte.
enum class ReplyFault { kNone, kSilent, kGarbage, kShort };

struct SimBehaviour {
  ReplyFault fault = ReplyFault::kNone;
  int ignoreFirstQueries = 0;  // the first n commands that expect an answer get none
  int hangUpAfterBytes = -1;   // drops the line when this many bytes have arrived
  // Answers in place of a healthy mount's: a command gets the value of the longest key it starts
  // with (LX200 keys begin with the ":"), before any fault.
  std::map<std::string, std::string> replies{};
};

struct ReceivedByte {
  unsigned char value = 0;
  std::chrono::steady_clock::time_point at;
  bool twoStopBits = false;  // the line settings when it arrived
  speed_t speed = B0;
};

// Type 1 NexStar ASCII, 2 original NexStar binary, 3 StarGuide binary, 4 (and 0) LX200.
class ScopeSimulator {
 public:
  explicit ScopeSimulator(int scopeType, SimBehaviour behaviour = {});
  ~ScopeSimulator();
  ScopeSimulator(const ScopeSimulator&) = delete;
  ScopeSimulator& operator=(const ScopeSimulator&) = delete;

  // Creates the pseudo-terminal and starts answering; false when none can be had.
  bool Start();
  const std::string& DevicePath() const { return pty_.SlavePath(); }

  // Thread-safe views of what happened so far.
  std::vector<ReceivedByte> Received() const;
  std::string ReceivedBytes() const;
  std::vector<std::string> Commands() const;  // each complete command, in order
  void ClearRecords();
  MountState Mount() const;

 private:
  void Serve();
  void Handle(const unsigned char* bytes, std::size_t count);
  bool Frame(unsigned char byte);
  std::string Reply(const std::string& command);

  const int scopeType_;
  PtyEndpoint pty_;
  int wakeFd_ = -1;
  std::thread thread_;

  mutable std::mutex mutex_;
  SimBehaviour behaviour_;
  MountState mount_;
  std::string pending_;  // the command being received
  std::vector<ReceivedByte> received_;
  std::vector<std::string> commands_;
  int queriesSeen_ = 0;
  bool hungUp_ = false;
};

}  // namespace astel::testing
