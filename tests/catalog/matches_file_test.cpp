#include "catalog/matches_file.h"

#include <gtest/gtest.h>

#include "search_fixture.h"

namespace astel::testing {
namespace {

const std::string kDeg(1, kDegreeSign);

class MatchesFileTest : public SearchTest {
 protected:
  void SetUp() override {
    SearchTest::SetUp();
    TimeState& t = state.time;
    t.day = 22, t.month = 11, t.year = 2026;
    t.hourText = "21", t.minuteText = "05", t.secondText = "09";
    t.gmtTimeText = "02:05";
    t.gmtNextDay = true;
    PlaceState& p = state.place;
    p.latitudeDegrees = 40, p.latitudeMinutes = 44.52;
    p.longitudeDegrees = 73, p.longitudeMinutes = 59.43;
    p.homeLongitude = 1.29;  // west
  }
};

TEST_F(MatchesFileTest, HeaderAndTwoLinesPerMatch) {
  UseCatalog({Rec("M31", 0, -10, "3.4", "NGC 224", "Andromeda"), Rec("M3", 0, -0.5),
              Rec("M33", 12, 30, "5.7")});
  ASSERT_TRUE(Simple({"M3"}));
  ASSERT_TRUE(NextMatch(state, rig.ports));
  ASSERT_TRUE(NextMatch(state, rig.ports));
  const std::vector<std::string> lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[1], "Data is for 22-11-2026 at 21:05:09 Local Time, GMT= 02:05:09 23-11-2026");
  EXPECT_EQ(lines[2], "Lat=40" + kDeg + "44.5' N, Long=73" + kDeg +
                          "59.4' W, Location File= ASTEL.HOM, Catalog= TEST.OBC");
  const std::string blank(12, ' ');
  EXPECT_EQ(lines[4], " 1. M31          NGC 224      Andromeda    " + blank + "        " + blank);
  EXPECT_EQ(lines[5], "    Alt=80.0" + kDeg + "    Az=180.0" + kDeg +
                          "    Mag= 3.4     R.A. = 00h 00.0m    Dec = -10" + kDeg + " 00.0'");
  EXPECT_EQ(lines[7], "    Alt=89.5" + kDeg + "    Az=180.0" + kDeg + std::string(12, ' ') +
                          "     R.A. = 00h 00.0m    Dec = -0" + kDeg + " 30.0'")
      << "unknown magnitude: twelve blanks keep the R.A. aligned; -0 keeps its sign";
  EXPECT_EQ(lines[8].substr(0, 8), " 3. M33 ");
  EXPECT_NE(lines[9].find("Alt=-60."), std::string::npos) << lines[9];
  EXPECT_EQ(MatchNumberText(9) + MatchNumberText(10), " 9. 10. ");

  // A new search replaces the file.
  ASSERT_TRUE(Simple({"M 31"}));
  EXPECT_EQ(Lines(Matches()).size(), 6u);
  EXPECT_EQ(Lines(Matches())[0], "ASTEL+S Search= \"M31\"");
}

TEST_F(MatchesFileTest, DetailedHeaderAndUsDates) {
  state.place.usDateOrder = true;
  state.time.gmtNextDay = false;
  state.time.gmtPrevDay = true;
  state.time.day = 1, state.time.month = 3, state.time.year = 2028;  // back over a leap day
  UseCatalog({Rec("Gam Per", 0, 10, "2.9", "23 Per")});
  ASSERT_TRUE(Detailed({"Gam", "23 Per", "20", "5"}));
  const std::vector<std::string> lines = Lines(Matches());
  EXPECT_EQ(lines[0], "ASTEL+S Search= \"Gam\" and \"23 Per\". Objects above 20" + kDeg +
                          ", Brighter than Mag 5");
  EXPECT_EQ(lines[1], "Data is for 03-01-2028 at 21:05:09 Local Time, GMT= 02:05:09 02-29-2028");
}

TEST_F(MatchesFileTest, SaveMatchesRunsToTheEndThenViewsTheFile) {
  std::vector<std::string> records;
  for (int i = 1; i <= 150; ++i)
    records.push_back(Rec("HD " + std::to_string(i), 0, 10));
  UseCatalog(records);
  WriteMatchButtonClick(state, rig.ports);
  EXPECT_TRUE(rig.dialogs.questions.empty() && rig.shell.opened.empty()) << "no search yet";

  ASSERT_TRUE(Simple({"HD"}));
  rig.dialogs.choices = {true};
  WriteMatchButtonClick(state, rig.ports);
  EXPECT_TRUE(rig.dialogs.messages.empty()) << "saving shows no end-of-scan message";
  EXPECT_EQ(rig.window.captions.back(), "Saving Matches - line 1");
  EXPECT_EQ(rig.window.progress.front(), "Saving Matches - line 100");
  EXPECT_EQ(rig.shell.opened, Names{File(dir, "MATCHES.TXT")});
  const std::vector<std::string> lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 4u + 300u);
  EXPECT_EQ(lines[302].substr(0, 11), "150.HD 150 ");

  ASSERT_TRUE(Simple({"HD 1"}));
  EXPECT_EQ(state.form.writeMatchCaption, "Save Matches") << "a new search resets the button";
  EXPECT_EQ(state.form.writeMatchToolTip,
            "Save all matches to a text file, and go to the final matching object");
}

}  // namespace
}  // namespace astel::testing
