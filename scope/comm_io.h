// CommIO: the program's only link to serial hardware. Four numbered ports, each opened, flushed,
// written, read and closed by short transactions; every failure leaves a status number and the
// error record (code, source, message) and nothing is ever shown from here: the callers turn a
// failure into their own message. On Linux a port is a termios device (see comm_device.h).
#pragma once

#include <array>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "scope/unique_fd.h"

namespace astel {

inline constexpr int kCommPortCount = 4;

// The last failure of any port.
struct CommError {
  int code = 0;         // the errno of the failed call, or -1
  std::string source;   // the operation and the call that failed, e.g. "CommOpen (CreateFile)"
  std::string message;  // the system's reason, e.g. "Permission denied"
};

class CommPorts {
 public:
  using DeviceResolver = std::function<std::string(int portNumber)>;

  // `events` lets window events run around each transfer. `diagnostics` receives one line for each
  // recorded failure, with the device path and the system's reason and a hint where one helps (the
  // dialout group): on Linux that is how a user learns why "UNABLE TO OPEN COM 1" happened.
  CommPorts(Events& events, std::ostream& diagnostics, DeviceResolver resolver);
  CommPorts(Events& events, std::ostream& diagnostics);  // COMn mapped from the environment
  CommPorts(const CommPorts&) = delete;
  CommPorts& operator=(const CommPorts&) = delete;

  // Opens the device behind `name` ("COMn" maps through the resolver, any other name is a device
  // path) exclusively and sets it from `mode` (comm_mode.h). 0, or the error code. A failure after
  // the device opened leaves the port open until CommClose, so callers always close after a failed
  // open. An open port fails with -1 "Port in use." and is left untouched.
  int CommOpen(int port, std::string_view name, std::string_view mode);
  // 0 when closed (also for a port that was not open), else the error code.
  int CommClose(int port);
  // Discards what has arrived and was not read (output never waits: see CommWrite). 0, or the
  // error code.
  int CommFlush(int port);
  // Writes the bytes and waits until they are sent, up to one second per byte in all; returns the
  // count written (fewer when the time ran out), or -1.
  int CommWrite(int port, std::string_view data);
  // Returns at once with 0 and an empty `data` when nothing has arrived. Otherwise reads
  // `requested` bytes, or all that are waiting when more are, for up to about one second, and
  // returns the count read; -1 on failure (a hung-up line included).
  int CommRead(int port, std::string& data, int requested);

  // The system's text for an error code, trimmed.
  static std::string CommErrorText(int code);

  const CommError& LastError() const { return error_; }
  bool IsOpen(int port) const;
  std::ostream& Diagnostics() { return diagnostics_; }

 private:
  struct PortRecord {
    UniqueFd fd;
    bool open = false;
    std::string device;
    // Line error counters at open, so that a failure reports only the errors since then.
    std::array<int, 5> lineErrorsAtOpen{};
  };

  PortRecord* Record(int port);
  // Plain form: code, source and the system's text.
  void RecordError(int port, int code, std::string source);
  // With flags: the line error flags of the port appended, for transfer failures.
  void RecordTransferError(int port, int code, std::string source);
  void Report(int port);
  unsigned LineErrorFlags(PortRecord& record);

  Events& events_;
  std::ostream& diagnostics_;
  DeviceResolver resolver_;
  std::array<PortRecord, kCommPortCount> ports_;
  CommError error_;
};

}  // namespace astel
