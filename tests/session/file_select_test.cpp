#include "session/file_select.h"
#include "session/scope_rows.h"

#include <gtest/gtest.h>

namespace astel {
namespace {

TEST(FileSelect, ScopeGpsButtonFollowsTheTelescope) {
  struct Case {
    const char* legend;
    int type;
    bool gps;
    const char* caption;
    bool enabled;
  } cases[] = {
      {"no telescope", 0, false, "Load Position from Telescope", false},
      {"Celestron without GPS", 1, false, "Load from Celestron GPS Scope", false},
      {"Celestron with GPS", 1, true, "Load from Celestron GPS Scope", true},
      {"original NexStar", 2, true, "Load Position from Telescope", false},
      {"Meade", 4, false, "Load Position from Meade Scope", true},
  };
  for (const Case& c : cases) {
    TelescopeState t;
    t.scopeType = static_cast<std::int16_t>(c.type);
    t.scopeHasGps = c.gps;
    const ScopeGpsButton b = ScopeGpsButtonState(t);
    EXPECT_EQ(b.caption, c.caption) << c.legend;
    EXPECT_EQ(b.enabled, c.enabled) << c.legend;
  }
  TelescopeState meade;
  meade.scopeType = 4;
  EXPECT_EQ(ScopeGpsButtonState(meade).toolTip,
            "Begin the process of loading data from a Meade Goto telescope");
}

TEST(FileSelect, LoadTimeCheckBox) {
  SharedState s;
  s.telescope.gpsLocationOnly = true;
  EXPECT_FALSE(LoadTimeChecked(s.telescope));
  SetLoadTime(s, true);
  EXPECT_FALSE(s.telescope.gpsLocationOnly);
  EXPECT_TRUE(s.program.configChanged);
  EXPECT_TRUE(LoadTimeChecked(s.telescope));
}

TEST(ScopeRows, StoredCodesLeadBackToTheirRow) {
  struct Case {
    int code, row;
  } cases[] = {{10000, 0}, {101, 1}, {102, 2}, {107, 2},  {108, 2},  {103, 3}, {104, 4},
               {105, 4},   {106, 4}, {201, 5}, {301, 6},  {302, 7},  {401, 8}, {405, 8},
               {406, 8},   {407, 8}, {402, 9}, {403, 10}, {404, 11}, {3, -1},  {0, -1}};
  for (const Case& c : cases) {
    EXPECT_EQ(ScopeRowOfCode(c.code), c.row) << "code " << c.code;
  }
}

}  // namespace
}  // namespace astel
