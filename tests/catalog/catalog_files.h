// Temporary folders and hand-made catalog lines for the catalog tests.
#pragma once

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "catalog/catalog_record.h"
#include "core/text_format.h"
#include "tests/support/temp_dir.h"

namespace astel::testing {

// The folder with a trailing "/", as installDir and catalogDirectory hold it, and a file in it.
inline std::string Dir(const TempDir& dir) {
  return dir.path() + "/";
}
inline std::string File(const TempDir& dir, const std::string& name) {
  return Dir(dir) + name;
}

inline void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

inline std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find("\r\n", from)) != std::string::npos; from = at + 2)
    lines.push_back(text.substr(from, at - from));
  if (from < text.size()) lines.push_back(text.substr(from));
  return lines;
}

// An object line: names, position in decimal hours and degrees, magnitude text ("" unknown).
inline std::string Rec(const std::string& name1, double raHours, double decDegrees,
                       const std::string& magnitude = "", const std::string& name2 = "",
                       const std::string& name3 = "") {
  RecordFields f;
  f.names = {name1, name2, name3, "", ""};
  f.raHours = static_cast<int>(raHours);
  f.raMinutes = (raHours - f.raHours) * 60;
  f.decSign = decDegrees < 0 ? -1 : 1;
  f.decDegrees = static_cast<int>(decDegrees);
  f.decMinutes = std::abs(decDegrees - f.decDegrees) * 60;
  f.magnitudeText = magnitude;
  return ComposeRecord(f);
}

// A catalog file: a header of the given kind, then the records, each line ended by `end`.
inline void WriteCatalog(const std::string& path, const std::vector<std::string>& records,
                         char kind = ' ', const std::string& end = "\r\n") {
  std::string text = ComposeHeader("TEST", 2000, "test catalog", kind) + end;
  for (const std::string& r : records)
    text += r + end;
  WriteFile(path, text);
}

}  // namespace astel::testing
