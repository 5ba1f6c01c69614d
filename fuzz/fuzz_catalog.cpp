// libFuzzer target for everything that reads catalog text: the line reader, the record, header,
// planet and transient-time parsers, the writer fed with what was read, and the name matcher.
// The input is split at its first 0x00 byte: before it the search text, after it the file.
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "astro/coordinates.h"
#include "catalog/catalog_reader.h"
#include "catalog/catalog_record.h"
#include "catalog/name_matcher.h"
#include "catalog/planet_record.h"
#include "catalog/transient_catalog.h"
#include "core/text_format.h"

namespace {

void Check(bool condition) {
  if (!condition) std::abort();
}

void ExerciseRecord(const std::string& record, const std::string& upperText) {
  Check(record.size() == astel::kRecordWidth);
  const astel::CatalogRecord rec = astel::ParseRecord(record);
  Check(rec.raHours >= 0 && rec.raHours < 24);
  astel::SharedState state;
  astel::ObjectState& o = state.object;
  astel::ShowRecord(rec, o);
  // Whatever the numbers hold, placing the object in the sky must stay defined.
  o.targetEpoch = 2027;
  astel::PrecessToDate(o);
  astel::ComputeAltAz(state);
  const std::string again = astel::ComposeRecord(astel::FieldsOfObject(o));
  Check(again.size() == astel::kRecordWidth);
  astel::ParseRecord(again);
  astel::ParsePlanetRecord(record);
  astel::TransientRecordTime(record);
  for (bool keepMarks : {false, true}) {
    astel::MatchAnyName(record, upperText, keepMarks);
    const int longName =
        astel::MatchNameField(record, 0, astel::kLongNameWidth, upperText, keepMarks);
    Check(longName >= 0);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::size_t split = input.find('\0');
  const std::string_view textPart =
      split == std::string_view::npos ? input.substr(0, 40) : input.substr(0, split);
  const std::string_view filePart =
      split == std::string_view::npos ? input : input.substr(split + 1);

  const std::string upperText = astel::ToUpperLatin1(astel::RebuildSearchText(textPart));
  astel::ParseHeader(filePart);
  ExerciseRecord(astel::FitRecord(filePart), upperText);
  // Matching against fields past the end of a short line.
  astel::MatchNameField(filePart, 48, astel::kNameWidth, upperText, false);

  // The same bytes as a catalog file, read line by line as the search reads it.
  const int fd = memfd_create("catalog", 0);
  if (fd < 0) return 0;
  if (write(fd, filePart.data(), filePart.size()) == static_cast<ssize_t>(filePart.size())) {
    astel::CatalogReader reader;
    if (reader.Open("/proc/self/fd/" + std::to_string(fd))) {
      std::string record;
      std::int64_t lastOffset = 0;
      while (reader.Next(record)) {
        ExerciseRecord(record, upperText);
        Check(reader.Offset() > lastOffset || filePart.empty());
        Check(reader.Offset() <= static_cast<std::int64_t>(filePart.size()));
        lastOffset = reader.Offset();
      }
    }
  }
  close(fd);
  return 0;
}
