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
  ASSERT_TRUE(BestOfTheSky(state, rig.ports));
  EXPECT_EQ(ShownAndNextMatches(), (Names{"Alpha1", "Alpha3", "Beta1", "Beta2"}))
      << "19.9 degrees is skipped, 20.0 offered";
  EXPECT_EQ(rig.dialogs.messages, Names{"No More 'Best of the Sky'"});
  EXPECT_TRUE(rig.dialogs.prompts.empty()) << "no prompt at all";
  EXPECT_FLOAT_EQ(state.search.minAltitude, 20);
  EXPECT_EQ(rig.window.progress.front(), "Searching for the Very Best!");
  EXPECT_EQ(Lines(Matches())[0], "ASTEL+S Search= \"Best of the Sky\"");
  ASSERT_TRUE(PreviousMatch(state));
  EXPECT_EQ(Shown(), "Beta1") << "the suggestions are a history like any search";

  ASSERT_TRUE(Simple({"Alpha"}));
  EXPECT_FALSE(state.search.bestOfSkyMode) << "an ordinary search ends Best of the Sky";
  EXPECT_EQ(Shown(), "Alpha1");

  UseFull({AtAltitude("Low        &", 5), AtAltitude("Lower      ^", 2)});
  EXPECT_FALSE(BestOfTheSky(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages.back(), "Object not found in FULL.OBC");
}

TEST_F(BestOfSkyTest, PlanetLinesUseTheirOwnLimits) {
  state.time.julianDate = 2461367.5;  // 2026-11-22 0h GMT
  const BodyPosition mars = ComputeBody(kMars, state.time.julianDate);
  // Mars on the meridian, 15 degrees high: below the general 20 degrees.
  state.time.localSiderealTime = mars.raHours;
  state.place.homeLatitude = (mars.decDegrees - 75) / kDegreesPerRadian;
  const int under = static_cast<int>(std::floor(mars.distanceAu / ReferenceDistanceAu(kMars)));
  ASSERT_GE(under, 1);
  struct Row {
    const char* legend;
    int minAltitude, maxRatio;
    bool offered;
  } rows[] = {{"own minimum below the planet's altitude", 10, under + 1, true},
              {"own minimum above it", 16, under + 1, false},
              {"too far away", 10, under, false},
              {"no distance limit", 10, 0, true}};
  for (const Row& r : rows) {
    UseFull({PlanetLine(kMars, '&', r.minAltitude, r.maxRatio), PlanetLine(12, '&', 0, 0)});
    EXPECT_EQ(BestOfTheSky(state, rig.ports), r.offered) << r.legend;
  }
  // The last row's suggestion.
  const std::string distance = DistanceText(mars.distanceAu);
  EXPECT_EQ(state.object.Name1 + state.object.Name2 + state.object.Name3,
            "Mars       " + PadRight(distance, 12) + std::string(12, ' '));
  EXPECT_EQ(state.object.objectKind, kMars);
  const std::vector<std::string> lines = Lines(Matches());
  ASSERT_EQ(lines.size(), 5u) << "one line for a planet";
  EXPECT_EQ(lines[4].rfind(" 1. Mars       Dist=" + distance + ". Alt= 15", 0), 0u) << lines[4];
  ASSERT_FALSE(state.object.transitText.empty());
  EXPECT_NE(lines[4].find(state.object.transitLabel + state.object.transitText), std::string::npos)
      << lines[4] << ": the rise and set information follows";
  EXPECT_FALSE(NextMatch(state, rig.ports)) << "body 12 is skipped";
  EXPECT_EQ(rig.dialogs.messages.back(), "No More 'Best of the Sky'");
  ASSERT_TRUE(PreviousMatch(state));
  EXPECT_EQ(state.object.Name1, "Mars       ") << "a planet comes back from the history";
}

TEST(BestOfSky, PlanetLinesOutOfRangeAreNoPlanets) {
  for (const char* bad : {"!Planet=10 &", "!Planet=ab &", "!Comet=01"})
    EXPECT_FALSE(ParsePlanetRecord(bad)) << bad;
  EXPECT_EQ(PlanetDisplayName(0), "Sun         ");
}

}  // namespace
}  // namespace astel::testing
