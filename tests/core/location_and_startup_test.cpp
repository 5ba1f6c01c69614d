#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "core/command_line.h"
#include "core/desktop_shortcut.h"
#include "core/install_dir.h"
#include "core/location.h"
#include "core/sky_chart.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"

namespace astel {
namespace {

namespace fs = std::filesystem;

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
  EXPECT_TRUE(p.latitudeDegrees == 41 && p.latitudeMinutes == 0);
  EXPECT_TRUE(p.latitudeSign == 1 && p.latitudeSignText.empty());
  SetHomeLongitude(p, -33.9995);  // east, and away from zero
  EXPECT_TRUE(p.longitudeDegrees == -34 && p.longitudeMinutes == 0);
  EXPECT_EQ(p.longitudeSignText, "-");
  SetHomeLongitude(p, 0.9990);  // 59.94 minutes stays
  EXPECT_EQ(p.longitudeDegrees, 0);
  EXPECT_NEAR(p.longitudeMinutes, 59.94, 1e-6);

  // North America, by whole degrees: the 56th west and the 115th are the edges.
  struct Case {
    double lat, lon;
    bool us;
  } cases[] = {{32.0, 55.5, false},
               {32.0, 56.0, true},
               {25.8, 80.2, true},
               {25.0, 120.0, false},
               {23.9, 100, false}};
  for (const Case& c : cases) {
    SetHomeLatitude(p, c.lat);
    SetHomeLongitude(p, c.lon);
    EXPECT_EQ(ComputeUsDateOrder(p), c.us) << c.lat << " " << c.lon;
  }
}

TEST(CommandLine, SplitsAtSemicolonsUpToTwentyFive) {
  ScriptState s;
  EXPECT_EQ(ParseCommandLineScript("", s), ScriptParse::kEmpty);
  EXPECT_FALSE(s.scriptMode);
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
  fs::create_directories(exeDir);
  fs::create_directories(shipped);
  std::ofstream(shipped + "/ASTEL.HOM") << "shipped";
  std::ofstream(shipped + "/FULL.OBC") << "shipped";

  InstallDirInputs in{tmp.path() + "/mine", exeDir, tmp.path() + "/data", {shipped}};
  EXPECT_EQ(ResolveInstallDir(in).dir, tmp.path() + "/mine/");
  in.astelHome.clear();
  const InstallDirChoice first = ResolveInstallDir(in);
  EXPECT_EQ(first.dir, tmp.path() + "/data/astel/");
  EXPECT_EQ(first.error, "");
  EXPECT_EQ(ReadAll(first.dir + "FULL.OBC"), "shipped");

  // An observer's own files survive a later start.
  std::ofstream(first.dir + "FULL.OBC") << "with my objects";
  ResolveInstallDir(in);
  EXPECT_EQ(ReadAll(first.dir + "FULL.OBC"), "with my objects");

  std::ofstream(exeDir + "/ASTEL.HOM") << "beside the program";
  EXPECT_EQ(ResolveInstallDir(in).dir, exeDir + "/");
}

TEST(SkyChart, ProbeAndHints) {
  testing::TempDir tmp;
  FileState files;
  EXPECT_FALSE(ProbeSkyChart(tmp.path() + ":/nonexistent", files));
  EXPECT_FALSE(files.skyChartInstalled);
  const std::string program = tmp.path() + "/skychart";
  std::ofstream(program) << "#!/bin/sh\n";
  fs::permissions(program, fs::perms::owner_all);
  EXPECT_TRUE(ProbeSkyChart("/nonexistent::" + tmp.path(), files));
  EXPECT_EQ(files.skyChartDir, tmp.path() + "/");

  TelescopeState celestronGps, meade;
  celestronGps.scopeType = 1;
  celestronGps.scopeHasGps = true;
  meade.scopeType = 4;
  EXPECT_NE(ChooseHint(false, celestronGps).find("'Skycharts'"), std::string::npos);
  EXPECT_NE(ChooseHint(true, celestronGps).find("Celestron GPS"), std::string::npos);
  EXPECT_NE(ChooseHint(true, meade).find("upload ('Scope')"), std::string::npos);
}

TEST(DesktopShortcut, LauncherAndItsMessages) {
  testing::TempDir tmp;
  testing::ScriptedDialogs dialogs;
  CreateDesktopShortcut(tmp.path(), "/usr/bin/astel", "/home/u/.local/share/astel/", dialogs);
  const std::string text = ReadAll(tmp.path() + "/ASTEL.desktop");
  EXPECT_NE(text.find("Exec=\"/usr/bin/astel\""), std::string::npos);
  EXPECT_NE(text.find("Path=/home/u/.local/share/astel/"), std::string::npos);

  CreateDesktopShortcut(tmp.path() + "/gone", "/usr/bin/astel", "/x/", dialogs);
  CreateDesktopShortcut("", "/usr/bin/astel", "/x/", dialogs);
  EXPECT_EQ(
      dialogs.messages,
      (std::vector<std::string>{"Path Not Found Error, Desktop Directory = " + tmp.path() + "/gone",
                                "Cannot Find Location of Desktop Special Folder"}));
}

}  // namespace
}  // namespace astel
