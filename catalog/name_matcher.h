// The name test of the search: prefix matching that ignores blanks and case, with one wildcard.
//
//   "M3"     finds M3, M30, M31 ... (the text is a prefix of the name)
//   "M3 "    finds M3 only (a blank in the last position must meet the end of the name)
//   "gampe"  finds "Gam Per" (blanks do not count on either side)
//   "Alp*Lib", "*Cyg"  one "*" for any run of characters, at the start or in the middle; "**" is
//            one "*" (it also forces a long-name search, see search.h)
//   "M31XYZ" finds "M31": a text longer than the name still finds the name it begins with
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace astel {

inline constexpr std::size_t kLongNameWidth = 24;

// Upper case of one Latin-1 byte (ASCII letters and the accented letters 0xE0-0xFE but 0xF7).
inline char UpperLatin1(char c) {
  const unsigned char u = static_cast<unsigned char>(c);
  if ((u >= 'a' && u <= 'z') || (u >= 0xE0 && u <= 0xFE && u != 0xF7))
    return static_cast<char>(u - 0x20);
  return c;
}

// The text as the matcher wants it: every blank dropped except one in the last position, which
// makes the search exact. Not upper-cased.
std::string RebuildSearchText(std::string_view text);

// Matches the name field of `record` that starts at 0-based `column` and is `width` columns wide
// (12, or 24 for a long name) against the upper-cased search text. Returns the number of matched
// characters (a wildcard counts as one), 0 when the field does not match. Columns past the end of
// the record count as blanks. With keepMarks (Best of the Sky) the marks "&" and "^" stay part of
// the name; otherwise they are dropped like blanks. Only the first run of "*" is a wildcard; a
// later "*" must meet a "*" of the name, which keeps the test linear in the field's width.
int MatchNameField(std::string_view record, std::size_t column, std::size_t width,
                   std::string_view upperText, bool keepMarks);

// True when one of the five 12-column name fields matches (stops at the first that does).
bool MatchAnyName(std::string_view record, std::string_view upperText, bool keepMarks);

}  // namespace astel
