#include "catalog/catalog_select.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "catalog/transient_catalog.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

using CatalogSelectTest = SearchTest;

TEST_F(CatalogSelectTest, OpeningSetsTheMainWindowTexts) {
  struct Row {
    const char* name;
    char kind;
    const char* note;
    bool searchable;  // the search buttons come back, a transient catalog leaves them
  } rows[] = {{"Messier_And_Caldwell_Objects.obc", 'L', kLongNameCaption, true},
              {"COMET.OBC", 'T', kTransientCaption, false}};
  for (const Row& r : rows) {
    WriteCatalog(File(dir, r.name), {Rec("M1", 5.5, 22)}, r.kind);
    state.form.searchButtonsEnabled = false;
    state.form.simpleSearchCaption = "Load Position";
    state.search.catalogOpen = true;
    ASSERT_TRUE(OpenCatalog(state, Dir(dir), r.name)) << r.name;
    EXPECT_EQ(state.form.catalogPath, "Catalog = " + File(dir, r.name));
    EXPECT_EQ(state.form.catalogNote, r.note);
    EXPECT_EQ(state.form.searchButtonsEnabled, r.searchable) << r.name;
    EXPECT_EQ(state.form.simpleSearchCaption, r.searchable ? "Simple Search" : "Load Position");
    EXPECT_FALSE(state.search.catalogOpen) << r.name << ": an open search is closed";
    EXPECT_EQ(state.search.catalogDescription, Header(r.kind)) << r.name;
    EXPECT_EQ(state.files.catalogFileName, r.name);
  }
  EXPECT_EQ(CatalogLabel("Messier_And_Caldwell_Objects.obc"), "messier_and_caldwell_o");
}

TEST_F(CatalogSelectTest, UnreadableCatalogChangesNothing) {
  UseCatalog({Rec("M1", 5.5, 22)});
  std::filesystem::create_directory(File(dir, "ADIR.OBC"));
  for (const char* name : {"NONE.OBC", "", "ADIR.OBC"})
    EXPECT_FALSE(OpenCatalog(state, Dir(dir), name)) << "'" << name << "'";
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");
  EXPECT_EQ(state.search.catalogDescription, Header());
  EXPECT_FALSE(SelectCatalogFile(state, rig.dialogs, Dir(dir), "NONE.OBC"));
  EXPECT_EQ(rig.dialogs.messages, Names{"Cannot Open Catalog NONE.OBC"});
}

TEST_F(CatalogSelectTest, DefaultCatalogButton) {
  WriteCatalog(File(dir, "FULL.OBC"), {});
  UseCatalog({});
  EXPECT_TRUE(DefaultCatalogButtonState(state).enabled);
  ASSERT_TRUE(OpenDefaultCatalog(state, rig.dialogs, Dir(dir)));
  EXPECT_EQ(state.files.catalogFileName, "FULL.OBC");
  const DefaultCatalogButton b = DefaultCatalogButtonState(state);
  EXPECT_FALSE(b.enabled);
  EXPECT_EQ(b.toolTip, " ");
}

TEST_F(CatalogSelectTest, NewCatalogAsksNameAndEpochThenWritesItsHeader) {
  EXPECT_EQ(WithCatalogExtension("mystars.obc") + WithCatalogExtension("my.stars.txt") +
                WithCatalogExtension("dir.d/stars"),
            "mystars.obcmy.stars.OBCdir.d/stars.OBC");

  UseCatalog({Rec("M1", 5.5, 22)});
  const std::string before = ReadFile(File(dir, "TEST.OBC"));
  rig.dialogs.answers = {"TEST.OBC"};  // "OK to keep the old one"
  ASSERT_TRUE(NewCatalog(state, rig.dialogs, Dir(dir)));
  EXPECT_EQ(ReadFile(File(dir, "TEST.OBC")), before) << "never overwritten";
  rig.dialogs.answers = {"other", ""};
  EXPECT_FALSE(NewCatalog(state, rig.dialogs, Dir(dir))) << "cancelled at the epoch";
  EXPECT_FALSE(std::filesystem::exists(File(dir, "other.OBC")));
  EXPECT_EQ(state.files.catalogFileName, "TEST.OBC");

  rig.dialogs = {};
  rig.dialogs.answers = {"mystars.txt", "1850", "2101", "abc", "2026"};
  ASSERT_TRUE(NewCatalog(state, rig.dialogs, Dir(dir)));
  const std::string epoch = "Set Catalog Epoch";
  EXPECT_EQ(rig.dialogs.titles,
            (Names{"Create New Catalog File", "Catalog Epoch", epoch, epoch, epoch}));
  EXPECT_EQ(rig.dialogs.prompts[0],
            "Enter new Catalog file name or click 'OK' to keep the old one");
  EXPECT_EQ(rig.dialogs.defaults[0], "TEST.OBC");
  EXPECT_EQ(rig.dialogs.prompts[1], "Specify Catalog Epoch (1900-2100)");
  EXPECT_EQ(state.files.catalogFileName, "mystars.OBC");
  const std::string text = ReadFile(File(dir, "mystars.OBC"));
  EXPECT_EQ(Lines(text).size(), 1u);
  EXPECT_EQ(text.substr(8, 4), "2026") << "the epoch is the header's year";
  EXPECT_FALSE(std::filesystem::exists(File(dir, "mystars.OBC.tmp")));
}

}  // namespace
}  // namespace astel::testing
