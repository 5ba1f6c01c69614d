// The object entry's telescope read-back picks the protocol of the telescope's family, over a
// simulated mount on a pseudo-terminal (the readings themselves: tests/scope).
#include "session/telescope_read_back.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"

namespace astel {
namespace {

TEST(TelescopeReadBack, EachFamilyReadsInItsOwnProtocol) {
  const struct {
    const char* legend;
    int scopeType;
    std::vector<std::string> commands;  // what the mount received, in order
  } rows[] = {
      {"NexStar: alignment, then position", 1, {"J", "E"}},
      {"LX200: right ascension, then declination", 4, {":GR#", ":GD#"}},  // from the colon
      {"original NexStar binary has no read-back", 2, {}},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.legend);
    testing::WireHarness h(r.scopeType);
    ASSERT_SIM_STARTED(h);
    ExchangeMonitor monitor;
    monitor.cancelRequested = true;  // left over from an earlier reading: must not stop this one
    TelescopeReadBack readBack(h.context, monitor);

    const bool read = !r.commands.empty();
    EXPECT_EQ(readBack.ReadPosition(h.state), read);
    EXPECT_EQ(h.sim.Commands(), r.commands);
    EXPECT_FALSE(monitor.busy);
    EXPECT_EQ(h.state.telescope.positionFromScope, read);
    EXPECT_EQ(h.dialogs.messages, read ? std::vector<std::string>{}
                                       : std::vector<std::string>{"Function not Available"});
  }
}

}  // namespace
}  // namespace astel
