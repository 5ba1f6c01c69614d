#include "catalog/best_of_sky.h"

#include <gtest/gtest.h>

#include <cmath>

#include "astro/solar_system.h"
#include "catalog/planet_record.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

class BestOfSkyTest : public SearchTest {
 protected:
  void UseFull(const std::vector<std::string>& records) {
    WriteCatalog(File(dir, "FULL.OBC"), records);
    ASSERT_TRUE(OpenCatalog(state, Dir(dir), "FULL.OBC"));
  }
  std::vector<std::string> Suggestions() {
    std::vector<std::string> shown;
    if (!BestOfTheSky(state, rig.ports)) return shown;
    do {
      shown.push_back(Shown());
    } while (NextMatch(state, rig.ports) && shown.size() < 50);
    return shown;
  }
  // A planet line with its mark, minimum altitude and distance ratio.
  static std::string PlanetLine(int body, char mark, int minAltitude, int ratio) {
    std::string line = FitRecord("!Planet=" + FormatFixed(body, "00"));
    line[11] = mark;
    line.replace(12, 2, FormatFixed(minAltitude, "00"));
    line.replace(24, 2, FormatFixed(ratio, "00"));
    return line;
  }
};

TEST_F(BestOfSkyTest, FirstPassThenSecondPassEachInFileOrder) {
  std::vector<std::string> records = {
      AtAltitude("Beta1      ^", 45),     AtAltitude("Alpha1     &", 45),
      AtAltitude("Alpha2     &", 19.9),   AtAltitude("Beta2      ^", 60),
      AtAltitude("Alpha3     &", 20.001), AtAltitude("Plain", 80)};
  records.insert(records.end(), 120, AtAltitude("filler", 70));
  UseFull(records);
  const std::vector<std::string> expected = {"Alpha1", "Alpha3", "Beta1", "Beta2"};
  EXPECT_EQ(Suggestions(), expected) << "19.9 degrees is skipped, 20.0 offered";
  EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{"No More 'Best of the Sky'"});
  EXPECT_TRUE(rig.dialogs.prompts.empty()) << "no prompt at all";
  EXPECT_FLOAT_EQ(state.search.minAltitude, 20);
  EXPECT_EQ(rig.window.progress.front(), "Searching for the Very Best!");
  EXPECT_EQ(Lines(Matches())[0], "ASTEL+S Search= \"Best of the Sky\"");
  EXPECT_EQ(Shown(), "Beta2");
  ASSERT_TRUE(PreviousMatch(state));
  EXPECT_EQ(Shown(), "Beta1") << "the suggestions are a history like any search";

  rig.dialogs.answers = {"Alpha"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  EXPECT_FALSE(state.search.bestOfSkyMode) << "an ordinary search ends Best of the Sky";
  EXPECT_EQ(Shown(), "Alpha1");
}

TEST_F(BestOfSkyTest, NothingHighEnough) {
  UseFull({AtAltitude("Low        &", 5), AtAltitude("Lower      ^", 2)});
  EXPECT_FALSE(BestOfTheSky(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{"Object not found in FULL.OBC"});
}

TEST_F(BestOfSkyTest, PlanetLinesUseTheirOwnLimits) {
  state.time.julianDate = 2461367.5;  // 2026-11-22 0h GMT
  const BodyPosition mars = ComputeBody(kMars, state.time.julianDate);
  ASSERT_GT(mars.distanceAu, 0);
  // Mars on the meridian, 15 degrees high: below the general 20 degrees.
  state.time.localSiderealTime = mars.raHours;
  state.place.homeLatitude = (mars.decDegrees - 75) / kDegreesPerRadian;
  const double ratio = mars.distanceAu / ReferenceDistanceAu(kMars);
  const int under = static_cast<int>(std::floor(ratio)), over = under + 1;
  ASSERT_GE(under, 1);

  struct Row {
    const char* legend;
    int minAltitude, maxRatio;
    bool offered;
  } rows[] = {{"own minimum below the planet's altitude", 10, over, true},
              {"own minimum above it", 16, over, false},
              {"too far away", 10, under, false},
              {"no distance limit", 10, 0, true}};
  for (const Row& r : rows) {
    UseFull({PlanetLine(kMars, '&', r.minAltitude, r.maxRatio), PlanetLine(12, '&', 0, 0)});
    rig.dialogs.messages.clear();
    EXPECT_EQ(BestOfTheSky(state, rig.ports), r.offered) << r.legend;
    if (!r.offered) continue;
    EXPECT_EQ(state.object.Name1, "Mars       ") << r.legend;
    EXPECT_EQ(state.object.Name2, PadRight(DistanceText(mars.distanceAu), 12)) << r.legend;
    EXPECT_EQ(state.object.Name3, std::string(12, ' ')) << r.legend;
    EXPECT_EQ(state.object.objectKind, kMars) << r.legend;
    EXPECT_NEAR(state.object.altitude, 15, 0.1) << r.legend;
    const std::vector<std::string> lines = Lines(Matches());
    ASSERT_EQ(lines.size(), 5u) << r.legend << ": one line for a planet";
    EXPECT_EQ(
        lines[4].rfind(" 1. Mars       Dist=" + DistanceText(mars.distanceAu) + ". Alt= 15", 0), 0u)
        << lines[4];
    ASSERT_FALSE(state.object.transitText.empty());
    EXPECT_NE(lines[4].find(state.object.transitLabel + state.object.transitText),
              std::string::npos)
        << lines[4] << ": the rise and set information follows";
    EXPECT_FALSE(NextMatch(state, rig.ports)) << "body 12 is skipped";
    EXPECT_EQ(rig.dialogs.messages.back(), "No More 'Best of the Sky'");
    ASSERT_TRUE(PreviousMatch(state));
    EXPECT_EQ(state.object.Name1, "Mars       ") << "a planet comes back from the history";
  }
}

TEST_F(BestOfSkyTest, OnlyTheDefaultCatalogOffersIt) {
  // The first four characters decide, in their case, as the main window tests them each tick.
  EXPECT_TRUE(BestOfSkyAvailable("FULL.OBC"));
  EXPECT_TRUE(BestOfSkyAvailable("FULLER.OBC"));
  EXPECT_FALSE(BestOfSkyAvailable("full.obc"));
  EXPECT_FALSE(BestOfSkyAvailable("MY.OBC"));
  EXPECT_FALSE(BestOfSkyAvailable("FUL"));
}

TEST(PlanetRecord, ParsesItsColumnsAndRefusesBadBodies) {
  auto parsed = ParsePlanetRecord("!Planet=05 &25          03");
  ASSERT_TRUE(parsed);
  EXPECT_EQ(parsed->body, 5);
  EXPECT_EQ(parsed->minAltitude, 25);
  EXPECT_EQ(parsed->maxDistanceRatio, 3);
  EXPECT_FALSE(ParsePlanetRecord("!Planet=10 &"));
  EXPECT_FALSE(ParsePlanetRecord("!Planet=-1 &"));
  EXPECT_FALSE(ParsePlanetRecord("!Planet=ab &"));
  EXPECT_FALSE(ParsePlanetRecord("!Comet=01"));
  EXPECT_EQ(PlanetDisplayName(0), "Sun         ");
  EXPECT_EQ(PlanetDisplayName(3), "Moon       ");
}

}  // namespace
}  // namespace astel::testing
