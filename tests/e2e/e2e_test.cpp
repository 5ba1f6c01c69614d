// The built program run from a shell with a script: exit codes, the command log, the matches file
// and the bytes a simulated telescope received. The clock stands still at 2026-11-22 21:00:00 UTC
// (faketime) at 53 N 2 W, so every line is the same on every run.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include "core/home_file.h"
#include "core/location.h"
#include "tests/catalog/catalog_files.h"
#include "tests/e2e/program_run.h"
#include "tests/support/scope_simulator.h"
#include "tests/support/temp_dir.h"
#include "tests/support/test_catalog.h"

namespace astel {
namespace {

using testing::Lines;
using testing::ReadFile;

constexpr const char* kFrozenNow = "2026-11-22 21:00:00";

class ProgramTest : public ::testing::Test {
 protected:
  void SetUp() override {
    if (testing::FakeTimeProgram().empty()) GTEST_SKIP() << "faketime is not installed";
#ifdef ASTEL_SANITIZED_PROGRAM
    GTEST_SKIP() << "libfaketime cannot be preloaded into a sanitizer build";
#endif
    run.program = ASTEL_PROGRAM;
    run.home = dir.path();
    run.fakeTime = kFrozenNow;
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

  // A simulated mount of the given family behind COM1.
  testing::ScopeSimulator& Telescope(int scopeType, int scopeCode) {
    sim = std::make_unique<testing::ScopeSimulator>(scopeType);
    EXPECT_TRUE(sim->Start());
    run.environment["ASTEL_COM1"] = sim->DevicePath();
    WriteHome(scopeCode);
    return *sim;
  }

  std::vector<std::string> LogLines() {
    return Lines(ReadFile(dir.path() + "/ASTELLOG.TXT"));
  }

  testing::TempDir dir;
  testing::ProgramRun run;
  std::unique_ptr<testing::ScopeSimulator> sim;
};

const std::string kHeader =
    "COMMAND LOG WRITTEN 22-11-2026 STARTING 21:00:00 LOCAL TIME, GMT= 21:00:00:00   LOCATION "
    "FILE: ASTEL.HOM LAT= 53 \xB0 0 ' LONG= 2 \xB0 0 ' GOTO SCOPE=";

TEST_F(ProgramTest, CatalogFindAndMatchWriteTheLogAndTheMatchesFile) {
  testing::RunResult r = run.Run({"CAT=TEST.OBC;FIND=M3;MATCH=1;MATCH=1"});
  ASSERT_EQ(r.exitCode, 0) << r.errors;
  std::vector<std::string> log = LogLines();
  ASSERT_EQ(log.size(), 11u) << ReadFile(dir.path() + "/ASTELLOG.TXT");
  EXPECT_EQ(log[0], "  ");
  EXPECT_EQ(log[1], kHeader + " 0 ");
  EXPECT_EQ(log[2], "  ");
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

TEST_F(ProgramTest, AMagnitudeLimitEndsTheMatchesEarly) {
  testing::RunResult r = run.Run({"CAT=TEST.OBC;MINMAG=5;FIND=M*;MATCH=1"});
  EXPECT_EQ(r.exitCode, 2) << r.errors;
  std::vector<std::string> log = LogLines();
  EXPECT_NE(std::find(log.begin(), log.end(), "Command3: FIND=M* Successful"), log.end());
  EXPECT_EQ(log.back(), "Command4: MATCH=1 Error: Match not found");
  std::vector<std::string> matches = Lines(ReadFile(dir.path() + "/MATCHES.TXT"));
  EXPECT_EQ(matches[0], "ASTEL+S Search= \"M*\", Brighter than Mag 5");
  ASSERT_EQ(matches.size(), 6u) << "only M31 is brighter than 5";
  EXPECT_EQ(matches[4].substr(0, 8), " 1. M31 ");
}

TEST_F(ProgramTest, GotoSendsTheLx200CommandsToTheTelescope) {
  testing::ScopeSimulator& scope = Telescope(4, 401);
  testing::RunResult r = run.Run(
      {"RA=05H34.5M DEC=22D01M EPOCH=2027;GOTO=1;PLANET=3;STAY=1;CAT=TEST.OBC;FIND=Achernar;"
       "GOTO=1"});
  EXPECT_EQ(r.exitCode, 2) << r.errors;
  const std::string bytes = scope.ReceivedBytes();
  EXPECT_EQ(bytes.substr(0, 30), "#:Sr 05:34.5##:Sd +22*01##:MS#");
  EXPECT_NE(bytes.find("#:MS#", 25), std::string::npos) << "STAY sends the Moon: " << bytes;
  EXPECT_EQ(bytes.size(), 60u) << "two GoTos and nothing for Achernar: " << bytes;
  std::vector<std::string> log = LogLines();
  EXPECT_EQ(log[1], kHeader + " 4 ");
  EXPECT_EQ(log.back(), "Command7: GOTO=1 Error: No object selected or object not visible");
}

TEST_F(ProgramTest, GotoSendsTheNexStarHexCommand) {
  testing::ScopeSimulator& scope = Telescope(1, 101);
  testing::RunResult r = run.Run({"RA=05H34.5M DEC=-0D30M EPOCH=2027;GOTO=1"});
  ASSERT_EQ(r.exitCode, 0) << r.errors;
  // RA 334.5 arc-minutes of time: 15223.5 steps = 0x3B 0x77; Dec -30': 65444.4 steps.
  EXPECT_EQ(scope.ReceivedBytes(), "R3B77,FFA5");
}

TEST_F(ProgramTest, AScriptThatCannotRunAndAnEmptyCommand) {
  std::string script = "PLANET=3";
  for (int i = 0; i < 25; ++i)
    script += ";PLANET=3";
  testing::RunResult r = run.Run({script});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_NE(r.errors.find("more than 25 commands"), std::string::npos) << r.errors;
  EXPECT_FALSE(std::filesystem::exists(dir.path() + "/ASTELLOG.TXT"));

  r = run.Run({"PLANET=3;;PLANET=4"});
  EXPECT_EQ(r.exitCode, 2) << r.errors;
  EXPECT_EQ(LogLines().back(), "Command2:  Error: No 'equal sign' in command");
}

TEST_F(ProgramTest, ShellStartsTheProgramDetached) {
  const std::string marker = dir.path() + "/marker";
  testing::RunResult r = run.Run({"SHELL=/usr/bin/touch " + marker});
  EXPECT_EQ(r.exitCode, 0) << r.errors;
  for (int i = 0; i < 100 && !std::filesystem::exists(marker); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  EXPECT_TRUE(std::filesystem::exists(marker));
}

TEST_F(ProgramTest, WaitAndSleepFollowTheRunningClock) {
  run.fakeTime = "2026-11-22 20:59:58";
  run.frozenClock = false;
  testing::RunResult r = run.Run({"DATE=22;WAIT=21:00:00;SLEEP=1"});
  EXPECT_EQ(r.exitCode, 0) << r.errors;
  EXPECT_GE(r.seconds, 2.5) << "the wait ends on the 22nd at 21:00, then a second of sleep";
  EXPECT_EQ(LogLines().back(), "Command3: SLEEP=1 Successful");
}

TEST_F(ProgramTest, StarGuideReminderReachesStandardError) {
  Telescope(3, 302);
  testing::RunResult r = run.Run({"PLANET=3;GOTO=1"});
  EXPECT_EQ(r.exitCode, 0) << r.errors;
  EXPECT_NE(r.errors.find("You must press a key on the scope before next 'GOTO'"),
            std::string::npos)
      << r.errors;
}

}  // namespace
}  // namespace astel
