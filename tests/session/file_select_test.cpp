#include "session/file_select.h"
#include "session/scope_rows.h"

#include <gtest/gtest.h>

namespace astel {
namespace {

TEST(FileSelect, ScopeGpsButtonAndLoadTimeFollowTheTelescope) {
  const struct {
    const char* legend;
    int type;
    bool gps;
    const char* caption;
    bool enabled;
  } cases[] = {
      {"no telescope", 0, true, "Load Position from Telescope", false},
      {"Celestron without GPS", 1, false, "Load from Celestron GPS Scope", false},
      {"Celestron with GPS", 1, true, "Load from Celestron GPS Scope", true},
      {"Meade", 4, false, "Load Position from Meade Scope", true},
  };
  for (const auto& c : cases) {
    TelescopeState t;
    t.scopeType = static_cast<std::int16_t>(c.type);
    t.scopeHasGps = c.gps;
    EXPECT_EQ(ScopeGpsButtonState(t).caption, c.caption) << c.legend;
    EXPECT_EQ(ScopeGpsButtonState(t).enabled, c.enabled) << c.legend;
  }
  SharedState s;
  s.telescope.scopeType = 4;
  EXPECT_EQ(ScopeGpsButtonState(s.telescope).toolTip,
            "Begin the process of loading data from a Meade Goto telescope");

  // The Load Time box shows the opposite of "location only".
  s.telescope.gpsLocationOnly = true;
  EXPECT_FALSE(LoadTimeChecked(s.telescope));
  SetLoadTime(s, true);
  EXPECT_TRUE(LoadTimeChecked(s.telescope));
  EXPECT_TRUE(s.program.configChanged);
}

TEST(ScopeRows, StoredCodesLeadBackToTheirRow) {
  // Plain codes, the codes a row's GPS questions put in its place, and codes of no row.
  const struct {
    int code, row;
  } cases[] = {{10000, 0}, {103, 3}, {201, 5}, {404, 11}, {107, 2},
               {108, 2},   {106, 4}, {407, 8}, {3, -1},   {0, -1}};
  for (const auto& c : cases) {
    EXPECT_EQ(ScopeRowOfCode(c.code), c.row) << "code " << c.code;
  }
}

}  // namespace
}  // namespace astel
