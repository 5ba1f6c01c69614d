// The far end of a pseudo-terminal: the program under test opens the slave path as its serial
// device, the simulated device reads and writes the master.
#pragma once

#include <string>

#include "scope/unique_fd.h"

namespace astel::testing {

class PtyEndpoint {
 public:
  // Creates the pair. `keepSlaveOpen`: hold a slave descriptor for the whole life of the
  // endpoint, so that the master never sees a hang-up between the program's sessions and the line
  // settings the program chose can be read back. Returns false (with errno) when no pty is free.
  bool Create(bool keepSlaveOpen);
  const std::string& SlavePath() const { return slavePath_; }
  int Master() const { return master_.Get(); }
  int Slave() const { return slave_.Get(); }
  // Drops both ends, as a device that is unplugged: the program's descriptor is hung up.
  void HangUp();

 private:
  UniqueFd master_;
  UniqueFd slave_;
  std::string slavePath_;
};

}  // namespace astel::testing
