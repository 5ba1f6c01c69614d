// The object entry's telescope read-back picks the protocol of the telescope's family, over a
// simulated mount on a pseudo-terminal.
#include "session/telescope_read_back.h"

#include <gtest/gtest.h>

#include "tests/scope/wire_harness.h"

namespace astel {
namespace {

using testing::WireHarness;

TEST(TelescopeReadBack, EachFamilyReadsInItsOwnProtocol) {
  struct Row {
    const char* legend;
    int scopeType;
    bool read;
    std::vector<std::string> commands;  // what the mount received, in order
    std::vector<std::string> messages;
  } rows[] = {
      {"NexStar: alignment, then position", 1, true, {"J", "E"}, {}},
      {"LX200: right ascension, then declination",
       4,
       true,
       {":GR#", ":GD#"},
       {}},  // recorded from the colon
      {"original NexStar binary has no read-back", 2, false, {}, {"Function not Available"}},
      {"StarGuide has no read-back", 3, false, {}, {"Function not Available"}},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.legend);
    WireHarness h(r.scopeType);
    ASSERT_SIM_STARTED(h);
    testing::MountState mount = h.sim.Mount();
    mount.raSteps = 0x4000;   // 6 h
    mount.decSteps = 0x2000;  // +45 degrees
    h.sim.SetMount(mount);
    ExchangeMonitor monitor;
    monitor.cancelRequested = true;  // left over from an earlier reading: must not stop this one
    TelescopeReadBack readBack(h.context, monitor);

    EXPECT_EQ(readBack.ReadPosition(h.state), r.read);
    EXPECT_EQ(h.sim.Commands(), r.commands);
    EXPECT_EQ(h.dialogs.messages, r.messages);
    EXPECT_FALSE(monitor.busy);
    if (r.read) {
      EXPECT_EQ(h.state.object.objRaHours, 6);
      EXPECT_NEAR(h.state.object.objRaMinutes, 0, 0.1);
      EXPECT_EQ(h.state.object.objDecDegrees, 45);
      EXPECT_TRUE(h.state.telescope.positionFromScope);
    } else {
      EXPECT_EQ(h.state.object.objRaHours, 0) << "nothing changes without a reading";
    }
  }
}

}  // namespace
}  // namespace astel
