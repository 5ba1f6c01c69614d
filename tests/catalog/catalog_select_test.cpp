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
  WriteCatalog(File(dir, "Messier_And_Caldwell_Objects.obc"), {Rec("M1", 5.5, 22)}, 'L');
  state.form.searchButtonsEnabled = false;
  state.form.simpleSearchCaption = "Load Position";
  state.search.catalogOpen = true;
  ASSERT_TRUE(OpenCatalog(state, Dir(dir), "Messier_And_Caldwell_Objects.obc"));
  EXPECT_EQ(state.form.catalogPath, "Catalog = " + File(dir, "Messier_And_Caldwell_Objects.obc"));
  EXPECT_EQ(CatalogLabel("Messier_And_Caldwell_Objects.obc"), "messier_and_caldwell_o");
  EXPECT_EQ(state.form.catalogNote, kLongNameCaption);
  EXPECT_TRUE(state.form.searchButtonsEnabled);
  EXPECT_EQ(state.form.simpleSearchCaption, "Simple Search");
  EXPECT_FALSE(state.search.catalogOpen) << "an open search is closed";
  EXPECT_TRUE(state.search.catalogHasLongNames);
  EXPECT_EQ(state.search.catalogDescription, Header('L'));
  EXPECT_EQ(state.files.catalogFileName, "Messier_And_Caldwell_Objects.obc");

  // The directory without its slash gets one in the path.
  std::string bare = Dir(dir);
  bare.pop_back();
  ASSERT_TRUE(OpenCatalog(state, bare, "Messier_And_Caldwell_Objects.obc"));
  EXPECT_EQ(state.form.catalogPath, "Catalog = " + File(dir, "Messier_And_Caldwell_Objects.obc"));
}

TEST_F(CatalogSelectTest, ATransientCatalogLeavesTheSearchButtons) {
  WriteCatalog(File(dir, "COMET.OBC"), {}, 'T');
  state.form.searchButtonsEnabled = false;
  state.form.simpleSearchCaption = "Load Position";
  ASSERT_TRUE(OpenCatalog(state, Dir(dir), "COMET.OBC"));
  EXPECT_FALSE(state.form.searchButtonsEnabled);
  EXPECT_EQ(state.form.simpleSearchCaption, "Load Position");
  EXPECT_EQ(state.form.catalogNote, kTransientCaption);
  EXPECT_TRUE(state.search.transientCatalog);
  EXPECT_FALSE(state.search.catalogHasLongNames);
}

TEST_F(CatalogSelectTest, UnreadableCatalogChangesNothing) {
  UseCatalog({Rec("M1", 5.5, 22)});
  const SearchState before = state.search;
  EXPECT_FALSE(OpenCatalog(state, Dir(dir), "NONE.OBC"));
  EXPECT_FALSE(OpenCatalog(state, Dir(dir), ""));
  std::filesystem::create_directory(File(dir, "ADIR.OBC"));
  EXPECT_FALSE(OpenCatalog(state, Dir(dir), "ADIR.OBC")) << "a folder is no catalog";
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");
  EXPECT_EQ(state.search.catalogDescription, before.catalogDescription);

  EXPECT_FALSE(SelectCatalogFile(state, rig.dialogs, Dir(dir), "NONE.OBC"));
  EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{"Cannot Open Catalog NONE.OBC"});
}

TEST_F(CatalogSelectTest, DefaultCatalogButton) {
  WriteCatalog(File(dir, "FULL.OBC"), {});
  UseCatalog({});
  DefaultCatalogButton b = DefaultCatalogButtonState(state);
  EXPECT_TRUE(b.enabled);
  EXPECT_EQ(b.toolTip, "Click to return to default catalog 'full.obc'");
  ASSERT_TRUE(OpenDefaultCatalog(state, rig.dialogs, Dir(dir)));
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
  ASSERT_TRUE(NewCatalog(state, rig.dialogs, Dir(dir)));
  const std::vector<std::string> titles = {"Create New Catalog File", "Catalog Epoch",
                                           "Set Catalog Epoch", "Set Catalog Epoch",
                                           "Set Catalog Epoch"};
  EXPECT_EQ(rig.dialogs.titles, titles);
  EXPECT_EQ(rig.dialogs.prompts[0],
            "Enter new Catalog file name or click 'OK' to keep the old one");
  EXPECT_EQ(rig.dialogs.defaults[0], "TEST.OBC");
  EXPECT_EQ(rig.dialogs.prompts[1], "Specify Catalog Epoch (1900-2100)");
  EXPECT_EQ(state.files.catalogFileName, "mystars.OBC");
  const std::string text = ReadFile(File(dir, "mystars.OBC"));
  ASSERT_EQ(Lines(text).size(), 1u);
  EXPECT_EQ(text.substr(8, 4), "2026") << "the epoch is the header's year";
  EXPECT_EQ(ParseHeader(text).year, 2026);
  EXPECT_FALSE(std::filesystem::exists(File(dir, "mystars.OBC.tmp")));

  // The new catalog takes objects and finds them.
  ASSERT_TRUE(AppendCatalogLine(File(dir, "mystars.OBC"), Rec("Mine", 0, 10)));
  rig.dialogs.answers = {"Mine"};
  EXPECT_TRUE(SimpleSearch(state, rig.ports));
}

TEST_F(CatalogSelectTest, NewCatalogNeverOverwritesAndCancelsCleanly) {
  UseCatalog({Rec("M1", 5.5, 22)});
  const std::string before = ReadFile(File(dir, "TEST.OBC"));
  rig.dialogs.answers = {"TEST.OBC"};  // "OK to keep the old one"
  ASSERT_TRUE(NewCatalog(state, rig.dialogs, Dir(dir)));
  EXPECT_EQ(ReadFile(File(dir, "TEST.OBC")), before);
  EXPECT_EQ(rig.dialogs.prompts.size(), 1u) << "no epoch asked for an existing file";

  rig.dialogs.answers = {"other", ""};
  EXPECT_FALSE(NewCatalog(state, rig.dialogs, Dir(dir)));
  EXPECT_FALSE(std::filesystem::exists(File(dir, "other.OBC")));
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");
}

}  // namespace
}  // namespace astel::testing
