#include <gtest/gtest.h>

#include <filesystem>

#include "search_fixture.h"

namespace astel::testing {
namespace {

using SimpleSearchTest = SearchTest;

TEST_F(SearchTest, PrefixSearchStepsThroughM3M30M31ThenSaysNoMore) {
  UseCatalog({Rec("M2", 0, 10), Rec("M3", 0, 10), Rec("M4", 0, 10), Rec("M30", 0, 10),
              Rec("M31", 0, 10, "3.4", "NGC 224")});
  rig.dialogs.answers = {"M3"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  EXPECT_EQ(Shown(), "M3");
  ASSERT_EQ(rig.dialogs.prompts.size(), 1u);
  EXPECT_EQ(rig.dialogs.titles[0], "Search for Object in Catalog");
  EXPECT_EQ(rig.dialogs.prompts[0],
            "Name of Object to Search for In Current Catalog TEST.OBC Up to 12 Chars");
  EXPECT_EQ(rig.window.captions.front(), "Searching for M3  in Catalog TEST.OBC");
  EXPECT_FALSE(rig.window.visible) << "the Searching window closes when the scan stops";

  ASSERT_TRUE(NextMatch(state, rig.ports));
  EXPECT_EQ(Shown(), "M30");
  ASSERT_TRUE(NextMatch(state, rig.ports));
  EXPECT_EQ(Shown(), "M31");
  EXPECT_EQ(state.object.Name2, "NGC 224     ");
  EXPECT_TRUE(rig.dialogs.messages.empty());
  EXPECT_FALSE(NextMatch(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages,
            std::vector<std::string>{"No More Matches for M3  found in Catalog TEST.OBC"});
  EXPECT_EQ(Shown(), "M31") << "the last match stays shown";
  EXPECT_EQ(state.search.foundState, 1);
  EXPECT_EQ(state.form.writeMatchCaption, "View Matches");
  EXPECT_EQ(state.form.writeMatchToolTip, "View the list of 3 saved matches");
}

TEST_F(SearchTest, HistorySteppingNeedsNoFile) {
  UseCatalog({Rec("M3", 0, 10), Rec("M30", 0, 10), Rec("M31", 0, 10)});
  rig.dialogs.answers = {"M3"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  ASSERT_TRUE(NextMatch(state, rig.ports));
  ASSERT_TRUE(NextMatch(state, rig.ports));
  std::filesystem::remove(File(dir, "TEST.OBC"));

  struct Step {
    const char* legend;
    bool next;
    const char* shown;
  } steps[] = {{"back to M30", false, "M30"},
               {"back to M3", false, "M3"},
               {"not before the first", false, "M3"},
               {"forward from history", true, "M30"},
               {"forward again", true, "M31"}};
  for (const Step& s : steps) {
    EXPECT_TRUE(s.next ? NextMatch(state, rig.ports) : PreviousMatch(state)) << s.legend;
    EXPECT_EQ(Shown(), s.shown) << s.legend;
  }
  EXPECT_EQ(state.search.matchCount, 3);
}

TEST_F(SearchTest, TrailingBlankMakesTheSearchExact) {
  UseCatalog({Rec("M3", 0, 10), Rec("M30", 0, 10), Rec("M31", 0, 10)});
  rig.dialogs.answers = {"M 3 "};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  EXPECT_EQ(Shown(), "M3");
  EXPECT_EQ(state.search.searchText, "M3 ");
  EXPECT_EQ(state.search.lastSearchText, "M3 ");
  EXPECT_FALSE(NextMatch(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages.back(), "No More Matches for M3   found in Catalog TEST.OBC");
}

TEST_F(SearchTest, NotFoundCancelAndEmptyAnswer) {
  UseCatalog({Rec("M3", 0, 10)});
  rig.dialogs.answers = {""};
  EXPECT_FALSE(SimpleSearch(state, rig.ports));
  EXPECT_TRUE(rig.dialogs.messages.empty()) << "Cancel at the prompt does nothing";
  EXPECT_TRUE(rig.window.captions.empty());

  rig.dialogs.answers = {"xyz"};
  EXPECT_FALSE(SimpleSearch(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages.back(), "Object xyz  Not Found in Catalog TEST.OBC");
  EXPECT_EQ(rig.dialogs.defaults.back(), "") << "nothing searched before";

  rig.dialogs.answers = {""};
  SimpleSearch(state, rig.ports);
  EXPECT_EQ(rig.dialogs.defaults.back(), "xyz") << "the last text is offered";
}

TEST_F(SearchTest, DetailedSearchPromptsAndTheirAsymmetricLimits) {
  UseCatalog({AtAltitude("M3", 10), AtAltitude("M31", 45, "3.4"), AtAltitude("M33", 50, "5.7")});
  rig.dialogs.answers = {"M3", "", "95", "89.5", "abc", "20", "19", "-1", "5"};
  ASSERT_TRUE(DetailedSearch(state, rig.ports));
  EXPECT_EQ(Shown(), "M31") << "M3 is too low, M31 high and bright enough";
  const std::vector<std::string> titles = {
      "Search for Object in Catalog", "Second Name?",           "Set Minimum Altitude",
      "Set Minimum Altitude",         "Set Minimum Altitude",   "Set Minimum Altitude",
      "Set Faintest Magnitude",       "Set Faintest Magnitude", "Set Faintest Magnitude"};
  EXPECT_EQ(rig.dialogs.titles, titles);
  EXPECT_EQ(rig.dialogs.prompts[1], "Second Name to Search for, if any ");
  EXPECT_EQ(rig.dialogs.prompts[2],
            "Specify Minimum Altitude in Degrees (0 to 89 ) or click 'CANCEL' to ignore");
  EXPECT_EQ(rig.dialogs.prompts[6],
            "Specify Faintest Magnitude (0 to 19 ) or click 'CANCEL' to ignore");
  EXPECT_FLOAT_EQ(state.search.minAltitude, 20);
  EXPECT_DOUBLE_EQ(state.search.faintestMagnitude, 5);

  EXPECT_FALSE(NextMatch(state, rig.ports)) << "M33 is fainter than 5";
  EXPECT_EQ(rig.dialogs.messages.back(),
            "No More Matches for M3  found in Catalog TEST.OBC\nAbove 20 Degrees\nBrighter than "
            "Mag 5");
  EXPECT_EQ(Shown(), "M31") << "the last match is shown again after the message";

  // 89 is a valid altitude, 18.9 a valid magnitude; Cancel keeps the limit as it is.
  rig.dialogs.answers = {"M3", "", "89", "18.9"};
  EXPECT_FALSE(DetailedSearch(state, rig.ports));
  EXPECT_FLOAT_EQ(state.search.minAltitude, 89);
  EXPECT_DOUBLE_EQ(state.search.faintestMagnitude, 18.9);
  EXPECT_EQ(rig.dialogs.messages.back(),
            "Object M3  Not Found in Catalog TEST.OBC\nAbove 89 Degrees\nBrighter than Mag 18.9");
  EXPECT_EQ(state.object.Name1, std::string(11, ' '));
  EXPECT_EQ(state.search.foundState, 0);

  rig.dialogs.answers = {"M3", "", "", ""};
  ASSERT_TRUE(DetailedSearch(state, rig.ports));
  EXPECT_FLOAT_EQ(state.search.minAltitude, -90) << "the detailed search starts without limits";
  EXPECT_EQ(Shown(), "M3");
}

TEST_F(SearchTest, OnlyTooLowObjectsGiveNotFoundAboveTwenty) {
  UseCatalog({AtAltitude("M3", 19.9), AtAltitude("M31", 19.5)});
  rig.dialogs.answers = {"M3", "", "20", ""};
  EXPECT_FALSE(DetailedSearch(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages.back(),
            "Object M3  Not Found in Catalog TEST.OBC\nAbove 20 Degrees");
}

TEST_F(SearchTest, SecondNameFiltersTheRecords) {
  UseCatalog({Rec("Gam And", 0, 10, "2.2", "57 And"), Rec("Gam Per", 0, 10, "2.9", "23 Per"),
              Rec("Gam Peg", 0, 10, "2.8", "88 Peg")});
  rig.dialogs.answers = {"Gam", "23 per", "", ""};
  ASSERT_TRUE(DetailedSearch(state, rig.ports));
  EXPECT_EQ(Shown(), "Gam Per");
  EXPECT_EQ(state.search.lastSecondName, "23 per");
  EXPECT_EQ(rig.window.captions.back(), "Searching for Gam 23 per in Catalog TEST.OBC");
  EXPECT_FALSE(NextMatch(state, rig.ports));
  EXPECT_EQ(rig.dialogs.messages.back(),
            "No More Matches for Gam 23 per found in Catalog TEST.OBC");
  rig.dialogs.answers = {"Gam", "", "", ""};
  DetailedSearch(state, rig.ports);
  EXPECT_EQ(rig.dialogs.defaults[5], "23 per") << "the last second name is offered";
}

TEST_F(SearchTest, LongNamesSearchColumnsOneToTwentyFourOnly) {
  // In a long-name catalog a 16-character name runs from Name1 into Name2.
  std::string andromeda = Rec("", 0, 10, "3.4", "", "M31");
  andromeda.replace(0, 16, "Andromeda Galaxy");
  std::string andromedaII = Rec("", 0, 10, "9", "", "M110");
  andromedaII.replace(0, 16, "AndromedaGalaxII");
  UseCatalog({Rec("M31 Center", 0, 10, "", "Andromeda"), andromeda, andromedaII}, 'L');
  EXPECT_EQ(state.form.catalogNote, kLongNameCaption);
  rig.dialogs.answers = {"Andromeda Galaxy"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  EXPECT_TRUE(state.search.longNameSearch) << "13 characters or more";
  EXPECT_EQ(state.object.Name3, "M31         ");
  EXPECT_FALSE(NextMatch(state, rig.ports)) << "AndromedaGalaxII differs after 'AndromedaGala'";
  EXPECT_NE(rig.dialogs.prompts[0].find("\nCan be up to 16 chars ( > 8 is a Long Name)."
                                        "\nDouble-wildcard (**) forces search as Long Name"),
            std::string::npos);

  // "**" forces the long-name field and the detailed search then asks no second name.
  rig.dialogs.answers = {"Androm**", "", ""};
  ASSERT_TRUE(DetailedSearch(state, rig.ports));
  EXPECT_TRUE(state.search.longNameSearch);
  EXPECT_EQ(rig.dialogs.titles.back(), "Set Faintest Magnitude");
  EXPECT_EQ(rig.dialogs.titles[rig.dialogs.prompts.size() - 2], "Set Minimum Altitude");
  EXPECT_EQ(state.object.Name3, "M31         ") << "'Andromeda' in Name2 of line 1 is not read";
}

TEST_F(SearchTest, LongTextInAnOrdinaryCatalogSearchesTheFiveFields) {
  UseCatalog({Rec("X", 0, 10, "", "AndromedaGal")});
  rig.dialogs.answers = {"Andromeda Galaxy"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports)) << "the name field is used up first";
  EXPECT_FALSE(state.search.longNameSearch);
}

TEST_F(SearchTest, CancelClosesTheCatalogAndTheNextMatchStartsAgain) {
  std::vector<std::string> records;
  for (int i = 0; i < 1000; ++i)
    records.push_back(Rec("HD " + std::to_string(i), 0, 10));
  records[900] = Rec("Target", 0, 10);
  UseCatalog(records);
  rig.events.onDoEvents = [&](int calls) {
    if (calls == 4) state.search.cancelRequested = true;  // the Cancel button, mid-scan
  };
  rig.dialogs.answers = {"Target"};
  EXPECT_FALSE(SimpleSearch(state, rig.ports));
  EXPECT_TRUE(rig.dialogs.messages.empty()) << "Cancel shows no message";
  EXPECT_FALSE(state.search.catalogOpen);
  EXPECT_FALSE(rig.window.visible);
  EXPECT_LT(state.search.recordsRead, 900);

  rig.events.onDoEvents = nullptr;
  ASSERT_TRUE(NextMatch(state, rig.ports)) << "starts again from the first record";
  EXPECT_EQ(Shown(), "Target");
  EXPECT_EQ(state.search.recordsRead, 901);
}

TEST_F(SearchTest, ProgressEveryHundredRecords) {
  std::vector<std::string> records(450, Rec("HD 1", 0, 10));
  UseCatalog(records);
  rig.dialogs.answers = {"nothing"};
  EXPECT_FALSE(SimpleSearch(state, rig.ports));
  ASSERT_EQ(rig.window.progress.size(), 4u);
  EXPECT_EQ(rig.window.progress[0], "Searching for nothing  in Catalog TEST.OBC    100");
  EXPECT_EQ(rig.window.progress[3], "Searching for nothing  in Catalog TEST.OBC    400");
  EXPECT_EQ(rig.events.doEventsCalls, 5) << "once when the window opens, then every 100";
}

TEST_F(SearchTest, TheCatalogMayChangeBetweenTwoNextMatchCalls) {
  UseCatalog({Rec("M3", 0, 10), Rec("M30", 0, 10)}, ' ', "\n");
  rig.dialogs.answers = {"M3"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  ASSERT_TRUE(NextMatch(state, rig.ports));
  // Another program appends a CRLF line and one without a line end.
  WriteFile(File(dir, "TEST.OBC"),
            ReadFile(File(dir, "TEST.OBC")) + Rec("M39", 0, 10) + "\r\n" + Rec("M35", 0, 10));
  ASSERT_TRUE(NextMatch(state, rig.ports));
  EXPECT_EQ(Shown(), "M39");
  ASSERT_TRUE(NextMatch(state, rig.ports));
  EXPECT_EQ(Shown(), "M35");
  EXPECT_FALSE(NextMatch(state, rig.ports));
}

TEST_F(SearchTest, BadCatalogsEndInNotFound) {
  struct Row {
    const char* legend;
    const char* content;  // nullptr: no file at all
  } rows[] = {{"missing file", nullptr},
              {"empty file", ""},
              {"header only", "TEST    2000\r\n"},
              {"header without line end", "TEST    2000"},
              {"only a DOS end-of-file mark after the header", "TEST    2000\r\n\x1A\r\nM3\r\n"},
              {"binary garbage", "\x01\x02\xFF\xFE\r\r\n\n\x80 M 3"}};
  for (const Row& r : rows) {
    std::filesystem::remove(File(dir, "BAD.OBC"));
    if (r.content) WriteFile(File(dir, "BAD.OBC"), r.content);
    state.files.catalogFileName = "BAD.OBC";
    state.search.catalogHasLongNames = state.search.transientCatalog = false;
    rig.dialogs.messages.clear();
    rig.dialogs.answers = {"M3"};
    EXPECT_FALSE(SimpleSearch(state, rig.ports)) << r.legend;
    EXPECT_EQ(rig.dialogs.messages,
              std::vector<std::string>{"Object M3  Not Found in Catalog BAD.OBC"})
        << r.legend;
  }
}

TEST_F(SearchTest, ScriptFindUsesTheSecondNameAndShowsNoBox) {
  UseCatalog({Rec("Gam And", 0, 10, "2.2", "57 And"), Rec("Gam Per", 0, 10, "2.9", "23 Per")});
  state.script.scriptMode = true;
  state.search.secondName = "23 Per";  // NAME2=23 Per
  ASSERT_TRUE(FindObject(state, rig.ports, "Gam"));
  EXPECT_EQ(Shown(), "Gam Per");
  EXPECT_FALSE(NextMatch(state, rig.ports));  // MATCH
  EXPECT_FALSE(FindObject(state, rig.ports, "Zet"));
  EXPECT_TRUE(rig.dialogs.prompts.empty());
  EXPECT_TRUE(rig.dialogs.messages.empty()) << "the script logs its own outcome";
  EXPECT_FALSE(FindObject(state, rig.ports, "")) << "an empty name does nothing";
}

TEST_F(SearchTest, RecordsBeginningWithABangAreNeverObjects) {
  UseCatalog({"!Planet=04 &", "!M3 comment", Rec("M3", 0, 10)});
  rig.dialogs.answers = {"*"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  EXPECT_EQ(Shown(), "M3");
}

TEST_F(SearchTest, APositionIsPrecessedToTheDate) {
  UseCatalog({Rec("Polaris", 2.5303, 89.2641, "2.0")});
  state.time.roundedYear = 2050;
  rig.dialogs.answers = {"Polaris"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports));
  ObjectState expected;
  SetObjectPosition(expected, 2.5303, 89.2641);
  expected.sourceEpoch = 2000;
  expected.targetEpoch = 2050;
  PrecessToDate(expected);
  EXPECT_EQ(state.object.objRaHours, expected.objRaHours);
  EXPECT_NEAR(state.object.objRaMinutes, expected.objRaMinutes, 1e-6);
  EXPECT_NEAR(state.object.objDecMinutes, expected.objDecMinutes, 1e-6);
  EXPECT_EQ(state.object.sourceEpoch, 2050) << "a second precession would change nothing";
}

}  // namespace
}  // namespace astel::testing
