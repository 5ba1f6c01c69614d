#include "catalog/name_matcher.h"

#include "catalog/catalog_record.h"

namespace astel {

namespace {

// The field's name: blanks (and the marks, unless kept) dropped, upper-cased.
struct FieldName {
  char text[kLongNameWidth];
  int size = 0;
};

FieldName ExtractName(std::string_view record, std::size_t column, std::size_t width,
                      bool keepMarks) {
  FieldName n;
  if (width > kLongNameWidth) width = kLongNameWidth;
  const std::size_t end =
      column >= record.size() ? column : std::min(record.size(), column + width);
  for (std::size_t i = column; i < end; ++i) {
    const char c = record[i];
    if (c == ' ' || (!keepMarks && IsBestOfSkyMark(c))) continue;
    n.text[n.size++] = UpperLatin1(c);
  }
  return n;
}

// Walks text from p and the name from q. `starSeen` turns a later "*" into a plain character.
int MatchFrom(const FieldName& n, int q, std::string_view t, std::size_t p, int matched,
              bool starSeen) {
  for (;;) {
    if (p == t.size()) return matched;  // the text is used up: a prefix of the name
    const char c = t[p];
    if (c == ' ' && p + 1 < t.size()) {  // blanks count only in the last position
      ++p;
      continue;
    }
    if (q == n.size) return matched;  // the name is used up first: still a match, on purpose
    if (c == '*' && !starSeen) {
      while (p < t.size() && t[p] == '*')
        ++p;  // "**" is one wildcard
      if (p == t.size()) return matched + 1;
      // The rest of the text must be found further on; the first place that lets it match wins.
      for (int from = q; from < n.size; ++from) {
        const int r = MatchFrom(n, from, t, p, matched + 1, true);
        if (r > 0) return r;
      }
      return 0;
    }
    if (n.text[q] != c) return 0;
    ++matched;
    ++p;
    ++q;
  }
}

}  // namespace

std::string RebuildSearchText(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != ' ' || i + 1 == text.size()) out += text[i];
  }
  return out;
}

int MatchNameField(std::string_view record, std::size_t column, std::size_t width,
                   std::string_view upperText, bool keepMarks) {
  if (upperText.empty()) return 0;
  // Most records fail on their first character: look at it before building the name.
  const char first = upperText[0];
  if (first != '*' && first != ' ') {
    const std::size_t end = std::min(record.size(), column + std::min(width, kLongNameWidth));
    std::size_t i = column;
    while (i < end && (record[i] == ' ' || (!keepMarks && IsBestOfSkyMark(record[i]))))
      ++i;
    if (i >= end || UpperLatin1(record[i]) != first) return 0;
  }
  const FieldName n = ExtractName(record, column, width, keepMarks);
  if (n.size == 0) return 0;  // an empty name never matches
  return MatchFrom(n, 0, upperText, 0, 0, false);
}

bool MatchAnyName(std::string_view record, std::string_view upperText, bool keepMarks) {
  for (std::size_t column : kNameColumns) {
    if (MatchNameField(record, column, kNameWidth, upperText, keepMarks) > 0) return true;
  }
  return false;
}

}  // namespace astel
