#include "core/file_write.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace astel {

namespace {

std::string Failure(const std::string& path) {
  return path + ": " + std::strerror(errno);
}

}  // namespace

bool WriteAll(int fd, std::string_view bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::size_t>(n);
  }
  return true;
}

std::string ReplaceFile(const std::string& path, std::string_view bytes) {
  const std::string temporary = path + ".tmp";
  const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) return Failure(temporary);
  std::string error;
  if (!WriteAll(fd, bytes) || ::fsync(fd) != 0) error = Failure(temporary);
  if (::close(fd) != 0 && error.empty()) error = Failure(temporary);
  if (error.empty() && std::rename(temporary.c_str(), path.c_str()) != 0) error = Failure(path);
  if (!error.empty()) std::remove(temporary.c_str());
  return error;
}

std::string AppendToFile(const std::string& path, std::string_view bytes) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0) return Failure(path);
  std::string error;
  if (!WriteAll(fd, bytes)) error = Failure(path);
  if (::close(fd) != 0 && error.empty()) error = Failure(path);
  return error;
}

}  // namespace astel
