// The telescope list: rows of the selection dialog, their model codes, and the capability flags
// that follow from a model code.
#pragma once

#include <array>
#include <string_view>

#include "core/shared_state.h"

namespace astel {

inline constexpr int kNoGotoScopeCode = 10000;

struct ScopeRow {
  std::string_view text;  // the list row; its first character is the telescope family
  int code;               // scopeCode before the GPS questions
};

inline constexpr std::array<ScopeRow, 12> kScopeRows = {{
    {"0 - No Goto Telescope", kNoGotoScopeCode},
    {"1 - Celestron NexStar GPS Family: 8 / 9.25 / 11", 101},
    {"1 - Celestron NexStar 5i / 8i", 102},
    {"1 - Celestron NexStar 60 / 80 /114/, Nexstar 4 made since 2002", 103},
    {"1 - Celestron CGE and Advanced Series with GoTo", 104},
    {"2 - Celestron Original NexStar 5 / 8", 201},
    {"3 - Celestron Original NexStar 60 / 80 / 114, Original Nexstar 4 (2001 and before)", 301},
    {"3 - Tasco StarGuide", 302},
    {"4 - Meade LX-200, LX-90 and compatibles", 401},
    {"4 - Meade Autostar and compatibles", 402},
    {"4 - Orvane Controllers (Meade compatible)", 403},
    {"4 - Vixen SkySensor 2000 (Meade compatible)", 404},
}};

struct ScopeFlags {
  bool hasGps = false;
  bool noDstShift = false;
  bool loadEnabled = false;
};

// Flags of a stored model code. Code 106 enables the load command when chosen in the dialog but
// not when reloaded from a home file; that asymmetry is deliberate.
ScopeFlags FlagsForStoredCode(int scopeCode);

// The home-file check: clears and re-derives the three capability flags from scopeCode.
void ApplyStoredScopeCode(TelescopeState& telescope);

// The family of a model code: codes below 100 are families themselves, 10000 is family 0.
int ScopeTypeFromCode(int scopeCode);

}  // namespace astel
