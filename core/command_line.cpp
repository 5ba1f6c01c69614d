#include "core/command_line.h"

#include <vector>

namespace astel {

ScriptParse ParseCommandLineScript(std::string_view line, ScriptState& script) {
  script.scriptRunning = false;
  script.commandStatus = 0;
  script.exitTimeSet = false;
  script.scriptLineIndex = 0;
  script.scriptLineCount = 0;
  script.scriptMode = false;
  for (auto& l : script.scriptLines)
    l.clear();
  if (line.empty()) return ScriptParse::kEmpty;

  std::vector<std::string_view> pieces;
  std::size_t start = 0;
  while (true) {
    std::size_t semicolon = line.find(';', start);
    if (semicolon == std::string_view::npos) {
      if (start < line.size()) pieces.push_back(line.substr(start));
      break;
    }
    pieces.push_back(line.substr(start, semicolon - start));
    start = semicolon + 1;
  }
  if (pieces.size() > static_cast<std::size_t>(kMaxScriptLines)) {
    return ScriptParse::kTooManyCommands;
  }
  for (std::size_t i = 0; i < pieces.size(); ++i)
    script.scriptLines[i + 1] = pieces[i];
  script.scriptLineIndex = 1;
  script.scriptLineCount = static_cast<std::int16_t>(pieces.size());
  script.scriptMode = true;
  return ScriptParse::kReady;
}

}  // namespace astel
