#include "core/text_format.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace astel {

namespace {

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Length of the numeric prefix of text starting at pos (0 when none).
std::size_t NumericPrefixLength(std::string_view text, std::size_t pos) {
  std::size_t i = pos;
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  std::size_t digits = 0;
  while (i < text.size() && IsDigit(text[i]))
    ++i, ++digits;
  if (i < text.size() && text[i] == '.') {
    std::size_t afterPoint = i + 1;
    std::size_t j = afterPoint;
    while (j < text.size() && IsDigit(text[j]))
      ++j;
    if (j > afterPoint || digits > 0) {
      digits += j - afterPoint;
      i = j;
    }
  }
  return digits > 0 ? i - pos : 0;
}

std::size_t SkipBlanks(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
    ++i;
  return i;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  std::size_t start = SkipBlanks(text);
  std::size_t length = NumericPrefixLength(text, start);
  if (length == 0) return 0;
  std::string_view number = text.substr(start, length);
  bool negative = false;
  if (number.front() == '+' || number.front() == '-') {
    negative = number.front() == '-';
    number.remove_prefix(1);
  }
  // from_chars ignores the locale: a decimal-comma desktop must still read "34.5" as 34.5.
  double value = 0;
  std::string digits(number);
  if (digits.front() == '.') digits.insert(0, 1, '0');
  if (digits.back() == '.') digits.pop_back();
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return negative ? -value : value;
}

bool StartsWithNumber(std::string_view text) {
  return NumericPrefixLength(text, SkipBlanks(text)) > 0;
}

std::string NumberText(double value) {
  if (value == 0 || !std::isfinite(value)) value = 0;  // no "-0"
  std::string digits = fmt::format("{:.15g}", std::fabs(value));
  return (value < 0 ? "-" : " ") + digits;
}

std::string FormatFixed(double value, std::string_view pattern) {
  std::size_t point = pattern.find('.');
  std::size_t integerZeros = point == std::string_view::npos ? pattern.size() : point;
  int decimals = point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);

  // Round on the 15-significant-digit decimal form, as the old runtime did, so that 1.005 rounds
  // like its printed form and not like its binary neighbour 1.00499999...
  if (!std::isfinite(value)) value = 0;
  std::string scientific = fmt::format("{:.14e}", std::fabs(value));  // d.dddddddddddddde+XX
  std::size_t ePos = scientific.find('e');
  std::string digits = scientific.substr(0, 1) + scientific.substr(2, ePos - 2);
  int exponent = std::atoi(scientific.c_str() + ePos + 1);
  // digits[i] has the place value 10^(exponent - i); keep those down to 10^-decimals.
  int keep = exponent + 1 + decimals;
  std::string kept;  // the kept digits as an integer count of 10^-decimals units
  bool roundUp = false;
  if (keep >= 0) {
    if (keep < static_cast<int>(digits.size())) {
      kept = digits.substr(0, keep);
      roundUp = digits[keep] >= '5';
    } else {
      kept = digits + std::string(keep - digits.size(), '0');
    }
  }
  if (kept.empty()) kept = "0";
  if (roundUp) {
    int i = static_cast<int>(kept.size()) - 1;
    while (i >= 0 && kept[i] == '9')
      kept[i--] = '0';
    if (i >= 0) {
      ++kept[i];
    } else {
      kept.insert(0, "1");
    }
  }
  if (static_cast<int>(kept.size()) <= decimals) kept.insert(0, decimals + 1 - kept.size(), '0');
  std::string integerPart = kept.substr(0, kept.size() - decimals);
  std::string fraction = kept.substr(kept.size() - decimals);
  integerPart.erase(0, std::min(integerPart.find_first_not_of('0'), integerPart.size()));
  if (integerPart.size() < integerZeros)
    integerPart.insert(0, integerZeros - integerPart.size(), '0');
  bool isZero = kept.find_first_not_of('0') == std::string::npos;
  std::string text = integerPart + (decimals > 0 ? "." + fraction : "");
  return (value < 0 && !isZero ? "-" : "") + text;
}

std::string CommaToPoint(std::string text) {
  for (char& c : text) {
    if (c == ',') c = '.';
  }
  return text;
}

std::string ToUpperLatin1(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    auto u = static_cast<unsigned char>(c);
    if ((u >= 'a' && u <= 'z') || (u >= 0xE0 && u <= 0xFE && u != 0xF7)) {
      c = static_cast<char>(u - 0x20);
    }
  }
  return result;
}

std::string ToLowerLatin1(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    auto u = static_cast<unsigned char>(c);
    if ((u >= 'A' && u <= 'Z') || (u >= 0xC0 && u <= 0xDE && u != 0xD7)) {
      c = static_cast<char>(u + 0x20);
    }
  }
  return result;
}

std::string PadRight(std::string_view text, std::size_t width) {
  std::string result(text.substr(0, width));
  result.resize(width, ' ');
  return result;
}

int RoundToInt(double value) {
  return static_cast<int>(std::nearbyint(value));
}

}  // namespace astel
