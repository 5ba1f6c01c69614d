#include "catalog/matches_file.h"

#include <gtest/gtest.h>

#include "astro/solar_system.h"
#include "catalog/best_of_sky.h"
#include "catalog/planet_record.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

const std::string kDeg(1, kDegreeSign);

TEST_F(SearchTest, HeaderAndTwoLinesPerMatch) {
  UseCatalog({Rec("M31", 0, -10, "3.4", "NGC 224", "Andromeda"), Rec("M3", 0, -0.5),
              Rec("M33", 12, 30, "5.7")});
  ASSERT_TRUE(Simple({"M3"}));
  ASSERT_TRUE(NextMatch(state, ports) && NextMatch(state, ports));
  std::vector<std::string> lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 10u);
  EXPECT_EQ(lines[1], "Data is for 22-11-2026 at 21:05:09 Local Time, GMT= 02:05:09 23-11-2026");
  EXPECT_EQ(lines[2], "Lat=40" + kDeg + "44.5' N, Long=73" + kDeg +
                          "59.4' W, Location File= ASTEL.HOM, Catalog= TEST.OBC");
  const std::string blank(12, ' ');
  EXPECT_EQ(lines[4], " 1. M31          NGC 224      Andromeda    " + blank + "        " + blank);
  EXPECT_EQ(lines[5], "    Alt=80.0" + kDeg + "    Az=180.0" + kDeg +
                          "    Mag= 3.4     R.A. = 00h 00.0m    Dec = -10" + kDeg + " 00.0'");
  EXPECT_EQ(lines[7], "    Alt=89.5" + kDeg + "    Az=180.0" + kDeg + blank +
                          "     R.A. = 00h 00.0m    Dec = -0" + kDeg + " 30.0'")
      << "unknown magnitude: twelve blanks keep the R.A. aligned; -0 keeps its sign";
  // A detailed search replaces the file; US dates, GMT the day before, over a leap day.
  state.place.usDateOrder = true;
  state.time.gmtNextDay = false, state.time.gmtPrevDay = true;
  state.time.day = 1, state.time.month = 3, state.time.year = 2028;
  ASSERT_TRUE(Detailed({"M3", "NGC 224", "20", "5"}));
  lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 6u);
  EXPECT_EQ(lines[0], "ASTEL+S Search= \"M3\" and \"NGC 224\". Objects above 20" + kDeg +
                          ", Brighter than Mag 5");
  EXPECT_EQ(lines[1], "Data is for 03-01-2028 at 21:05:09 Local Time, GMT= 02:05:09 02-29-2028");
}

TEST_F(SearchTest, SaveMatchesRunsToTheEndThenViewsTheFile) {
  std::vector<std::string> records;
  for (int i = 1; i <= 150; ++i)
    records.push_back(Rec("HD " + std::to_string(i), 0, 10));
  UseCatalog(records);
  ASSERT_TRUE(Simple({"HD"}));
  dialogs.choices = {true};
  WriteMatchButtonClick(state, ports);
  EXPECT_EQ(shell.opened, Names{File(dir, "MATCHES.TXT")});
  const std::vector<std::string> lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 4u + 300u);
  EXPECT_EQ(lines[22].substr(0, 7) + lines[302].substr(0, 11), "10. HD 150.HD 150 ")
      << "the numbers of two and three digits";
}

TEST_F(SearchTest, FirstPassThenSecondPassEachInFileOrder) {
  state.files.catalogFileName = "FULL.OBC";
  UseCatalog({AtAltitude("Beta1      ^", 45), AtAltitude("Alpha1     &", 45),
              AtAltitude("Alpha2     &", 19.9), AtAltitude("Beta2      ^", 60),
              AtAltitude("Alpha3     &", 20.001), AtAltitude("Plain", 80)});
  ASSERT_TRUE(BestOfTheSky(state, ports));
  EXPECT_EQ(ShownAndNextMatches(), (Names{"Alpha1", "Alpha3", "Beta1", "Beta2"}))
      << "19.9 degrees is skipped, 20.0 offered";
  EXPECT_EQ(dialogs.messages, Names{"No More 'Best of the Sky'"});
  EXPECT_EQ(Lines(Matches())[0], "ASTEL+S Search= \"Best of the Sky\"");

  UseCatalog({AtAltitude("Low        &", 5), AtAltitude("Lower      ^", 2)});
  EXPECT_FALSE(BestOfTheSky(state, ports));
  EXPECT_EQ(dialogs.messages.back(), "Object not found in FULL.OBC");
}

TEST_F(SearchTest, PlanetLinesUseTheirOwnLimits) {
  state.time.julianDate = 2461367.5;  // 2026-11-22 0h GMT
  const BodyPosition mars = ComputeBody(kMars, state.time.julianDate);
  // Mars on the meridian, 15 degrees high: below the general 20 degrees.
  state.time.localSiderealTime = mars.raHours;
  state.place.homeLatitude = (mars.decDegrees - 75) / kDegreesPerRadian;
  const int under = static_cast<int>(mars.distanceAu / ReferenceDistanceAu(kMars));
  state.files.catalogFileName = "FULL.OBC";
  // A planet line: its mark in column 12, its own minimum altitude and its distance ratio.
  const auto planet = [](int body, int minAltitude, int ratio) {
    return FitRecord("!Planet=" + FormatFixed(body, "00") + " &" + FormatFixed(minAltitude, "00") +
                     std::string(10, ' ') + FormatFixed(ratio, "00"));
  };
  UseCatalog({planet(kMars, 16, under + 1), planet(12, 0, 0)});
  EXPECT_FALSE(BestOfTheSky(state, ports)) << "own minimum above the planet's altitude";
  UseCatalog({planet(kMars, 10, under)});
  EXPECT_FALSE(BestOfTheSky(state, ports)) << "too far away";
  UseCatalog({planet(kMars, 10, 0)});
  ASSERT_TRUE(BestOfTheSky(state, ports)) << "own minimum below it, no distance limit";
  const std::string distance = DistanceText(mars.distanceAu);
  EXPECT_EQ(state.object.objectKind, kMars);
  const std::vector<std::string> lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 5u) << "one line for a planet";
  EXPECT_EQ(lines[4].rfind(" 1. Mars       Dist=" + distance + ". Alt= 15", 0), 0u) << lines[4];
  ASSERT_FALSE(state.object.transitText.empty());
  EXPECT_NE(lines[4].find(state.object.transitLabel + state.object.transitText), std::string::npos)
      << lines[4] << ": the rise and set information follows";
}

}  // namespace
}  // namespace astel::testing
