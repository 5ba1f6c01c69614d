#include "catalog/transient_catalog.h"

#include <gtest/gtest.h>

#include "search_fixture.h"

namespace astel::testing {
namespace {

// A position record of a transient catalog for a GMT hour of 2026 November.
std::string Position(int day, int hour, double raHours, double decDeg) {
  const std::string name = "26-11-" + FormatFixed(day, "00") + " " + FormatFixed(hour, "00") + "h";
  return Rec(name, raHours, decDeg, "7.5", "Ceres")
      .replace(78, 10, TransientTimeText(2026, 11, day, hour) + "T");  // columns 79-88
}

class TransientTest : public SearchTest {
 protected:
  TransientResult ReloadAt(int year, int month, int day, double hours) {
    state.time.year = year;
    state.time.julianDate = JulianDateOf(year, month, day, hours);
    return ReloadTransientPosition(state, dialogs);
  }
  void UseTransient(const std::vector<std::string>& records) {
    std::string text = ComposeHeader("CERES", 2026, "test", 'T') + "\r\n";
    for (const std::string& r : records)
      text += r + "\r\n";
    WriteFile(File(dir, "CERES.OBC"), text);
    ASSERT_TRUE(OpenCatalog(state, Dir(dir), "CERES.OBC"));
  }
};

TEST_F(TransientTest, TheHourThatContainsTheTimeServesItInterpolated) {
  EXPECT_DOUBLE_EQ(JulianDateOf(2000, 1, 1, 12), 2451545.0);
  UseTransient({Position(22, 11, 5.2, -10.5), Position(22, 10, 5.0, -10.0),
                Position(22, 12, 5.4, -11.0), Position(23, 10, 23.9, 1), Position(23, 11, 0.1, 1)});
  const double rows[][4] = {
      {22, 11.25, 5.25, -10.625},  // a quarter of the way to the next hour, records in any order
      {22, 12.75, 5.4, -11.0},     // the last record of a run serves its own hour
      {23, 10.75, 0.05, 1}};       // across 0h of right ascension
  for (const auto& [day, hours, ra, dec] : rows) {
    ASSERT_EQ(ReloadAt(2026, 11, static_cast<int>(day), hours), TransientResult::kLoaded) << hours;
    EXPECT_NEAR(state.object.objRaHours + state.object.objRaMinutes / 60, ra, 1e-6) << hours;
    EXPECT_NEAR(ObjectDeclinationDegrees(state.object), dec, 1e-6) << hours;
  }
  // The program's Julian date counts seconds in hours; at 10:59:59 the 10h record still serves.
  state.time.julianDate = JulianDateOf(2026, 11, 22, 10 + 59.0 / 60) + 59.0 / 3600;
  state.time.second = 59;
  ASSERT_EQ(ReloadTransientPosition(state, dialogs), TransientResult::kLoaded);
  EXPECT_EQ(state.object.Name1 + state.object.Name2, "26-11-22 10hCeres       ");
  EXPECT_TRUE(dialogs.messages.empty());

  UseTransient({Position(22, 10, 6.0, 20.0)});  // the file is replaced while the program runs
  ASSERT_EQ(ReloadAt(2026, 11, 22, 10.5), TransientResult::kLoaded);
  EXPECT_NEAR(ObjectDeclinationDegrees(state.object), 20.0, 1e-6) << "the new file is read";
}

TEST_F(TransientTest, NoPositionMessageOnceAndTheObsoleteLine) {
  UseTransient({Position(22, 10, 5.0, -10.0), Position(22, 13, 5.6, -11.0)});
  const std::string base =
      "The Transient Catalog CERES.OBC contains no positions for the time set in ASTEL. Either "
      "change the time, or change catalogs.";
  EXPECT_EQ(ReloadAt(2026, 11, 22, 11.5), TransientResult::kNoPosition) << "in the gap";
  EXPECT_EQ(ReloadAt(2026, 11, 22, 13.2), TransientResult::kLoaded);
  EXPECT_TRUE(SimpleSearch(state, ports)) << "searching serves the position";
  EXPECT_EQ(state.object.Name1, "26-11-22 13h");
  EXPECT_EQ(ReloadAt(2027, 1, 5, 0), TransientResult::kNoPosition);
  EXPECT_EQ(dialogs.messages,
            (Names{base, kTransientNotSearchable,
                   base + "\nThis catalog appears to be obsolete, and should be deleted."}));
  EXPECT_EQ(state.search.foundState, 0);
  ASSERT_TRUE(OpenCatalog(state, Dir(dir), "CERES.OBC"));
  EXPECT_EQ(ReloadAt(2026, 11, 21, 0), TransientResult::kNoPosition);
  EXPECT_EQ(dialogs.messages.back(), base) << "not after the header's year: not obsolete";

  UseCatalog({Rec("M1", 5.5, 22)});
  EXPECT_EQ(ReloadTransientPosition(state, dialogs), TransientResult::kNotTransient);
}

// The shipped sample: hourly positions of (1) Ceres around its opposition of January 2027.
TEST_F(TransientTest, ShippedCeresSampleServesTheComingMonths) {
  ASSERT_TRUE(OpenCatalog(state, ASTEL_SOURCE_DATA_DIR, "CERES.OBC"));
  for (int day = 0; day < 90; day += 3)
    EXPECT_EQ(ReloadAt(2026, 11, 25 + day, 8.88), TransientResult::kLoaded) << "day " << day;
}

}  // namespace
}  // namespace astel::testing
