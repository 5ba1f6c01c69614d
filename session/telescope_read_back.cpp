#include "session/telescope_read_back.h"

#include "scope/position_readback.h"

namespace astel {

namespace {
constexpr int kNexStarFamily = 1;
constexpr int kLx200Family = 4;
}  // namespace

bool TelescopeReadBack::ReadPosition(SharedState& state) {
  const int family = state.telescope.scopeType;
  if (family != kNexStarFamily && family != kLx200Family) {
    context_.dialogs.MessageBox("Function not Available");
    return false;
  }
  monitor_.cancelRequested = false;
  monitor_.busy = true;
  // The user asked for this reading, so a failed write is reported rather than passed over.
  const bool read = family == kNexStarFamily ? CelestronLoad(context_, monitor_, true)
                                             : MeadeLoad(context_, monitor_);
  monitor_.busy = false;
  return read;
}

}  // namespace astel
