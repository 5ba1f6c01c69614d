#include "scope/comm_device.h"

#include <unistd.h>

#include <charconv>
#include <cstdlib>

#include "core/text_format.h"

namespace astel {

std::string DeviceForPort(int portNumber, const EnvLookup& env, const PathExists& exists) {
  std::string index = std::to_string(portNumber);
  if (auto configured = env("ASTEL_COM" + index); configured && !configured->empty()) {
    return *configured;
  }
  std::string previous = std::to_string(portNumber - 1);
  std::string usb = "/dev/ttyUSB" + previous;
  if (exists(usb)) return usb;
  return "/dev/ttyS" + previous;
}

std::string DeviceForPortFromSystem(int portNumber) {
  return DeviceForPort(
      portNumber,
      [](const std::string& name) -> std::optional<std::string> {
        const char* value = std::getenv(name.c_str());
        if (value == nullptr) return std::nullopt;
        return std::string(value);
      },
      [](const std::string& path) { return ::access(path.c_str(), F_OK) == 0; });
}

std::optional<int> PortNumberOfName(std::string_view name) {
  if (name.size() < 4 || ToUpperLatin1(name.substr(0, 3)) != "COM") return std::nullopt;
  std::string_view digits = name.substr(3);
  int number = 0;
  auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return number;
}

}  // namespace astel
