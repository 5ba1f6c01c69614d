#include "session/scope_rows.h"

#include "scope/scope_models.h"

namespace astel {

namespace {

struct FinerCode {
  int code, askedFor;
};
// The codes that replace a chosen row's code after its GPS questions.
constexpr FinerCode kFinerCodes[] = {{107, 102}, {108, 102}, {105, 104}, {106, 104},
                                     {405, 401}, {406, 401}, {407, 401}};

}  // namespace

int ScopeRowOfCode(int scopeCode) {
  for (const FinerCode& f : kFinerCodes) {
    if (f.code == scopeCode) scopeCode = f.askedFor;
  }
  for (std::size_t i = 0; i < kScopeRows.size(); ++i) {
    if (kScopeRows[i].code == scopeCode) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace astel
