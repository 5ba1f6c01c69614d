// Numbers to text and back, the one way the whole program does it: never through locale-dependent
// streams, so a decimal comma can never reach a file, a catalog or a telescope.
#pragma once

#include <string>
#include <string_view>

namespace astel {

// The leading-number rule: leading blanks skipped, the longest prefix that forms a decimal number
// (optional sign, digits, optional point and digits) taken; 0 when there is none.
double LeadingNumber(std::string_view text);

// True when the text, after leading blanks, starts with a number that LeadingNumber would read.
bool StartsWithNumber(std::string_view text);

// A number as the old runtime's number-to-text wrote it: a leading blank for non-negative values,
// "-" for negative ones, then the shortest decimal text (up to 15 significant digits).
std::string NumberText(double value);

// A number formatted with a fixed pattern of zeros such as "00", "00.0", "000.0", "0.0000" or
// "0000000.00000": at least as many integer digits as zeros before the point, exactly as many
// decimals as zeros after it, halves rounded away from zero, "-" before negative values (a value
// that rounds to zero is written without sign).
std::string FormatFixed(double value, std::string_view pattern);

// Every "," replaced by ".": applied to every number written to a telescope or a command line.
std::string CommaToPoint(std::string text);

// Upper case for Latin-1 text (ASCII letters and the accented letters 0xE0-0xFE but 0xF7).
std::string ToUpperLatin1(std::string_view text);
std::string ToLowerLatin1(std::string_view text);

// Cut or pad with blanks on the right to exactly width characters.
std::string PadRight(std::string_view text, std::size_t width);

// Rounds halves to the even neighbour, as the old runtime did when a number became an integer.
int RoundToInt(double value);

}  // namespace astel
