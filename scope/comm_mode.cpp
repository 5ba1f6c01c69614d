#include "scope/comm_mode.h"

#include <cerrno>
#include <charconv>
#include <string>

#include "core/text_format.h"

namespace astel {

namespace {

std::optional<int> WholeNumber(std::string_view text) {
  int value = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value <= 0) return std::nullopt;
  return value;
}

bool ApplySetting(std::string_view key, std::string_view value, SerialMode& mode) {
  if (key == "BAUD") {
    mode.baud = WholeNumber(value);
    return mode.baud.has_value();
  }
  if (key == "PARITY") {
    if (value.size() != 1 || std::string_view("NEOMS").find(value[0]) == std::string_view::npos) {
      return false;
    }
    mode.parity = value[0];
    return true;
  }
  if (key == "DATA") {
    auto bits = WholeNumber(value);
    if (!bits || *bits < 5 || *bits > 8) return false;
    mode.dataBits = bits;
    return true;
  }
  if (key == "STOP") {
    if (value == "1") {
      mode.stopBitsTimesTwo = 2;
    } else if (value == "1.5") {
      mode.stopBitsTimesTwo = 3;
    } else if (value == "2") {
      mode.stopBitsTimesTwo = 4;
    } else {
      return false;
    }
    return true;
  }
  return false;
}

speed_t SpeedFor(int baud) {
  switch (baud) {
    case 110:
      return B110;
    case 300:
      return B300;
    case 600:
      return B600;
    case 1200:
      return B1200;
    case 2400:
      return B2400;
    case 4800:
      return B4800;
    case 9600:
      return B9600;
    case 19200:
      return B19200;
    case 38400:
      return B38400;
    case 57600:
      return B57600;
    case 115200:
      return B115200;
    case 230400:
      return B230400;
    default:
      return B0;
  }
}

}  // namespace

std::optional<SerialMode> ParseCommMode(std::string_view mode) {
  SerialMode result;
  std::string upper = ToUpperLatin1(mode);
  std::string_view rest = upper;
  while (!rest.empty()) {
    std::size_t start = rest.find_first_not_of(" \t");
    if (start == std::string_view::npos) break;
    rest.remove_prefix(start);
    std::size_t end = rest.find_first_of(" \t");
    std::string_view pair = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end);
    std::size_t equals = pair.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    if (!ApplySetting(pair.substr(0, equals), pair.substr(equals + 1), result)) return std::nullopt;
  }
  return result;
}

int ApplySerialMode(const SerialMode& mode, termios& settings) {
  ::cfmakeraw(&settings);
  settings.c_iflag &= ~(IXON | IXOFF | IXANY | INPCK);
  settings.c_cflag |= CLOCAL | CREAD;
  settings.c_cflag &= ~CRTSCTS;
  settings.c_cc[VMIN] = 0;
  settings.c_cc[VTIME] = 0;
  if (mode.baud) {
    speed_t speed = SpeedFor(*mode.baud);
    if (speed == B0) return EINVAL;
    ::cfsetispeed(&settings, speed);
    ::cfsetospeed(&settings, speed);
  }
  if (mode.parity) {
    settings.c_cflag &= ~(PARENB | PARODD | CMSPAR);
    switch (*mode.parity) {
      case 'E':
        settings.c_cflag |= PARENB;
        break;
      case 'O':
        settings.c_cflag |= PARENB | PARODD;
        break;
      case 'M':
        settings.c_cflag |= PARENB | PARODD | CMSPAR;
        break;
      case 'S':
        settings.c_cflag |= PARENB | CMSPAR;
        break;
      default:
        break;
    }
  }
  if (mode.dataBits) {
    static constexpr tcflag_t kSizes[] = {CS5, CS6, CS7, CS8};
    settings.c_cflag = (settings.c_cflag & ~CSIZE) | kSizes[*mode.dataBits - 5];
  }
  if (mode.stopBitsTimesTwo) {
    if (*mode.stopBitsTimesTwo == 3) return EINVAL;  // a Linux line knows one or two stop bits only
    if (*mode.stopBitsTimesTwo == 4) {
      settings.c_cflag |= CSTOPB;
    } else {
      settings.c_cflag &= ~CSTOPB;
    }
  }
  return 0;
}

}  // namespace astel
