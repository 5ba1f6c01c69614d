#include "core/text_format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace astel {
namespace {

TEST(LeadingNumber, ReadsTheLongestNumericPrefix) {
  const std::pair<const char*, double> cases[] = {
      {"   12.5", 12.5}, {"7abc", 7}, {"-.5", -0.5},  {"5.", 5},  {"abc", 0},
      {"-", 0},          {".", 0},    {"1.2.3", 1.2}, {"1 2", 1}, {"\26012", 0}};
  for (auto [text, value] : cases)
    EXPECT_DOUBLE_EQ(LeadingNumber(text), value) << "'" << text << "'";
  EXPECT_TRUE(StartsWithNumber(" -3"));
  EXPECT_FALSE(StartsWithNumber(" -x"));
}

TEST(NumberText, LeadingBlankForNonNegativeValues) {
  // 0.1 + 0.2 shows 15 significant digits, not the binary tail.
  const std::pair<double, const char*> cases[] = {
      {-0.0, " 0"}, {44.5, " 44.5"}, {-3.0, "-3"}, {0.1 + 0.2, " 0.3"}};
  for (auto [value, text] : cases)
    EXPECT_EQ(NumberText(value), text) << value;
}

TEST(FormatFixed, PatternsRoundHalvesAwayFromZero) {
  struct Case {
    const char* legend;
    double value;
    const char *pattern, *expected;
  } cases[] = {{"wide value keeps its digits", 123, "00", "123"},
               {"rounding up into the next ten", 59.96, "00.0", "60.0"},
               {"decimal half of a binary near-miss", 1.005, "0.00", "1.01"},
               {"negative half rounds away", -2.5, "0", "-3"},
               {"negative pads after the sign", -5.5, "00.0", "-05.5"},
               {"zero after rounding has no sign", -0.04, "0.0", "0.0"},
               {"three-digit azimuth", 7.25, "000.0", "007.3"}};
  for (const Case& c : cases)
    EXPECT_EQ(FormatFixed(c.value, c.pattern), c.expected) << c.legend;
}

TEST(TextHelpers, CaseCommaPaddingAndRounding) {
  EXPECT_EQ(CommaToPoint("#:Sr 05:34,5#"), "#:Sr 05:34.5#");
  EXPECT_EQ(ToUpperLatin1("gam per \xE9\xF7"),
            "GAM PER \xC9\xF7");  // the division sign has no case
  EXPECT_EQ(ToLowerLatin1("FULL.OBC"), "full.obc");
  EXPECT_EQ(PadRight("M31", 5) + PadRight("Andromeda Galaxy", 12), "M31  Andromeda Ga");
  // Halves to even.
  EXPECT_TRUE(RoundToInt(2.5) == 2 && RoundToInt(3.5) == 4 && RoundToInt(-2.5) == -2);
}

// Qt sets the C locale from the desktop; a German desktop must not turn 34.5 into 34 or "34,5".
TEST(TextFormat, NumbersIgnoreADecimalCommaLocale) {
  const std::string saved = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    GTEST_SKIP() << "no German locale installed here";
  }
  const double read = LeadingNumber("34.5");
  const std::string fixed = FormatFixed(34.5, "00.0");
  const std::string text = NumberText(44.5);
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_DOUBLE_EQ(read, 34.5);
  EXPECT_EQ(fixed, "34.5");
  EXPECT_EQ(text, " 44.5");
}

}  // namespace
}  // namespace astel
