// LX200 queries and their replies (telescope type 4). Every query here starts with "#", which
// ends any half-received command in the telescope, as the program's other LX200 commands do.
// The degree separator of a reply is "*" or the telescope's own degree character (0xDF); replies
// in the high-precision form (with seconds) are understood where noted.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace astel {

// Pointing position: "#:GR#" -> "HH:MM.T#" (8 bytes); "#:GD#" -> "sDD*MM#" (7 bytes).
inline constexpr std::string_view kLx200RaQuery = "#:GR#";
inline constexpr int kLx200RaReplyLength = 8;
inline constexpr std::string_view kLx200DecQuery = "#:GD#";
inline constexpr int kLx200DecReplyLength = 7;

// Site and clock (the telescope's GPS, or what was uploaded to it):
//   "#:Gt#" latitude          -> "sDD*MM#"  (or sDD*MM'SS#)
//   "#:Gg#" longitude         -> "sDDD*MM#" west positive (or DDD*MM# counted 0-360 westward,
//                                or with seconds)
//   "#:GG#" UTC offset        -> "sHH#" or "sHH.H#": hours to add to local time for UTC
//   "#:GC#" local date        -> "MM/DD/YY#"
//   "#:GL#" local time (24 h) -> "HH:MM:SS#"
inline constexpr std::string_view kLx200LatitudeQuery = "#:Gt#";
inline constexpr std::string_view kLx200LongitudeQuery = "#:Gg#";
inline constexpr std::string_view kLx200UtcOffsetQuery = "#:GG#";
inline constexpr std::string_view kLx200DateQuery = "#:GC#";
inline constexpr std::string_view kLx200TimeQuery = "#:GL#";
// The shortest and longest well-formed replies of those five queries.
inline constexpr int kLx200SiteReplyMinLength = 4;
inline constexpr int kLx200SiteReplyMaxLength = 11;

// The pointing position as MeadeLoad stores it: the number values of fixed character ranges.
struct MeadeRa {
  int hours = 0;
  double minutes = 0;
};
struct MeadeDec {
  int degrees = 0;
  double minutes = 0;
  int sign = 1;  // -1 for "-00*MM": the sign a whole degree of 0 cannot carry
};
MeadeRa DecodeMeadeRa(std::string_view reply);    // characters 1-3 and 4-7 of HH:MM.T#
MeadeDec DecodeMeadeDec(std::string_view reply);  // characters 1-3 and 5-6 of sDD*MM#

// A signed angle of a site reply, in seconds of arc; nullopt when malformed.
std::optional<int> DecodeLx200Angle(std::string_view reply);
// Site longitude, west positive, in seconds of arc within -180 to +180 degrees.
std::optional<int> DecodeLx200Longitude(std::string_view reply);
std::optional<double> DecodeLx200UtcOffset(std::string_view reply);

struct Lx200Date {
  int month = 1, day = 1, year2 = 0;
};
std::optional<Lx200Date> DecodeLx200Date(std::string_view reply);

struct Lx200Time {
  int hour = 0, minute = 0, second = 0;
};
std::optional<Lx200Time> DecodeLx200Time(std::string_view reply);

}  // namespace astel
