#include "astro/solar_system.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <numbers>
#include <sstream>
#include <tuple>

#include "astro/coordinates.h"
#include "astro/time_scales.h"
#include "core/text_format.h"

namespace astel {
namespace {

// The Sun and the planets agree within 5 arc-seconds, the Moon within 11: these catch a reduction
// left out (nutation and aberration are each up to 20 arc-seconds). libnova's Pluto theory is
// fitted to 1885..2099; after that it drifts (21' in 2150).
constexpr double kPlanetTolArcmin = 10.0 / 60, kMoonTolArcmin = 0.5, kPlutoLateTolArcmin = 25.0;
constexpr double kPlutoTheoryEndJd = 2488069.5;  // 2100 January 1, 0h
constexpr double kDistanceTolPercent = 0.1, kPlutoLateDistanceTolPercent = 0.3;
// The Sun's longitude used for the Moon's phase: 0.011 degree at worst over 1988..2150.
constexpr double kShortSunTolArcmin = 0.015 * 60;
constexpr double kRad = std::numbers::pi / 180;

// Great-circle separation in arc-minutes (haversine: exact also for fractions of an arc-second).
double SeparationArcmin(double ra1Hours, double dec1Deg, double ra2Hours, double dec2Deg) {
  const double h = std::pow(std::sin((dec2Deg - dec1Deg) * kRad / 2), 2) +
                   std::cos(dec1Deg * kRad) * std::cos(dec2Deg * kRad) *
                       std::pow(std::sin((ra2Hours - ra1Hours) * 15 * kRad / 2), 2);
  return 2 * std::asin(std::sqrt(std::min(1.0, h))) / kRad * 60;
}

double LongitudeDifferenceArcmin(double a, double b) {
  return 60 * std::fabs(std::remainder(a - b, 360.0));
}

TEST(ComputeBody, MatchesTheSwissEphemerisReference) {
  std::ifstream in(std::string(ASTEL_TEST_DATA_DIR) + "/solar_system_reference.txt");
  int rows = 0;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line[0] == '#') continue;
    std::istringstream fields(line);
    std::string moment, body;
    double jd, deltaT, ra, dec, distance, longitude;
    int kind;
    ASSERT_TRUE(fields >> moment >> jd >> deltaT >> kind >> body >> ra >> dec >> distance >>
                longitude)
        << line;
    ++rows;
    ASSERT_EQ(BodyName(kind), body) << "kind numbering, " << line;
    const BodyPosition p = ComputeBody(kind, jd);
    const bool latePluto = kind == kPluto && jd >= kPlutoTheoryEndJd;
    const double tol = kind == kMoon ? kMoonTolArcmin
                       : latePluto   ? kPlutoLateTolArcmin
                                     : kPlanetTolArcmin;
    EXPECT_LE(SeparationArcmin(ra, dec, p.raHours, p.decDegrees), tol) << line;
    EXPECT_LE(LongitudeDifferenceArcmin(p.eclipticLongitudeDeg, longitude), tol) << line;
    EXPECT_LE(100 * std::fabs(p.distanceAu / distance - 1),
              latePluto ? kPlutoLateDistanceTolPercent : kDistanceTolPercent)
        << line;
    if (kind == kSun) {  // the short solar theory of the Moon's phase
      EXPECT_LE(LongitudeDifferenceArcmin(SunLongitudeForPhase(jd), longitude), kShortSunTolArcmin);
    }
  }
  EXPECT_GE(rows, 80) << "reference file missing or cut short";
}

// Puts a GMT moment into the state the way the main window does, through the time scales.
void SetMoment(SharedState& state, int year, int month, int day, int hour, int minute) {
  FillDateTables(state.time);
  TimeState& t = state.time;
  t.year = year, t.month = month, t.day = day, t.hour = hour, t.minute = minute, t.second = 0;
  t.minuteText = FormatFixed(minute, "00");
  ASSERT_TRUE(UpdateTimeScales(state));
}

double ShownRaHours(const ObjectState& o) {
  return o.objRaHours + o.objRaMinutes / 60;
}

TEST(SelectBody, ShowsNamesPlaceOfDateAndFollowsTheClock) {
  SharedState state;
  SetMoment(state, 2024, 4, 8, 18, 17);  // total solar eclipse
  // Jupiter's reference distance is 5.851757 AU; the Sun's disc is given in arc-minutes.
  for (auto [kind, shown] : {std::pair{kJupiter, "Jupiter|5.852 AU|Diam 33.6\"|-2.0"},
                             std::pair{kSun, "Sun|1.002 AU|Diam 31.9'|-26.7"}}) {
    state.time.riseSetCurrent = true;
    SelectBody(state, kind);
    const ObjectState& o = state.object;
    EXPECT_EQ(o.Name1 + "|" + o.Name2 + "|" + o.Name3 + "|" + o.magnitudeText + "|" + o.Name5,
              std::string(shown) + "|JD 2460409.26");
    EXPECT_TRUE(o.objectKind == kind && state.form.list1Index == kind);
    EXPECT_FALSE(state.time.riseSetCurrent);
    EXPECT_EQ(o.sourceEpoch, o.targetEpoch) << o.Name1 << ": a place of date is not precessed";
  }
  EXPECT_EQ(DistanceText(0.0999) + "|" + DistanceText(10), "0.09990 AU|10.00 AU");

  SelectBody(state, kMoon);
  const double raBefore = ShownRaHours(state.object);
  state.time.riseSetCurrent = true;
  SetMoment(state, 2024, 4, 8, 19, 17);  // an hour later the Moon is half a degree further east
  UpdateSelectedBody(state);
  EXPECT_TRUE(state.time.riseSetCurrent);
  EXPECT_GT(ShownRaHours(state.object) - raBefore, 0.5 / 15 * 0.8);
  EXPECT_EQ(state.object.Name5, "JD 2460409.30");
  SelectBody(state, 10);
  EXPECT_TRUE(state.object.Name1 == "Moon" && state.time.riseSetCurrent) << "an unknown kind";
  state.object.objectKind = -1;  // a catalog object stays where the catalog put it
  SetObjectPosition(state.object, 0.7123, 41.269);
  UpdateSelectedBody(state);
  EXPECT_NEAR(ShownRaHours(state.object), 0.7123, 1e-12);

  // The Sun stood just south of the equator: the sign of -2 degrees survives the split.
  SetMoment(state, 1990, 3, 15, 4, 17);
  SelectBody(state, kSun);
  EXPECT_EQ(state.object.objDecDegrees, -2);
  EXPECT_NEAR(ObjectDeclinationDegrees(state.object), -2.256906, 0.01) << "the reference's place";

  // Elongations from the reference ephemeris, each at least 0.2 degree from a rounding edge:
  // 177.94 3h40 before the full moon of 2000-01-21, and 302.96 (waning crescent) on January 1.
  for (auto [day, hour, shown] : {std::tuple{21, 1, "  Full  |178\xB0 Evening|0.00"},
                                  std::tuple{1, 12, "Wan Cres| 57\xB0 Morning|0.00"}}) {
    SetMoment(state, 2000, 1, day, hour, 0);
    SelectBody(state, kMoon);
    const ObjectState& o = state.object;
    EXPECT_EQ(o.Name2 + "|" + o.Name3 + "|" + o.Name4.substr(0, 4), shown)
        << "the distance moves to Name4";
  }
}

}  // namespace
}  // namespace astel
