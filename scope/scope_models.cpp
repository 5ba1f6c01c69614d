#include "scope/scope_models.h"

namespace astel {

ScopeFlags FlagsForStoredCode(int scopeCode) {
  switch (scopeCode) {
    case 101:
    case 105:
    case 107:
    case 405:
      return {true, false, true};
    case 406:
      return {true, true, true};
    case 402:
      return {false, true, true};
    case 108:
    case 403:
    case 404:
    case 407:
      return {false, false, true};
    default:
      return {};
  }
}

void ApplyStoredScopeCode(TelescopeState& telescope) {
  ScopeFlags flags = FlagsForStoredCode(telescope.scopeCode);
  telescope.scopeHasGps = flags.hasGps;
  telescope.scopeNoDstShift = flags.noDstShift;
  telescope.scopeLoadEnabled = flags.loadEnabled;
}

int ScopeTypeFromCode(int scopeCode) {
  if (scopeCode < 100) return scopeCode;
  if (scopeCode == kNoGotoScopeCode) return 0;
  return scopeCode / 100;
}

}  // namespace astel
