// $GPRMC framing and decoding, and how a reading sets the observer's place.
#include "scope/nmea.h"

#include <gtest/gtest.h>

#include <cmath>

namespace astel {
namespace {

constexpr double kDegreesPerRadian = 57.29577957855229;
constexpr double kRadianTolerance = 1e-12;
const std::string kSample = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";

std::string Replace(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

TEST(ParseGprmc, TheSampleSentenceGivesPlaceDateAndTheTimePlusOneSecond) {
  auto fix = ParseGprmc(kSample, "2005");
  ASSERT_TRUE(fix.has_value());
  EXPECT_EQ(fix->latitudeDegreesText, "48");
  EXPECT_EQ(fix->latitudeMinutesText, "07.038");
  EXPECT_EQ(fix->hemisphere, 'N');
  EXPECT_EQ(fix->longitudeDegreesText, "011");
  EXPECT_EQ(fix->longitudeMinutesText, "31.000");
  EXPECT_EQ(fix->eastWest, 'E');
  const UtcDateTime& t = fix->utc;
  EXPECT_EQ(t.year, 2005);
  EXPECT_EQ(t.month, 3);
  EXPECT_EQ(t.day, 23);
  EXPECT_EQ(t.hour, 12);
  EXPECT_EQ(t.minute, 35);
  EXPECT_EQ(t.second, 20);
  EXPECT_EQ(t.millisecond, 0);
}

TEST(ParseGprmc, AcceptsAndRefusesSentencesFieldByField) {
  struct Row {
    const char* legend;
    std::string sentence;
    const char* yearText;
    bool valid;
    int year, second, millisecond;
  };
  const std::string withChecksum = kSample + "*62";
  const Row rows[] = {
      {"century from the program's year", Replace(kSample, "230305", "230394"), "2005", true, 2094,
       20, 0},
      {"fractions of a second are kept", Replace(kSample, "123519", "123519.25"), "2005", true,
       2005, 20, 250},
      {"58.75 s becomes 59.75 s", Replace(kSample, "123519", "123558.75"), "2005", true, 2005, 59,
       750},
      {"matching checksum", withChecksum, "2005", true, 2005, 20, 0},
      {"checksum that does not match", kSample + "*6A", "2005", false, 0, 0, 0},
      {"checksum cut short", kSample + "*6", "2005", false, 0, 0, 0},
      {"no fix (status V)", Replace(kSample, ",A,", ",V,"), "2005", false, 0, 0, 0},
      {"59 s: the added second would carry", Replace(kSample, "123519", "123559"), "2005", false, 0,
       0, 0},
      {"59.50 s", Replace(kSample, "123519", "123559.50"), "2005", false, 0, 0, 0},
      {"lower-case sentence name", Replace(kSample, "$GPRMC", "$gprmc"), "2005", false, 0, 0, 0},
      {"another talker", Replace(kSample, "$GPRMC", "$GNRMC"), "2005", false, 0, 0, 0},
      {"time field too short", Replace(kSample, "123519", "12351"), "2005", false, 0, 0, 0},
      {"status field empty", Replace(kSample, ",A,", ",,"), "2005", false, 0, 0, 0},
      {"latitude shorter than six characters", Replace(kSample, "4807.038", "4807."), "2005", false,
       0, 0, 0},
      {"hemisphere missing", Replace(kSample, ",N,", ",,"), "2005", false, 0, 0, 0},
      {"longitude shorter than seven characters", Replace(kSample, "01131.000", "01131."), "2005",
       false, 0, 0, 0},
      {"date shorter than six characters", Replace(kSample, "230305", "23035"), "2005", false, 0, 0,
       0},
      {"sentence cut before the date", "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4", "2005",
       false, 0, 0, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    auto fix = ParseGprmc(row.sentence, row.yearText);
    ASSERT_EQ(fix.has_value(), row.valid) << row.sentence;
    if (!row.valid) continue;
    EXPECT_EQ(fix->utc.year, row.year);
    EXPECT_EQ(fix->utc.second, row.second);
    EXPECT_EQ(fix->utc.millisecond, row.millisecond);
  }
}

TEST(ApplyGpsPlace, SignsZeroDegreesRadiansAndTheMinutesClamp) {
  struct Row {
    const char* legend;
    std::string latitudeField, longitudeField;  // "ddmm.mmm,H" and "dddmm.mmm,H"
    int previousSign;
    int latDeg;
    double latMin;
    int latSign;
    const char* latText;
    double latitudeDegreesValue;
    int lonDeg;
    int lonSign;
    double longitudeDegreesValue;
  };
  const Row rows[] = {
      {"north and east", "4807.038,N", "01131.000,E", 1, 48, 7.038, 1, "", 48 + 7.038 / 60, -11, 1,
       -(11 + 31.0 / 60)},
      {"half a degree south, half a degree east", "0030.000,S", "00030.000,E", 1, 0, 30, -1, "-",
       -0.5, 0, -1, -0.5},
      {"south with whole degrees keeps the sign it had", "3352.000,S", "15112.000,W", -1, -33, 52,
       -1, "-", -(33 + 52 / 60.0), 151, 1, 151 + 12 / 60.0},
      {"minutes above 59.9999 are clamped after the radians", "4859.99995,N", "00000.000,W", 1, 48,
       59.9999, 1, "", 48 + 59.99995 / 60, 0, 1, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    std::string sentence = "$GPRMC,123519,A," + row.latitudeField + "," + row.longitudeField +
                           ",022.4,084.4,230305,003.1,W";
    auto fix = ParseGprmc(sentence, "2005");
    ASSERT_TRUE(fix.has_value()) << sentence;
    SharedState state;
    state.place.latitudeSign = row.previousSign;
    state.place.longitudeSign = row.previousSign;
    state.time.riseSetCurrent = true;
    ApplyPlaceFix(state, PlaceOfGpsFix(*fix));
    const PlaceState& p = state.place;
    EXPECT_EQ(p.latitudeDegrees, row.latDeg);
    EXPECT_DOUBLE_EQ(p.latitudeMinutes, row.latMin);
    EXPECT_EQ(p.latitudeSign, row.latSign);
    EXPECT_EQ(p.latitudeSignText, row.latText);
    EXPECT_NEAR(p.homeLatitude, row.latitudeDegreesValue / kDegreesPerRadian, kRadianTolerance);
    EXPECT_EQ(p.longitudeDegrees, row.lonDeg);
    EXPECT_EQ(p.longitudeSign, row.lonSign);
    EXPECT_NEAR(p.homeLongitude, row.longitudeDegreesValue / kDegreesPerRadian, kRadianTolerance);
    EXPECT_TRUE(p.locationOption);
    EXPECT_TRUE(state.program.configChanged);
    EXPECT_FALSE(state.time.riseSetCurrent);
  }
}

// Feeds a text and collects the sentences the framer hands over, refusing those in `refuse`.
std::vector<std::string> Frame(const std::string& stream, const std::vector<std::string>& refuse) {
  NmeaFramer framer;
  std::vector<std::string> handed;
  for (char c : stream) {
    auto sentence = framer.Feed(c);
    if (!sentence) continue;
    handed.push_back(*sentence);
    for (const std::string& r : refuse) {
      if (*sentence == r) framer.Refused();
    }
  }
  return handed;
}

TEST(NmeaFramer, HandsOverWholeGprmcSentencesOnly) {
  struct Row {
    const char* legend;
    std::string stream;
    std::vector<std::string> refuse;
    std::vector<std::string> handed;
  };
  const Row rows[] = {
      {"other sentences are dropped, CR and LF are not part of a sentence",
       "$GPGGA,1,2,3\r\n$GPRMC,a\r\n$GPGSV,x\r\n",
       {},
       {"$GPRMC,a"}},
      {"lower case is another sentence", "$gprmc,a\r\n$GPRMC,b\r\n", {}, {"$GPRMC,b"}},
      {"a $ starts afresh", "$GPRMC,cut$GPRMC,whole\r\n", {}, {"$GPRMC,whole"}},
      {"the line feed alone never ends a sentence", "$GPRMC,a\n$GPRMC,b\r\n", {}, {"$GPRMC,b"}},
      {"noise before the first $ is ignored", "\x01garbage\r\n$GPRMC,a\r\n", {}, {"$GPRMC,a"}},
      {"after a refusal the next sentence is dropped as a whole",
       "$GPRMC,bad\r\n$GPRMC,dropped\r\n$GPRMC,used\r\n",
       {"$GPRMC,bad"},
       {"$GPRMC,bad", "$GPRMC,used"}},
      {"the drop takes whatever sentence follows",
       "$GPRMC,bad\r\n$GPGGA,dropped\r\n$GPRMC,used\r\n",
       {"$GPRMC,bad"},
       {"$GPRMC,bad", "$GPRMC,used"}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    EXPECT_EQ(Frame(row.stream, row.refuse), row.handed);
  }
}

}  // namespace
}  // namespace astel
