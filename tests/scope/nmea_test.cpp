// $GPRMC framing and decoding, and how a reading sets the observer's place.
#include "scope/nmea.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

namespace astel {
namespace {

constexpr double kDegreesPerRadian = 57.29577957855229;
constexpr double kRadianTolerance = 1e-12;
const std::string kSample = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";

std::string Replace(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

// "yyyy-mm-dd hh:mm:ss.mmm" of a fix, "refused" for none.
std::string Utc(const std::optional<GpsFix>& fix) {
  if (!fix) return "refused";
  const UtcDateTime& t = fix->utc;
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%03d", t.year, t.month, t.day,
                t.hour, t.minute, t.second, t.millisecond);
  return text;
}

TEST(ParseGprmc, AcceptsAndRefusesSentencesFieldByField) {
  const struct {
    const char* legend;
    std::string sentence;
    const char* utc;
  } rows[] = {
      {"century from the program's year", Replace(kSample, "230305", "230394"),
       "2094-03-23 12:35:20.000"},
      {"fractions of a second are kept", Replace(kSample, "123519", "123519.25"),
       "2005-03-23 12:35:20.250"},
      {"58.75 s becomes 59.75 s", Replace(kSample, "123519", "123558.75"),
       "2005-03-23 12:35:59.750"},
      {"matching checksum", kSample + "*62", "2005-03-23 12:35:20.000"},
      {"checksum that does not match", kSample + "*6A", "refused"},
      {"no fix (status V)", Replace(kSample, ",A,", ",V,"), "refused"},
      {"59 s: the added second would carry", Replace(kSample, "123519", "123559"), "refused"},
      {"lower-case sentence name", Replace(kSample, "$GPRMC", "$gprmc"), "refused"},
      {"another talker", Replace(kSample, "$GPRMC", "$GNRMC"), "refused"},
      {"time field too short", Replace(kSample, "123519", "12351"), "refused"},
      {"hemisphere missing", Replace(kSample, ",N,", ",,"), "refused"},
      {"cut before the date", "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4", "refused"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Utc(ParseGprmc(row.sentence, "2005")), row.utc) << row.legend;
  }
}

TEST(ApplyGpsPlace, SignsZeroDegreesRadiansAndTheMinutesClamp) {
  const struct {
    const char* legend;
    std::string fields;  // "ddmm.mmm,H,dddmm.mmm,H"
    int previousSign;
    const char* place;           // latitude "degrees minutes sign text", then longitude the same
    double latitude, longitude;  // in degrees
  } rows[] = {
      {"half a degree south and east", "0030.000,S,00030.000,E", 1, "0 30 -1 '-' / 0 30 -1 '-'",
       -0.5, -0.5},
      {"south with whole degrees keeps the sign it had", "3352.000,S,15112.000,W", -1,
       "-33 52 -1 '-' / 151 12 1 ''", -(33 + 52 / 60.0), 151 + 12 / 60.0},
      {"minutes above 59.9999 clamped after the radians", "4859.99995,N,00000.000,W", 1,
       "48 59.9999 1 '' / 0 0 1 ''", 48 + 59.99995 / 60, 0},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    auto fix = ParseGprmc("$GPRMC,123519,A," + row.fields + ",022.4,084.4,230305,003.1,W", "2005");
    ASSERT_TRUE(fix.has_value());
    SharedState state;
    state.place.latitudeSign = state.place.longitudeSign = row.previousSign;
    state.time.riseSetCurrent = true;
    ApplyPlaceFix(state, PlaceOfGpsFix(*fix));
    const PlaceState& p = state.place;
    std::ostringstream place;
    place.precision(10);
    place << p.latitudeDegrees << " " << p.latitudeMinutes << " " << p.latitudeSign << " '"
          << p.latitudeSignText << "' / " << p.longitudeDegrees << " " << p.longitudeMinutes << " "
          << p.longitudeSign << " '" << p.longitudeSignText << "'";
    EXPECT_EQ(place.str(), row.place);
    EXPECT_NEAR(p.homeLatitude, row.latitude / kDegreesPerRadian, kRadianTolerance);
    EXPECT_NEAR(p.homeLongitude, row.longitude / kDegreesPerRadian, kRadianTolerance);
    EXPECT_TRUE(p.locationOption);
    EXPECT_TRUE(state.program.configChanged);
    EXPECT_FALSE(state.time.riseSetCurrent);
  }
}

// What follows a refused sentence is shown by the GPS exchange.
TEST(NmeaFramer, HandsOverWholeGprmcSentencesOnly) {
  const struct {
    const char *legend, *stream;
    const char* handed;  // the sentences handed over, each followed by "|"
  } rows[] = {
      {"other sentences dropped, CR and LF not part of one",
       "$GPGGA,1,2,3\r\n$GPRMC,a\r\n$GPGSV,x\r\n", "$GPRMC,a|"},
      {"a $ starts afresh", "$GPRMC,cut$GPRMC,whole\r\n", "$GPRMC,whole|"},
      {"the line feed alone never ends a sentence", "$GPRMC,a\n$GPRMC,b\r\n", "$GPRMC,b|"},
      {"noise before the first $ is ignored", "\x01garbage\r\n$GPRMC,a\r\n", "$GPRMC,a|"},
  };
  for (const auto& row : rows) {
    NmeaFramer framer;
    std::string handed;
    for (const char* c = row.stream; *c != '\0'; ++c) {
      if (auto sentence = framer.Feed(*c)) handed += *sentence + "|";
    }
    EXPECT_EQ(handed, row.handed) << row.legend;
  }
}

}  // namespace
}  // namespace astel
