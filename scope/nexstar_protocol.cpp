#include "scope/nexstar_protocol.h"

#include <charconv>

namespace astel {

namespace {

// Steps of the 65,536-step circle per degree, with the literal the program has always used.
constexpr double kStepsPerDegree = 182.0444444;

int Byte(std::string_view reply, std::size_t index) {
  return static_cast<unsigned char>(reply[index]);
}

std::optional<int> Hex4(std::string_view digits) {
  int value = 0;
  auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
  if (error != std::errc() || end != digits.data() + digits.size() || digits.size() != 4) {
    return std::nullopt;
  }
  return value;
}

}  // namespace

std::string EncodeCelestronMotion(bool altitudeAxis, int direction, int rate) {
  std::string command = {'P',
                         2,
                         static_cast<char>(altitudeAxis ? 17 : 16),
                         static_cast<char>(direction > 0 ? 36 : 37),
                         static_cast<char>(rate),
                         0,
                         0,
                         2};
  return command;
}

std::optional<CelestronPosition> DecodeCelestronPosition(std::string_view reply) {
  if (reply.size() < kNexStarPositionReplyLength || reply[9] != '#') return std::nullopt;
  auto ra = Hex4(reply.substr(0, 4));
  auto dec = Hex4(reply.substr(5, 4));
  if (!ra || !dec) return std::nullopt;
  CelestronPosition position;
  position.raHours = *ra / (15 * kStepsPerDegree);
  if (position.raHours < 0) position.raHours += 24;
  position.decDegrees = *dec / kStepsPerDegree;
  return position;
}

std::optional<NexStarLocation> DecodeNexStarLocation(std::string_view reply) {
  if (reply.size() < kNexStarSiteReplyLength || reply[8] != '#') return std::nullopt;
  NexStarLocation location{Byte(reply, 0), Byte(reply, 1), Byte(reply, 2), Byte(reply, 3) == 1,
                           Byte(reply, 4), Byte(reply, 5), Byte(reply, 6), Byte(reply, 7) == 0};
  if (location.latitudeDegrees > 90 || location.longitudeDegrees > 180 ||
      location.latitudeMinutes > 59 || location.longitudeMinutes > 59 ||
      location.latitudeSeconds > 59 || location.longitudeSeconds > 59) {
    return std::nullopt;
  }
  return location;
}

std::optional<NexStarTime> DecodeNexStarTime(std::string_view reply) {
  if (reply.size() < kNexStarSiteReplyLength || reply[8] != '#') return std::nullopt;
  NexStarTime time;
  time.hour = Byte(reply, 0);
  time.minute = Byte(reply, 1);
  time.second = Byte(reply, 2);
  time.month = Byte(reply, 3);
  time.day = Byte(reply, 4);
  time.year2 = Byte(reply, 5);
  time.zoneHoursEast = Byte(reply, 6) > 127 ? Byte(reply, 6) - 256 : Byte(reply, 6);
  time.daylight = Byte(reply, 7) == 1;
  if (time.hour > 23 || time.minute > 59 || time.second > 59 || time.month < 1 || time.month > 12 ||
      time.day < 1 || time.day > 31 || time.year2 > 99 || time.zoneHoursEast < -12 ||
      time.zoneHoursEast > 14) {
    return std::nullopt;
  }
  return time;
}

}  // namespace astel
