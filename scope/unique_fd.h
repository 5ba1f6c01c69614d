// A file descriptor that closes itself: move-only, so a port's device is released exactly once.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace astel {

class UniqueFd {
 public:
  UniqueFd() = default;
  explicit UniqueFd(int fd) : fd_(fd) {}
  ~UniqueFd() { Reset(); }
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;
  UniqueFd(UniqueFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  UniqueFd& operator=(UniqueFd&& other) noexcept {
    if (this != &other) {
      Reset();
      fd_ = std::exchange(other.fd_, -1);
    }
    return *this;
  }

  int Get() const { return fd_; }
  bool Valid() const { return fd_ >= 0; }

  // Closes the descriptor; returns 0 or the errno of close(). On Linux the descriptor is gone even
  // when close() reports EINTR or EIO, so it is never retried (a retry could close a descriptor
  // that another thread has just been given).
  int Reset() {
    if (fd_ < 0) return 0;
    int result = ::close(std::exchange(fd_, -1));
    return result == 0 ? 0 : errno;
  }

 private:
  int fd_ = -1;
};

// Runs a system call again while it is interrupted by a signal.
template <typename Call>
auto RetryOnEintr(Call call) {
  decltype(call()) result;
  do {
    result = call();
  } while (result == -1 && errno == EINTR);
  return result;
}

}  // namespace astel
