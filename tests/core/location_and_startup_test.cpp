#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/command_line.h"
#include "core/install_dir.h"
#include "core/location.h"
#include "tests/support/temp_dir.h"

namespace astel {
namespace {

std::string ReadAll(const std::string& path) {
  std::ifstream in(path);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(Location, DerivedDegreesMinutesSignsAndDateOrder) {
  PlaceState p;
  SetHomeLatitude(p, -0.5);
  EXPECT_TRUE(p.latitudeDegrees == 0 && p.latitudeSign == -1 && p.latitudeSignText == "-");
  EXPECT_NEAR(p.latitudeMinutes, 30, 1e-9);
  SetHomeLatitude(p, 40.9995);  // 59.97 minutes rounds up into the next degree
  EXPECT_TRUE(p.latitudeDegrees == 41 && p.latitudeMinutes == 0 && p.latitudeSignText.empty());
  SetHomeLongitude(p, -33.9995);  // east, and away from zero
  EXPECT_TRUE(p.longitudeDegrees == -34 && p.longitudeMinutes == 0 && p.longitudeSignText == "-");

  // North America, by whole degrees: the 56th west and the 115th are the edges, 24 north the
  // southern one.
  for (auto [lat, lon, us] : {std::tuple{32.0, 55.5, false},
                              {32.0, 56.0, true},
                              {25.0, 120.0, false},
                              {23.9, 100.0, false}}) {
    SetHomeLatitude(p, lat);
    SetHomeLongitude(p, lon);
    EXPECT_EQ(ComputeUsDateOrder(p), us) << lat << " " << lon;
  }
}

TEST(CommandLine, SplitsAtSemicolonsUpToTwentyFive) {
  ScriptState s;
  // An empty piece between two ";" is a command; a final ";" adds none.
  EXPECT_EQ(ParseCommandLineScript("FIND=M31;;MATCH=1;", s), ScriptParse::kReady);
  EXPECT_TRUE(s.scriptMode && s.scriptLineIndex == 1 && s.scriptLineCount == 3);
  EXPECT_EQ(s.scriptLines[1] + "|" + s.scriptLines[2] + "|" + s.scriptLines[3],
            "FIND=M31||MATCH=1");
  std::string line = "SLEEP=1";
  for (int i = 2; i <= 25; ++i)
    line += ";SLEEP=1";
  EXPECT_EQ(ParseCommandLineScript(line, s), ScriptParse::kReady);
  EXPECT_EQ(ParseCommandLineScript(line + ";SLEEP=1", s), ScriptParse::kTooManyCommands);
  EXPECT_TRUE(!s.scriptMode && s.scriptLineCount == 0);
}

TEST(InstallDir, EnvironmentProgramFolderOrAFilledUserFolder) {
  testing::TempDir tmp;
  const std::string exeDir = tmp.path() + "/bin", shipped = tmp.path() + "/share";
  std::filesystem::create_directories(exeDir);
  std::filesystem::create_directories(shipped);
  std::ofstream(shipped + "/FULL.OBC") << "shipped";

  InstallDirInputs in{tmp.path() + "/mine", exeDir, tmp.path() + "/data", {shipped}};
  EXPECT_EQ(ResolveInstallDir(in).dir, tmp.path() + "/mine/");
  in.astelHome.clear();
  const InstallDirChoice first = ResolveInstallDir(in);
  EXPECT_EQ(first.dir + "|" + first.error, tmp.path() + "/data/astel/|");
  EXPECT_EQ(ReadAll(first.dir + "FULL.OBC"), "shipped");
  // An observer's own files survive a later start.
  std::ofstream(first.dir + "FULL.OBC") << "with my objects";
  ResolveInstallDir(in);
  EXPECT_EQ(ReadAll(first.dir + "FULL.OBC"), "with my objects");

  std::ofstream(exeDir + "/ASTEL.HOM") << "beside the program";
  EXPECT_EQ(ResolveInstallDir(in).dir, exeDir + "/");
}

}  // namespace
}  // namespace astel
