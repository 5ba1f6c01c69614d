// The sky chart started on the shown position, and the object entry's telescope read-back, which
// picks the protocol of the telescope's family over a simulated mount (the readings themselves:
// tests/scope).
#include <gtest/gtest.h>

#include "session/sky_chart_launch.h"
#include "session/telescope_read_back.h"
#include "tests/scope/wire_harness.h"
#include "tests/support/fake_ports.h"

namespace astel {
namespace {

TEST(SkyChart, StartsTheChartOnTheShownPosition) {
  SharedState s;
  testing::ScriptedDialogs dialogs;
  testing::RecordingShell shell;
  s.files.skyChartInstalled = true;
  s.files.skyChartDir = "/usr/bin/";

  s.object.Name1 = "M31";
  s.object.objRaMinutes = 42.74;
  s.object.objDecDegrees = 41;
  s.object.objDecMinutes = 16.2;
  EXPECT_TRUE(SkyChartClick(s, dialogs, shell));
  EXPECT_EQ(shell.started.back(),
            "/usr/bin/skychart|--unique --nosplash --ra=0.71233 --dec=+41.2700 --fov=10.0");
  // -0 degrees 30 minutes stays south; the hours of 23h 59.99m keep five decimals.
  s.object.objRaHours = 23;
  s.object.objRaMinutes = 59.99;
  s.object.objDecDegrees = 0;
  s.object.objDecMinutes = 30;
  s.object.objDecSign = -1;
  EXPECT_EQ(SkyChartParameters(s.object),
            "--unique --nosplash --ra=23.99983 --dec=-0.5000 --fov=10.0");
}

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
    EXPECT_EQ(h.dialogs.messages, read ? std::vector<std::string>{}
                                       : std::vector<std::string>{"Function not Available"});
  }
}

}  // namespace
}  // namespace astel
