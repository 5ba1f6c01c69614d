#include "scope/comm_io.h"

#include <fcntl.h>
#include <linux/serial.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>

#include "scope/comm_device.h"
#include "scope/comm_mode.h"

namespace astel {

namespace {

using SteadyClock = std::chrono::steady_clock;

// The time-outs the program has always used: a read gives up about a second after it began (one
// more millisecond per byte asked for), a write after one second per byte.
constexpr int kReadTimeoutMs = 1000;
constexpr int kReadTimeoutPerByteMs = 1;
constexpr int kWriteTimeoutPerByteMs = 1000;
// Window events let run after a successful write, besides the one pass after every write.
constexpr int kEventPassesAfterWrite = 10;

int MillisecondsLeft(SteadyClock::time_point deadline) {
  auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - SteadyClock::now());
  return static_cast<int>(std::max<std::int64_t>(0, left.count()));
}

// Waits until the descriptor is ready for `events` or the time is up. 1 ready, 0 time-out, or
// -errno (a hung-up line counts as EIO).
int WaitUntilReady(int fd, short events, SteadyClock::time_point deadline) {
  for (;;) {
    int left = MillisecondsLeft(deadline);
    if (left == 0) return 0;
    pollfd request{fd, events, 0};
    int result = ::poll(&request, 1, left);
    if (result < 0 && errno == EINTR) continue;
    if (result < 0) return -errno;
    if (result == 0) return 0;
    if ((request.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) return -EIO;  // hung up
    if ((request.revents & events) != 0) return 1;
    return 0;
  }
}

// Waits, within the write's time, until the device has sent what was written: a write returns
// when its bytes are on the line, so the pacing between writes is the pacing on the wire.
void WaitUntilSent(int fd, SteadyClock::time_point deadline) {
  int pending = 0;
  while (::ioctl(fd, TIOCOUTQ, &pending) == 0 && pending > 0 && MillisecondsLeft(deadline) > 0) {
    ::usleep(500);
  }
}

// Discards what has arrived and not been read. Output needs no discarding: every write has
// waited until its bytes were sent, and on a pseudo-terminal discarding output would drop bytes
// the other end has not read yet.
int DiscardInput(int fd) {
  return ::tcflush(fd, TCIFLUSH) == 0 ? 0 : errno;
}

std::array<int, 5> LineErrorCounters(int fd) {
  serial_icounter_struct counters{};
  if (::ioctl(fd, TIOCGICOUNT, &counters) != 0) return {};
  return {counters.buf_overrun, counters.overrun, counters.parity, counters.frame, counters.brk};
}

std::string Hint(const CommError& error, int port) {
  if (error.source.rfind("CommOpen", 0) != 0) return "";
  switch (error.code) {
    case EACCES:
    case EPERM:
      return " - serial devices belong to the 'dialout' group: add your user to it "
             "(sudo usermod -aG dialout $USER) and log in again";
    case ENOENT:
    case ENODEV:
      return " - no such device: connect the adapter, or set ASTEL_COM" + std::to_string(port) +
             " to the device path";
    case EBUSY:
      return " - another program is using the port";
    default:
      return "";
  }
}

}  // namespace

CommPorts::CommPorts(Events& events, std::ostream& diagnostics, DeviceResolver resolver)
    : events_(events), diagnostics_(diagnostics), resolver_(std::move(resolver)) {}

CommPorts::CommPorts(Events& events, std::ostream& diagnostics)
    : CommPorts(events, diagnostics, DeviceForPortFromSystem) {}

CommPorts::PortRecord* CommPorts::Record(int port) {
  if (port < 1 || port > kCommPortCount) return nullptr;
  return &ports_[port - 1];
}

bool CommPorts::IsOpen(int port) const {
  return port >= 1 && port <= kCommPortCount && ports_[port - 1].open;
}

int CommPorts::CommOpen(int port, std::string_view name, std::string_view mode) {
  PortRecord* record = Record(port);
  if (record == nullptr) {
    error_ = {ENXIO, "CommOpen", "No such port: only COM1 to COM4 can be used."};
    Report(port);
    return ENXIO;
  }
  if (record->open) {
    error_ = {-1, "CommOpen", "Port in use."};
    Report(port);
    return -1;
  }

  auto number = PortNumberOfName(name);
  record->device = number ? resolver_(*number) : std::string(name);
  int fd = RetryOnEintr(
      [&] { return ::open(record->device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC); });
  if (fd < 0) {
    RecordError(port, errno, "CommOpen (CreateFile)");
    return error_.code;
  }
  UniqueFd device(fd);
  // No other program may share the line while we talk to the telescope.
  if (::ioctl(fd, TIOCEXCL) != 0) {
    RecordError(port, errno, "CommOpen (CreateFile)");
    return error_.code;
  }
  record->fd = std::move(device);
  record->open = true;
  record->lineErrorsAtOpen = LineErrorCounters(fd);

  // The kernel's queues are fixed (nothing stands for SetupComm), and the time-outs are the poll()
  // limits of CommRead and CommWrite. The descriptor stays non-blocking so that poll() alone
  // decides how long a transfer may wait.
  if (int failed = DiscardInput(fd); failed != 0) {
    RecordError(port, failed, "CommOpen (PurgeComm)");
    return error_.code;
  }
  termios settings{};
  if (::tcgetattr(fd, &settings) != 0) {
    RecordError(port, errno, "CommOpen (GetCommState)");
    return error_.code;
  }
  auto serialMode = ParseCommMode(mode);
  if (!serialMode) {
    RecordError(port, EINVAL, "CommOpen (BuildCommDCB)");
    return error_.code;
  }
  if (int refused = ApplySerialMode(*serialMode, settings); refused != 0) {
    RecordError(port, refused, "CommOpen (SetCommState)");
    return error_.code;
  }
  if (RetryOnEintr([&] { return ::tcsetattr(fd, TCSANOW, &settings); }) != 0) {
    RecordError(port, errno, "CommOpen (SetCommState)");
    return error_.code;
  }
  return 0;
}

// Operations on a port that is not open (numbers outside 1..4 included) fail without touching the
// error record, so that the reason of the failed open that usually precedes them stays readable.
int CommPorts::CommClose(int port) {
  PortRecord* record = Record(port);
  if (record == nullptr) return ENXIO;
  if (!record->open) return 0;
  // Give up exclusivity first: the device may stay open elsewhere (another descriptor of the same
  // terminal), and the flag would then keep us out at the next open.
  ::ioctl(record->fd.Get(), TIOCNXCL);
  int failed = record->fd.Reset();
  // The descriptor is released even when close() reports an error, so the port counts as closed.
  record->open = false;
  if (failed != 0) {
    RecordError(port, failed, "CommClose (CloseHandle)");
    return failed;
  }
  return 0;
}

int CommPorts::CommFlush(int port) {
  PortRecord* record = Record(port);
  if (record == nullptr || !record->open) return EBADF;
  if (int failed = DiscardInput(record->fd.Get()); failed != 0) {
    RecordError(port, failed, "CommFlush (PurgeComm)");
    return error_.code;
  }
  return 0;
}

int CommPorts::CommWrite(int port, std::string_view data) {
  PortRecord* record = Record(port);
  if (record == nullptr || !record->open) {
    events_.DoEvents();
    return -1;
  }
  const int fd = record->fd.Get();
  const auto deadline = SteadyClock::now() + std::chrono::milliseconds(kWriteTimeoutPerByteMs) *
                                                 static_cast<int>(data.size());
  std::size_t written = 0;
  int failure = 0;
  while (written < data.size()) {
    ssize_t count = ::write(fd, data.data() + written, data.size() - written);
    if (count > 0) {
      written += static_cast<std::size_t>(count);
      continue;
    }
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno != EAGAIN) {
      failure = errno;
      break;
    }
    int ready = WaitUntilReady(fd, POLLOUT, deadline);
    if (ready == 0) break;  // timed out: the count tells the caller
    if (ready < 0) {
      failure = -ready;
      break;
    }
  }
  if (failure == 0) WaitUntilSent(fd, deadline);
  events_.DoEvents();
  if (failure != 0) {
    RecordTransferError(port, failure, "CommWrite (WriteFile)");
    return -1;
  }
  for (int pass = 0; pass < kEventPassesAfterWrite; ++pass)
    events_.DoEvents();
  return static_cast<int>(written);
}

