// A telescope on a pseudo-terminal: a thread that frames the received bytes into commands as a
// mount of the chosen family does, answers them as a healthy mount would (or as the test says),
// records every byte with its arrival time and the line settings in force, and can misbehave on
// request. Its replies come from the published command sets, never from the program's encoders:
// the simulator checks the program, so it must not share its code.
#pragma once

#include <termios.h>

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/pty_endpoint.h"

namespace astel::testing {

struct MotorCommand {
  int axis = 0;       // 16 azimuth, 17 altitude
  int direction = 0;  // 36 positive, 37 negative
  int rate = 0;       // 0 stops
};

struct MountState {
  std::vector<MotorCommand> motions{};  // the NexStar pass-through motor commands, in order
};

enum class ReplyFault {
  kNone,
  kSilent,   // never answers
  kGarbage,  // answers with "?" bytes of the right length
  kShort,    // answers without the last byte
};

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
  // Waits (real time) until `count` commands have arrived; false on time-out.
  bool WaitForCommands(std::size_t count, std::chrono::milliseconds timeout) const;
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
  mutable std::condition_variable changed_;
  SimBehaviour behaviour_;
  MountState mount_;
  std::string pending_;  // the command being received
  std::vector<ReceivedByte> received_;
  std::vector<std::string> commands_;
  int queriesSeen_ = 0;
  bool hungUp_ = false;
};

}  // namespace astel::testing
