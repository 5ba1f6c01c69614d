#include "catalog/catalog_record.h"

#include <gtest/gtest.h>

#include "astro/coordinates.h"
#include "catalog/help_topics.h"
#include "catalog/name_matcher.h"
#include "catalog_files.h"

namespace astel {
namespace {

TEST(CatalogRecord, PlacesEveryFieldInItsColumnsAndReadsItBack) {
  struct Row {
    const char* legend;
    double ra, dec;
    const char *mag, *raDecField, *magField;  // columns 61-78 (RA point in 63) and 89-96
  } rows[] = {
      {"short RA starts in column 62", 9.5, 41.2667, "3.4", " 9.5000  41.2667  ", " 3.40   "},
      {"long RA starts in column 61", 10.25, -5.5, "12.25", "10.2500  -05.5000 ", "12.25   "},
      {"-0 degrees keeps its minus", 0.5, -0.5, "", " 0.5000  -00.5000 ", "99      "},
      {"negative magnitude", 6.75, -16.7167, "-1.46", " 6.7500  -16.7167 ", " -1.46  "},
      {"9.99999 h rounds into the long form; no number is an unknown magnitude", 9.99999, 0, "abc",
       "10.0000  00.0000  ", "99      "}};
  for (const Row& r : rows) {
    const std::string line = testing::Rec("", r.ra, r.dec, r.mag);
    ASSERT_EQ(line.size(), 100u) << r.legend;
    // Columns 79-88 (transient time and kind) stay blank; the epoch closes the line.
    EXPECT_EQ(line.substr(60),
              std::string(r.raDecField) + std::string(10, ' ') + r.magField + "2000")
        << r.legend;
    ObjectState o;
    ShowRecord(ParseRecord(line), o);
    EXPECT_EQ(o.objectKind, -1);
    EXPECT_NEAR(o.objRaHours + o.objRaMinutes / 60, r.ra, 1e-4) << r.legend;  // four decimals
    EXPECT_NEAR(ObjectDeclinationDegrees(o), r.dec, 1e-4) << r.legend;
  }
}

TEST(CatalogRecord, EpochsAndOddFields) {
  std::string line = testing::Rec("M31", 0.7, 41.27, "3.4");
  EXPECT_EQ(ParseRecord(line.replace(96, 4, "0000")).epoch, 2000);
  EXPECT_EQ(ParseRecord(line.replace(96, 4, "1950")).epoch, 1950);
  const CatalogRecord blank = ParseRecord(line.replace(88, 12, std::string(12, ' ')));
  EXPECT_TRUE(blank.epoch == 2000 && blank.magnitude == kUnknownMagnitude);
  // Letters read as 0 (a magnitude too); 25 h of right ascension wraps to 1 h.
  const CatalogRecord odd =
      ParseRecord(std::string(60, ' ') + "25.0000  xyz      " + std::string(10, ' ') + "mag");
  EXPECT_TRUE(odd.raHours == 1 && odd.decDegrees == 0 && odd.magnitude == 0);
}

TEST(NameMatcher, BlanksCaseWildcardAndMark) {
  struct Row {
    const char *legend, *field, *text;
    bool match;
  } rows[] = {{"blanks ignored on both sides", "Gam Per", "gampe", true},
              {"Latin-1 letters compare without case", "\xC9toile", "\xE9TO", true},
              {"star in the middle, wrong tail", "Alp2Cyg", "Alp*Lib", false},
              {"leading star, first place that lets the rest match", "ABAC", "*AC", true},
              {"second star is a plain character", "ABCDEF", "A*C*F", false},
              {"the Best of the Sky mark is no part of the name", "M31        &", "M31 ", true}};
  for (const Row& r : rows) {
    const std::string text = ToUpperLatin1(RebuildSearchText(r.text));
    EXPECT_EQ(MatchNameField(FitRecord(r.field), 0, 12, text, false) > 0, r.match) << r.legend;
  }
  const std::string m31 = testing::Rec("M31", 0.7, 41, "3.4", "NGC 224", "Andromeda");
  EXPECT_TRUE(MatchAnyName(m31, "ANDRO", false) && !MatchAnyName(m31, "2000", false))
      << "the third name is a name, the numbers are not";
}

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
