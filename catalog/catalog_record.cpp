#include "catalog/catalog_record.h"

#include <cmath>

#include "core/text_format.h"

namespace astel {

namespace {

std::string_view Field(std::string_view record, std::size_t column, std::size_t width) {
  return record.substr(column, width);
}

bool IsBlank(std::string_view text) {
  return text.find_first_not_of(' ') == std::string_view::npos;
}

// Writes text into the line from column on, never past the record's end.
void Put(std::string& line, std::size_t column, std::string_view text) {
  if (column >= line.size()) return;
  line.replace(column, std::min(text.size(), line.size() - column),
               text.substr(0, line.size() - column));
}

// Rounds to the decimals a pattern writes, so that the choice between the short and the long
// pattern is made on the digits that will stand in the file (9.99996 hours is "10.0000").
double Rounded(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  return std::round(value * scale) / scale;
}

}  // namespace

std::string FitRecord(std::string_view line) {
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
    line.remove_suffix(1);
  std::string record(line.substr(0, kRecordWidth));
  record.resize(kRecordWidth, ' ');
  return record;
}

CatalogRecord ParseRecord(std::string_view line) {
  const std::string fitted = line.size() == kRecordWidth ? std::string(line) : FitRecord(line);
  const std::string_view r = fitted;
  CatalogRecord rec;
  for (int i = 0; i < 5; ++i)
    rec.names[i] = std::string(Field(r, kNameColumns[i], kNameWidth));
  if (IsBestOfSkyMark(rec.names[0][kNameWidth - 1])) rec.names[0][kNameWidth - 1] = ' ';

  double ra = LeadingNumber(Field(r, kRaColumn, kFieldWidth));
  ra = std::fmod(ra, 24.0);
  if (ra < 0) ra += 24;
  rec.raHours = ra;

  const std::string_view decText = Field(r, kDecColumn, kFieldWidth);
  rec.decDegrees = LeadingNumber(decText);
  const std::size_t firstDigit = decText.find_first_not_of(' ');
  rec.decNegative =
      rec.decDegrees < 0 || (firstDigit != std::string_view::npos && decText[firstDigit] == '-');

  rec.magnitudeText = std::string(Field(r, kMagnitudeColumn, kMagnitudeWidth));
  // A blank field is as unknown as "99": both are left out by a magnitude limit.
  rec.magnitude = IsBlank(rec.magnitudeText) ? kUnknownMagnitude : LeadingNumber(rec.magnitudeText);

  const double epoch = LeadingNumber(Field(r, kEpochColumn, kEpochWidth));
  rec.epoch = epoch == 0 ? 2000 : epoch;
  rec.transient = r[kKindColumn] == 'T';
  return rec;
}

void ShowRecord(const CatalogRecord& rec, ObjectState& o) {
  o.Name1 = rec.names[0];
  o.Name2 = rec.names[1];
  o.Name3 = rec.names[2];
  o.Name4 = rec.names[3];
  o.Name5 = rec.names[4];
  o.objRaHours = static_cast<int>(std::trunc(rec.raHours));
  o.objRaMinutes = (rec.raHours - o.objRaHours) * 60;
  const double size = std::fabs(rec.decDegrees);
  o.objDecDegrees = static_cast<int>(std::trunc(rec.decDegrees));
  o.objDecMinutes = (size - std::trunc(size)) * 60;
  o.objDecSign = rec.decNegative ? -1 : 1;
  o.magnitudeText = rec.magnitudeText;
  o.magnitude = rec.magnitude;
  o.sourceEpoch = rec.epoch;
  o.objectKind = -1;
  o.distanceAu = 0;
}

RecordFields FieldsOfObject(const ObjectState& o) {
  RecordFields f;
  f.names = {o.Name1, o.Name2, o.Name3, o.Name4, o.Name5};
  f.raHours = o.objRaHours;
  f.raMinutes = o.objRaMinutes;
  const bool south = o.objDecDegrees < 0 || (o.objDecDegrees == 0 && o.objDecSign < 0);
  f.decSign = south ? -1 : 1;
  f.decDegrees = o.objDecDegrees;
  f.decMinutes = o.objDecMinutes;
  f.magnitudeText = o.magnitudeText;
  f.epochText = FormatFixed(o.sourceEpoch, "0000");
  return f;
}

std::string ComposeRecord(const RecordFields& f) {
  std::string line(kRecordWidth, ' ');
  for (int i = 0; i < 5; ++i)
    Put(line, kNameColumns[i], PadRight(f.names[i], kNameWidth));

  // Degrees minus minutes for the south, so that -0 degrees 30 minutes becomes -00.5000.
  const double decSize = std::abs(f.decDegrees) + f.decMinutes / 60;
  const double dec = f.decSign < 0 ? -decSize : decSize;
  Put(line, kDecColumn, FormatFixed(dec, "00.0000"));

  const double ra = Rounded(f.raHours + f.raMinutes / 60, 4);
  if (ra >= 10) {
    Put(line, kRaColumn, FormatFixed(ra, "00.0000"));
  } else {
    Put(line, kRaColumn + 1, FormatFixed(ra, "0.0000"));  // the point stays in column 63
  }

  if (!StartsWithNumber(f.magnitudeText)) {
    Put(line, kMagnitudeColumn, "99");
  } else {
    const double magnitude = Rounded(LeadingNumber(f.magnitudeText), 2);
    if (magnitude >= 10) {
      Put(line, kMagnitudeColumn, FormatFixed(magnitude, "00.00"));
    } else {
      Put(line, kMagnitudeColumn + 1, FormatFixed(magnitude, "0.00"));
    }
  }
  Put(line, kEpochColumn, PadRight(f.epochText, kEpochWidth));
  return line;
}

CatalogHeader ParseHeader(std::string_view line) {
  CatalogHeader h;
  while (!line.empty() && (line.back() == '\n' || line.back() == '\r'))
    line.remove_suffix(1);
  h.text = std::string(line);
  const std::string fitted = FitRecord(line);
  h.year = static_cast<int>(LeadingNumber(std::string_view(fitted).substr(kHeaderYearColumn, 4)));
  h.longNames = fitted[kKindColumn] == 'L';
  h.transient = fitted[kKindColumn] == 'T';
  return h;
}

std::string ComposeHeader(std::string_view name, int year, std::string_view description,
                          char kind) {
  std::string line(kRecordWidth, ' ');
  Put(line, 0, PadRight(name, 8));
  Put(line, kHeaderYearColumn, FormatFixed(year, "0000").substr(0, 4));
  Put(line, 13, description.substr(0, kKindColumn - 13));
  line[kKindColumn] = kind;
  // Trailing blanks carry nothing on a header; keep the line short for editors.
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::string CatalogPath(std::string_view directory, std::string_view fileName) {
  std::string path(directory);
  if (!path.empty() && path.back() != '/') path += '/';
  return path + std::string(fileName);
}

}  // namespace astel
