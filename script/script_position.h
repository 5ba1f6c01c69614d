// The RA command: "RA=05H34.5M DEC=22D01M" with an optional epoch ("EPOCH=1950" or a bare year),
// the parts separated by blanks or commas.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace astel {

struct ScriptPosition {
  int raHours = 0;
  double raMinutes = 0;
  int decDegrees = 0;  // signed whole degrees
  double decMinutes = 0;
  int decSign = 1;  // -1 also for "-0" degrees
  double epoch = 2000;
};

struct ScriptPositionParse {
  std::optional<ScriptPosition> position;
  std::string error;
};

// Parses the upper-cased command line (from "RA=" on).
ScriptPositionParse ParseScriptPosition(std::string_view upperLine);

}  // namespace astel
