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

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (int v : values)
    bytes.push_back(static_cast<char>(v));
  return bytes;
}

struct CelestronRow {
  const char* legend;
  ObjectState object;
  const char* nexstar;  // type 1 text
  std::string binary;   // RAhi RAlo DEChi DEClo
};

const std::vector<CelestronRow>& CelestronRows() {
  static const std::vector<CelestronRow> rows = {
      {"RA 0 h: every hex pair keeps two digits", Object(0, 0, 0, 0, 1), "R0000,0000",
       Bytes({0x00, 0x00, 0x00, 0x00})},
      {"5 h 34.5 min, -5 deg 23 min: negative declination", Object(5, 34.5, -5, 23, 1),
       "R3B77,FC2C", Bytes({0x3B, 0x77, 0xFC, 0x2C})},
      {"-0 deg 30 min: the sign alone makes it negative", Object(5, 34.5, 0, 30, -1), "R3B77,FFA5",
       Bytes({0x3B, 0x77, 0xFF, 0xA5})},
      {"-0 deg 0 min: 65,536 steps wrap to 0", Object(0, 0, 0, 0, -1), "R0000,0000",
       Bytes({0x00, 0x00, 0x00, 0x00})},
      {"12 h and +45 deg: low bytes of 255.999 carry", Object(12, 0, 45, 0, 1), "R8000,2000",
       Bytes({0x80, 0x00, 0x20, 0x00})},
      {"18 h and -45 deg", Object(18, 0, -45, 0, 1), "RC000,E000", Bytes({0xC0, 0x00, 0xE0, 0x00})},
      {"6 h", Object(6, 0, 0, 0, 1), "R4000,0000", Bytes({0x40, 0x00, 0x00, 0x00})},
      {"top of the circle, near the pole", Object(23, 59.9, 89, 59.9, 1), "RFFFB,4000",
       Bytes({0xFF, 0xFB, 0x40, 0x00})},
  };
  return rows;
}

TEST(GotoEncoding, CelestronFormsOfTheSamePositionCarryTheSameFourBytes) {
  for (const CelestronRow& row : CelestronRows()) {
    SCOPED_TRACE(row.legend);
    EXPECT_EQ(EncodeGotoNexStar(row.object), row.nexstar);
    EXPECT_EQ(EncodeGotoNexStarOriginal(row.object), "R" + row.binary);
    const std::string& b = row.binary;
    EXPECT_EQ(EncodeGotoStarGuide(row.object),
              std::string("R") + b[0] + b[1] + '\0' + b[2] + b[3] + '\0');
  }
}

TEST(GotoEncoding, SplitRoundsTheLowByteHalfToEvenAndCarriesAndWraps) {
  struct Row {
    const char* legend;
    double steps;
    int high, low;
  };
  const Row rows[] = {
      {"half rounds down to even", 300.5, 1, 44},
      {"half rounds up to even", 301.5, 1, 46},
      {"high byte truncates, never rounds", 511.4, 1, 255},
      {"low byte of 255.5 carries", 255.5, 1, 0},
      {"a full circle wraps", 65535.5, 0, 0},
      {"just below a full circle", 65535.4, 255, 255},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    CircleBytes bytes = SplitCircleValue(row.steps);
    EXPECT_EQ(bytes.high, row.high);
    EXPECT_EQ(bytes.low, row.low);
  }
}

TEST(GotoEncoding, Lx200CommandsHaveTheirTextAndLength) {
  struct Row {
    const char* legend;
    ObjectState object;
    const char* ra;
    const char* dec;
  };
  const Row rows[] = {
      {"5 h 34.5 min, -5 deg 23 min", Object(5, 34.5, -5, 23, 1), "#:Sr 05:34.5#", "#:Sd -05*23#"},
      {"zero", Object(0, 0, 0, 0, 1), "#:Sr 00:00.0#", "#:Sd +00*00#"},
      {"-0 deg 30 min keeps its sign", Object(23, 59.94, 0, 30, -1), "#:Sr 23:59.9#",
       "#:Sd -00*30#"},
      {"minutes rounded as the patterns round", Object(1, 2.25, 45, 59.4, 1), "#:Sr 01:02.3#",
       "#:Sd +45*59#"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    EXPECT_EQ(EncodeLx200SetRa(row.object), row.ra);
    EXPECT_EQ(EncodeLx200SetDec(row.object), row.dec);
    EXPECT_EQ(EncodeLx200SetRa(row.object).size(), 13u);
    EXPECT_EQ(EncodeLx200SetDec(row.object).size(), 12u);
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

TEST(GotoTransfers, EachFamilySendsItsWritesWithTheirPacingAndCounts) {
  const ObjectState object = Object(5, 34.5, -5, 23, 1);

  auto nexstar = GotoTransfers(1, object);
  ASSERT_EQ(nexstar.size(), 11u);
  EXPECT_EQ(nexstar[0].pauseBeforeMs, 5);
  EXPECT_EQ(nexstar[0].bytes, "");
  std::string sent;
  for (std::size_t i = 1; i < nexstar.size(); ++i) {
    EXPECT_EQ(nexstar[i].pauseBeforeMs, 5) << "5 ms before every character";
    EXPECT_EQ(nexstar[i].bytes.size(), 1u);
    EXPECT_EQ(nexstar[i].expectedCount, 1);
    sent += nexstar[i].bytes;
  }
  EXPECT_EQ(sent, "R3B77,FC2C");

  auto original = GotoTransfers(2, object);
  ASSERT_EQ(original.size(), 3u);
  EXPECT_EQ(original[0].bytes, "?");
  EXPECT_EQ(original[0].pauseBeforeMs, 0);
  EXPECT_EQ(original[1].pauseBeforeMs, 5);
  EXPECT_EQ(original[2].expectedCount, 5);

  auto starGuide = GotoTransfers(3, object);
  ASSERT_EQ(starGuide.size(), 2u);
  EXPECT_EQ(starGuide[1].expectedCount, 7);

  auto none = GotoTransfers(0, object);
  ASSERT_EQ(none.size(), 1u) << "type 0 pauses and sends nothing";
  EXPECT_EQ(none[0].bytes, "");

  for (int type : {4, 7}) {
    auto lx200 = GotoTransfers(type, object);
    ASSERT_EQ(lx200.size(), 3u);
    EXPECT_EQ(lx200[0].expectedCount, 13);
    EXPECT_EQ(lx200[1].expectedCount, 12);
    EXPECT_EQ(lx200[2].bytes, "#:MS#");
    EXPECT_EQ(lx200[2].expectedCount, 5);
  }
}

}  // namespace
}  // namespace astel
