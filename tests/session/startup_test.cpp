#include "session/startup.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "session/home_location.h"
#include "tests/session/session_fixture.h"

namespace astel {
namespace {

class StartupTest : public testing::StartedProgram {
 protected:
  // Each test starts the program itself, at 21:30:00.
  void SetUp() override { clock.now.second = 0; }
  HomeFileContext context{dialogs, clock, windows, "", ""};
};

TEST_F(StartupTest, ReadsThePlaceAndTheClock) {
  home.gmtOffset = 3;  // ignored: the computer's zone is used
  clock.zone = {300, 240, true};
  ASSERT_EQ(Launch(), kExitSuccess);
  EXPECT_EQ(state.files.installDir, dir.path() + "/");
  EXPECT_NEAR(state.place.latitudeMinutes, 28.6, 1e-6);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 4);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_DOUBLE_EQ(state.time.julianDate, 2461367.5 + 1.5 / 24);  // 01:30 GMT on the 23rd
  EXPECT_FALSE(state.program.configChanged);
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(state.display.nightColors[17], 0x808080u);

  // A stored offset is used as it stands.
  home.gmtOffset = 5;
  home.useStoredGmtOffset = true;
  ASSERT_EQ(SaveHomeFile(HomePath("STORED.HOM"), home), "");
  ASSERT_TRUE(LoadSelectedHomeFile(state, context, "STORED.HOM"));
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 5);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
}

TEST_F(StartupTest, UnreadableHomeFileEndsTheRunWithNothingApplied) {
  std::ofstream(HomePath()) << "garbage that is not a home file";
  EXPECT_EQ(LaunchAsIs(), kExitStartupFailed);
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"Unable to read Home Location file " + HomePath() +
                                     "\n\rDid you extract that file into the install directory?"});
  EXPECT_EQ(state.place.homeLatitude, 0);
  EXPECT_FALSE(state.form.timer1Enabled);
}

TEST_F(StartupTest, OlderLayoutAsksForTheTelescope) {
  home.scopeCode = 3;
  home.scopeHasGps = true;
  home.version = 6.11;
  ASSERT_EQ(Launch(), kExitSuccess);
  EXPECT_EQ(windows.selections, 1);
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"Make telescope selection and Com port selection. Then save "
                                     "options to avoid seeing this again"});
  EXPECT_EQ(state.telescope.scopeCode, 401);
  EXPECT_FALSE(state.telescope.scopeHasGps);
  EXPECT_TRUE(std::filesystem::exists(desktop.path() + "/ASTEL.desktop"));
  // Its GPS flag stood where the older layout keeps the first-start date: rewritten at once with
  // today's date, now in the current layout.
  auto saved = LoadHomeFile(HomePath());
  ASSERT_TRUE(saved);
  EXPECT_DOUBLE_EQ(saved->firstStartDate, state.time.julianDate);
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
  ASSERT_EQ(LaunchAsIs(), kExitSuccess);
  EXPECT_TRUE(state.program.configChanged);
  EXPECT_EQ(state.telescope.scopeType, 4);
  EXPECT_EQ(state.display.backColor, 192u);
  EXPECT_EQ(state.display.foreColor, 65535u);
}

TEST_F(StartupTest, LoadingAtNightKeepsTheColoursForTheDay) {
  ASSERT_EQ(Launch(), kExitSuccess);
  state.display.nightVision = true;
  state.display.backColor = 128;
  home.backColor = 12345;
  ASSERT_EQ(SaveHomeFile(HomePath("OTHER.HOM"), home), "");
  ASSERT_TRUE(LoadSelectedHomeFile(state, context, "OTHER.HOM"));
  EXPECT_EQ(state.display.backColor, 128u);
  EXPECT_EQ(state.display.dayBackColor, 12345u);
}

TEST_F(StartupTest, SaveLoadAndExitPrompts) {
  ASSERT_EQ(Launch(), kExitSuccess);
  std::ofstream(HomePath("BAD.HOM")) << "x";
  EXPECT_FALSE(LoadSelectedHomeFile(state, context, "BAD.HOM"));
  EXPECT_EQ(dialogs.messages.back().rfind("Unable to read Home Location file", 0), 0u);
  EXPECT_EQ(state.files.homeFileName, "ASTEL.HOM");

  dialogs.answers = {"SITE.TXT", ""};
  SaveButton(state, dialogs);
  EXPECT_EQ(dialogs.titles.back(), "Save Parameters in Home File");
  EXPECT_EQ(dialogs.defaults.back(), "ASTEL.HOM");
  EXPECT_TRUE(std::filesystem::exists(HomePath("SITE.HOM")));
  SaveButton(state, dialogs);  // Cancel
  EXPECT_EQ(state.files.homeFileName, "SITE.HOM");

  OfferSaveOnExit(state, dialogs);  // nothing changed: a question would fail the test
  state.program.configChanged = true;
  state.program.homeFileVersion = 6.1;
  dialogs.answers = {"LAST"};
  OfferSaveOnExit(state, dialogs);
  EXPECT_EQ(dialogs.prompts.back(),
            "ASTEL has been updated, \n\rOld Location File Should be Saved.");
  EXPECT_TRUE(std::filesystem::exists(HomePath("LAST.HOM")));
}

}  // namespace
}  // namespace astel
