#include "catalog/catalog_select.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "catalog/object_entry.h"
#include "catalog/transient_catalog.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

using CatalogSelectTest = SearchTest;

TEST_F(CatalogSelectTest, OpeningSetsTheMainWindowTexts) {
  WriteCatalog(dir.File("Messier_And_Caldwell_Objects.obc"), {Rec("M1", 5.5, 22)}, 'L');
  state.form.searchButtonsEnabled = false;
  state.form.simpleSearchCaption = "Load Position";
  state.search.catalogOpen = true;
  ASSERT_TRUE(OpenCatalog(state, dir.Dir(), "Messier_And_Caldwell_Objects.obc"));
  EXPECT_EQ(state.form.catalogPath, "Catalog = " + dir.File("Messier_And_Caldwell_Objects.obc"));
  EXPECT_EQ(state.form.catalogLabel, "messier_and_caldwell_o");
  EXPECT_EQ(state.form.catalogNote, kLongNameCaption);
  EXPECT_TRUE(state.form.searchButtonsEnabled);
  EXPECT_EQ(state.form.simpleSearchCaption, "Simple Search");
  EXPECT_FALSE(state.search.catalogOpen) << "an open search is closed";
  EXPECT_TRUE(state.search.catalogHasLongNames);
  EXPECT_EQ(state.search.catalogDescription, Header('L'));
  EXPECT_EQ(state.files.catalogFileName, "Messier_And_Caldwell_Objects.obc");

  // The directory without its slash gets one in the path.
  std::string bare = dir.Dir();
  bare.pop_back();
  ASSERT_TRUE(OpenCatalog(state, bare, "Messier_And_Caldwell_Objects.obc"));
  EXPECT_EQ(state.form.catalogPath, "Catalog = " + dir.File("Messier_And_Caldwell_Objects.obc"));
}

TEST_F(CatalogSelectTest, ATransientCatalogLeavesTheSearchButtons) {
  WriteCatalog(dir.File("COMET.OBC"), {}, 'T');
  state.form.searchButtonsEnabled = false;
  state.form.simpleSearchCaption = "Load Position";
  ASSERT_TRUE(OpenCatalog(state, dir.Dir(), "COMET.OBC"));
  EXPECT_FALSE(state.form.searchButtonsEnabled);
  EXPECT_EQ(state.form.simpleSearchCaption, "Load Position");
  EXPECT_EQ(state.form.catalogNote, kTransientCaption);
  EXPECT_TRUE(state.search.transientCatalog);
  EXPECT_FALSE(state.search.catalogHasLongNames);
}

TEST_F(CatalogSelectTest, UnreadableCatalogChangesNothing) {
  UseCatalog({Rec("M1", 5.5, 22)});
  const SearchState before = state.search;
  EXPECT_FALSE(OpenCatalog(state, dir.Dir(), "NONE.OBC"));
  EXPECT_FALSE(OpenCatalog(state, dir.Dir(), ""));
  std::filesystem::create_directory(dir.File("ADIR.OBC"));
  EXPECT_FALSE(OpenCatalog(state, dir.Dir(), "ADIR.OBC")) << "a folder is no catalog";
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");
  EXPECT_EQ(state.search.catalogDescription, before.catalogDescription);

  EXPECT_FALSE(SelectCatalogFile(state, rig.dialogs, dir.Dir(), "NONE.OBC"));
  EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{"Cannot Open Catalog NONE.OBC"});
}

TEST_F(CatalogSelectTest, DefaultCatalogButton) {
  WriteCatalog(dir.File("FULL.OBC"), {});
  UseCatalog({});
  DefaultCatalogButton b = DefaultCatalogButtonState(state);
  EXPECT_TRUE(b.enabled);
  EXPECT_EQ(b.toolTip, "Click to return to default catalog 'full.obc'");
  ASSERT_TRUE(OpenDefaultCatalog(state, rig.dialogs, dir.Dir()));
  EXPECT_EQ(state.files.catalogFileName, "FULL.OBC");
  b = DefaultCatalogButtonState(state);
  EXPECT_FALSE(b.enabled);
  EXPECT_EQ(b.toolTip, " ");
}

TEST(CatalogExtension, NewNamesEndInObc) {
  struct Row {
    const char* in;
    const char* out;
  } rows[] = {{"mystars", "mystars.OBC"},        {"mystars.txt", "mystars.OBC"},
              {"mystars.obc", "mystars.obc"},    {"MYSTARS.OBC", "MYSTARS.OBC"},
              {"my.stars.txt", "my.stars.OBC"},  {"mystars.", "mystars.OBC"},
              {"dir.d/stars", "dir.d/stars.OBC"}};
  for (const Row& r : rows)
    EXPECT_EQ(WithCatalogExtension(r.in), r.out) << r.in;
}

TEST_F(CatalogSelectTest, NewCatalogAsksNameAndEpochThenWritesItsHeader) {
  UseCatalog({});
  rig.dialogs.answers = {"mystars.txt", "1850", "2101", "abc", "2026"};
  ASSERT_TRUE(NewCatalog(state, rig.dialogs, dir.Dir()));
  const std::vector<std::string> titles = {"Create New Catalog File", "Catalog Epoch",
                                           "Set Catalog Epoch", "Set Catalog Epoch",
                                           "Set Catalog Epoch"};
  EXPECT_EQ(rig.dialogs.Titles(), titles);
  EXPECT_EQ(rig.dialogs.prompts[0].prompt,
            "Enter new Catalog file name or click 'OK' to keep the old one");
  EXPECT_EQ(rig.dialogs.prompts[0].defaultAnswer, "TEST.OBC");
  EXPECT_EQ(rig.dialogs.prompts[1].prompt, "Specify Catalog Epoch (1900-2100)");
  EXPECT_EQ(state.files.catalogFileName, "mystars.OBC");
  const std::string text = ReadFile(dir.File("mystars.OBC"));
  ASSERT_EQ(Lines(text).size(), 1u);
  EXPECT_EQ(text.substr(8, 4), "2026") << "the epoch is the header's year";
  EXPECT_EQ(ParseHeader(text).year, 2026);
  EXPECT_FALSE(std::filesystem::exists(dir.File("mystars.OBC.tmp")));

  // The new catalog takes objects and finds them.
  ASSERT_TRUE(AppendCatalogLine(dir.File("mystars.OBC"), Rec("Mine", 0, 10)));
  rig.dialogs.answers = {"Mine"};
  EXPECT_TRUE(SimpleSearch(state, rig.ports));
}

TEST_F(CatalogSelectTest, NewCatalogNeverOverwritesAndCancelsCleanly) {
  UseCatalog({Rec("M1", 5.5, 22)});
  const std::string before = ReadFile(dir.File("TEST.OBC"));
  rig.dialogs.answers = {"TEST.OBC"};  // "OK to keep the old one"
  ASSERT_TRUE(NewCatalog(state, rig.dialogs, dir.Dir()));
  EXPECT_EQ(ReadFile(dir.File("TEST.OBC")), before);
  EXPECT_EQ(rig.dialogs.prompts.size(), 1u) << "no epoch asked for an existing file";

  rig.dialogs.answers = {"other", ""};
  EXPECT_FALSE(NewCatalog(state, rig.dialogs, dir.Dir()));
  EXPECT_FALSE(std::filesystem::exists(dir.File("other.OBC")));
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");
}

}  // namespace
}  // namespace astel::testing
