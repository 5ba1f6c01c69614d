#include "session/startup.h"

#include <gtest/gtest.h>

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
};

TEST_F(StartupTest, ReadsThePlaceAndTheClock) {
  home.gmtOffset = 3;  // ignored: the computer's zone is used
  clock.zone = {300, 240, true};
  ASSERT_EQ(Launch(), kExitSuccess);
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, 4);
  EXPECT_DOUBLE_EQ(state.place.zoneBiasHours, 5);
  EXPECT_DOUBLE_EQ(state.time.julianDate, 2461367.5 + 1.5 / 24);  // 01:30 GMT on the 23rd
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(StartupTest, UnreadableHomeFileEndsTheRunWithNothingApplied) {
  std::ofstream(HomePath()) << "garbage that is not a home file";
  EXPECT_EQ(Launch("", true), kExitStartupFailed);
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
  EXPECT_EQ(dialogs.messages,
            std::vector<std::string>{"Make telescope selection and Com port selection. Then save "
                                     "options to avoid seeing this again"});
  EXPECT_EQ(state.telescope.scopeCode, 401);
  EXPECT_FALSE(state.telescope.scopeHasGps);
  // Its GPS flag stood where the older layout keeps the first-start date: rewritten at once with
  // today's date, now in the current layout.
  auto saved = LoadHomeFile(HomePath());
  ASSERT_TRUE(saved);
  EXPECT_DOUBLE_EQ(saved->firstStartDate, state.time.julianDate);
}

TEST_F(StartupTest, SaveLoadAndExitPrompts) {
  ASSERT_EQ(Launch(), kExitSuccess);
  dialogs.answers = {"SITE.TXT", ""};
  SaveButton(state, dialogs);
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
