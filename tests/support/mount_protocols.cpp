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

std::uint16_t StepsOfHex(const std::string& text) {
  return static_cast<std::uint16_t>(std::strtoul(text.c_str(), nullptr, 16));
}

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
        mount.raSteps = StepsOfHex(c.substr(1, 4));
        mount.decSteps = StepsOfHex(c.substr(6, 4));
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

// Binary forms of the first NexStar 5/8 (type 2: "?" attention, then "R" and four bytes) and of
// the NexStar 60/80/114 and StarGuide (type 3: "R" and six bytes). Send-only.
class BinaryProtocol : public MountProtocol {
 public:
  explicit BinaryProtocol(int type) : type_(type) {}
  std::optional<SimCommand> Feed(unsigned char byte, MountState& mount,
                                 const MountRules&) override {
    if (pending_.empty()) {
      if (type_ == 2 && byte == '?') return SimCommand{"?", ""};
      if (byte != 'R') return std::nullopt;
    }
    pending_.push_back(static_cast<char>(byte));
    const std::size_t length = type_ == 2 ? 5 : 7;
    if (pending_.size() < length) return std::nullopt;
    auto at = [&](std::size_t i) { return static_cast<unsigned char>(pending_[i]); };
    mount.raSteps = static_cast<std::uint16_t>(at(1) * 256 + at(2));
    mount.decSteps =
        static_cast<std::uint16_t>(type_ == 2 ? at(3) * 256 + at(4) : at(4) * 256 + at(5));
    SimCommand command{pending_, ""};
    pending_.clear();
    return command;
  }

 private:
  int type_;
  std::string pending_;
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
  static std::string Trim(const std::string& text) {
    std::size_t start = text.find_first_not_of(' ');
    return start == std::string::npos ? "" : text.substr(start);
  }

  // "sDD*MM" or "DDD*MM", any separator; minutes of arc, signed.
  static int ArcminOf(const std::string& text) {
    int sign = !text.empty() && text[0] == '-' ? -1 : 1;
    std::size_t start = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    std::size_t sep = text.find_first_not_of("0123456789", start);
    int degrees = std::atoi(text.substr(start, sep - start).c_str());
    int minutes = sep == std::string::npos ? 0 : std::atoi(text.substr(sep + 1, 2).c_str());
    return sign * (degrees * 60 + minutes);
  }

  static std::uint16_t RaSteps(double hours) {
    return static_cast<std::uint16_t>(std::lround(hours / 24 * 65536) & 0xFFFF);
  }
  static std::uint16_t DecSteps(double degrees) {
    long steps = std::lround(degrees / 360 * 65536);
    return static_cast<std::uint16_t>(steps & 0xFFFF);
  }

  static std::string Answer(const std::string& body, MountState& mount, const MountRules& rules) {
    const std::string name = body.substr(0, 2);
    const std::string arg = Trim(body.substr(2));
    const std::string accepted = rules.refuseAllSets ? "0" : "1";
    if (name == "Sr") {
      int hours = std::atoi(arg.substr(0, 2).c_str());
      double minutes = std::atof(arg.substr(3).c_str());
      mount.targetRaSteps = RaSteps(hours + minutes / 60);
      return accepted;
    }
    if (name == "Sd") {
      mount.targetDecSteps = DecSteps(ArcminOf(arg) / 60.0);
      return accepted;
    }
    if (name == "MS") {
      mount.raSteps = mount.targetRaSteps;
      mount.decSteps = mount.targetDecSteps;
      return "0";
    }
    if (name == "St") {
      mount.lxLatitudeArcmin = ArcminOf(arg);
      return accepted;
    }
    if (name == "Sg") {
      mount.lxLongitudeArcmin = ArcminOf(arg);
      return accepted;
    }
    if (name == "SG") {
      bool decimal = arg.find('.') != std::string::npos;
      if (rules.refuseOffsetForms >= 2 || (decimal && rules.refuseOffsetForms >= 1)) return "0";
      mount.lxUtcOffsetHours = std::atof(arg.c_str());
      return accepted;
    }
    if (name == "SC") {
      std::sscanf(arg.c_str(), "%d/%d/%d", &mount.lxMonth, &mount.lxDay, &mount.lxYear2);
      if (rules.refuseAllSets) return "0";
      return "1Updating Planetary Data#                                #";
    }
    if (name == "SL") {
      std::sscanf(arg.c_str(), "%d:%d:%d", &mount.lxHour, &mount.lxMinute, &mount.lxSecond);
      return accepted;
    }
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
                    mount.lxDegreeSign, std::abs(arcmin) % 60);
    }
    if (name == "Gg") {
      return Format("%03d%c%02d#", mount.lxLongitudeArcmin / 60, mount.lxDegreeSign,
                    mount.lxLongitudeArcmin % 60);
    }
    if (name == "GG") {
      double offset = mount.lxUtcOffsetHours;
      if (offset == std::floor(offset)) {
        return Format("%c%02d#", offset < 0 ? '-' : '+', static_cast<int>(std::fabs(offset)));
      }
      return Format("%c%04.1f#", offset < 0 ? '-' : '+', std::fabs(offset));
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
      return std::make_unique<BinaryProtocol>(scopeType);
    default:
      return std::make_unique<Lx200Protocol>();
  }
}

}  // namespace astel::testing
