#include <gtest/gtest.h>

#include <filesystem>

#include "search_fixture.h"

namespace astel::testing {
namespace {

TEST_F(SearchTest, PrefixSearchStepsThroughM3M30M31AndBackThroughTheHistory) {
  UseCatalog({"!M3 comment", Rec("M2", 0, 10), Rec("M3", 0, 10), Rec("M4", 0, 10),
              Rec("M30", 0, 10), Rec("M31", 0, 10, "3.4", "NGC 224")});
  ASSERT_TRUE(Simple({"M3"}));
  EXPECT_EQ(dialogs.prompts[0],
            "Name of Object to Search for In Current Catalog TEST.OBC Up to 12 Chars");
  EXPECT_EQ(captions.front(), "Searching for M3  in Catalog TEST.OBC");
  EXPECT_FALSE(visible) << "the Searching window closes when the scan stops";
  EXPECT_EQ(ShownAndNextMatches(), (Names{"M3", "M30", "M31"})) << "never the '!' line";
  EXPECT_EQ(dialogs.messages, Names{"No More Matches for M3  found in Catalog TEST.OBC"});

  std::filesystem::remove(File(dir, "TEST.OBC"));  // the history needs no file
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(PreviousMatch(state));
  EXPECT_EQ(Shown(), "M3") << "not before the first";
  EXPECT_TRUE(NextMatch(state, ports));
  EXPECT_EQ(Shown(), "M30");
}

TEST_F(SearchTest, TrailingBlankExactnessNotFoundAndCancel) {
  UseCatalog({Rec("M3", 0, 10), Rec("M30", 0, 10), Rec("M31", 0, 10)}, ' ', "\n");
  EXPECT_FALSE(Simple({""}));
  EXPECT_TRUE(dialogs.messages.empty() && captions.empty()) << "Cancel at the prompt does nothing";
  ASSERT_TRUE(Simple({"M 3 "}));
  EXPECT_EQ(ShownAndNextMatches(), Names{"M3"});
  EXPECT_EQ(dialogs.messages.back(), "No More Matches for M3   found in Catalog TEST.OBC");
  EXPECT_FALSE(Simple({"xyz"}));
  EXPECT_EQ(dialogs.messages.back(), "Object xyz  Not Found in Catalog TEST.OBC");
  EXPECT_EQ(dialogs.defaults, (Names{"", "", "M3 "})) << "the last text is offered";
}

TEST_F(SearchTest, DetailedSearchLimitsAndSecondName) {
  UseCatalog({AtAltitude("M3", 10), AtAltitude("M31", 45, "3.4"), AtAltitude("M33", 50, "5.7")});
  // Refused answers are asked again: a wrong acceptance would shift the later ones.
  ASSERT_TRUE(Detailed({"M3", "", "95", "89.5", "abc", "20", "19", "-1", "5"}));
  EXPECT_EQ(ShownAndNextMatches(), Names{"M31"}) << "M3 is too low, M33 fainter than 5";
  EXPECT_EQ(dialogs.messages.back(),
            "No More Matches for M3  found in Catalog TEST.OBC\nAbove 20 Degrees\nBrighter than "
            "Mag 5");
  // 89 is a valid altitude; Cancel drops a limit, and its line in the message.
  EXPECT_FALSE(Detailed({"M3", "", "89", ""}));
  EXPECT_EQ(dialogs.messages.back(), "Object M3  Not Found in Catalog TEST.OBC\nAbove 89 Degrees");

  UseCatalog({Rec("Gam And", 0, 10, "2.2", "57 And"), Rec("Gam Per", 0, 10, "2.9", "23 Per")});
  ASSERT_TRUE(Detailed({"Gam", "23 per", "", ""}));
  EXPECT_EQ(ShownAndNextMatches(), Names{"Gam Per"});
  EXPECT_EQ(dialogs.messages.back(), "No More Matches for Gam 23 per found in Catalog TEST.OBC");
}

TEST_F(SearchTest, LongNamesSearchColumnsOneToTwentyFourOnly) {
  // In a long-name catalog a 16-character name runs from Name1 into Name2.
  std::string andromeda = Rec("", 0, 10, "3.4", "", "M31");
  andromeda.replace(0, 16, "Andromeda Galaxy");
  UseCatalog({Rec("M31 Center", 0, 10, "", "Andromeda"), andromeda}, 'L');
  ASSERT_TRUE(Simple({"Andromeda Galaxy"}));
  EXPECT_EQ(state.object.Name3, "M31         ") << "'Andromeda' in Name2 of line 1 is not read";
  // "**" forces the long-name field and the detailed search then asks no second name.
  ASSERT_TRUE(Detailed({"Androm**", "", ""}));
  EXPECT_EQ(state.object.Name3, "M31         ");
}

TEST_F(SearchTest, ProgressEveryHundredRecordsAndBadCatalogs) {
  UseCatalog(Names(1000, Rec("HD 1", 0, 10)));
  EXPECT_FALSE(Simple({"nothing"}));
  ASSERT_EQ(progress.size(), 10u);
  EXPECT_EQ(progress[9], "Searching for nothing  in Catalog TEST.OBC    1000");
  EXPECT_EQ(events.doEventsCount, 11) << "once when the window opens, then every 100";

  // No file, only a DOS end-of-file mark after the header, binary garbage.
  for (const char* content : {"", "TEST    2000\r\n\x1A\r\nM3\r\n", "\x01\xFF\r\r\n\n\x80 M 3"}) {
    std::filesystem::remove(File(dir, "TEST.OBC"));
    if (*content) WriteFile(File(dir, "TEST.OBC"), content);
    dialogs.messages.clear();
    EXPECT_FALSE(Simple({"M3"})) << content;
    EXPECT_EQ(dialogs.messages, Names{"Object M3  Not Found in Catalog TEST.OBC"}) << content;
  }
}

TEST_F(SearchTest, OpeningAndCreatingCatalogs) {
  state.search.catalogOpen = true;
  UseCatalog({Rec("M1", 5.5, 22)}, 'L');
  EXPECT_EQ(state.form.catalogPath, "Catalog = " + File(dir, "TEST.OBC"));
  EXPECT_EQ(state.form.catalogNote, kLongNameCaption);
  EXPECT_FALSE(state.search.catalogOpen) << "an open search is closed";
  EXPECT_FALSE(SelectCatalogFile(state, dialogs, Dir(dir), "NONE.OBC"));
  EXPECT_EQ(dialogs.messages, Names{"Cannot Open Catalog NONE.OBC"});
  EXPECT_EQ(state.search.catalogDescription, Lines(ReadFile(File(dir, "TEST.OBC")))[0]);

  // A new catalog: an existing file is opened as it is.
  const std::string before = ReadFile(File(dir, "TEST.OBC"));
  dialogs.answers = {"TEST.OBC"};  // "OK to keep the old one"
  ASSERT_TRUE(NewCatalog(state, dialogs, Dir(dir)));
  EXPECT_EQ(ReadFile(File(dir, "TEST.OBC")), before) << "never overwritten";
  dialogs.answers = {"other", ""};
  EXPECT_FALSE(NewCatalog(state, dialogs, Dir(dir))) << "cancelled at the epoch";
  EXPECT_FALSE(std::filesystem::exists(File(dir, "other.OBC")));
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");

  dialogs.answers = {"my.stars.txt", "1850", "2101", "abc", "2026"};  // refused epochs asked again
  ASSERT_TRUE(NewCatalog(state, dialogs, Dir(dir)));
  EXPECT_EQ(dialogs.prompts[0], "Enter new Catalog file name or click 'OK' to keep the old one");
  EXPECT_EQ(state.files.catalogFileName, "my.stars.OBC") << "the extension is replaced";
  EXPECT_EQ(ReadFile(File(dir, "my.stars.OBC")).substr(8, 4), "2026") << "the epoch on the header";
}

// The shipped default catalog answers the examples of the search prompt.
TEST_F(SearchTest, ThePromptsExamplesInTheShippedCatalog) {
  ASSERT_TRUE(OpenCatalog(state, ASTEL_SOURCE_DATA_DIR, "FULL.OBC"));
  for (const char* text : {"M31", "crab", "Virgo", "NGC 7009", "Gam Per", "61 Cyg", "Alp* Lib"})
    EXPECT_TRUE(Simple({text})) << text;
  EXPECT_EQ(state.object.Name1, "Alp2 Lib    ");
}

}  // namespace
}  // namespace astel::testing
