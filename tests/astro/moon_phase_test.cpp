#include "astro/moon_phase.h"

#include <gtest/gtest.h>

namespace astel {
namespace {

ObjectState MoonAt(double moonLongitude, double sunLongitude) {
  ObjectState o;
  o.moonLongitude = moonLongitude;
  o.sunLongitude = sunLongitude;
  UpdateMoonPhase(o);
  return o;
}

TEST(UpdateMoonPhase, PhaseNamesAtTheirBoundaries) {
  struct Case {
    double e;
    const char* name;
  };
  const Case cases[] = {{0, "  New   "},   {24.99, "  New   "}, {25, "Wax Cres"},
                        {65, "1st  Qtr"},  {90.5, "1st  Qtr"},  {115, "Wax Gibb"},
                        {155, "  Full  "}, {180.6, "  Full  "}, {205, "Wan Gibb"},
                        {245, "Last Qtr"}, {295, "Wan Cres"},   {334.99, "Wan Cres"},
                        {335, "  New   "}, {350, "  New   "}};
  for (const Case& c : cases) {
    EXPECT_EQ(MoonAt(100 + c.e, 100).moonPhaseName, c.name) << "e=" << c.e;
    EXPECT_EQ(MoonAt(100 + c.e, 100).moonPhaseName.size(), 8u);
  }
  // The difference is taken as it comes: a Moon longitude behind the Sun's wraps by 360.
  EXPECT_EQ(MoonAt(10, 340).moonPhaseName, "Wax Cres");
}

TEST(UpdateMoonPhase, ElongationTextIsTwelveCharacters) {
  ObjectState o = MoonAt(0, 10);  // 10 degrees west of the Sun
  EXPECT_EQ(o.elongationText, " 10\xB0 Morning");
  EXPECT_EQ(o.elongationLabel, o.elongationText);
  EXPECT_EQ(o.elongationDegreesText, " 10");

  o = MoonAt(180.6, 0);  // 179.4 rounds down, and the Moon is a morning object
  EXPECT_EQ(o.elongationText, "179\xB0 Morning");
  o = MoonAt(90.5, 0);  // halves round up
  EXPECT_EQ(o.elongationText, " 91\xB0 Evening");
  o = MoonAt(7, 0);
  EXPECT_EQ(o.elongationText, "  7\xB0 Evening");
  EXPECT_EQ(o.elongationText.size(), 12u);
}

TEST(UpdateMoonPhase, UnreducedLongitudesKeepThePreviousName) {
  ObjectState o = MoonAt(200, 100);
  ASSERT_EQ(o.moonPhaseName, "1st  Qtr");
  o.moonLongitude = 400;  // e = 400: no range matches
  o.sunLongitude = 0;
  UpdateMoonPhase(o);
  EXPECT_EQ(o.moonPhaseName, "1st  Qtr");
}

}  // namespace
}  // namespace astel
