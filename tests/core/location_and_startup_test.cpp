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

TEST(Location, DerivedDegreesMinutesAndSigns) {
  PlaceState p;
  SetHomeLatitude(p, -0.5);
  EXPECT_EQ(p.latitudeDegrees, 0);
  EXPECT_EQ(p.latitudeSign, -1);
  EXPECT_EQ(p.latitudeSignText, "-");
  EXPECT_NEAR(p.latitudeMinutes, 30, 1e-9);

  SetHomeLatitude(p, 40.9995);  // 59.97 minutes rounds up into the next degree
  EXPECT_EQ(p.latitudeDegrees, 41);
  EXPECT_EQ(p.latitudeMinutes, 0);
  EXPECT_EQ(p.latitudeSign, 1);
  EXPECT_EQ(p.latitudeSignText, "");

  SetHomeLongitude(p, -33.9995);  // east, and away from zero
  EXPECT_EQ(p.longitudeDegrees, -34);
  EXPECT_EQ(p.longitudeMinutes, 0);
  EXPECT_EQ(p.longitudeSignText, "-");

  SetHomeLongitude(p, 0.9990);  // 59.94 minutes stays
  EXPECT_EQ(p.longitudeDegrees, 0);
  EXPECT_NEAR(p.longitudeMinutes, 59.94, 1e-6);
}

TEST(Location, DateOrderFollowsNorthAmerica) {
  struct Case {
    double lat, lon;
    bool us;
  };
  const Case cases[] = {{40.7, 74.0, true},   {25.8, 80.2, true},  {29.4, 98.5, true},
                        {25.0, 120.0, false}, {51.5, 0.1, false},  {32.0, 55.5, false},
                        {32.0, 56.0, true},   {-33.9, 151, false}, {23.9, 100, false}};
  for (const Case& c : cases) {
    PlaceState p;
    SetHomeLatitude(p, c.lat);
    SetHomeLongitude(p, c.lon);
    EXPECT_EQ(ComputeUsDateOrder(p), c.us) << c.lat << " " << c.lon;
  }
}

TEST(CommandLine, SplitsAtSemicolonsUpToTwentyFive) {
  ScriptState s;
  EXPECT_EQ(ParseCommandLineScript("", s), ScriptParse::kEmpty);
  EXPECT_FALSE(s.scriptMode);
  EXPECT_EQ(s.scriptLineCount, 0);

  EXPECT_EQ(ParseCommandLineScript("CAT=FULL.OBC;FIND=M31;GOTO=1", s), ScriptParse::kReady);
  EXPECT_TRUE(s.scriptMode);
  EXPECT_EQ(s.scriptLineIndex, 1);
  EXPECT_EQ(s.scriptLineCount, 3);
  EXPECT_EQ(s.scriptLines[1], "CAT=FULL.OBC");
  EXPECT_EQ(s.scriptLines[3], "GOTO=1");

  // An empty piece between two ";" is a command; a final ";" adds none.
  EXPECT_EQ(ParseCommandLineScript("FIND=M31;;MATCH=1;", s), ScriptParse::kReady);
  EXPECT_EQ(s.scriptLineCount, 3);
  EXPECT_EQ(s.scriptLines[2], "");

  std::string line = "SLEEP=1";
  for (int i = 2; i <= 25; ++i)
    line += ";SLEEP=1";
  EXPECT_EQ(ParseCommandLineScript(line, s), ScriptParse::kReady);
  EXPECT_EQ(s.scriptLineCount, 25);
  EXPECT_EQ(ParseCommandLineScript(line + ";SLEEP=1", s), ScriptParse::kTooManyCommands);
  EXPECT_FALSE(s.scriptMode);
  EXPECT_EQ(s.scriptLineCount, 0);
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
  InstallDirChoice first = ResolveInstallDir(in);
  EXPECT_EQ(first.dir, tmp.path() + "/data/astel/");
  EXPECT_EQ(first.error, "");
  EXPECT_TRUE(fs::exists(first.dir + "FULL.OBC"));

  // An observer's own files survive a later start.
  std::ofstream(first.dir + "FULL.OBC") << "with my objects";
  ResolveInstallDir(in);
  std::ifstream kept(first.dir + "FULL.OBC");
  std::string content;
  std::getline(kept, content);
  EXPECT_EQ(content, "with my objects");

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

  TelescopeState celestronGps;
  celestronGps.scopeType = 1;
  celestronGps.scopeHasGps = true;
  TelescopeState celestron = celestronGps;
  celestron.scopeHasGps = false;
  TelescopeState meade;
  meade.scopeType = 4;
  EXPECT_NE(ChooseHint(false, celestronGps).find("'Skycharts'"), std::string::npos);
  EXPECT_NE(ChooseHint(true, celestronGps).find("Celestron GPS"), std::string::npos);
  EXPECT_NE(ChooseHint(true, celestron).find("GPS device"), std::string::npos);
  EXPECT_NE(ChooseHint(true, meade).find("upload ('Scope')"), std::string::npos);
}

TEST(DesktopShortcut, LauncherAndItsMessages) {
  testing::TempDir tmp;
  testing::ScriptedDialogs dialogs;
  CreateDesktopShortcut(tmp.path(), "/usr/bin/astel", "/home/u/.local/share/astel/", dialogs);
  EXPECT_TRUE(dialogs.messages.empty());
  std::ifstream launcher(tmp.path() + "/ASTEL.desktop");
  std::string text((std::istreambuf_iterator<char>(launcher)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("Exec=\"/usr/bin/astel\""), std::string::npos);
  EXPECT_NE(text.find("Path=/home/u/.local/share/astel/"), std::string::npos);

  CreateDesktopShortcut(tmp.path() + "/gone", "/usr/bin/astel", "/x/", dialogs);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0],
            "Path Not Found Error, Desktop Directory = " + tmp.path() + "/gone");
  CreateDesktopShortcut("", "/usr/bin/astel", "/x/", dialogs);
  EXPECT_EQ(dialogs.messages.back(), "Cannot Find Location of Desktop Special Folder");
}

}  // namespace
}  // namespace astel
