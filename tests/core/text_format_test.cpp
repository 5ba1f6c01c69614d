#include "core/text_format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace astel {
namespace {

TEST(LeadingNumber, ReadsTheLongestNumericPrefix) {
  struct Case {
    const char* legend;
    const char* text;
    double expected;
  } cases[] = {{"leading blanks", "   12.5", 12.5},
               {"trailing garbage", "7abc", 7},
               {"sign", "-0.5", -0.5},
               {"explicit plus", "+3", 3},
               {"point first", ".25", 0.25},
               {"negative point first", "-.5", -0.5},
               {"trailing point", "5.", 5},
               {"no number", "abc", 0},
               {"empty", "", 0},
               {"blanks only", "    ", 0},
               {"sign alone", "-", 0},
               {"point alone", ".", 0},
               {"second point ends it", "1.2.3", 1.2},
               {"blank inside ends it", "1 2", 1},
               {"byte above 127", "\26012", 0}};
  for (const Case& c : cases)
    EXPECT_DOUBLE_EQ(LeadingNumber(c.text), c.expected) << c.legend;
  EXPECT_TRUE(StartsWithNumber(" -3"));
  EXPECT_FALSE(StartsWithNumber(" -x"));
}

TEST(NumberText, LeadingBlankForNonNegativeValues) {
  // 0.1 + 0.2 shows 15 significant digits, not the binary tail.
  const std::pair<double, const char*> cases[] = {
      {0.0, " 0"}, {-0.0, " 0"}, {40.0, " 40"}, {44.5, " 44.5"}, {-3.0, "-3"}, {0.1 + 0.2, " 0.3"}};
  for (auto [value, text] : cases)
    EXPECT_EQ(NumberText(value), text) << value;
}

TEST(FormatFixed, PatternsRoundHalvesAwayFromZero) {
  struct Case {
    const char* legend;
    double value;
    const char* pattern;
    const char* expected;
  } cases[] = {{"two digits", 5, "00", "05"},
               {"wide value keeps its digits", 123, "00", "123"},
               {"rounding up into the next ten", 59.96, "00.0", "60.0"},
               {"half rounds up", 0.125, "0.00", "0.13"},
               {"decimal half of a binary near-miss", 1.005, "0.00", "1.01"},
               {"negative half rounds away", -2.5, "0", "-3"},
               {"negative pads after the sign", -5.5, "00.0", "-05.5"},
               {"zero after rounding has no sign", -0.04, "0.0", "0.0"},
               {"julian date", 2444239.5, "0000000.00000", "2444239.50000"},
               {"three-digit azimuth", 7.25, "000.0", "007.3"},
               {"tiny value", 1e-9, "0.0000", "0.0000"}};
  for (const Case& c : cases)
    EXPECT_EQ(FormatFixed(c.value, c.pattern), c.expected) << c.legend;
}

TEST(TextHelpers, CaseCommaPaddingAndRounding) {
  EXPECT_EQ(CommaToPoint("#:Sr 05:34,5#"), "#:Sr 05:34.5#");
  EXPECT_EQ(ToUpperLatin1("gam per \xE9\xF7"),
            "GAM PER \xC9\xF7");  // the division sign has no case
  EXPECT_EQ(ToLowerLatin1("FULL.OBC"), "full.obc");
  EXPECT_EQ(PadRight("M31", 5), "M31  ");
  EXPECT_EQ(PadRight("Andromeda Galaxy", 12), "Andromeda Ga");
  EXPECT_EQ(RoundToInt(2.5), 2);  // halves to even
  EXPECT_EQ(RoundToInt(3.5), 4);
  EXPECT_EQ(RoundToInt(-2.5), -2);
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
