#include "catalog/name_matcher.h"

#include <gtest/gtest.h>

#include "catalog_files.h"
#include "core/text_format.h"

namespace astel {
namespace {

bool Matches(const std::string& field, const std::string& text, bool keepMarks = false,
             std::size_t width = 12) {
  const std::string record = FitRecord(field);
  return MatchNameField(record, 0, width, ToUpperLatin1(RebuildSearchText(text)), keepMarks) > 0;
}

TEST(NameMatcher, PrefixCaseBlanksAndTheExactTrailingBlank) {
  struct Row {
    const char* legend;
    const char* field;
    const char* text;
    bool match;
  } rows[] = {
      {"exact", "M31", "M31", true},
      {"prefix", "M31", "M3", true},
      {"case-insensitive", "Gam Per", "gam per", true},
      {"blanks ignored on both sides", "Gam Per", "gampe", true},
      {"blanks inside the text ignored", "GamPer", "g a m p", true},
      {"different name", "M31", "M4", false},
      {"trailing blank: exact name", "M3", "M3 ", true},
      {"trailing blank: longer name refused", "M31", "M3 ", false},
      {"text longer than the name still finds it", "M31", "M31XYZ", true},
      {"empty field never matches", "", "M", false},
      {"empty text never matches", "M31", "", false},
      {"only a trailing blank never matches", "M31", " ", false},
      {"Latin-1 letters compare without case", "\xC9toile", "\xE9TO", true},
      {"bytes above 127 compared as they are", "\x80\x9F", "\x80\x9F", true},
  };
  for (const Row& r : rows)
    EXPECT_EQ(Matches(r.field, r.text), r.match) << r.legend;
}

TEST(NameMatcher, OneWildcard) {
  struct Row {
    const char* legend;
    const char* field;
    const char* text;
    bool match;
  } rows[] = {
      {"star in the middle", "Alp2Lib", "Alp* Lib", true},
      {"star in the middle, nothing between", "AlpLib", "Alp*Lib", true},
      {"star in the middle, wrong tail", "Alp2Cyg", "Alp*Lib", false},
      {"leading star finds the inside", "61 Cyg", "*Cyg", true},
      {"leading star, absent", "61 Ori", "*Cyg", false},
      {"lone star matches any name", "anything", "*", true},
      {"lone star never an empty name", "", "*", false},
      {"double star is one star", "Alp2Lib", "Alp**Lib", true},
      {"first place that lets the rest match", "ABAC", "*AC", true},
      {"second star is a plain character", "ABCDEF", "A*C*F", false},
      {"trailing star", "M31", "M3*", true},
  };
  for (const Row& r : rows)
    EXPECT_EQ(Matches(r.field, r.text), r.match) << r.legend;
}

TEST(NameMatcher, BestOfSkyMarks) {
  // Outside Best of the Sky the marks are invisible; inside, "*&" finds exactly the "&" names.
  EXPECT_TRUE(Matches("M31        &", "M31 "));
  EXPECT_FALSE(Matches("M31        &", "M31 ", true)) << "the mark is part of the name then";
  EXPECT_TRUE(Matches("M31        &", "*&", true));
  EXPECT_FALSE(Matches("M31        ^", "*&", true));
  EXPECT_TRUE(Matches("M31        ^", "*^", true));
  EXPECT_FALSE(Matches("M31", "*&", true));
  EXPECT_FALSE(Matches("M31        &", "*&", false)) << "the mark is dropped outside";
}

TEST(NameMatcher, LongNameFieldRunsIntoName2) {
  // A 16-character name spans columns 1-16; the 24-column field reads it whole.
  const std::string record = FitRecord("Andromeda Galaxy");
  const std::string text = ToUpperLatin1(RebuildSearchText("Andromeda Galaxy"));
  EXPECT_GT(MatchNameField(record, 0, kLongNameWidth, text, false), 0);
  EXPECT_EQ(MatchNameField(record, 0, 12, text, false) > 0, true)
      << "the 12-column field 'Andromeda Ga' is used up first, which still counts";
  EXPECT_GT(MatchNameField(record, 0, kLongNameWidth, "ANDROMEDAGALAXY ", false), 0);
}

TEST(NameMatcher, AnyOfTheFiveFields) {
  const std::string record = testing::Rec("M31", 0.7, 41, "3.4", "NGC 224", "Andromeda");
  EXPECT_TRUE(MatchAnyName(record, "NGC224", false));
  EXPECT_TRUE(MatchAnyName(record, "ANDRO", false));
  EXPECT_FALSE(MatchAnyName(record, "NGC225", false));
  EXPECT_FALSE(MatchAnyName(record, "2000", false)) << "the numbers are not names";
}

TEST(NameMatcher, RebuildKeepsOnlyATrailingBlank) {
  EXPECT_EQ(RebuildSearchText("NGC 7009"), "NGC7009");
  EXPECT_EQ(RebuildSearchText("M 3 "), "M3 ");
  EXPECT_EQ(RebuildSearchText("  Gam  Per"), "GamPer");
  EXPECT_EQ(RebuildSearchText("M3  "), "M3 ");
}

}  // namespace
}  // namespace astel
