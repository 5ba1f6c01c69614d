#include "tests/support/pty_endpoint.h"

#include <fcntl.h>
#include <pty.h>
#include <termios.h>

namespace astel::testing {

bool PtyEndpoint::Create(bool keepSlaveOpen) {
  int master = -1;
  int slave = -1;
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

void PtyEndpoint::HangUp() {
  slave_.Reset();
  master_.Reset();
}

}  // namespace astel::testing
