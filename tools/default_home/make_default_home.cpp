// Writes the shipped data/ASTEL.HOM: the Royal Observatory, Greenwich, with the time zone taken
// from the computer, no GoTo telescope, the default colours and no first-start date (so the first
// start of a new installation records its own).
//   build/tools/default_home/make_default_home data/ASTEL.HOM
#include <iostream>

#include "core/home_file.h"
#include "core/location.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_default_home OUTPUT.HOM\n";
    return 2;
  }
  astel::HomeFileRecord r;
  r.homeLatitude = (51 + 28.6 / 60) / astel::kDegreesPerRadianExact;  // 51 28.6' N
  r.homeLongitude = 0;                                                // the prime meridian
  r.gmtOffset = 0;
  r.useStoredGmtOffset = false;
  r.scopeCode = 10000;  // no GoTo telescope
  r.comPort = 1;
  r.firstStartDate = 0;
  std::string error = astel::SaveHomeFile(argv[1], r);
  if (!error.empty()) {
    std::cerr << error << "\n";
    return 1;
  }
  return 0;
}
