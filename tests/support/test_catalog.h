// The small catalog of the script and end-to-end tests: M3, M30 and M31 in that order (the
// prefix order of the name matcher), Vega, Achernar (never up at 53 N) and a nameless record.
#pragma once

#include <fstream>
#include <string>
#include <tuple>

#include "catalog/catalog_record.h"

namespace astel::testing {

inline void WriteTestCatalog(const std::string& path) {
  std::ofstream out(path, std::ios::binary);
  out << ComposeHeader("TEST.OBC", 2000, "test catalog") << "\r\n";
  auto record = [&](const char* name, const char* name2, int raH, double raM, int decSign, int decD,
                    double decM, const char* mag) {
    RecordFields f;
    f.names = {name, name2, "", "", ""};
    std::tie(f.raHours, f.raMinutes, f.decSign, f.decDegrees, f.decMinutes, f.magnitudeText) =
        std::tuple(raH, raM, decSign, decD, decM, mag);
    out << ComposeRecord(f) << "\r\n";
  };
  record("M3", "NGC 5272", 13, 42.2, 1, 28, 22.6, "6.2");
  record("M30", "NGC 7099", 21, 40.4, -1, 23, 10.8, "7.2");
  record("M31", "NGC 224", 0, 42.7, 1, 41, 16.2, "3.4");
  record("Vega", "Alp Lyr", 18, 36.9, 1, 38, 47.0, "0.03");
  record("Achernar", "Alp Eri", 1, 37.7, -1, 57, 14.2, "0.46");
  record("Nameless", "", 3, 0.0, 1, 10, 0.0, "");
}

}  // namespace astel::testing
