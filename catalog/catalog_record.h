// One catalog line in fixed columns, read and written here only, so that the reader and the writer
// cannot drift apart. Columns are counted from 1 in the comments and from 0 in the code.
//
//   1-12  Name1 (column 12 may hold the Best-of-the-Sky mark "&" or "^", shown as a blank)
//  13-60  Name2..Name5, 12 columns each
//  61-69  right ascension, decimal hours, decimal point in column 63
//  70-78  declination, decimal degrees, "-" also for -0 degrees
//  79-87  transient catalogs: GMT date and hour of the position, "YYMMDD hh" (transient_catalog.h)
//  88     record kind: "T" one position of a transient object; on the header "L" or "T"
//  89-96  visual magnitude; 99 or blank = unknown
//  97-100 epoch year of the coordinates; 0 or blank = 2000
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "core/shared_state.h"

namespace astel {

inline constexpr std::size_t kRecordWidth = 100;
inline constexpr std::size_t kNameWidth = 12;
inline constexpr std::size_t kNameColumns[5] = {0, 12, 24, 36, 48};  // 0-based starts
inline constexpr std::size_t kRaColumn = 60, kDecColumn = 69, kFieldWidth = 9;
inline constexpr std::size_t kTimeColumn = 78;  // columns 79-87
inline constexpr std::size_t kKindColumn = 87;  // column 88
inline constexpr std::size_t kMagnitudeColumn = 88, kMagnitudeWidth = 8;
inline constexpr std::size_t kEpochColumn = 96, kEpochWidth = 4;
inline constexpr std::size_t kHeaderYearColumn = 8;  // columns 9-12
inline constexpr double kUnknownMagnitude = 99;

// A raw file line as a record: the line end (LF, CRLF or a lone CR) removed, cut or padded with
// blanks to exactly 100 columns.
std::string FitRecord(std::string_view line);

// True for the marks that pick a record for the two passes of Best of the Sky.
inline bool IsBestOfSkyMark(char c) {
  return c == '&' || c == '^';
}

// The fields of one object line.
struct CatalogRecord {
  std::array<std::string, 5> names;  // 12 columns each; Name1's mark shown as a blank
  double raHours = 0;                // [0, 24)
  double decDegrees = 0;             // signed
  bool decNegative = false;          // the text carried a "-", also for -0
  std::string magnitudeText;         // the 8 columns as they stand
  double magnitude = kUnknownMagnitude;
  double epoch = 2000;
  bool transient = false;  // column 88 is "T"
};

// Reads an object line (any length; fitted to 100 columns first). Never fails: a field that does
// not start with a number reads as 0, a blank magnitude as unknown, a 0 or blank epoch as 2000.
CatalogRecord ParseRecord(std::string_view line);

// Makes the record the shown object: names, right ascension split into hours and minutes,
// declination into degrees, minutes and sign, magnitude, and the epoch as sourceEpoch. objectKind
// becomes -1. The position is left at its catalog epoch (PrecessToDate follows).
void ShowRecord(const CatalogRecord& record, ObjectState& object);

// What the writer needs of an object.
struct RecordFields {
  std::array<std::string, 5> names;
  int raHours = 0;
  double raMinutes = 0;
  int decSign = 1;  // -1 for a southern declination, also when decDegrees is 0
  int decDegrees = 0;
  double decMinutes = 0;
  std::string magnitudeText;  // empty or not a number: unknown, written "99"
  std::string epochText = "2000";
};

// The fields of the shown object, for AddObject.
RecordFields FieldsOfObject(const ObjectState& object);

// The 100-column line for the fields (no line end).
std::string ComposeRecord(const RecordFields& fields);

// The catalog's first line.
struct CatalogHeader {
  std::string text;  // the line as read, line end removed
  int year = 0;      // columns 9-12
  bool longNames = false;
  bool transient = false;
};
CatalogHeader ParseHeader(std::string_view line);

// A header line for a new catalog: the name in columns 1-8, the year in 9-12, a description from
// column 14 and the kind letter ("L", "T" or blank) in column 88.
std::string ComposeHeader(std::string_view name, int year, std::string_view description,
                          char kind = ' ');

// Directory and file name joined with a "/" unless the directory already ends in one.
std::string CatalogPath(std::string_view directory, std::string_view fileName);

}  // namespace astel
