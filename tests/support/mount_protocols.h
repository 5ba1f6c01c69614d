// How each telescope family's hand controller answers, written from the published command sets
// and independent of the program's own encoders: the simulator checks the program, so it must not
// share its code. One engine per family turns received bytes into complete commands and replies.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace astel::testing {

struct MotorCommand {
  int axis = 0;       // 16 azimuth, 17 altitude
  int direction = 0;  // 36 positive, 37 negative
  int rate = 0;       // 0 stops
};

// What the mount knows. Positions are on the 65,536-step circle.
struct MountState {
  std::uint16_t raSteps = 0, decSteps = 0;  // where it points, as the read-back reports it
  bool aligned = true;
  std::vector<MotorCommand> motions{};

  // NexStar GPS site and clock ("w" and "h").
  int latitudeDegrees = 51, latitudeMinutes = 28, latitudeSeconds = 38;
  bool south = false;
  int longitudeDegrees = 0, longitudeMinutes = 0, longitudeSeconds = 5;
  bool west = true;
  int hour = 21, minute = 30, second = 0, month = 3, day = 23, year2 = 5;
  int zoneHoursEast = 0;
  bool daylight = false;

  // LX200 site and clock, as :Gt :Gg :GG :GC :GL report them.
  int lxLatitudeArcmin = 51 * 60 + 29;  // signed, north positive
  int lxLongitudeArcmin = 0;            // 0 to 21599, counted westward
  int lxUtcOffsetHours = 0;             // whole hours to add to local time for UTC
  int lxMonth = 3, lxDay = 23, lxYear2 = 5;
  int lxHour = 21, lxMinute = 30, lxSecond = 0;
};

// How picky the mount is.
struct MountRules {
  int refuseOffsetForms = 0;   // LX200 :SG: 1 refuses the decimal form, 2 both forms
  bool refuseAllSets = false;  // LX200 set commands answer "0"
};

struct SimCommand {
  std::string bytes;  // the command as received
  std::string reply;  // what a healthy mount answers; empty for send-only commands
};

class MountProtocol {
 public:
  virtual ~MountProtocol() = default;
  // One received byte; the command it completed, if any.
  virtual std::optional<SimCommand> Feed(unsigned char byte, MountState& mount,
                                         const MountRules& rules) = 0;
};

// Type 1 NexStar ASCII, 2 original NexStar binary, 3 StarGuide binary, 4 LX200.
std::unique_ptr<MountProtocol> MakeMountProtocol(int scopeType);

}  // namespace astel::testing
