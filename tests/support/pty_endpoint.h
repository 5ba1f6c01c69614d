// The far end of a pseudo-terminal: the program under test opens the slave path as its serial
// device, the simulated device reads and writes the master.
#pragma once

#include <fcntl.h>
#include <pty.h>
#include <termios.h>

#include <string>

#include "scope/unique_fd.h"

namespace astel::testing {

class PtyEndpoint {
 public:
  // Creates the pair. `keepSlaveOpen`: hold a slave descriptor for the whole life of the
  // endpoint, so that the master never sees a hang-up between the program's sessions and the line
  // settings the program chose can be read back. Returns false (with errno) when no pty is free.
  bool Create(bool keepSlaveOpen) {
    int master = -1, slave = -1;
    char name[128] = {};
    if (::openpty(&master, &slave, name, nullptr, nullptr) != 0) return false;
    master_ = UniqueFd(master);
    slave_ = UniqueFd(slave);
    slavePath_ = name;
    ::fcntl(master, F_SETFD, FD_CLOEXEC);
    ::fcntl(slave, F_SETFD, FD_CLOEXEC);
    ::fcntl(master, F_SETFL, ::fcntl(master, F_GETFL) | O_NONBLOCK);
    // Raw from the start: nothing the device sends before the program sets the line may be echoed.
    termios settings{};
    ::tcgetattr(slave, &settings);
    ::cfmakeraw(&settings);
    ::tcsetattr(slave, TCSANOW, &settings);
    if (!keepSlaveOpen) slave_.Reset();
    return true;
  }
  const std::string& SlavePath() const { return slavePath_; }
  int Master() const { return master_.Get(); }
  int Slave() const { return slave_.Get(); }
  // Drops both ends, as a device that is unplugged: the program's descriptor is hung up.
  void HangUp() {
    slave_.Reset();
    master_.Reset();
  }

 private:
  UniqueFd master_, slave_;
  std::string slavePath_;
};

}  // namespace astel::testing
