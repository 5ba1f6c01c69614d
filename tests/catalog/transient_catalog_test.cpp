#include "catalog/transient_catalog.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "catalog/catalog_reader.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

constexpr double kArcminPerDegree = 60;

// A position record of a transient catalog for a GMT hour.
std::string Position(int year, int month, int day, int hour, double raHours, double decDeg) {
  std::string line = Rec(FormatFixed(year % 100, "00") + "-" + FormatFixed(month, "00") + "-" +
                             FormatFixed(day, "00") + " " + FormatFixed(hour, "00") + "h",
                         raHours, decDeg, "7.5", "Ceres");
  line.replace(78, 9, TransientTimeText(year, month, day, hour));
  line[87] = 'T';
  return line;
}

class TransientTest : public SearchTest {
 protected:
  void At(int year, int month, int day, double hours) {
    state.time.year = year;
    state.time.second = 0;
    state.time.julianDate = JulianDateOf(year, month, day, hours);
  }
  void UseTransient(const std::vector<std::string>& records, int headerYear = 2026) {
    std::string text = ComposeHeader("CERES", headerYear, "test", 'T') + "\r\n";
    for (const std::string& r : records)
      text += r + "\r\n";
    WriteFile(File(dir, "CERES.OBC"), text);
    ASSERT_TRUE(OpenCatalog(state, Dir(dir), "CERES.OBC"));
  }
  double ShownRa() const { return state.object.objRaHours + state.object.objRaMinutes / 60; }
  double ShownDec() const { return ObjectDeclinationDegrees(state.object); }
};

TEST(TransientTime, ColumnsSeventyNineToEightySeven) {
  EXPECT_DOUBLE_EQ(JulianDateOf(2000, 1, 1, 12), 2451545.0);
  EXPECT_EQ(TransientTimeText(2026, 11, 22, 14), "261122 14");
  struct Row {
    const char* legend;
    const char* text;
    bool valid;
  } rows[] = {{"valid", "261122 14", true},       {"hour 24", "261122 24", false},
              {"month 13", "261322 14", false},   {"day 0", "261100 14", false},
              {"no blank", "261122014", false},   {"letters", "26112A 14", false},
              {"blank field", "         ", false}};
  for (const Row& r : rows) {
    std::string line(100, ' ');
    line.replace(78, 9, r.text);
    EXPECT_EQ(TransientRecordTime(line).has_value(), r.valid) << r.legend;
  }
  std::string line(100, ' ');
  line.replace(78, 9, "261122 14");
  EXPECT_DOUBLE_EQ(*TransientRecordTime(line), JulianDateOf(2026, 11, 22, 14));
  EXPECT_FALSE(TransientRecordTime("short"));
}

TEST_F(TransientTest, TheHourThatContainsTheTimeServesItInterpolated) {
  UseTransient({Position(2026, 11, 22, 11, 5.2, -10.5), Position(2026, 11, 22, 10, 5.0, -10.0),
                Position(2026, 11, 22, 12, 5.4, -11.0)});
  struct Row {
    const char* legend;
    double hours;
    double ra, dec;
    const char* name1;
  } rows[] = {
      {"on the hour", 10, 5.0, -10.0, "26-11-22 10h"},
      {"half past: halfway to the next hour", 10.5, 5.1, -10.25, "26-11-22 10h"},
      {"records in any order", 11.25, 5.25, -10.625, "26-11-22 11h"},
      {"the last record serves its own hour", 12.75, 5.4, -11.0, "26-11-22 12h"},
  };
  for (const Row& r : rows) {
    At(2026, 11, 22, r.hours);
    ASSERT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kLoaded) << r.legend;
    EXPECT_NEAR(ShownRa(), r.ra, 1e-6) << r.legend;
    EXPECT_NEAR(ShownDec(), r.dec, 1e-6) << r.legend;
    EXPECT_EQ(state.object.Name1, r.name1) << r.legend;
    EXPECT_EQ(state.object.Name2, "Ceres       ") << r.legend;
    EXPECT_EQ(state.search.foundState, 1) << r.legend;
  }
  EXPECT_TRUE(rig.dialogs.messages.empty());
}

TEST_F(TransientTest, SecondsDoNotMoveTheHour) {
  // The program's Julian date counts seconds in hours; at 10:59:59 the 10h record still serves.
  UseTransient({Position(2026, 11, 22, 10, 5.0, -10.0)});
  At(2026, 11, 22, 10 + 59.0 / 60);
  state.time.second = 59;
  state.time.julianDate += 59.0 / 3600;
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kLoaded);
}

