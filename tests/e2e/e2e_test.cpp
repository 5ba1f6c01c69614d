// The built program run from a shell as an observer would, with a script on the command line:
// exit codes, the command log, the matches file and the bytes a simulated telescope received. The
// clock stands still at 2026-11-22 21:00:00 UTC (faketime) at 53 N 2 W, so every run is the same.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "core/home_file.h"
#include "core/location.h"
#include "tests/catalog/catalog_files.h"
#include "tests/support/scope_simulator.h"
#include "tests/support/temp_dir.h"
#include "tests/support/test_catalog.h"

namespace astel {
namespace {

using testing::Lines;
using testing::ReadFile;

constexpr const char* kFakeTime = "/usr/bin/faketime";

// One word for /bin/sh, whatever it holds.
std::string Quoted(const std::string& word) {
  std::string quoted = "'";
  for (char c : word)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

class ProgramTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (::access(kFakeTime, X_OK) != 0) GTEST_SKIP() << "faketime is not installed";
#ifdef ASTEL_SANITIZED_PROGRAM
    GTEST_SKIP() << "libfaketime cannot be preloaded into a sanitizer build";
#endif
    WriteHome(10000);
    testing::WriteTestCatalog(dir.path() + "/TEST.OBC");
  }

  void WriteHome(int scopeCode) {
    HomeFileRecord home;
    home.homeLatitude = 53.0 / kDegreesPerRadianExact;
    home.homeLongitude = 2.0 / kDegreesPerRadianExact;
    home.scopeCode = scopeCode;
    home.comPort = 1;
    home.firstStartDate = 2461000.5;
    ASSERT_EQ(SaveHomeFile(dir.path() + "/ASTEL.HOM", home), "");
  }

  // Runs the program without a display and returns its exit code; a hang is killed after a
  // minute. Standard error lands in `errors`.
  int Run(const std::string& script) {
    const std::string home = Quoted(dir.path()), errorsPath = dir.path() + "/stderr.txt";
    const std::string command =
        "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM TZ=UTC ASTEL_HOME=" + home +
        " HOME=" + home + (sim ? " ASTEL_COM1=" + Quoted(sim->DevicePath()) : "") +
        " timeout -s KILL 60 " + kFakeTime + " -f '2026-11-22 21:00:00' " + Quoted(ASTEL_PROGRAM) +
        " " + Quoted(script) + " >/dev/null 2>" + Quoted(errorsPath);
    const int status = std::system(command.c_str());
    errors = ReadFile(errorsPath);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::vector<std::string> Log() {
    return Lines(ReadFile(dir.path() + "/ASTELLOG.TXT"));
  }

  testing::TempDir dir;
  std::unique_ptr<testing::ScopeSimulator> sim;
  std::string errors;
};

const std::string kHeader =
    "COMMAND LOG WRITTEN 22-11-2026 STARTING 21:00:00 LOCAL TIME, GMT= 21:00:00:00   LOCATION "
    "FILE: ASTEL.HOM LAT= 53 \xB0 0 ' LONG= 2 \xB0 0 ' GOTO SCOPE=";

TEST_F(ProgramTest, CatalogFindAndMatchWriteTheLogAndTheMatchesFile) {
  ASSERT_EQ(Run("CAT=TEST.OBC;FIND=M3;MATCH=1;MATCH=1"), 0) << errors;
  std::vector<std::string> log = Log();
  ASSERT_EQ(log.size(), 11u) << ReadFile(dir.path() + "/ASTELLOG.TXT");
  EXPECT_EQ(log[0] + "|" + log[2], "  |  ");
  EXPECT_EQ(log[1], kHeader + " 0 ");
  EXPECT_EQ(log[3], "No Object Selected  22-11-2026 21:00:00");
  EXPECT_EQ(log[4], "Command1: CAT=TEST.OBC Successful");
  EXPECT_EQ(log[5].substr(0, 26), "M3           NGC 5272     ");
  EXPECT_NE(log[5].find(" Alt=-8.2 \xB0 MAG=6.20  22-11-2026 21:00:00"), std::string::npos)
      << log[5] << ": M3 is below the horizon at 21h";
  EXPECT_EQ(log[6], "Command2: FIND=M3 Successful");
  EXPECT_EQ(log[9].substr(0, 25), "M31          NGC 224     ");
  EXPECT_EQ(log[10], "Command4: MATCH=1 Successful");

  std::vector<std::string> matches = Lines(ReadFile(dir.path() + "/MATCHES.TXT"));
  ASSERT_EQ(matches.size(), 10u);
  EXPECT_EQ(matches[0], "ASTEL+S Search= \"M3\"");
  EXPECT_EQ(matches[1].substr(0, 52), "Data is for 22-11-2026 at 21:00:00 Local Time, GMT= ");
  EXPECT_EQ(matches[3], "    ");
  EXPECT_EQ(matches[4].substr(0, 16), " 1. M3          ");
  EXPECT_EQ(matches[8].substr(0, 16), " 3. M31         ");
  EXPECT_NE(matches[9].find("    Alt=78.1\xB0    Az=194.0\xB0    Mag= 3.4     R.A. = 00h 44.2m"),
            std::string::npos)
      << matches[9];
}

TEST_F(ProgramTest, GotoSendsTheLx200CommandsToTheTelescope) {
  sim = std::make_unique<testing::ScopeSimulator>(4);
  ASSERT_TRUE(sim->Start());
  WriteHome(401);
  EXPECT_EQ(Run("RA=05H34.5M DEC=22D01M EPOCH=2027;GOTO=1;PLANET=3;STAY=1;CAT=TEST.OBC;"
                "FIND=Achernar;GOTO=1"),
            2)
      << errors;
  const std::string bytes = sim->ReceivedBytes();
  EXPECT_EQ(bytes.substr(0, 30), "#:Sr 05:34.5##:Sd +22*01##:MS#");
  EXPECT_NE(bytes.find("#:MS#", 25), std::string::npos) << "STAY sends the Moon: " << bytes;
  EXPECT_EQ(bytes.size(), 60u) << "two GoTos and nothing for Achernar: " << bytes;
  std::vector<std::string> log = Log();
  EXPECT_EQ(log[1], kHeader + " 4 ");
  EXPECT_EQ(log.back(), "Command7: GOTO=1 Error: No object selected or object not visible");
}

TEST_F(ProgramTest, AScriptThatCannotRunAndAnEmptyCommand) {
  std::string script = "PLANET=3";
  for (int i = 0; i < 25; ++i)
    script += ";PLANET=3";
  EXPECT_EQ(Run(script), 1);
  EXPECT_NE(errors.find("more than 25 commands"), std::string::npos) << errors;
  EXPECT_FALSE(std::filesystem::exists(dir.path() + "/ASTELLOG.TXT"));

  EXPECT_EQ(Run("PLANET=3;;PLANET=4"), 2) << errors;
  EXPECT_EQ(Log().back(), "Command2:  Error: No 'equal sign' in command");
}

}  // namespace
}  // namespace astel
