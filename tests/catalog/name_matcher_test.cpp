#include "catalog/name_matcher.h"

#include <gtest/gtest.h>

#include "catalog_files.h"
#include "core/text_format.h"

namespace astel {
namespace {

TEST(NameMatcher, BlanksEmptiesWildcardAndMarks) {
  struct Row {
    const char* legend;
    const char* field;
    const char* text;
    bool match, keepMarks = false;
  } rows[] = {
      {"blanks ignored on both sides", "Gam Per", "gampe", true},
      {"text longer than the name still finds it", "M31", "M31XYZ", true},
      {"empty field never matches", "", "M", false},
      {"empty text never matches", "M31", "", false},
      {"only a trailing blank never matches", "M31", " ", false},
      {"Latin-1 letters compare without case", "\xC9toile", "\xE9TO", true},
      {"star in the middle", "Alp2Lib", "Alp* Lib", true},
      {"star in the middle, wrong tail", "Alp2Cyg", "Alp*Lib", false},
      {"leading star finds the inside", "61 Cyg", "*Cyg", true},
      {"lone star matches any name", "anything", "*", true},
      {"double star is one star", "Alp2Lib", "Alp**Lib", true},
      {"first place that lets the rest match", "ABAC", "*AC", true},
      {"second star is a plain character", "ABCDEF", "A*C*F", false},
      // Outside Best of the Sky the marks are invisible; inside, "*&" finds exactly the "&" names.
      {"mark invisible outside", "M31        &", "M31 ", true},
      {"mark dropped outside", "M31        &", "*&", false},
      {"mark part of the name inside", "M31        &", "M31 ", false, true},
      {"first pass mark", "M31        &", "*&", true, true},
      {"second pass mark is not the first", "M31        ^", "*&", false, true},
  };
  for (const Row& r : rows) {
    const std::string text = ToUpperLatin1(RebuildSearchText(r.text));
    EXPECT_EQ(MatchNameField(FitRecord(r.field), 0, 12, text, r.keepMarks) > 0, r.match)
        << r.legend;
  }
}

TEST(NameMatcher, LongNameFieldAndTheFiveFields) {
  // A 16-character name spans columns 1-16; the 24-column field reads it whole.
  EXPECT_GT(
      MatchNameField(FitRecord("Andromeda Galaxy"), 0, kLongNameWidth, "ANDROMEDAGALAXY ", false),
      0);
  const std::string m31 = testing::Rec("M31", 0.7, 41, "3.4", "NGC 224", "Andromeda");
  EXPECT_TRUE(MatchAnyName(m31, "ANDRO", false));
  EXPECT_FALSE(MatchAnyName(m31, "2000", false)) << "the numbers are not names";
  // Blanks go, except one at the end.
  EXPECT_EQ(RebuildSearchText("NGC 7009") + "|" + RebuildSearchText("M3  "), "NGC7009|M3 ");
}

}  // namespace
}  // namespace astel
