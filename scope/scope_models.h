// The telescope list: rows of the selection dialog, their model codes, and the capability flags
// that follow from a model code.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "core/ports.h"
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

// The row of the telescope list with exactly this text; nullopt for any other text.
std::optional<ScopeRow> FindScopeRow(std::string_view text);

// The telescope family of a list row: its first character.
int FamilyOfRow(const ScopeRow& row);

// The model code and flags that a choice in the selection dialog ends with. Three models ask
// whether there is a GPS (and for the LX200 whether it is built in) and get a finer code:
//   102: GPS yes 107, no 108;  104: GPS yes 105, no 106;
//   401: GPS no 407; yes and built in 406 (no daylight shift), yes and not built in 405.
// Those three always enable the load command (106 too, unlike a reloaded 106); every other code
// takes the flags of a stored code.
struct ScopeChoice {
  int code = 0;
  ScopeFlags flags;
};
ScopeChoice ChooseScopeModel(int listCode, Dialogs& dialogs);

inline constexpr std::string_view kAskHasGps = "Does this Scope have a GPS?";
inline constexpr std::string_view kAskGpsBuiltIn = "Is the GPS Built In?";

// The family of a model code: codes below 100 are families themselves, 10000 is family 0.
int ScopeTypeFromCode(int scopeCode);

}  // namespace astel
