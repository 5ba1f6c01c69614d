#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <tuple>

#include "core/command_line.h"
#include "core/location.h"
#include "core/text_format.h"

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

TEST(Location, DerivedDegreesMinutesAndSigns) {
  PlaceState p;
  SetHomeLatitude(p, -0.5);
  EXPECT_TRUE(p.latitudeDegrees == 0 && p.latitudeSign == -1 && p.latitudeSignText == "-");
  EXPECT_NEAR(p.latitudeMinutes, 30, 1e-9);
  SetHomeLatitude(p, 40.9995);  // 59.97 minutes rounds up into the next degree
  EXPECT_TRUE(p.latitudeDegrees == 41 && p.latitudeMinutes == 0 && p.latitudeSignText.empty());
  SetHomeLongitude(p, -33.9995);  // east, and away from zero
  EXPECT_TRUE(p.longitudeDegrees == -34 && p.longitudeMinutes == 0 && p.longitudeSignText == "-");
}

TEST(CommandLine, SplitsAtSemicolonsUpToTwentyFive) {
  ScriptState s;
  // An empty piece between two ";" is a command; a final ";" adds none.
  EXPECT_TRUE(ParseCommandLineScript("FIND=M31;;MATCH=1;", s) == ScriptParse::kReady &&
              s.scriptMode && s.scriptLineIndex == 1 && s.scriptLineCount == 3);
  EXPECT_EQ(s.scriptLines[1] + "|" + s.scriptLines[2] + "|" + s.scriptLines[3],
            "FIND=M31||MATCH=1");
  std::string line = "SLEEP=1";
  for (int i = 2; i <= 25; ++i)
    line += ";SLEEP=1";
  EXPECT_EQ(ParseCommandLineScript(line, s), ScriptParse::kReady);
  EXPECT_EQ(ParseCommandLineScript(line + ";SLEEP=1", s), ScriptParse::kTooManyCommands);
  EXPECT_TRUE(!s.scriptMode && s.scriptLineCount == 0);
}

// Qt sets the C locale from the desktop; a German desktop must not turn 34.5 into 34 or "34,5".
TEST(TextFormat, NumbersIgnoreADecimalCommaLocale) {
  const std::string saved = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
    GTEST_SKIP() << "no German locale installed here";
  }
  const double read = LeadingNumber("34.5");
  const std::string shown = FormatFixed(34.5, "00.0") + "|" + NumberText(44.5);
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_DOUBLE_EQ(read, 34.5);
  EXPECT_EQ(shown, "34.5| 44.5");
}

}  // namespace
}  // namespace astel
