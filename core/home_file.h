// The home location file: a binary file of tagged little-endian values holding the observer's
// place, time-zone choice, colours and telescope. The codec here only turns bytes into values and
// back; applying them to the shared state is the start-up's business.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/shared_state.h"

namespace astel {

inline constexpr double kHomeFileVersion = 6.11;

// Every stored value, as the file holds it.
struct HomeFileRecord {
  double homeLatitude = 0;   // radians, positive north
  double homeLongitude = 0;  // radians, positive west
  double gmtOffset = 0;
  double backColor = 192;
  double foreColor = 65535;
  int scopeCode = 0;
  int comPort = 1;
  bool useStoredGmtOffset = false;
  bool locationOption = false;
  bool gpsLocationOnly = false;
  double version = kHomeFileVersion;
  bool scopeHasGps = false;  // absent from the older layout
  double firstStartDate = 0;

  // The older layout (version below 3.6, or no telescope model code) has no GPS field: the value
  // that follows the version is the first-start date.
  bool IsOldLayout() const { return version < 3.6 || scopeCode < 100; }
};

// Parses a whole file. Empty when the bytes end before the first-start date or a value carries
// an unknown tag; a missing reserved tail is accepted, as it is never read.
std::optional<HomeFileRecord> ParseHomeFile(std::string_view bytes);

// The bytes of a file holding the record in the current layout (version 6.11, the nine reserved
// values and the 512 bytes of padding).
std::string SerializeHomeFile(const HomeFileRecord& record);

// Reads the file at path; empty when it cannot be read or parsed.
std::optional<HomeFileRecord> LoadHomeFile(const std::string& path);

// Writes the file through a temporary file in the same folder that is renamed over the old one,
// so a crash never leaves half a file. Returns an error text, empty on success.
std::string SaveHomeFile(const std::string& path, const HomeFileRecord& record);

// The ".HOM" rule: a name without that extension gets it, replacing a three-letter extension.
std::string HomeFileNameWithExtension(std::string name);

// The record of the shared state as the writer stores it (version 6.11).
HomeFileRecord HomeFileRecordFromState(const SharedState& state);

}  // namespace astel
