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

std::optional<ScopeRow> FindScopeRow(std::string_view text) {
  for (const ScopeRow& row : kScopeRows) {
    if (row.text == text) return row;
  }
  return std::nullopt;
}

int FamilyOfRow(const ScopeRow& row) {
  return row.text[0] - '0';
}

ScopeChoice ChooseScopeModel(int listCode, Dialogs& dialogs) {
  const std::string hasGpsQuestion(kAskHasGps);
  switch (listCode) {
    case 102: {
      bool gps = dialogs.YesNo(hasGpsQuestion);
      return {gps ? 107 : 108, {gps, false, true}};
    }
    case 104: {
      bool gps = dialogs.YesNo(hasGpsQuestion);
      return {gps ? 105 : 106, {gps, false, true}};
    }
    case 401: {
      if (!dialogs.YesNo(hasGpsQuestion)) return {407, {false, false, true}};
      bool builtIn = dialogs.YesNo(std::string(kAskGpsBuiltIn));
      return builtIn ? ScopeChoice{406, {true, true, true}} : ScopeChoice{405, {true, false, true}};
    }
    default:
      return {listCode, FlagsForStoredCode(listCode)};
  }
}

int ScopeTypeFromCode(int scopeCode) {
  if (scopeCode < 100) return scopeCode;
  if (scopeCode == kNoGotoScopeCode) return 0;
  return scopeCode / 100;
}

}  // namespace astel
