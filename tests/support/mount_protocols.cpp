#include "tests/support/mount_protocols.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <string_view>

namespace astel::testing {

namespace {

std::string Format(const char* pattern, auto... values) {
  char buffer[96];
  std::snprintf(buffer, sizeof buffer, pattern, values...);
  return buffer;
}

// One byte for each value, then "#".
std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (int value : values)
    bytes.push_back(static_cast<char>(value));
  return bytes + "#";
}

constexpr char kLx200DegreeSign = '\xDF';  // what a real LX200 puts between degrees and minutes

// NexStar hand controller, version 2 and later: "R" goto, "J" aligned, "E" position,
// "P" pass-through, "w"/"h" site and clock.
class NexStarProtocol : public MountProtocol {
 public:
  std::optional<SimCommand> Feed(unsigned char byte, MountState& mount,
                                 const MountRules&) override {
    if (pending_.empty()) {
      int length = CommandLength(byte);
      if (length == 0) return std::nullopt;  // not a command letter: ignored, as the mount does
      expected_ = length;
    }
    pending_.push_back(static_cast<char>(byte));
    if (static_cast<int>(pending_.size()) < expected_) return std::nullopt;
    SimCommand command{pending_, Answer(pending_, mount)};
    pending_.clear();
    return command;
  }

 private:
  static int CommandLength(unsigned char letter) {
    if (letter == 'R') return 10;  // RRRR,DDDD
    if (letter == 'P') return 8;
    const std::string_view oneLetter = "JEwh";
    return oneLetter.find(static_cast<char>(letter)) == std::string_view::npos ? 0 : 1;
  }

  static std::string Answer(const std::string& c, MountState& mount) {
    switch (c[0]) {
      case 'R':
        return "#";
      case 'J':
        return Bytes({mount.aligned});
      case 'E':
        return Format("%04X,%04X#", mount.raSteps, mount.decSteps);
      case 'P': {
        mount.motions.push_back({static_cast<unsigned char>(c[2]), static_cast<unsigned char>(c[3]),
                                 static_cast<unsigned char>(c[4])});
        int replyBytes = static_cast<unsigned char>(c[7]);
        return std::string(static_cast<std::size_t>(replyBytes), '\0') + "#";
      }
      case 'w':
        return Bytes({mount.latitudeDegrees, mount.latitudeMinutes, mount.latitudeSeconds,
                      mount.south, mount.longitudeDegrees, mount.longitudeMinutes,
                      mount.longitudeSeconds, mount.west});
      case 'h':  // the zone as a byte: 256 less the hours west
        return Bytes({mount.hour, mount.minute, mount.second, mount.month, mount.day, mount.year2,
                      (mount.zoneHoursEast + 256) % 256, mount.daylight});
      default:
        return "";
    }
  }

  std::string pending_;
  int expected_ = 0;
};

// The binary GoTo of the first NexStar 5/8 and of the StarGuide is send-only: the simulator keeps
// the bytes it received and has nothing to answer, so no command is ever completed.
class SendOnlyProtocol : public MountProtocol {
 public:
  std::optional<SimCommand> Feed(unsigned char, MountState&, const MountRules&) override {
    return std::nullopt;
  }
};

// LX200: commands run from ":" to "#"; bytes between commands (a lone "#") are ignored.
class Lx200Protocol : public MountProtocol {
 public:
  std::optional<SimCommand> Feed(unsigned char byte, MountState& mount,
                                 const MountRules& rules) override {
    if (!inCommand_) {
      if (byte != ':') return std::nullopt;
      inCommand_ = true;
      pending_.clear();
    }
    pending_.push_back(static_cast<char>(byte));
    if (byte != '#') return std::nullopt;
    inCommand_ = false;
    return SimCommand{pending_, Answer(pending_.substr(1, pending_.size() - 2), mount, rules)};
  }

 private:
  // Set commands are taken as they come; only the offset's form and the date's long answer
  // matter to the program.
  static std::string Answer(const std::string& body, MountState& mount, const MountRules& rules) {
    const std::string name = body.substr(0, 2);
    const std::string accepted = rules.refuseAllSets ? "0" : "1";
    if (name == "MS") return "0";
    if (name == "SG") {
      bool decimal = body.find('.') != std::string::npos;
      if (rules.refuseOffsetForms >= 2 || (decimal && rules.refuseOffsetForms >= 1)) return "0";
      return accepted;
    }
    if (name == "SC") {
      return rules.refuseAllSets ? "0"
                                 : "1Updating Planetary Data#                                #";
    }
    if (name[0] == 'S') return accepted;
    if (name == "GR") {
      double hours = mount.raSteps / 65536.0 * 24;
      int whole = static_cast<int>(hours);
      double minutes = std::floor((hours - whole) * 600 + 0.5) / 10;
      if (minutes >= 60) minutes = 59.9;
      return Format("%02d:%04.1f#", whole, minutes);
    }
    if (name == "GD" || name == "Gt") {
      int arcmin = name == "Gt"
                       ? mount.lxLatitudeArcmin
                       : static_cast<int>(std::lround(
                             (mount.decSteps >= 32768 ? mount.decSteps - 65536.0 : mount.decSteps) /
                             65536.0 * 21600));
      return Format("%c%02d%c%02d#", arcmin < 0 ? '-' : '+', std::abs(arcmin) / 60,
                    kLx200DegreeSign, std::abs(arcmin) % 60);
    }
    if (name == "Gg") {
      return Format("%03d%c%02d#", mount.lxLongitudeArcmin / 60, kLx200DegreeSign,
                    mount.lxLongitudeArcmin % 60);
    }
    if (name == "GG") {
      return Format("%c%02d#", mount.lxUtcOffsetHours < 0 ? '-' : '+',
                    std::abs(mount.lxUtcOffsetHours));
    }
    if (name == "GC") return Format("%02d/%02d/%02d#", mount.lxMonth, mount.lxDay, mount.lxYear2);
    if (name == "GL")
      return Format("%02d:%02d:%02d#", mount.lxHour, mount.lxMinute, mount.lxSecond);
    return "";
  }

  bool inCommand_ = false;
  std::string pending_;
};

}  // namespace

std::unique_ptr<MountProtocol> MakeMountProtocol(int scopeType) {
  switch (scopeType) {
    case 1:
      return std::make_unique<NexStarProtocol>();
    case 2:
    case 3:
      return std::make_unique<SendOnlyProtocol>();
    default:
      return std::make_unique<Lx200Protocol>();
  }
}

}  // namespace astel::testing
