// A telescope on a pseudo-terminal: a thread that answers as a real mount of the chosen family
// does, keeps its pointing position, site and clock, records every received byte with its arrival
// time and the line settings in force, and can misbehave on request.
#pragma once

#include <termios.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/mount_protocols.h"
#include "tests/support/pty_endpoint.h"

namespace astel::testing {

enum class ReplyFault {
  kNone,
  kSilent,   // never answers
  kGarbage,  // answers with "?" bytes of the right length
  kShort,    // answers without the last byte
};

struct SimBehaviour {
  ReplyFault fault = ReplyFault::kNone;
  std::string faultOnlyFor{};  // the fault hits only commands starting with this; empty: all
  int ignoreFirstQueries = 0;  // the first n commands that expect an answer get none
  int hangUpAfterBytes = -1;   // drops the line when this many bytes have arrived
  MountRules rules{};
};

struct ReceivedByte {
  unsigned char value = 0;
  std::chrono::steady_clock::time_point at;
  bool twoStopBits = false;  // the line settings when it arrived
  speed_t speed = B0;
};

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
  void SetMount(const MountState& mount);

 private:
  void Serve();
  void Handle(const unsigned char* bytes, std::size_t count);
  std::string Faulty(const std::string& command, const std::string& reply);

  PtyEndpoint pty_;
  std::unique_ptr<MountProtocol> protocol_;
  int wakeFd_ = -1;
  std::thread thread_;

  mutable std::mutex mutex_;
  mutable std::condition_variable changed_;
  SimBehaviour behaviour_;
  MountState mount_;
  std::vector<ReceivedByte> received_;
  std::vector<std::string> commands_;
  int queriesSeen_ = 0;
  bool hungUp_ = false;
};

}  // namespace astel::testing
