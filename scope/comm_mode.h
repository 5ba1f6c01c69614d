// The line settings of a serial port, read from a mode string such as
// "baud=9600 parity=N data=8 stop=2" (the form the callers have always used).
#pragma once

#include <termios.h>

#include <optional>
#include <string_view>

namespace astel {

// Settings named in a mode string. Left out: the baud rate and stop bits keep the port's current
// values; data bits and parity fall back to the raw line's 8 bits without parity.
struct SerialMode {
  std::optional<int> baud;
  std::optional<char> parity;           // 'N', 'E', 'O', 'M' or 'S'
  std::optional<int> dataBits;          // 5 to 8
  std::optional<int> stopBitsTimesTwo;  // 2 = one, 3 = one and a half, 4 = two
};

// Reads "key=value" pairs separated by blanks; keys and letters in any case. Keys: baud, parity,
// data, stop. An empty string names nothing. Any other key or an impossible value: nullopt.
std::optional<SerialMode> ParseCommMode(std::string_view mode);

// Applies the mode to raw, transparent settings: every byte 0-255 passes unchanged both ways, no
// echo, no flow control, no line-ending translation. Returns 0 or EINVAL when the line cannot do it
// (a baud rate the driver does not know, one and a half stop bits).
int ApplySerialMode(const SerialMode& mode, termios& settings);

}  // namespace astel
