#include "tests/support/gps_feeder.h"

#include <poll.h>
#include <unistd.h>

#include <chrono>

namespace astel::testing {

namespace {

// Time given to the program between opening the line and being sent data: it flushes the line
// right after opening it, and data sent before that would be lost.
constexpr int kSettleMs = 150;
constexpr int kIntervalMs = 20;

}  // namespace

GpsFeeder::GpsFeeder(std::vector<std::string> sentences, FeederOptions options)
    : sentences_(std::move(sentences)), options_(options) {}

GpsFeeder::~GpsFeeder() {
  stop_ = true;
  if (thread_.joinable()) thread_.join();
}

bool GpsFeeder::Start() {
  // No slave descriptor of our own: the master then reports a hang-up while the program has the
  // line closed, which is how the feeder knows when to begin.
  if (!pty_.Create(false)) return false;
  thread_ = std::thread([this] { Serve(); });
  return true;
}

bool GpsFeeder::ReaderPresent() {
  pollfd request{pty_.Master(), POLLOUT, 0};
  ::poll(&request, 1, 0);
  return (request.revents & POLLHUP) == 0;
}

void GpsFeeder::Serve() {
  auto pause = [](int ms) { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); };
  while (!stop_ && !ReaderPresent())
    pause(5);
  pause(kSettleMs);
  do {
    for (const std::string& sentence : sentences_) {
      if (stop_ || !ReaderPresent()) return;
      std::string line = sentence + "\r\n";
      [[maybe_unused]] auto written = ::write(pty_.Master(), line.data(), line.size());
      if (++sent_ == options_.hangUpAfterSentences) {
        pty_.HangUp();
        return;
      }
      pause(kIntervalMs);
    }
  } while (options_.repeat);
}

}  // namespace astel::testing
