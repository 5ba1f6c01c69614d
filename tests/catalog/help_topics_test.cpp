#include "catalog/help_topics.h"

#include <gtest/gtest.h>

#include <string>

namespace astel {
namespace {

TEST(HelpTopics, FiftyThreeTopicsInListOrderEachFoundByItsTitle) {
  const auto topics = HelpTopics();
  ASSERT_EQ(topics.size(), 53u);
  EXPECT_EQ(std::string(topics.front().title) + "|" + topics.back().title,
            "Add (button)|Wild Card Character");
  // A repeated title would find the first topic's text.
  for (const HelpTopic& t : topics)
    EXPECT_EQ(HelpText(t.title), t.text) << t.title;
}

}  // namespace
}  // namespace astel
