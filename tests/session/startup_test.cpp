#include "session/startup.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "core/home_file.h"
#include "core/location.h"
#include "session/home_location.h"
#include "tests/support/fake_clock.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"

namespace astel {
namespace {

// Opening the telescope selection stands for an observer who picks a Meade LX200 there.
class RecordingWindows : public Windows {
 public:
  SharedState* state = nullptr;
  int scopeSelections = 0;
  void OpenScopeSelection() override {
    ++scopeSelections;
    if (state) state->telescope.scopeCode = 401;
  }
};

HomeFileRecord Greenwich() {
  HomeFileRecord r;
  r.homeLatitude = (51 + 28.6 / 60) / kDegreesPerRadianExact;
  r.homeLongitude = 0;
  r.scopeCode = 10000;
  r.comPort = 1;
  r.firstStartDate = 2461000.5;
  return r;
}

class StartupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    clock.now = {2026, 11, 22, 21, 30, 0};
    clock.zone = {0, 0, false};
  }
  void WriteHome(const HomeFileRecord& r, const std::string& name = "ASTEL.HOM") {
    ASSERT_EQ(SaveHomeFile(dir.path() + "/" + name, r), "");
  }
  int Start(const std::string& commandLine = "") {
    windows.state = &state;
    StartupInputs in{dir.path(), "/nonexistent", commandLine, "/usr/bin/astel", desktop.path()};
    return Startup(state, in, dialogs, clock, windows);
  }

  testing::TempDir dir, desktop;
  testing::FakeClock clock;
  testing::ScriptedDialogs dialogs;
  RecordingWindows windows;
  SharedState state;
};

TEST_F(StartupTest, ReadsThePlaceAndTheClock) {
  HomeFileRecord r = Greenwich();
  r.gmtOffset = 3;  // ignored: the computer's zone is used
  WriteHome(r);
  clock.zone = {300, 240, true};
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_EQ(state.files.installDir, dir.path() + "/");
  EXPECT_EQ(state.place.latitudeDegrees, 51);
  EXPECT_NEAR(state.place.latitudeMinutes, 28.6, 1e-6);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 4);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_EQ(state.time.yearText, "2026");
  EXPECT_DOUBLE_EQ(state.time.julianDate, 2461367.5 + 1.5 / 24);  // 01:30 GMT on the 23rd
  EXPECT_EQ(state.telescope.scopeType, 0);
  EXPECT_FALSE(state.program.configChanged);
  EXPECT_FALSE(state.place.usDateOrder);
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_FALSE(state.script.scriptMode);
  EXPECT_NE(state.form.generalHint.find("'Skycharts'"), std::string::npos);
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(state.display.nightColors[17], 0x808080u);
}

TEST_F(StartupTest, StoredOffsetAndDateOrder) {
  HomeFileRecord r = Greenwich();
  r.homeLatitude = 40.7 / kDegreesPerRadianExact;
  r.homeLongitude = 74.0 / kDegreesPerRadianExact;
  r.gmtOffset = 5;
  r.useStoredGmtOffset = true;
  WriteHome(r);
  clock.zone = {-60, -120, true};
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 5);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_TRUE(state.place.usDateOrder);
}

TEST_F(StartupTest, FirstStartRecordsItsDate) {
  HomeFileRecord r = Greenwich();
  r.firstStartDate = 0;
  WriteHome(r);
  ASSERT_EQ(Start(), kExitSuccess);
  auto saved = LoadHomeFile(dir.path() + "/ASTEL.HOM");
  ASSERT_TRUE(saved);
  EXPECT_DOUBLE_EQ(saved->firstStartDate, state.time.julianDate);
  EXPECT_GT(saved->firstStartDate, kFirstStartUnset);
}

TEST_F(StartupTest, UnreadableHomeFileEndsTheRunWithNothingApplied) {
  for (const char* content : {static_cast<const char*>(""), "garbage that is not a home file",
                              static_cast<const char*>(nullptr)}) {
    SharedState fresh;
    state = fresh;
    dialogs.messages.clear();
    std::filesystem::remove(dir.path() + "/ASTEL.HOM");
    if (content) {
      std::ofstream(dir.path() + "/ASTEL.HOM") << content;
    }
    EXPECT_EQ(Start(), kExitStartupFailed);
    ASSERT_EQ(dialogs.messages.size(), 1u);
    EXPECT_EQ(dialogs.messages[0], "Unable to read Home Location file " + dir.path() +
                                       "/ASTEL.HOM\n\rDid you extract that file into the install "
                                       "directory?");
    EXPECT_EQ(state.place.homeLatitude, 0);
    EXPECT_FALSE(state.form.timer1Enabled);
  }
}

TEST_F(StartupTest, TooManyScriptCommands) {
  WriteHome(Greenwich());
  std::string line = "SLEEP=1";
  for (int i = 0; i < 25; ++i)
    line += ";SLEEP=1";
  EXPECT_EQ(Start(line), kExitStartupFailed);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("more than 25 commands"), std::string::npos);
}