TEST_F(TransientTest, InterpolationAcrossZeroHours) {
  UseTransient({Position(2026, 11, 22, 10, 23.9, 1), Position(2026, 11, 22, 11, 0.1, 1)});
  At(2026, 11, 22, 10.75);
  ASSERT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kLoaded);
  EXPECT_NEAR(ShownRa(), 0.05, 1e-6);
}

TEST_F(TransientTest, NoPositionMessageOnceAndTheObsoleteLine) {
  UseTransient({Position(2026, 11, 22, 10, 5.0, -10.0), Position(2026, 11, 22, 13, 5.6, -11.0)},
               2026);
  const std::string base =
      "The Transient Catalog CERES.OBC contains no positions for the time set in ASTEL. Either "
      "change the time, or change catalogs.";
  At(2026, 11, 22, 11.5);  // in the gap
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNoPosition);
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNoPosition);
  EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{base}) << "shown once, not each tick";
  EXPECT_EQ(state.search.foundState, 0);

  At(2026, 11, 22, 13.2);
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kLoaded);
  At(2027, 1, 5, 0);
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNoPosition);
  ASSERT_EQ(rig.dialogs.messages.size(), 2u);
  EXPECT_EQ(rig.dialogs.messages[1],
            base + "\nThis catalog appears to be obsolete, and should be deleted.");

  At(2026, 11, 21, 0);
  ASSERT_TRUE(OpenCatalog(state, Dir(dir), "CERES.OBC"));
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNoPosition);
  EXPECT_EQ(rig.dialogs.messages.back(), base) << "before the first position: not obsolete";
}

TEST_F(TransientTest, BrokenTransientCatalogs) {
  At(2026, 11, 22, 10);
  std::string wrongKind = Position(2026, 11, 22, 10, 5, 1);
  wrongKind[87] = ' ';
  std::string badTime = Position(2026, 11, 22, 10, 5, 1);
  badTime.replace(78, 9, "tomorrow ");
  UseTransient({wrongKind, badTime, "", "garbage"});
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNoPosition);
  std::filesystem::remove(File(dir, "CERES.OBC"));
  state.search.transientReported = false;
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNoPosition)
      << "a deleted catalog serves nothing";
  EXPECT_EQ(rig.dialogs.messages.size(), 2u);
}

TEST_F(TransientTest, SearchingATransientCatalogServesItsPosition) {
  UseTransient({Position(2026, 11, 22, 10, 5.0, -10.0)});
  At(2026, 11, 22, 10.2);
  EXPECT_TRUE(SimpleSearch(state, rig.ports));
  EXPECT_TRUE(rig.dialogs.prompts.empty()) << "nothing to ask";
  EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{kTransientNotSearchable});
  EXPECT_EQ(state.object.Name2, "Ceres       ");

  UseCatalog({Rec("M1", 5.5, 22)});
  EXPECT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kNotTransient);
}

// The shipped sample: hourly positions of (1) Ceres around its opposition of January 2027.
TEST_F(TransientTest, ShippedCeresSampleServesTheComingMonths) {
  const std::string sample = std::string(ASTEL_SOURCE_DATA_DIR) + "/CERES.OBC";
  std::string header;
  ASSERT_TRUE(ReadFirstLine(sample, header));
  EXPECT_TRUE(ParseHeader(header).transient);
  std::filesystem::copy_file(sample, File(dir, "CERES.OBC"));
  ASSERT_TRUE(OpenCatalog(state, Dir(dir), "CERES.OBC"));

  double lastRa = -1, lastDec = 0;
  for (int day = 0; day < 90; day += 3) {
    const double jd = JulianDateOf(2026, 11, 25, 0) + day + 0.37;
    state.time.julianDate = jd;
    state.time.year = 2026;
    ASSERT_EQ(ReloadTransientPosition(state, rig.dialogs), TransientResult::kLoaded)
        << "day " << day;
    EXPECT_GT(state.object.magnitude, 6) << "Ceres is never brighter than about 6.6";
    EXPECT_LT(state.object.magnitude, 9.5);
    EXPECT_LT(std::fabs(ShownDec()), 35) << "near the ecliptic";
    if (lastRa >= 0) {
      // Three days move Ceres by well under two degrees.
      const double moved = std::hypot((ShownRa() - lastRa) * 15, ShownDec() - lastDec);
      EXPECT_LT(moved * kArcminPerDegree, 120) << "day " << day;
    }
    lastRa = ShownRa();
    lastDec = ShownDec();
  }
  EXPECT_TRUE(rig.dialogs.messages.empty());
}

}  // namespace
}  // namespace astel::testing
