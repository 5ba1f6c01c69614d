#include "scope/comm_device.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace astel {
namespace {

TEST(DeviceForPort, EnvironmentFirstThenUsbAdapterThenBuiltInPort) {
  struct Row {
    const char* legend;
    int port;
    std::map<std::string, std::string> env;
    std::set<std::string> existing;
    const char* device;
  };
  const Row rows[] = {
      {"variable set", 2, {{"ASTEL_COM2", "/tmp/sim/ttyS1"}}, {"/dev/ttyUSB1"}, "/tmp/sim/ttyS1"},
      {"empty variable counts as unset", 1, {{"ASTEL_COM1", ""}}, {"/dev/ttyUSB0"}, "/dev/ttyUSB0"},
      {"USB adapter present", 3, {}, {"/dev/ttyUSB2", "/dev/ttyS2"}, "/dev/ttyUSB2"},
      {"only the built-in port", 4, {}, {"/dev/ttyUSB0"}, "/dev/ttyS3"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    auto env = [&](const std::string& name) -> std::optional<std::string> {
      auto found = row.env.find(name);
      if (found == row.env.end()) return std::nullopt;
      return found->second;
    };
    auto exists = [&](const std::string& path) { return row.existing.count(path) > 0; };
    EXPECT_EQ(DeviceForPort(row.port, env, exists), row.device);
  }
}

TEST(PortNumberOfName, OnlyComFollowedByANumber) {
  EXPECT_EQ(PortNumberOfName("com4"), 4);
  EXPECT_EQ(PortNumberOfName("COM12"), 12);
  EXPECT_EQ(PortNumberOfName("COM1x"), std::nullopt);
  EXPECT_EQ(PortNumberOfName("/dev/ttyS0"), std::nullopt);
}

}  // namespace
}  // namespace astel
