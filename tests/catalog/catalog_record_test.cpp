#include "catalog/catalog_record.h"

#include <gtest/gtest.h>

#include "catalog_files.h"

namespace astel {
namespace {

// Column n (counted from 1) of a line.
char Col(const std::string& line, int n) {
  return line.at(static_cast<std::size_t>(n - 1));
}
std::string Cols(const std::string& line, int from, int to) {
  return line.substr(static_cast<std::size_t>(from - 1), static_cast<std::size_t>(to - from + 1));
}

RecordFields Fields(double raHours, int decSign, int decDeg, double decMin, std::string mag) {
  RecordFields f;
  f.names = {"NAME1", "NAME2", "NAME3", "NAME4", "NAME5"};
  f.raHours = static_cast<int>(raHours);
  f.raMinutes = (raHours - f.raHours) * 60;
  f.decSign = decSign;
  f.decDegrees = decDeg;
  f.decMinutes = decMin;
  f.magnitudeText = std::move(mag);
  return f;
}

TEST(CatalogRecordWriter, PlacesEveryFieldInItsColumns) {
  struct Row {
    const char* legend;
    double raHours;
    int decSign, decDeg;
    double decMin;
    const char* mag;
    const char* raField;   // columns 61-69
    const char* decField;  // columns 70-78
    const char* magField;  // columns 89-96
  } rows[] = {
      {"short RA starts in column 62", 9.5, 1, 41, 16, "3.4", " 9.5000  ", "41.2667  ", " 3.40   "},
      {"long RA starts in column 61", 10.25, -1, -5, 30, "12.25", "10.2500  ", "-05.5000 ",
       "12.25   "},
      {"-0 degrees keeps its minus", 0.5, -1, 0, 30, "", " 0.5000  ", "-00.5000 ", "99      "},
      {"9.99996 h rounds into the long form", 9.99996, 1, 0, 0, "abc", "10.0000  ", "00.0000  ",
       "99      "},
      {"negative magnitude, short form", 6.75, -1, -16, 43, "-1.46", " 6.7500  ", "-16.7167 ",
       " -1.46  "},
  };
  for (const Row& r : rows) {
    const std::string line = ComposeRecord(Fields(r.raHours, r.decSign, r.decDeg, r.decMin, r.mag));
    ASSERT_EQ(line.size(), 100u) << r.legend;
    EXPECT_EQ(Cols(line, 61, 69), r.raField) << r.legend;
    EXPECT_EQ(Col(line, 63), '.') << r.legend;
    EXPECT_EQ(Cols(line, 70, 78), r.decField) << r.legend;
    EXPECT_EQ(Cols(line, 89, 96), r.magField) << r.legend;
    EXPECT_EQ(Cols(line, 79, 88), std::string(10, ' ')) << r.legend << ": unused and kind blank";
    EXPECT_EQ(Cols(line, 97, 100), "2000") << r.legend;
    EXPECT_EQ(Cols(line, 1, 12), "NAME1       ") << r.legend;
    EXPECT_EQ(Cols(line, 49, 60), "NAME5       ") << r.legend;
  }
}

TEST(CatalogRecordWriter, PointStandsInColumn63ForEveryHour) {
  for (int h = 0; h < 24; ++h) {
    const std::string line = ComposeRecord(Fields(h + 0.123, 1, 10, 0, "5"));
    EXPECT_EQ(Col(line, 63), '.') << "hour " << h;
  }
}

TEST(CatalogRecordReader, ReadsWhatTheWriterWrote) {
  struct Row {
    const char* legend;
    double raHours;
    int decSign, decDeg;
    double decMin;
  } rows[] = {
      {"9.5 h", 9.5, 1, 41, 16},         {"10.25 h", 10.25, -1, -5, 30},
      {"-0 deg 30 min", 0.5, -1, 0, 30}, {"+0 deg 30 min", 23.99, 1, 0, 30},
      {"south pole", 12, -1, -90, 0},
  };
  for (const Row& r : rows) {
    const CatalogRecord rec =
        ParseRecord(ComposeRecord(Fields(r.raHours, r.decSign, r.decDeg, r.decMin, "7.1")));
    EXPECT_NEAR(rec.raHours, r.raHours, 5e-5) << r.legend;
    const double dec = r.decSign * (std::abs(r.decDeg) + r.decMin / 60);
    EXPECT_NEAR(rec.decDegrees, dec, 5e-5) << r.legend;
    EXPECT_EQ(rec.decNegative, r.decSign < 0) << r.legend;

    ObjectState o;
    ShowRecord(rec, o);
    EXPECT_EQ(o.objDecDegrees, r.decDeg) << r.legend;
    EXPECT_NEAR(o.objDecMinutes, r.decMin, 0.01) << r.legend;
    EXPECT_EQ(o.objDecSign, r.decSign) << r.legend;
    EXPECT_EQ(o.objRaHours, static_cast<int>(r.raHours)) << r.legend;
    EXPECT_EQ(o.objectKind, -1);
  }
}

TEST(CatalogRecordReader, MarksMagnitudeEpochAndKind) {
  std::string line = testing::Rec("M31        &", 0.7, 41.27, "3.4");
  line[87] = 'T';
  line.replace(96, 4, "0000");
  CatalogRecord rec = ParseRecord(line);
  EXPECT_EQ(rec.names[0], "M31         ") << "the mark shows as a blank";
  EXPECT_TRUE(rec.transient);
  EXPECT_EQ(rec.epoch, 2000) << "epoch 0000 reads as 2000";
  EXPECT_DOUBLE_EQ(rec.magnitude, 3.4);
  EXPECT_EQ(rec.magnitudeText, " 3.40   ");

  line.replace(96, 4, "    ");
  line.replace(88, 8, "        ");
  line[11] = '^';
  rec = ParseRecord(line);
  EXPECT_EQ(rec.epoch, 2000) << "a blank epoch reads as 2000";
  EXPECT_EQ(rec.magnitude, kUnknownMagnitude) << "a blank magnitude is unknown";
  EXPECT_EQ(rec.names[0][11], ' ');

  line.replace(96, 4, "1950");
  EXPECT_EQ(ParseRecord(line).epoch, 1950);
}

TEST(CatalogRecordReader, BadLinesReadWithoutHarm) {
  struct Row {
    const char* legend;
    std::string line;
    double ra, dec, magnitude;
  } rows[] = {
      {"empty line", "", 0, 0, kUnknownMagnitude},
      {"short line, names only", "M1          CRAB", 0, 0, kUnknownMagnitude},
      {"CRLF line end", testing::Rec("M1", 5.5, 22, "8.4") + "\r\n", 5.5, 22, 8.4},
      {"letters in the numbers",
       std::string(60, ' ') + "abcdefghi" + "xyz      " + std::string(10, ' ') + "mag     ", 0, 0,
       0},
      {"RA of 25 h wraps", std::string(60, ' ') + "25.0000  ", 1, 0, kUnknownMagnitude},
      {"Latin-1 name bytes", "\xC9toile \xE9\xFF\x80\x9F", 0, 0, kUnknownMagnitude},
  };
  for (const Row& r : rows) {
    const CatalogRecord rec = ParseRecord(r.line);
    EXPECT_NEAR(rec.raHours, r.ra, 1e-9) << r.legend;
    EXPECT_NEAR(rec.decDegrees, r.dec, 1e-9) << r.legend;
    EXPECT_NEAR(rec.magnitude, r.magnitude, 1e-9) << r.legend;
    EXPECT_EQ(rec.epoch, 2000) << r.legend;
    for (const std::string& n : rec.names)
      EXPECT_EQ(n.size(), 12u) << r.legend;
  }
}

TEST(CatalogRecordLine, FitsEveryLineToHundredColumns) {
  EXPECT_EQ(FitRecord("ABC\r\n"), "ABC" + std::string(97, ' '));
  EXPECT_EQ(FitRecord("ABC\n"), "ABC" + std::string(97, ' '));
  EXPECT_EQ(FitRecord(std::string(150, 'x')), std::string(100, 'x')) << "long lines are cut";
}

TEST(CatalogHeader, FlagsYearAndComposition) {
  struct Row {
    const char* legend;
    char kind;
    bool longNames, transient;
  } rows[] = {{"ordinary", ' ', false, false},
              {"long names", 'L', true, false},
              {"transient", 'T', false, true},
              {"any other letter is ordinary", 'X', false, false}};
  for (const Row& r : rows) {
    const std::string line = ComposeHeader("MYSTARS", 2026, "my own objects", r.kind);
    EXPECT_EQ(line.substr(8, 4), "2026") << r.legend << ": the year in columns 9-12";
    const CatalogHeader h = ParseHeader(line + "\r\n");
    EXPECT_EQ(h.year, 2026) << r.legend;
    EXPECT_EQ(h.longNames, r.longNames) << r.legend;
    EXPECT_EQ(h.transient, r.transient) << r.legend;
    EXPECT_EQ(h.text, line) << r.legend << ": kept without its line end";
  }
  EXPECT_EQ(ParseHeader("").year, 0) << "an empty header is an ordinary catalog";
}

TEST(CatalogPath, JoinsWithOneSlash) {
  EXPECT_EQ(CatalogPath("/home/a/astel/", "FULL.OBC"), "/home/a/astel/FULL.OBC");
  EXPECT_EQ(CatalogPath("/home/a/astel", "FULL.OBC"), "/home/a/astel/FULL.OBC");
  EXPECT_EQ(CatalogPath("", "FULL.OBC"), "FULL.OBC");
}

}  // namespace
}  // namespace astel
