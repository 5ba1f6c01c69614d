// Which row of the telescope list a stored model code came from, so the selection dialog opens
// on the telescope the observer has.
#pragma once

namespace astel {

// The index into kScopeRows, or -1 for a code that no row gives (an old family-only code).
// The finer codes that the GPS questions give lead back to the row they were asked for.
int ScopeRowOfCode(int scopeCode);

}  // namespace astel
