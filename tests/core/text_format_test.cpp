#include "core/text_format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <tuple>

namespace astel {
namespace {

TEST(TextFormat, NumbersReadAndWrittenAsTheProgramShowsThem) {
  const std::pair<const char*, double> read[] = {{"   12.5", 12.5}, {"-.5", -0.5}, {"-", 0},
                                                 {"1.2.3", 1.2},    {"1 2", 1},    {"\26012", 0}};
  for (auto [text, value] : read)
    EXPECT_DOUBLE_EQ(LeadingNumber(text), value) << "'" << text << "'";
  EXPECT_TRUE(StartsWithNumber(" -3") && !StartsWithNumber(" -x"));

  // A leading blank for values that are not negative; 0.1 + 0.2 shows no binary tail.
  EXPECT_EQ(NumberText(-0.0) + "|" + NumberText(-3.0) + "|" + NumberText(0.1 + 0.2), " 0|-3| 0.3");

  // Halves round away from zero, also when the binary value falls just short of the decimal one.
  for (auto [legend, value, pattern, expected] :
       {std::tuple{"rounding up into the next ten", 59.96, "00.0", "60.0"},
        {"decimal half of a binary near-miss", 1.005, "0.00", "1.01"},
        {"negative half rounds away", -2.5, "0", "-3"},
        {"negative pads after the sign", -5.5, "00.0", "-05.5"},
        {"zero after rounding has no sign", -0.04, "0.0", "0.0"}})
    EXPECT_EQ(FormatFixed(value, pattern), expected) << legend;

  EXPECT_EQ(CommaToPoint("#:Sr 05:34,5#"), "#:Sr 05:34.5#");
  EXPECT_EQ(ToUpperLatin1("gam per \xE9\xF7"), "GAM PER \xC9\xF7");  // the division sign stays
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
  EXPECT_EQ(fixed + "|" + text, "34.5| 44.5");
}

}  // namespace
}  // namespace astel
