#include "tests/support/scope_simulator.h"

#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>

namespace astel::testing {

ScopeSimulator::ScopeSimulator(int scopeType, SimBehaviour behaviour)
    : protocol_(MakeMountProtocol(scopeType)), behaviour_(behaviour) {}

ScopeSimulator::~ScopeSimulator() {
  if (thread_.joinable()) {
    std::uint64_t one = 1;
    [[maybe_unused]] auto written = ::write(wakeFd_, &one, sizeof one);
    thread_.join();
  }
  if (wakeFd_ >= 0) ::close(wakeFd_);
}

bool ScopeSimulator::Start() {
  if (!pty_.Create(true)) return false;
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
    if ((fds[0].revents & POLLIN) == 0) {
      ::usleep(1000);  // no reader at the other end for the moment
      continue;
    }
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
        changed_.notify_all();
        return;
      }
      auto command = protocol_->Feed(bytes[i], mount_, behaviour_.rules);
      if (!command) continue;
      commands_.push_back(command->bytes);
      if (!command->reply.empty()) replies += Faulty(command->bytes, command->reply);
    }
    changed_.notify_all();
  }
  std::size_t done = 0;
  while (done < replies.size()) {
    ssize_t written = ::write(pty_.Master(), replies.data() + done, replies.size() - done);
    if (written > 0) {
      done += static_cast<std::size_t>(written);
    } else if (written < 0 && errno != EAGAIN && errno != EINTR) {
      break;
    }
  }
}

std::string ScopeSimulator::Faulty(const std::string& command, const std::string& reply) {
  if (queriesSeen_++ < behaviour_.ignoreFirstQueries) return "";
  if (command.rfind(behaviour_.faultOnlyFor, 0) != 0) return reply;
  switch (behaviour_.fault) {
    case ReplyFault::kNone:
      return reply;
    case ReplyFault::kSilent:
      return "";
    case ReplyFault::kGarbage:
      return std::string(reply.size(), '?');
    case ReplyFault::kShort:
      return reply.substr(0, reply.size() - 1);
  }
  return reply;
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

bool ScopeSimulator::WaitForCommands(std::size_t count, std::chrono::milliseconds timeout) const {
  std::unique_lock lock(mutex_);
  return changed_.wait_for(lock, timeout, [&] { return commands_.size() >= count || hungUp_; }) &&
         commands_.size() >= count;
}

MountState ScopeSimulator::Mount() const {
  std::lock_guard lock(mutex_);
  return mount_;
}

void ScopeSimulator::SetMount(const MountState& mount) {
  std::lock_guard lock(mutex_);
  mount_ = mount;
}

}  // namespace astel::testing
