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

class StartupTest : public ::testing::Test {
 protected:
  // Greenwich with no telescope on COM1, the computer's clock at 21:30 GMT.
  void SetUp() override {
    home.homeLatitude = (51 + 28.6 / 60) / kDegreesPerRadianExact;
    home.scopeCode = 10000;
    home.comPort = 1;
    home.firstStartDate = 2461000.5;
    clock.now = {2026, 11, 22, 21, 30, 0};
  }
  std::string HomePath(const std::string& name = "ASTEL.HOM") { return dir.path() + "/" + name; }
  // Saves `home` as ASTEL.HOM, then starts.
  int Start() {
    EXPECT_EQ(SaveHomeFile(HomePath(), home), "");
    return StartAsIs();
  }
  int StartAsIs() {
    windows.state = &state;
    StartupInputs in{dir.path(), "/nonexistent", "", "/usr/bin/astel", desktop.path()};
    return Startup(state, in, dialogs, clock, windows);
  }

  HomeFileRecord home;
  testing::TempDir dir, desktop;
  testing::FakeClock clock;
  testing::ScriptedDialogs dialogs;
  RecordingWindows windows;
  SharedState state;
};

TEST_F(StartupTest, ReadsThePlaceAndTheClock) {
  home.gmtOffset = 3;  // ignored: the computer's zone is used
  clock.zone = {300, 240, true};
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_EQ(state.files.installDir, dir.path() + "/");
  EXPECT_EQ(state.place.latitudeDegrees, 51);
  EXPECT_NEAR(state.place.latitudeMinutes, 28.6, 1e-6);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 4);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_DOUBLE_EQ(state.time.julianDate, 2461367.5 + 1.5 / 24);  // 01:30 GMT on the 23rd
  EXPECT_EQ(state.telescope.scopeType, 0);
  EXPECT_FALSE(state.program.configChanged);
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_FALSE(state.script.scriptMode);
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(state.display.nightColors[17], 0x808080u);
}

TEST_F(StartupTest, StoredOffsetAndDateOrder) {
  home.homeLatitude = 40.7 / kDegreesPerRadianExact;
  home.homeLongitude = 74.0 / kDegreesPerRadianExact;
  home.gmtOffset = 5;
  home.useStoredGmtOffset = true;
  clock.zone = {-60, -120, true};
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 5);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_TRUE(state.place.usDateOrder);
}

TEST_F(StartupTest, FirstStartRecordsItsDate) {
  home.firstStartDate = 0;
  ASSERT_EQ(Start(), kExitSuccess);
  auto saved = LoadHomeFile(HomePath());
  ASSERT_TRUE(saved);
  EXPECT_DOUBLE_EQ(saved->firstStartDate, state.time.julianDate);
  EXPECT_GT(saved->firstStartDate, kFirstStartUnset);
}

TEST_F(StartupTest, UnreadableHomeFileEndsTheRunWithNothingApplied) {
  for (const bool present : {true, false}) {
    state = SharedState{};
    dialogs.messages.clear();
    std::filesystem::remove(HomePath());
    if (present) std::ofstream(HomePath()) << "garbage that is not a home file";
    EXPECT_EQ(StartAsIs(), kExitStartupFailed);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{
                                    "Unable to read Home Location file " + HomePath() +
                                    "\n\rDid you extract that file into the install directory?"});
    EXPECT_EQ(state.place.homeLatitude, 0);
    EXPECT_FALSE(state.form.timer1Enabled);
  }
}

TEST_F(StartupTest, OlderLayoutAsksForTheTelescope) {
  home.scopeCode = 3;
  home.scopeHasGps = true;
  home.version = 6.11;
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
  auto saved = LoadHomeFile(HomePath());
  ASSERT_TRUE(saved);
  EXPECT_GT(saved->firstStartDate, kFirstStartUnset);
}

TEST_F(StartupTest, VersionTelescopeAndColours) {
  home.scopeCode = 401;
  home.backColor = 128;  // an old default background
  home.foreColor = 255;
  // An older version from before 6.11 marks the configuration to be saved.
  std::string bytes = SerializeHomeFile(home);
  const double current = kHomeFileVersion, older = 6.10;
  std::size_t at = bytes.find(std::string(reinterpret_cast<const char*>(&current), sizeof current));
  ASSERT_NE(at, std::string::npos);
  std::memcpy(bytes.data() + at, &older, sizeof older);
  std::ofstream(HomePath(), std::ios::binary) << bytes;
  ASSERT_EQ(StartAsIs(), kExitSuccess);
  EXPECT_TRUE(state.program.configChanged);
  EXPECT_EQ(state.telescope.scopeType, 4);
  EXPECT_EQ(state.display.backColor, 192u);
  EXPECT_EQ(state.display.foreColor, 65535u);
}

TEST_F(StartupTest, WhiteBackgroundAndNightVisionColours) {
  home.backColor = 16777215;
  home.foreColor = 0;
  ASSERT_EQ(Start(), kExitSuccess);
  EXPECT_EQ(state.display.accentColor, 16777215u);

  // Loading a file while night vision is on keeps its colours for the day.
  state.display.nightVision = true;
  state.display.backColor = 128;
  home.backColor = 12345;
  ASSERT_EQ(SaveHomeFile(HomePath("OTHER.HOM"), home), "");
  HomeFileContext context{dialogs, clock, windows, "", ""};
  ASSERT_TRUE(LoadSelectedHomeFile(state, context, "OTHER.HOM"));
  EXPECT_EQ(state.display.backColor, 128u);
  EXPECT_EQ(state.display.dayBackColor, 12345u);
}

TEST_F(StartupTest, SaveLoadAndExitPrompts) {
  ASSERT_EQ(Start(), kExitSuccess);
  HomeFileContext context{dialogs, clock, windows, "", ""};
  std::ofstream(HomePath("BAD.HOM")) << "x";
  const double latitude = state.place.homeLatitude;
  EXPECT_FALSE(LoadSelectedHomeFile(state, context, "BAD.HOM"));
  EXPECT_NE(dialogs.messages.back().find("Unable to read Home Location file"), std::string::npos);
  EXPECT_EQ(state.files.homeFileName, "ASTEL.HOM");
  EXPECT_EQ(state.place.homeLatitude, latitude);

  dialogs.answers = {"SITE.TXT", ""};
  SaveButton(state, dialogs);
  EXPECT_EQ(dialogs.titles.back(), "Save Parameters in Home File");
  EXPECT_EQ(dialogs.defaults.back(), "ASTEL.HOM");
  EXPECT_TRUE(std::filesystem::exists(HomePath("SITE.HOM")));
  SaveButton(state, dialogs);  // Cancel
  EXPECT_EQ(state.files.homeFileName, "SITE.HOM");

  OfferSaveOnExit(state, dialogs);  // nothing changed: a question would fail the test
  state.program.configChanged = true;
  dialogs.answers = {"LAST"};
  OfferSaveOnExit(state, dialogs);
  EXPECT_EQ(dialogs.prompts.back(), "Do you want to save current configuration changes?");
  EXPECT_TRUE(std::filesystem::exists(HomePath("LAST.HOM")));
  state.program.homeFileVersion = 6.1;
  dialogs.answers = {""};
  OfferSaveOnExit(state, dialogs);
  EXPECT_EQ(dialogs.prompts.back(),
            "ASTEL has been updated, \n\rOld Location File Should be Saved.");
}

}  // namespace
}  // namespace astel