int CommPorts::CommRead(int port, std::string& data, int requested) {
  data.clear();
  events_.DoEvents();
  PortRecord* record = Record(port);
  if (record == nullptr || !record->open) return -1;
  const int fd = record->fd.Get();

  int waiting = 0;
  if (::ioctl(fd, FIONREAD, &waiting) != 0) {  // a hung-up line fails here
    RecordError(port, errno, "CommRead (ClearCommError)");
    return -1;
  }
  if (waiting <= 0) return 0;

  const int size = std::max(requested, waiting);
  const auto deadline =
      SteadyClock::now() + std::chrono::milliseconds(kReadTimeoutMs + kReadTimeoutPerByteMs * size);
  std::string buffer(static_cast<std::size_t>(size), '\0');
  int got = 0;
  int failure = 0;
  while (got < size) {
    ssize_t count = ::read(fd, buffer.data() + got, static_cast<std::size_t>(size - got));
    if (count > 0) {
      got += static_cast<int>(count);
      continue;
    }
    // A raw line (no minimum count, no timer) reads 0 bytes when nothing is waiting.
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno != EAGAIN) {
      failure = errno;
      break;
    }
    int ready = WaitUntilReady(fd, POLLIN, deadline);
    if (ready == 0) break;  // the rest did not come in time: return what did
    if (ready < 0) {
      failure = -ready;
      break;
    }
  }
  if (failure != 0) {
    RecordTransferError(port, failure, "CommRead (ReadFile)");
    return -1;
  }
  data.assign(buffer, 0, static_cast<std::size_t>(got));
  return got;
}

std::string CommPorts::CommErrorText(int code) {
  std::string text = std::strerror(code);
  std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  std::size_t last = text.find_last_not_of(' ');
  return text.substr(first, last - first + 1);
}

void CommPorts::RecordError(int port, int code, std::string source) {
  error_ = {code, std::move(source), CommErrorText(code)};
  Report(port);
}

void CommPorts::RecordTransferError(int port, int code, std::string source) {
  error_ = {code, std::move(source), CommErrorText(code)};
  if (PortRecord* record = Record(port)) {
    error_.message += fmt::format("  COMM Error Flags = {:X}", LineErrorFlags(*record));
  }
  Report(port);
}

unsigned CommPorts::LineErrorFlags(PortRecord& record) {
  // The old line error flags, in order: receive queue overrun, character overrun, parity error,
  // framing error, break. Real serial drivers count these; a pseudo-terminal has none.
  std::array<int, 5> now = LineErrorCounters(record.fd.Get());
  unsigned flags = 0;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] > record.lineErrorsAtOpen[i]) flags |= 1u << i;
  }
  record.lineErrorsAtOpen = now;
  return flags;
}

void CommPorts::Report(int port) {
  const PortRecord* record = Record(port);
  std::string device = record != nullptr && !record->device.empty() ? record->device : "no device";
  diagnostics_ << "astel: COM" << port << " (" << device << "): " << error_.source << ": "
               << error_.message << Hint(error_, port) << '\n';
  diagnostics_.flush();
}

}  // namespace astel
