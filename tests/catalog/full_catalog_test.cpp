// The example searches of the search prompt and Best of the Sky against the shipped default
// catalog. Skipped while data/FULL.OBC is missing.
#include <gtest/gtest.h>

#include <filesystem>

#include "astro/time_scales.h"
#include "catalog/best_of_sky.h"
#include "catalog/planet_record.h"
#include "core/location.h"
#include "search_fixture.h"
#include "tests/support/fake_clock.h"

namespace astel::testing {
namespace {

class FullCatalogTest : public SearchTest {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(std::string(ASTEL_SOURCE_DATA_DIR) + "/FULL.OBC"))
      GTEST_SKIP() << "data/FULL.OBC is not there yet";
    SearchTest::SetUp();
    // New York, 2026 November 22, 21:00 local time (GMT + 5 h).
    SetHomeLatitude(state.place, 40.75);
    SetHomeLongitude(state.place, 74.0);
    state.place.gmtOffset = 5;
    FillDateTables(state.time);
    FakeClock clock;
    clock.now = {2026, 11, 22, 21, 0, 0};
    ReadClock(state, clock);
    ASSERT_TRUE(UpdateTimeScales(state));
    ASSERT_TRUE(OpenCatalog(state, ASTEL_SOURCE_DATA_DIR, "FULL.OBC"));
  }
};

TEST_F(FullCatalogTest, ThePromptsExampleSearches) {
  struct Row {
    const char* text;
    const char* expectedName;  // one of the first match's five names
  } rows[] = {{"M31", "M31"},         {"crab", "Crab Nebula"}, {"Mizar", "Mizar"},
              {"Virgo", "Virgo"},     {"galaxy", "galaxy"},    {"NGC 7009", "NGC 7009"},
              {"Gam Per", "Gam Per"}, {"IC 434", "IC 434"},    {"61 Cyg", "61 Cyg A"},
              {"HR 2491", "HR 2491"}, {"Alp* Lib", "Alp2 Lib"}};
  for (const Row& r : rows) {
    ASSERT_TRUE(Simple({r.text})) << r.text;
    const ObjectState& o = state.object;
    const std::string names =
        "|" + o.Name1 + "|" + o.Name2 + "|" + o.Name3 + "|" + o.Name4 + "|" + o.Name5 + "|";
    EXPECT_NE(names.find("|" + PadRight(r.expectedName, 12) + "|"), std::string::npos)
        << r.text << ": found " << names;
  }
  EXPECT_TRUE(rig.dialogs.messages.empty());
  EXPECT_NE(rig.dialogs.prompts[0].find(
                "\n (Example: M31, crab, Mizar, Virgo, galaxy, NGC 7009, Gam Per, IC 434, 61 Cyg, "
                "HR 2491, Alp* Lib, etc.)"),
            std::string::npos);

  // The M31 match: Messier name first, the mark shown as a blank, the position precessed to 2027.
  ASSERT_TRUE(Simple({"M31 "}));
  EXPECT_EQ(state.object.Name1 + state.object.Name2, "M31         NGC 224     ");
  EXPECT_EQ(state.object.objRaHours, 0);
  // About 3.3 s of time a year at this place in the sky, over 27 years.
  EXPECT_NEAR(state.object.objRaMinutes, 0.7123 * 60 + 27 * 3.3 / 60, 0.05);
  EXPECT_EQ(state.object.sourceEpoch, 2027) << "a second precession would change nothing";
  ASSERT_TRUE(NextMatch(state, rig.ports));
  EXPECT_EQ(Shown(), "M3") << "no longer name, but a name the text begins with";
}

TEST_F(FullCatalogTest, BestOfTheSkyTonight) {
  ASSERT_TRUE(BestOfSkyAvailable(state.files.catalogFileName));
  ASSERT_TRUE(BestOfTheSky(state, rig.ports));
  int suggestions = 0;
  bool secondPassSeen = false;
  do {
    ++suggestions;
    const std::string& record = state.search.matchHistory[state.search.matchIndex];
    secondPassSeen = secondPassSeen || record[11] == '^';
    EXPECT_FALSE(secondPassSeen && record[11] == '&') << "every '&' before the first '^'";
    const auto planet = ParsePlanetRecord(record);
    EXPECT_GE(state.object.altitude, planet ? planet->minAltitude : 20.0) << record;
  } while (NextMatch(state, rig.ports) && suggestions < 400);
  EXPECT_GT(suggestions, 20);
  EXPECT_TRUE(secondPassSeen);
  EXPECT_EQ(rig.dialogs.messages.back(), "No More 'Best of the Sky'");
}

}  // namespace
}  // namespace astel::testing
