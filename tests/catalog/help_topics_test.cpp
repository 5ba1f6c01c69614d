#include "catalog/help_topics.h"

#include <gtest/gtest.h>

#include <set>

namespace astel {
namespace {

TEST(HelpTopics, FiftyThreeTopicsInListOrderEachWithAText) {
  const auto topics = HelpTopics();
  ASSERT_EQ(topics.size(), 53u);
  EXPECT_EQ(std::string(topics.front().title) + "|" + topics.back().title,
            "Add (button)|Wild Card Character");
  std::set<std::string> titles;
  for (const HelpTopic& t : topics) {
    EXPECT_TRUE(titles.insert(t.title).second) << "duplicate " << t.title;
    EXPECT_GT(std::string(t.text).size(), 40u) << t.title;
    EXPECT_EQ(HelpText(t.title), t.text);
  }
}

}  // namespace
}  // namespace astel
