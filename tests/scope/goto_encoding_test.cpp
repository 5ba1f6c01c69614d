// GoTo bytes of every family, compared with bytes worked out by hand from the wire formats
// (minutes of arc x 3 x 1.011358 steps; high byte truncated, low byte rounded half to even,
// with the carry and the wrap of a full circle).
#include "scope/goto_encoding.h"

#include <gtest/gtest.h>

#include <clocale>

namespace astel {
namespace {

ObjectState Object(int raHours, double raMinutes, int decDegrees, double decMinutes, int decSign) {
  ObjectState object;
  object.objRaHours = raHours;
  object.objRaMinutes = raMinutes;
  object.objDecDegrees = decDegrees;
  object.objDecMinutes = decMinutes;
  object.objDecSign = decSign;
  return object;
}

// The raw bytes RAhi RAlo DEChi DEClo of a type 1 command text "Rhhhh,hhhh".
std::string BytesOfHexCommand(const std::string& text) {
  std::string bytes;
  for (std::size_t at : {1, 3, 6, 8})
    bytes.push_back(static_cast<char>(std::stoi(text.substr(at, 2), nullptr, 16)));
  return bytes;
}

TEST(GotoEncoding, CelestronFormsOfTheSamePositionCarryTheSameFourBytes) {
  const struct {
    const char* legend;
    ObjectState object;
    std::string nexstar;
  } rows[] = {
      {"-0 deg 30 min: the sign alone makes it negative", Object(5, 34.5, 0, 30, -1), "R3B77,FFA5"},
      {"-0 deg 0 min: 65,536 steps wrap to 0, each hex pair two digits", Object(0, 0, 0, 0, -1),
       "R0000,0000"},
      {"12 h and +45 deg: low bytes of 255.999 carry", Object(12, 0, 45, 0, 1), "R8000,2000"},
      {"top of the circle, near the pole", Object(23, 59.9, 89, 59.9, 1), "RFFFB,4000"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    EXPECT_EQ(EncodeGotoNexStar(row.object), row.nexstar);
    const std::string b = BytesOfHexCommand(row.nexstar);
    EXPECT_EQ(EncodeGotoNexStarOriginal(row.object), "R" + b);
    EXPECT_EQ(EncodeGotoStarGuide(row.object),
              std::string("R") + b[0] + b[1] + '\0' + b[2] + b[3] + '\0');
  }
}

TEST(GotoEncoding, SplitRoundsTheLowByteHalfToEvenAndTruncatesTheHighByte) {
  const struct {
    const char* legend;
    double steps;
    int high, low;
  } rows[] = {
      {"half rounds down to even", 300.5, 1, 44},
      {"half rounds up to even", 301.5, 1, 46},
      {"high byte truncates, never rounds", 511.4, 1, 255},
  };
  for (const auto& row : rows) {
    CircleBytes bytes = SplitCircleValue(row.steps);
    EXPECT_EQ(bytes.high * 256 + bytes.low, row.high * 256 + row.low) << row.legend;
  }
}

TEST(GotoEncoding, Lx200CommandsHaveTheirFormat) {
  const struct {
    const char* legend;
    ObjectState object;
    const char *ra, *dec;
  } rows[] = {
      {"-0 deg 30 min", Object(23, 59.94, 0, 30, -1), "#:Sr 23:59.9#", "#:Sd -00*30#"},
      {"rounded as the patterns round", Object(1, 2.25, 45, 59.4, 1), "#:Sr 01:02.3#",
       "#:Sd +45*59#"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(EncodeLx200SetRa(row.object), row.ra) << row.legend;
    EXPECT_EQ(EncodeLx200SetDec(row.object), row.dec) << row.legend;
  }
}

TEST(GotoEncoding, Lx200NumbersKeepTheirPointUnderADecimalCommaLocale) {
  const char* previous = std::setlocale(LC_ALL, nullptr);
  std::string saved = previous ? previous : "C";
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr &&
      std::setlocale(LC_ALL, "de_DE") == nullptr) {
    GTEST_SKIP() << "no German locale installed here";
  }
  std::string ra = EncodeLx200SetRa(Object(5, 34.5, 0, 0, 1));
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_EQ(ra, "#:Sr 05:34.5#");
}

}  // namespace
}  // namespace astel
