// The script on the command line: commands separated by ";", at most 25 of them.
#pragma once

#include <string_view>

#include "core/shared_state.h"

namespace astel {

enum class ScriptParse {
  kEmpty,            // no script: scriptMode off
  kReady,            // scriptLines[1..scriptLineCount] filled, scriptMode on
  kTooManyCommands,  // more than 25: nothing may run
};

inline constexpr const char* kTooManyCommandsMessage =
    "The script has more than 25 commands. Split it into scripts of at most 25 commands separated "
    "by ';'.";

// Splits the line at every ";". A piece running to the end of the line is the last command; an
// empty piece between two ";" is a command of its own (it fails when run), an empty remainder
// after a final ";" is not.
ScriptParse ParseCommandLineScript(std::string_view line, ScriptState& script);

}  // namespace astel
