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
  } cases[] = {{24.99, "  New   "},  {25, "Wax Cres"},  {65, "1st  Qtr"},  {115, "Wax Gibb"},
               {155, "  Full  "},    {205, "Wan Gibb"}, {245, "Last Qtr"}, {295, "Wan Cres"},
               {334.99, "Wan Cres"}, {335, "  New   "}};
  for (const Case& c : cases)
    EXPECT_EQ(MoonAt(c.e, 0).moonPhaseName, c.name) << "e=" << c.e;
  // The difference is taken as it comes: a Moon longitude behind the Sun's wraps by 360.
  EXPECT_EQ(MoonAt(10, 340).moonPhaseName, "Wax Cres");

  // An unreduced difference (e = 400) matches no range and keeps the previous name.
  ObjectState o = MoonAt(200, 100);
  o.moonLongitude = 400;
  o.sunLongitude = 0;
  UpdateMoonPhase(o);
  EXPECT_EQ(o.moonPhaseName, "1st  Qtr");
}

TEST(UpdateMoonPhase, ElongationTextIsTwelveCharacters) {
  struct Case {
    const char* legend;
    double moon, sun;
    const char* text;
  } cases[] = {{"10 degrees west of the Sun", 0, 10, " 10\xB0 Morning"},
               {"179.4 rounds down, a morning object", 180.6, 0, "179\xB0 Morning"},
               {"halves round up", 90.5, 0, " 91\xB0 Evening"}};
  for (const Case& c : cases) {
    const ObjectState o = MoonAt(c.moon, c.sun);
    EXPECT_EQ(o.elongationText, c.text) << c.legend;
    EXPECT_EQ(o.elongationLabel, c.text) << c.legend;
  }
  EXPECT_EQ(MoonAt(0, 10).elongationDegreesText, " 10");
}

}  // namespace
}  // namespace astel
