#include "tests/support/scope_simulator.h"

#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace astel::testing {

// What a healthy mount answers. NexStar: "R" goto, "J" aligned, "E" position (hex steps of the
// 65,536-step circle). LX200: set commands are taken, ":SC" has the date's long answer, ":MS"
// slews, and the getters report 0 h 0 min, +0 deg 0 min (0xDF is an LX200's degree sign) and the
// clock at 21:30:00 on 23 March 2005.
const std::map<std::string, std::string> kHealthyReplies = {
    {"R", "#"},
    {"J", "\x01#"},
    {"E", "0000,0000#"},
    {":S", "1"},
    {":SC", "1Updating Planetary Data#                                #"},
    {":MS", "0"},
    {":GR", "00:00.0#"},
    {":GD", "+00\33700#"},
    {":GL", "21:30:00#"},
    {":GC", "03/23/05#"}};

ScopeSimulator::ScopeSimulator(int scopeType, SimBehaviour behaviour)
    : scopeType_(scopeType), behaviour_(std::move(behaviour)) {
  behaviour_.replies.insert(kHealthyReplies.begin(), kHealthyReplies.end());  // keeps the test's
}

ScopeSimulator::~ScopeSimulator() {
  if (thread_.joinable()) {
    std::uint64_t one = 1;
    [[maybe_unused]] auto written = ::write(wakeFd_, &one, sizeof one);
    thread_.join();
  }
  if (wakeFd_ >= 0) ::close(wakeFd_);
}

bool ScopeSimulator::Start() {
  if (!pty_.Create()) return false;
  wakeFd_ = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
  if (wakeFd_ < 0) return false;
  thread_ = std::thread([this] { Serve(); });
  return true;
}

void ScopeSimulator::Serve() {
  // The arrival times are stamped when this thread wakes up; on a busy machine a real-time
  // priority keeps that close to the moment the bytes came (where the system allows it).
  sched_param priority{};
  priority.sched_priority = sched_get_priority_min(SCHED_FIFO);
  pthread_setschedparam(pthread_self(), SCHED_FIFO, &priority);

  unsigned char buffer[512];
  for (;;) {
    pollfd fds[2] = {{pty_.Master(), POLLIN, 0}, {wakeFd_, POLLIN, 0}};
    int ready = ::poll(fds, 2, -1);
    if (ready < 0 && errno == EINTR) continue;
    if (ready < 0 || (fds[1].revents & POLLIN) != 0) return;
    ssize_t count = ::read(pty_.Master(), buffer, sizeof buffer);
    if (count > 0) Handle(buffer, static_cast<std::size_t>(count));
    std::lock_guard lock(mutex_);
    if (hungUp_) return;
  }
}

void ScopeSimulator::Handle(const unsigned char* bytes, std::size_t count) {
  const auto now = std::chrono::steady_clock::now();
  termios line{};
  ::tcgetattr(pty_.Slave(), &line);
  std::string replies;
  {
    std::lock_guard lock(mutex_);
    for (std::size_t i = 0; i < count; ++i) {
      received_.push_back({bytes[i], now, (line.c_cflag & CSTOPB) != 0, cfgetispeed(&line)});
      if (behaviour_.hangUpAfterBytes >= 0 &&
          static_cast<int>(received_.size()) >= behaviour_.hangUpAfterBytes) {
        hungUp_ = true;
        pty_.HangUp();
        return;
      }
      if (!Frame(bytes[i])) continue;
      commands_.push_back(pending_);
      std::string reply = Reply(pending_);
      pending_.clear();
      if (reply.empty() || queriesSeen_++ < behaviour_.ignoreFirstQueries) continue;
      if (behaviour_.fault == ReplyFault::kGarbage) reply.assign(reply.size(), '?');
      if (behaviour_.fault == ReplyFault::kShort) reply.pop_back();
      if (behaviour_.fault != ReplyFault::kSilent) replies += reply;
    }
  }
  // A few dozen bytes at most: the pseudo-terminal takes them at once.
  [[maybe_unused]] auto written = ::write(pty_.Master(), replies.data(), replies.size());
}

// Adds a byte to the command being received; true when that command is complete.
bool ScopeSimulator::Frame(unsigned char byte) {
  if (scopeType_ == 2 || scopeType_ == 3) return false;  // the binary GoTo is send-only
  const char c = static_cast<char>(byte);
  if (scopeType_ == 1) {  // NexStar: the letter sets the length; other bytes are ignored
    if (pending_.empty() && std::string_view("RPJEwh").find(c) == std::string_view::npos)
      return false;
    pending_.push_back(c);
    return pending_.size() == (pending_[0] == 'R' ? 10u : pending_[0] == 'P' ? 8u : 1u);
  }
  // LX200: a command runs from ":" to "#"; bytes between commands (a lone "#") are ignored.
  if (pending_.empty() && c != ':') return false;
  pending_.push_back(c);
  return c == '#';
}

std::string ScopeSimulator::Reply(const std::string& command) {
  auto byte = [&](std::size_t at) { return static_cast<unsigned char>(command[at]); };
  if (command[0] == 'P') {  // pass-through "P 2 axis direction rate 0 0 replyBytes"
    mount_.motions.push_back({byte(2), byte(3), byte(4)});
    return std::string(byte(7), '\0') + "#";
  }
  const std::string* reply = nullptr;
  std::size_t longest = 0;
  for (const auto& [start, answer] : behaviour_.replies) {
    if (command.starts_with(start) && start.size() >= longest) {
      longest = start.size();
      reply = &answer;
    }
  }
  return reply ? *reply : "";
}

std::vector<ReceivedByte> ScopeSimulator::Received() const {
  std::lock_guard lock(mutex_);
  return received_;
}

std::string ScopeSimulator::ReceivedBytes() const {
  std::lock_guard lock(mutex_);
  std::string bytes;
  for (const ReceivedByte& b : received_)
    bytes.push_back(static_cast<char>(b.value));
  return bytes;
}

std::vector<std::string> ScopeSimulator::Commands() const {
  std::lock_guard lock(mutex_);
  return commands_;
}

void ScopeSimulator::ClearRecords() {
  std::lock_guard lock(mutex_);
  received_.clear();
  commands_.clear();
}

MountState ScopeSimulator::Mount() const {
  std::lock_guard lock(mutex_);
  return mount_;
}

}  // namespace astel::testing