TEST_F(StartupTest, OlderLayoutAsksForTheTelescope) {
  HomeFileRecord r = Greenwich();
  r.scopeCode = 3;
  r.scopeHasGps = true;
  r.version = 6.11;
  WriteHome(r);
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_EQ(windows.scopeSelections, 1);
  ASSERT_GE(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0],
            "Make telescope selection and Com port selection. Then save options to avoid seeing "
            "this again");
  EXPECT_EQ(state.telescope.scopeCode, 401);
  EXPECT_FALSE(state.telescope.scopeHasGps);
  EXPECT_TRUE(std::filesystem::exists(desktop.path() + "/ASTEL.desktop"));
  // Its GPS flag stood where the older layout keeps the first-start date: rewritten at once, now
  // in the current layout.
  auto saved = LoadHomeFile(dir.path() + "/ASTEL.HOM");
  ASSERT_TRUE(saved);
  EXPECT_GT(saved->firstStartDate, kFirstStartUnset);
}

TEST_F(StartupTest, VersionTelescopeAndColours) {
  HomeFileRecord r = Greenwich();
  r.scopeCode = 401;
  r.backColor = 128;  // an old default background
  r.foreColor = 255;
  WriteHome(r);
  // An older version from before 6.11 marks the configuration to be saved.
  std::string bytes = SerializeHomeFile(r);
  const double current = kHomeFileVersion, older = 6.10;
  std::size_t at = bytes.find(std::string(reinterpret_cast<const char*>(&current), sizeof current));
  ASSERT_NE(at, std::string::npos);
  std::memcpy(bytes.data() + at, &older, sizeof older);
  std::ofstream(dir.path() + "/ASTEL.HOM", std::ios::binary) << bytes;
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_TRUE(state.program.configChanged);
  EXPECT_EQ(state.telescope.scopeType, 4);
  EXPECT_EQ(state.display.backColor, 192u);
  EXPECT_EQ(state.display.foreColor, 65535u);
}

TEST_F(StartupTest, WhiteBackgroundAndNightVisionColours) {
  HomeFileRecord r = Greenwich();
  r.backColor = 16777215;
  r.foreColor = 0;
  WriteHome(r);
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_EQ(state.display.accentColor, 16777215u);

  // Loading a file while night vision is on keeps its colours for the day.
  state.display.nightVision = true;
  state.display.backColor = 128;
  r.backColor = 12345;
  WriteHome(r, "OTHER.HOM");
  HomeFileContext context{dialogs, clock, windows, "", ""};
  ASSERT_TRUE(LoadSelectedHomeFile(state, context, "OTHER.HOM"));
  EXPECT_EQ(state.display.backColor, 128u);
  EXPECT_EQ(state.display.dayBackColor, 12345u);
}

TEST_F(StartupTest, SaveLoadAndExitPrompts) {
  WriteHome(Greenwich());
  ASSERT_EQ(Start(), kExitSuccess);
  HomeFileContext context{dialogs, clock, windows, "", ""};

  EXPECT_FALSE(LoadSelectedHomeFile(state, context, ""));
  EXPECT_EQ(dialogs.messages.back(), "No File Selected!");
  std::ofstream(dir.path() + "/BAD.HOM") << "x";
  const double latitude = state.place.homeLatitude;
  EXPECT_FALSE(LoadSelectedHomeFile(state, context, "BAD.HOM"));
  EXPECT_NE(dialogs.messages.back().find("Unable to read Home Location file"), std::string::npos);
  EXPECT_EQ(state.files.homeFileName, "ASTEL.HOM");
  EXPECT_EQ(state.place.homeLatitude, latitude);

  dialogs.answers = {"SITE.TXT"};
  SaveButton(state, dialogs);
  EXPECT_EQ(dialogs.titles.back(), "Save Parameters in Home File");
  EXPECT_EQ(dialogs.defaults.back(), "ASTEL.HOM");
  EXPECT_EQ(state.files.homeFileName, "SITE.HOM");
  EXPECT_TRUE(std::filesystem::exists(dir.path() + "/SITE.HOM"));
  dialogs.answers = {""};
  SaveButton(state, dialogs);  // Cancel
  EXPECT_EQ(state.files.homeFileName, "SITE.HOM");

  OfferSaveOnExit(state, dialogs);  // nothing changed: no question
  const std::size_t asked = dialogs.prompts.size();
  EXPECT_EQ(dialogs.prompts.size(), asked);
  state.program.configChanged = true;
  dialogs.answers = {"LAST"};
  OfferSaveOnExit(state, dialogs);
  EXPECT_EQ(dialogs.prompts.back(), "Do you want to save current configuration changes?");
  EXPECT_TRUE(std::filesystem::exists(dir.path() + "/LAST.HOM"));
  state.program.homeFileVersion = 6.1;
  dialogs.answers = {""};
  OfferSaveOnExit(state, dialogs);
  EXPECT_EQ(dialogs.prompts.back(),
            "ASTEL has been updated, \n\rOld Location File Should be Saved.");
}

}  // namespace
}  // namespace astel
