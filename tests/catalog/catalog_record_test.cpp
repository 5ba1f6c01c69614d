#include "catalog/catalog_record.h"

#include <gtest/gtest.h>

#include "catalog_files.h"

namespace astel {
namespace {

// Columns from..to (counted from 1) of a line.
std::string Cols(const std::string& line, int from, int to) {
  return line.substr(static_cast<std::size_t>(from - 1), static_cast<std::size_t>(to - from + 1));
}

TEST(CatalogRecord, PlacesEveryFieldInItsColumnsAndReadsItBack) {
  struct Row {
    const char* legend;
    double raHours;
    int decSign, decDeg;
    double decMin;
    const char* mag;
    const char* raField;   // columns 61-69, the point always in column 63
    const char* decField;  // columns 70-78
    const char* magField;  // columns 89-96
  } rows[] = {
      {"short RA starts in column 62", 9.5, 1, 41, 16, "3.4", " 9.5000  ", "41.2667  ", " 3.40   "},
      {"long RA starts in column 61", 10.25, -1, -5, 30, "12.25", "10.2500  ", "-05.5000 ",
       "12.25   "},
      {"-0 degrees keeps its minus", 0.5, -1, 0, 30, "", " 0.5000  ", "-00.5000 ", "99      "},
      {"negative magnitude, short form", 6.75, -1, -16, 43, "-1.46", " 6.7500  ", "-16.7167 ",
       " -1.46  "}};
  for (const Row& r : rows) {
    RecordFields f;
    f.raHours = static_cast<int>(r.raHours);
    f.raMinutes = (r.raHours - f.raHours) * 60;
    f.decSign = r.decSign, f.decDegrees = r.decDeg, f.decMinutes = r.decMin;
    f.magnitudeText = r.mag;
    const std::string line = ComposeRecord(f);
    ASSERT_EQ(line.size(), 100u) << r.legend;
    // Columns 79-88 (unused, and the kind) stay blank; the epoch closes the line.
    EXPECT_EQ(Cols(line, 61, 100),
              std::string(r.raField) + r.decField + std::string(10, ' ') + r.magField + "2000")
        << r.legend;

    ObjectState o;
    ShowRecord(ParseRecord(line), o);
    EXPECT_TRUE(o.objRaHours == f.raHours && o.objDecDegrees == r.decDeg &&
                o.objDecSign == r.decSign && o.objectKind == -1)
        << r.legend;
    EXPECT_NEAR(o.objRaMinutes, f.raMinutes, 0.003) << r.legend;
    EXPECT_NEAR(o.objDecMinutes, r.decMin, 0.003) << r.legend;
  }
  // 9.99996 hours round into the long form; a magnitude that is no number is unknown.
  RecordFields f;
  f.raHours = 9, f.raMinutes = 59.9976, f.magnitudeText = "abc";
  EXPECT_EQ(Cols(ComposeRecord(f), 61, 96),
            "10.0000  00.0000  " + std::string(10, ' ') + "99      ");
}

TEST(CatalogRecord, MarksMagnitudeEpochAndOddNumbers) {
  std::string line = testing::Rec("M31        &", 0.7, 41.27, "3.4");
  line[87] = 'T';
  line.replace(96, 4, "0000");
  CatalogRecord rec = ParseRecord(line);
  EXPECT_EQ(rec.names[0], "M31         ") << "the mark shows as a blank";
  EXPECT_TRUE(rec.transient);
  EXPECT_EQ(rec.epoch, 2000) << "epoch 0000 reads as 2000";
  EXPECT_EQ(rec.magnitudeText, " 3.40   ");
  line.replace(88, 12, std::string(12, ' '));
  rec = ParseRecord(line);
  EXPECT_EQ(rec.epoch, 2000) << "a blank epoch reads as 2000";
  EXPECT_EQ(rec.magnitude, kUnknownMagnitude) << "a blank magnitude is unknown";
  line.replace(96, 4, "1950");
  EXPECT_EQ(ParseRecord(line).epoch, 1950);

  // Letters read as 0 (a magnitude too); 25 h of right ascension wraps to 1 h.
  rec = ParseRecord(std::string(60, ' ') + "25.0000  xyz      " + std::string(10, ' ') + "mag");
  EXPECT_TRUE(rec.raHours == 1 && rec.decDegrees == 0 && rec.magnitude == 0);
  EXPECT_EQ(FitRecord("ABC\r\n"), "ABC" + std::string(97, ' '));
  EXPECT_EQ(FitRecord("ABC\n"), "ABC" + std::string(97, ' '));
  EXPECT_EQ(FitRecord(std::string(150, 'x')), std::string(100, 'x')) << "long lines are cut";
}

TEST(CatalogHeader, FlagsYearAndComposition) {
  struct Row {
    const char* legend;
    char kind;
    bool longNames, transient;
  } rows[] = {{"long names", 'L', true, false},
              {"transient", 'T', false, true},
              {"any other letter is ordinary", 'X', false, false}};
  for (const Row& r : rows) {
    const std::string line = ComposeHeader("MYSTARS", 2026, "my own objects", r.kind);
    EXPECT_EQ(line.substr(8, 4), "2026") << r.legend << ": the year in columns 9-12";
    const CatalogHeader h = ParseHeader(line + "\r\n");
    EXPECT_EQ(h.year, 2026) << r.legend;
    EXPECT_TRUE(h.longNames == r.longNames && h.transient == r.transient) << r.legend;
    EXPECT_EQ(h.text, line) << r.legend << ": kept without its line end";
  }
  EXPECT_EQ(ParseHeader("").year, 0) << "an empty header is an ordinary catalog";
  EXPECT_EQ(CatalogPath("/home/a/astel", "FULL.OBC"), "/home/a/astel/FULL.OBC");
}

}  // namespace
}  // namespace astel
