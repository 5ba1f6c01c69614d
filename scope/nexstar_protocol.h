// Commands and replies of the NexStar hand controllers (telescope type 1) other than the GoTo:
// position and alignment queries, pass-through motor commands, and the GPS models' location and
// time queries. Each reply ends with "#".
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace astel {

// "J": is the mount aligned? Reply: one byte (1 aligned, 0 not) and "#" (2 bytes).
inline constexpr std::string_view kNexStarAlignedQuery = "J";
inline constexpr int kNexStarAlignedReplyLength = 2;

// "E": where does it point? Reply "RRRR,DDDD#" (10 bytes), each four hex digits of a fraction of
// the 65,536-step circle; e.g. 4000,C000# is RA 6 h and a declination of 270 degrees.
inline constexpr std::string_view kNexStarPositionQuery = "E";
inline constexpr int kNexStarPositionReplyLength = 10;

// "w": the site (GPS models, hand controller 2.3 and later). Reply 8 bytes and "#":
//   latitude degrees, minutes, seconds, 0 north / 1 south,
//   longitude degrees, minutes, seconds, 0 east / 1 west.
inline constexpr std::string_view kNexStarLocationQuery = "w";
// "h": the clock. Reply 8 bytes and "#": local hour, minute, second, month, day, year - 2000,
//   zone offset from GMT in hours east (a byte, 256 - n for zones west), 1 daylight time / 0 not.
inline constexpr std::string_view kNexStarTimeQuery = "h";
inline constexpr int kNexStarSiteReplyLength = 9;

// Pass-through motor command, one axis:
//   "P" 2 axis dir rate 0 0 2: axis 17 altitude / 16 azimuth, dir 36 positive / 37 negative,
//   rate 1-9 (0 stops), last byte the reply length asked of the motor controller.
//   Reply: those 2 bytes and "#" (3 bytes).
std::string EncodeCelestronMotion(bool altitudeAxis, int direction, int rate);
inline constexpr int kCelestronMotionReplyLength = 3;

// A pointing position as the mount reports it. The declination is not folded: a southern
// position arrives as 180 to 360 degrees and is kept so.
struct CelestronPosition {
  double raHours = 0;
  double decDegrees = 0;
};
// Decodes a full "E" reply; nullopt when it does not end in "#" at the tenth byte or the digits
// are not hexadecimal.
std::optional<CelestronPosition> DecodeCelestronPosition(std::string_view reply);

struct NexStarLocation {
  int latitudeDegrees = 0, latitudeMinutes = 0, latitudeSeconds = 0;
  bool south = false;
  int longitudeDegrees = 0, longitudeMinutes = 0, longitudeSeconds = 0;
  bool east = false;
};
std::optional<NexStarLocation> DecodeNexStarLocation(std::string_view reply);

struct NexStarTime {
  int hour = 0, minute = 0, second = 0, month = 1, day = 1, year2 = 0;
  int zoneHoursEast = 0;
  bool daylight = false;
};
std::optional<NexStarTime> DecodeNexStarTime(std::string_view reply);

}  // namespace astel
