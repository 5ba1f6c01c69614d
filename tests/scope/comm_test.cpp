// CommPorts over real pseudo-terminals: the transactions, the error record and what a user on
// Linux is told when a port cannot be used.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

#include "scope/comm_io.h"
#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr std::string_view kMode = kModeTelescope;

// Reads until `length` bytes have come or a second has passed.
std::string ReadReply(CommPorts& comm, std::size_t length) {
  std::string all, part;
  for (int tries = 0; tries < 500 && all.size() < length; ++tries) {
    comm.CommRead(kPort, part, static_cast<int>(length - all.size()));
    all += part;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return all;
}

TEST(CommIO, OpenCloseCyclesLeakNothing) {
  WireHarness h(4);
  ASSERT_SIM_STARTED(h);
  auto descriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  const auto descriptorsBefore = descriptors();
  for (int cycle = 0; cycle < 40; ++cycle) {
    ASSERT_EQ(h.comm.CommOpen(kPort, "COM1", kMode), 0) << h.comm.LastError().message;
    ASSERT_EQ(h.comm.CommFlush(kPort), 0);
    ASSERT_EQ(h.comm.CommWrite(kPort, "#:GL#"), 5);
    EXPECT_EQ(ReadReply(h.comm, 9), "21:30:00#") << cycle;
    ASSERT_EQ(h.comm.CommClose(kPort), 0);
  }
  EXPECT_EQ(descriptors(), descriptorsBefore);
  EXPECT_EQ(h.diagnostics.str(), "") << "no failure, nothing reported";

  // Refusals: a mode the line cannot take leaves the port open until closed; a second open fails.
  EXPECT_NE(h.comm.CommOpen(kPort, "COM1", "baud=fast parity=N"), 0);
  EXPECT_EQ(h.comm.LastError().source, "CommOpen (BuildCommDCB)");
  EXPECT_TRUE(h.comm.IsOpen(kPort));
  EXPECT_EQ(h.comm.CommOpen(kPort, "COM1", kMode), -1);
  EXPECT_EQ(h.comm.LastError().message, "Port in use.");
  EXPECT_EQ(h.comm.CommClose(kPort), 0);
}

// CommPorts with every port behind one fixed device path.
struct FixedDevice {
  explicit FixedDevice(std::string path)
      : comm(events, diagnostics, [path](int) { return path; }) {}
  FakeEvents events;
  std::ostringstream diagnostics;
  CommPorts comm;
};

TEST(CommIO, EveryByteValuePassesUnchangedInBothDirections) {
  PtyEndpoint device;
  ASSERT_TRUE(device.Create()) << "no pseudo-terminal";
  FixedDevice rig(device.SlavePath());
  ASSERT_EQ(rig.comm.CommOpen(kPort, "COM1", kModeNexStarGoto), 0);
  std::string all, received;
  for (int value = 0; value < 256; ++value)
    all.push_back(static_cast<char>(value));
  ASSERT_EQ(rig.comm.CommWrite(kPort, all), 256);
  char buffer[512];
  for (int tries = 0; tries < 100 && received.size() < all.size(); ++tries) {
    ssize_t count = ::read(device.Master(), buffer, sizeof buffer);
    if (count > 0) received.append(buffer, static_cast<std::size_t>(count));
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  EXPECT_EQ(received, all) << "program to device: no CR/LF translation, nothing lost";

  ASSERT_EQ(::write(device.Master(), all.data(), all.size()), 256);
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_EQ(rig.comm.CommRead(kPort, received, 256), 256);
  EXPECT_EQ(received, all) << "device to program: no echo, no XON/XOFF or signal characters eaten";
}

TEST(CommIO, OpenFailuresAreRecordedAndExplained) {
  FixedDevice rig("/nonexistent/ttyUSB1");
  EXPECT_EQ(rig.comm.CommOpen(2, "COM2", kMode), ENOENT);
  EXPECT_EQ(rig.comm.LastError().code, ENOENT) << "the reason of the failed open is kept";
  EXPECT_NE(rig.diagnostics.str().find(
                "COM2 (/nonexistent/ttyUSB1): CommOpen (CreateFile): No such file or directory - "
                "no such device: connect the adapter, or set ASTEL_COM2 to the device path"),
            std::string::npos)
      << rig.diagnostics.str();
}

// Runs `body` in a child process as the unprivileged user "nobody" (as ourselves when we are not
// root); returns what the child wrote to its pipe.
std::string AsAnotherUser(const std::function<std::string()>& body) {
  int pipeFds[2];
  if (::pipe(pipeFds) != 0) return "pipe failed";
  pid_t child = ::fork();
  if (child == 0) {
    ::close(pipeFds[0]);
    if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(3);
    std::string result = body();
    [[maybe_unused]] auto written = ::write(pipeFds[1], result.data(), result.size());
    ::_exit(0);
  }
  ::close(pipeFds[1]);
  std::string result;
  char buffer[512];
  for (ssize_t n; (n = ::read(pipeFds[0], buffer, sizeof buffer)) > 0;)
    result.append(buffer, static_cast<std::size_t>(n));
  ::close(pipeFds[0]);
  ::waitpid(child, nullptr, 0);
  return result;
}

TEST(CommIO, AnOpenPortIsExclusiveAndAForbiddenOnePointsAtTheDialoutGroup) {
  PtyEndpoint device;
  ASSERT_TRUE(device.Create()) << "no pseudo-terminal";
  const std::string path = device.SlavePath();
  ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
  auto otherProgramOpens = [&] {
    return AsAnotherUser([&] {
      int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK);
      std::string outcome = fd >= 0 ? "opened" : std::strerror(errno);
      if (fd >= 0) ::close(fd);
      return outcome;
    });
  };
  FixedDevice rig(path);
  ASSERT_EQ(rig.comm.CommOpen(kPort, "COM1", kMode), 0);
  EXPECT_EQ(otherProgramOpens(), "Device or resource busy");
  ASSERT_EQ(rig.comm.CommClose(kPort), 0);
  EXPECT_EQ(otherProgramOpens(), "opened") << "exclusivity ends with the close";

  ASSERT_EQ(::chmod(path.c_str(), ::geteuid() == 0 ? 0600 : 0000), 0);
  std::string result = AsAnotherUser([&] {
    FixedDevice forbidden(path);
    int status = forbidden.comm.CommOpen(kPort, "COM1", kMode);
    return std::to_string(status) + "|" + forbidden.comm.LastError().source + "|" +
           forbidden.comm.LastError().message + "|" + forbidden.diagnostics.str();
  });
  EXPECT_EQ(result.substr(0, result.find('|')), std::to_string(EACCES)) << result;
  EXPECT_NE(result.find("|CommOpen (CreateFile)|Permission denied|"), std::string::npos) << result;
  EXPECT_NE(result.find("dialout"), std::string::npos) << result;
}

}  // namespace
}  // namespace astel::testing
