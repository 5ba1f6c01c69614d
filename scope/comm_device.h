// Which device stands behind serial port COMn on Linux.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace astel {

// Looks up an environment variable (nullopt when unset) and tells whether a path exists; injected
// so that the mapping can be checked without touching the real environment or /dev.
using EnvLookup = std::function<std::optional<std::string>(const std::string& name)>;
using PathExists = std::function<bool(const std::string& path)>;

// COMn: $ASTEL_COMn when set and not empty; else /dev/ttyUSB{n-1} when it exists (USB adapters are
// what most observers use today); else /dev/ttyS{n-1}.
std::string DeviceForPort(int portNumber, const EnvLookup& env, const PathExists& exists);

// The same over the process environment and the real file system.
std::string DeviceForPortFromSystem(int portNumber);

// The number n of a port name "COMn" (any case), nullopt for any other name.
std::optional<int> PortNumberOfName(std::string_view name);

}  // namespace astel
