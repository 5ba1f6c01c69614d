// A hand-held GPS receiver on a pseudo-terminal: once the program has opened the line (and had a
// moment to flush it), it sends the given NMEA sentences, each ended by CR LF, one every 20 ms.
#pragma once

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/pty_endpoint.h"

namespace astel::testing {

struct FeederOptions {
  bool repeat = false;            // send the list again and again while the line is open
  int hangUpAfterSentences = -1;  // drop the line after this many sentences
};

class GpsFeeder {
 public:
  explicit GpsFeeder(std::vector<std::string> sentences, FeederOptions options = {});
  ~GpsFeeder();
  GpsFeeder(const GpsFeeder&) = delete;
  GpsFeeder& operator=(const GpsFeeder&) = delete;

  bool Start();
  const std::string& DevicePath() const { return pty_.SlavePath(); }
  int SentCount() const { return sent_.load(); }

 private:
  void Serve();
  bool ReaderPresent();

  std::vector<std::string> sentences_;
  FeederOptions options_;
  PtyEndpoint pty_;
  std::thread thread_;
  std::atomic<bool> stop_{false};
  std::atomic<int> sent_{0};
};

}  // namespace astel::testing
