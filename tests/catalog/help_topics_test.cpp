#include "catalog/help_topics.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "catalog_files.h"

namespace astel {
namespace {

TEST(HelpTopics, FiftyThreeTopicsInListOrderEachWithAText) {
  const auto topics = HelpTopics();
  ASSERT_EQ(topics.size(), 53u);
  EXPECT_STREQ(topics.front().title, "Add (button)");
  EXPECT_STREQ(topics[51].title, "Transient Catalog");
  EXPECT_STREQ(topics.back().title, "Wild Card Character");
  std::set<std::string> titles;
  for (const HelpTopic& t : topics) {
    EXPECT_TRUE(titles.insert(t.title).second) << "duplicate " << t.title;
    const std::string text = t.text;
    EXPECT_GT(text.size(), 40u) << t.title;
    EXPECT_EQ(text.find("Windows"), std::string::npos) << t.title << ": this is the Linux program";
    EXPECT_EQ(HelpText(t.title), text);
  }
  EXPECT_EQ(HelpText("No such topic"), "");
}

TEST(HelpTopics, QuotedTextsStandAsWritten) {
  EXPECT_EQ(HelpText("Best of the Sky (button)"),
            "ASTEL+S will suggest the best objects for observing in small telescopes, based on "
            "your location and the time. First, any planets, then Messier objects, then NGC/IC "
            "objects, and finally Double Stars");
  const std::string transient =
      "Transient Catalogs contain hourly positions for a single object. ASTEL+S automatically "
      "loads the correct one. The catalog cannot be searched. Typically the object is a comet or "
      "asteroid of unusual interest. When the last position in a transient Catalog is outdated, "
      "the catalog should be deleted.";
  const std::string t = HelpText("Transient Catalog");
  ASSERT_GT(t.size(), transient.size() + 20) << "a sentence on where they come from follows";
  EXPECT_EQ(t.substr(0, transient.size()), transient);
  EXPECT_NE(HelpText("Catalog Search (simple)").find("('M1 ' matches only itself)"),
            std::string::npos);
}

TEST(HelpTopics, PagesInTheFolder) {
  testing::TempDir dir;
  for (const char* name : {"ASTEL.HTM", "notes.html", "b.htm", "ASTEL.HOM", ".htm", "x.txt"})
    testing::WriteFile(File(dir, name), "x");
  std::filesystem::create_directory(File(dir, "pages.htm"));
  EXPECT_EQ(HelpPages(Dir(dir)), (std::vector<std::string>{"ASTEL.HTM", "b.htm", "notes.html"}))
      << "'*.HTM*' in any case; no folders";
  EXPECT_TRUE(HelpPages(File(dir, "missing")).empty());
}

}  // namespace
}  // namespace astel
