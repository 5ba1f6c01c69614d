#include <gtest/gtest.h>

#include <filesystem>

#include "search_fixture.h"

namespace astel::testing {
namespace {

TEST_F(SearchTest, PrefixSearchStepsThroughM3M30M31AndBackThroughTheHistory) {
  UseCatalog({"!M3 comment", Rec("M2", 0, 10), Rec("M3", 0, 10), Rec("M4", 0, 10),
              Rec("M30", 0, 10), Rec("M31", 0, 10, "3.4", "NGC 224")});
  ASSERT_TRUE(Simple({"M3"}));
  EXPECT_EQ(rig.dialogs.prompts[0],
            "Name of Object to Search for In Current Catalog TEST.OBC Up to 12 Chars");
  EXPECT_EQ(rig.window.captions.front(), "Searching for M3  in Catalog TEST.OBC");
  EXPECT_FALSE(rig.window.visible) << "the Searching window closes when the scan stops";
  EXPECT_EQ(ShownAndNextMatches(), (Names{"M3", "M30", "M31"})) << "never the '!' line";
  EXPECT_EQ(rig.dialogs.messages, Names{"No More Matches for M3  found in Catalog TEST.OBC"});
  EXPECT_EQ(state.object.Name2, "NGC 224     ") << "the last match stays shown";
  EXPECT_EQ(state.form.writeMatchToolTip, "View the list of 3 saved matches");

  std::filesystem::remove(File(dir, "TEST.OBC"));  // the history needs no file
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(PreviousMatch(state));
  EXPECT_EQ(Shown(), "M3") << "not before the first";
  EXPECT_TRUE(NextMatch(state, rig.ports));
  EXPECT_EQ(Shown(), "M30");
  EXPECT_EQ(state.search.matchCount, 3);
}

TEST_F(SearchTest, TrailingBlankExactnessNotFoundAndCancel) {
  UseCatalog({Rec("M3", 0, 10), Rec("M30", 0, 10), Rec("M31", 0, 10)}, ' ', "\n");
  EXPECT_FALSE(Simple({""}));
  EXPECT_TRUE(rig.dialogs.messages.empty() && rig.window.captions.empty())
      << "Cancel at the prompt does nothing";

  ASSERT_TRUE(Simple({"M 3 "}));
  EXPECT_EQ(state.search.searchText + "|" + state.search.lastSearchText, "M3 |M3 ");
  EXPECT_EQ(ShownAndNextMatches(), Names{"M3"});
  EXPECT_EQ(rig.dialogs.messages.back(), "No More Matches for M3   found in Catalog TEST.OBC");

  EXPECT_FALSE(Simple({"xyz"}));
  EXPECT_EQ(rig.dialogs.messages.back(), "Object xyz  Not Found in Catalog TEST.OBC");
  EXPECT_EQ(rig.dialogs.defaults, (Names{"", "", "M3 "})) << "the last text is offered";
}

TEST_F(SearchTest, DetailedSearchPromptsAndTheirAsymmetricLimits) {
  UseCatalog({AtAltitude("M3", 10), AtAltitude("M31", 45, "3.4"), AtAltitude("M33", 50, "5.7")});
  ASSERT_TRUE(Detailed({"M3", "", "95", "89.5", "abc", "20", "19", "-1", "5"}));
  const std::string altitude = "Set Minimum Altitude", magnitude = "Set Faintest Magnitude";
  EXPECT_EQ(rig.dialogs.titles,
            (Names{"Search for Object in Catalog", "Second Name?", altitude, altitude, altitude,
                   altitude, magnitude, magnitude, magnitude}));
  EXPECT_EQ(rig.dialogs.prompts[1], "Second Name to Search for, if any ");
  EXPECT_EQ(rig.dialogs.prompts[2],
            "Specify Minimum Altitude in Degrees (0 to 89 ) or click 'CANCEL' to ignore");
  EXPECT_EQ(rig.dialogs.prompts[6],
            "Specify Faintest Magnitude (0 to 19 ) or click 'CANCEL' to ignore");
  EXPECT_FLOAT_EQ(state.search.minAltitude, 20);
  EXPECT_DOUBLE_EQ(state.search.faintestMagnitude, 5);
  EXPECT_EQ(ShownAndNextMatches(), Names{"M31"}) << "M3 is too low, M33 fainter than 5";
  EXPECT_EQ(rig.dialogs.messages.back(),
            "No More Matches for M3  found in Catalog TEST.OBC\nAbove 20 Degrees\nBrighter than "
            "Mag 5");

  // 89 is a valid altitude; Cancel drops a limit, and its line in the message.
  EXPECT_FALSE(Detailed({"M3", "", "89", ""}));
  EXPECT_EQ(rig.dialogs.messages.back(),
            "Object M3  Not Found in Catalog TEST.OBC\nAbove 89 Degrees");
  EXPECT_EQ(state.object.Name1, std::string(11, ' '));
  EXPECT_EQ(state.search.foundState, 0);
  ASSERT_TRUE(Detailed({"M3", "", "", "18.9"}));
  EXPECT_FLOAT_EQ(state.search.minAltitude, -90) << "the detailed search starts without limits";
  EXPECT_DOUBLE_EQ(state.search.faintestMagnitude, 18.9);
  EXPECT_EQ(Shown(), "M3");
}

TEST_F(SearchTest, SecondNameFiltersTheRecords) {
  UseCatalog({Rec("Gam And", 0, 10, "2.2", "57 And"), Rec("Gam Per", 0, 10, "2.9", "23 Per"),
              Rec("Gam Peg", 0, 10, "2.8", "88 Peg")});
  ASSERT_TRUE(Detailed({"Gam", "23 per", "", ""}));
  EXPECT_EQ(rig.window.captions.back(), "Searching for Gam 23 per in Catalog TEST.OBC");
  EXPECT_EQ(ShownAndNextMatches(), Names{"Gam Per"});
  EXPECT_EQ(rig.dialogs.messages.back(),
            "No More Matches for Gam 23 per found in Catalog TEST.OBC");
  Detailed({"Gam", "", "", ""});
  EXPECT_EQ(rig.dialogs.defaults[5], "23 per") << "the last second name is offered";
}

TEST_F(SearchTest, LongNamesSearchColumnsOneToTwentyFourOnly) {
  // In a long-name catalog a 16-character name runs from Name1 into Name2.
  std::string andromeda = Rec("", 0, 10, "3.4", "", "M31");
  andromeda.replace(0, 16, "Andromeda Galaxy");
  std::string andromedaII = Rec("", 0, 10, "9", "", "M110");
  andromedaII.replace(0, 16, "AndromedaGalaxII");
  UseCatalog({Rec("M31 Center", 0, 10, "", "Andromeda"), andromeda, andromedaII}, 'L');
  ASSERT_TRUE(Simple({"Andromeda Galaxy"}));
  EXPECT_TRUE(state.search.longNameSearch) << "13 characters or more";
  EXPECT_EQ(state.object.Name3, "M31         ");
  EXPECT_FALSE(NextMatch(state, rig.ports)) << "AndromedaGalaxII differs after 'AndromedaGala'";
  EXPECT_NE(rig.dialogs.prompts[0].find("\nCan be up to 16 chars ( > 8 is a Long Name)."
                                        "\nDouble-wildcard (**) forces search as Long Name"),
            std::string::npos);

  // "**" forces the long-name field and the detailed search then asks no second name.
  rig.dialogs = {};
  ASSERT_TRUE(Detailed({"Androm**", "", ""}));
  EXPECT_TRUE(state.search.longNameSearch);
  EXPECT_EQ(rig.dialogs.titles, (Names{"Search for Object in Catalog", "Set Minimum Altitude",
                                       "Set Faintest Magnitude"}));
  EXPECT_EQ(state.object.Name3, "M31         ") << "'Andromeda' in Name2 of line 1 is not read";
}

TEST_F(SearchTest, ProgressEveryHundredRecords) {
  UseCatalog(Names(1000, Rec("HD 1", 0, 10)));
  EXPECT_FALSE(Simple({"nothing"}));
  ASSERT_EQ(rig.window.progress.size(), 10u);
  EXPECT_EQ(rig.window.progress[0], "Searching for nothing  in Catalog TEST.OBC    100");
  EXPECT_EQ(rig.window.progress[9], "Searching for nothing  in Catalog TEST.OBC    1000");
  EXPECT_EQ(rig.events.doEventsCount, 11) << "once when the window opens, then every 100";
}

TEST_F(SearchTest, BadCatalogsEndInNotFound) {
  struct Row {
    const char* legend;
    const char* content;  // nullptr: no file at all
  } rows[] = {{"missing file", nullptr},
              {"only a DOS end-of-file mark after the header", "TEST    2000\r\n\x1A\r\nM3\r\n"},
              {"binary garbage", "\x01\x02\xFF\xFE\r\r\n\n\x80 M 3"}};
  state.files.catalogFileName = "BAD.OBC";
  for (const Row& r : rows) {
    std::filesystem::remove(File(dir, "BAD.OBC"));
    if (r.content) WriteFile(File(dir, "BAD.OBC"), r.content);
    rig.dialogs.messages.clear();
    EXPECT_FALSE(Simple({"M3"})) << r.legend;
    EXPECT_EQ(rig.dialogs.messages, Names{"Object M3  Not Found in Catalog BAD.OBC"}) << r.legend;
  }
}

// The shipped default catalog answers every example of the search prompt.
TEST_F(SearchTest, ThePromptsExamplesInTheShippedCatalog) {
  if (!std::filesystem::exists(std::string(ASTEL_SOURCE_DATA_DIR) + "/FULL.OBC"))
    GTEST_SKIP() << "data/FULL.OBC is not there yet";
  ASSERT_TRUE(OpenCatalog(state, ASTEL_SOURCE_DATA_DIR, "FULL.OBC"));
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
}

}  // namespace
}  // namespace astel::testing
