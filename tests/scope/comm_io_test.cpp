// CommPorts over real pseudo-terminals: the transactions, the error record and what a user on
// Linux is told when a port cannot be used.
#include "scope/comm_io.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "tests/scope/wire_harness.h"
#include "tests/support/pty_endpoint.h"

namespace astel::testing {
namespace {

constexpr std::string_view kMode = kModeTelescope;

void Settle() {
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
}

int OpenDescriptorCount() {
  int count = 0;
  if (DIR* dir = ::opendir("/proc/self/fd")) {
    while (::readdir(dir) != nullptr)
      ++count;
    ::closedir(dir);
  }
  return count;
}

// Reads until `length` bytes have come or a second has passed.
std::string ReadReply(CommPorts& comm, std::size_t length) {
  std::string all;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
  while (all.size() < length && std::chrono::steady_clock::now() < deadline) {
    std::string part;
    comm.CommRead(kPort, part, static_cast<int>(length - all.size()));
    all += part;
    if (part.empty()) std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return all;
}

// CommPorts with every port behind one fixed device path.
struct FixedDevice {
  explicit FixedDevice(std::string path)
      : comm(events, diagnostics, [path](int) { return path; }) {}
  FakeEvents events;
  std::ostringstream diagnostics;
  CommPorts comm;
};

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
  ssize_t count;
  while ((count = ::read(pipeFds[0], buffer, sizeof buffer)) > 0)
    result.append(buffer, static_cast<std::size_t>(count));
  ::close(pipeFds[0]);
  ::waitpid(child, nullptr, 0);
  return result;
}

TEST(CommIO, RepeatedOpenAndCloseCyclesWorkEveryTimeAndLeakNothing) {
  WireHarness h(4);
  ASSERT_SIM_STARTED(h);
  ASSERT_EQ(h.comm.CommClose(kPort), 0) << "closing a port that is not open";
  const int descriptorsBefore = OpenDescriptorCount();
  constexpr std::size_t kCycles = 40;
  for (std::size_t cycle = 0; cycle < kCycles; ++cycle) {
    ASSERT_EQ(h.comm.CommOpen(kPort, "COM1", kMode), 0) << h.comm.LastError().message;
    ASSERT_EQ(h.comm.CommFlush(kPort), 0);
    ASSERT_EQ(h.comm.CommWrite(kPort, "#:GL#"), 5);
    EXPECT_EQ(ReadReply(h.comm, 9), "21:30:00#") << cycle;
    ASSERT_EQ(h.comm.CommClose(kPort), 0);
  }
  EXPECT_FALSE(h.comm.IsOpen(kPort));
  EXPECT_EQ(h.sim.Commands().size(), kCycles);
  EXPECT_EQ(OpenDescriptorCount(), descriptorsBefore);
  EXPECT_EQ(h.diagnostics.str(), "") << "no failure, nothing reported";
}

TEST(CommIO, ASecondOpenOrAnUnparseableModeFailsAndTheFirstOpenStands) {
  WireHarness h(4);
  ASSERT_SIM_STARTED(h);
  EXPECT_NE(h.comm.CommOpen(kPort, "COM1", "baud=fast parity=N"), 0);
  EXPECT_EQ(h.comm.LastError().source, "CommOpen (BuildCommDCB)");
  EXPECT_EQ(h.comm.LastError().message, "Invalid argument");
  EXPECT_TRUE(h.comm.IsOpen(kPort)) << "open until closed";
  h.comm.CommClose(kPort);

  ASSERT_EQ(h.comm.CommOpen(kPort, "COM1", kMode), 0);
  EXPECT_EQ(h.comm.CommOpen(kPort, "COM1", kMode), -1);
  EXPECT_EQ(h.comm.LastError().source, "CommOpen");
  EXPECT_EQ(h.comm.LastError().message, "Port in use.");
  ASSERT_EQ(h.comm.CommWrite(kPort, "#:GC#"), 5) << "the first open's device is untouched";
  EXPECT_EQ(ReadReply(h.comm, 9), "03/23/05#");
}

TEST(CommIO, ReadsTakeWhatHasArrivedAndNeverWaitForNothing) {
  WireHarness h(4, WithFault(ReplyFault::kShort));  // every reply lacks its last byte
  ASSERT_SIM_STARTED(h);
  ASSERT_EQ(h.comm.CommOpen(kPort, "COM1", kMode), 0);
  std::string data = "stale";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(h.comm.CommRead(kPort, data, 10), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(500))
      << "long before the one-second read time-out";
  EXPECT_EQ(data, "");
  EXPECT_EQ(h.events.doEventsCount, 1) << "one event pass before every read";
  EXPECT_EQ(h.comm.CommWrite(kPort, ""), 0);
  EXPECT_EQ(h.events.doEventsCount, 12) << "events run eleven times around every write";

  ASSERT_EQ(h.comm.CommWrite(kPort, "#:GL##:GC#"), 10);
  ASSERT_TRUE(h.sim.WaitForCommands(2, std::chrono::seconds(2)));
  Settle();
  EXPECT_EQ(h.comm.CommRead(kPort, data, 3), 16) << "more waiting than requested: all of it";
  EXPECT_EQ(data, "21:30:0003/23/05");
  ASSERT_EQ(h.comm.CommWrite(kPort, "#:GL#"), 5);
  ASSERT_TRUE(h.sim.WaitForCommands(3, std::chrono::seconds(2)));
  Settle();
  EXPECT_EQ(h.comm.CommRead(kPort, data, 9), 8) << "the read time-out ends the wait";
}

TEST(CommIO, EveryByteValuePassesUnchangedInBothDirections) {
  PtyEndpoint device;
  ASSERT_TRUE(device.Create(true)) << "no pseudo-terminal";
  FixedDevice rig(device.SlavePath());
  ASSERT_EQ(rig.comm.CommOpen(kPort, "COM1", kModeNexStarGoto), 0);
  std::string all;
  for (int value = 0; value < 256; ++value)
    all.push_back(static_cast<char>(value));

  ASSERT_EQ(rig.comm.CommWrite(kPort, all), 256);
  std::string received;
  for (int tries = 0; tries < 100 && received.size() < all.size(); ++tries) {
    char buffer[512];
    ssize_t count = ::read(device.Master(), buffer, sizeof buffer);
    if (count > 0) received.append(buffer, static_cast<std::size_t>(count));
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  EXPECT_EQ(received, all) << "program to device: no CR/LF translation, nothing lost";

  ASSERT_EQ(::write(device.Master(), all.data(), all.size()), 256);
  Settle();
  std::string data;
  EXPECT_EQ(rig.comm.CommRead(kPort, data, 256), 256);
  EXPECT_EQ(data, all) << "device to program: no echo, no XON/XOFF or signal characters eaten";
}

TEST(CommIO, OpenFailuresAreRecordedAndExplained) {
  FixedDevice rig("/nonexistent/ttyUSB1");
  CommPorts& comm = rig.comm;
  std::string data;
  for (int port : {0, 5}) {
    EXPECT_NE(comm.CommOpen(port, PortName(port), kMode), 0);
    EXPECT_NE(comm.CommClose(port), 0);
    EXPECT_EQ(comm.CommWrite(port, "x"), -1);
    EXPECT_EQ(comm.CommRead(port, data, 1), -1);
  }
  EXPECT_NE(rig.diagnostics.str().find("COM5"), std::string::npos);
  EXPECT_NE(rig.diagnostics.str().find("only COM1 to COM4"), std::string::npos);

  EXPECT_EQ(comm.CommOpen(2, "COM2", kMode), ENOENT);
  EXPECT_FALSE(comm.IsOpen(2));
  EXPECT_NE(comm.CommFlush(2), 0);
  EXPECT_EQ(comm.LastError().code, ENOENT) << "the reason of the failed open is kept";
  EXPECT_EQ(comm.LastError().source, "CommOpen (CreateFile)");
  EXPECT_EQ(comm.LastError().message, "No such file or directory");
  const std::string told = rig.diagnostics.str();
  EXPECT_NE(told.find("COM2 (/nonexistent/ttyUSB1): CommOpen (CreateFile): No such file or "
                      "directory - no such device: connect the adapter, or set ASTEL_COM2 to the "
                      "device path"),
            std::string::npos)
      << told;
}

TEST(CommIO, AnOpenPortIsExclusiveAndAForbiddenOnePointsAtTheDialoutGroup) {
  PtyEndpoint device;
  ASSERT_TRUE(device.Create(true)) << "no pseudo-terminal";
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

TEST(CommIO, AHungUpLineFailsTransfersWithTheirSources) {
  PtyEndpoint device;
  ASSERT_TRUE(device.Create(false)) << "no pseudo-terminal";
  FixedDevice rig(device.SlavePath());
  CommPorts& comm = rig.comm;
  ASSERT_EQ(comm.CommOpen(kPort, "COM1", kMode), 0);
  device.HangUp();

  EXPECT_EQ(comm.CommWrite(kPort, "R"), -1);
  EXPECT_EQ(comm.LastError().source, "CommWrite (WriteFile)");
  EXPECT_EQ(comm.LastError().message, "Input/output error  COMM Error Flags = 0");
  std::string data;
  EXPECT_EQ(comm.CommRead(kPort, data, 2), -1);
  EXPECT_EQ(comm.LastError().source, "CommRead (ClearCommError)");
  EXPECT_NE(rig.diagnostics.str().find("CommWrite (WriteFile): Input/output error"),
            std::string::npos);
}

}  // namespace
}  // namespace astel::testing
