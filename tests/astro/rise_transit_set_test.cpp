#include "astro/rise_transit_set.h"

#include <gtest/gtest.h>

#include "astro/coordinates.h"

namespace astel {
namespace {

// At latitude 0 an equatorial object (dec 0) has cos H = cos z0 exactly, so its horizon hour
// angle is z0 - 90 degrees more than six hours: 6.0382 h for a star, 6.0549 h for the Sun.
constexpr double kStarHorizonHours = 90.57333 / 15;

SharedState Sky(double latitudeDeg, double raHours, double decDeg, double lstHours,
                const char* clock, int kind = -1) {
  SharedState s;
  s.place.homeLatitude = latitudeDeg / kDegreesPerRadian;
  s.time.localSiderealTime = lstHours;
  std::string t(clock);  // "hh:mm:ss"
  s.time.hourText = t.substr(0, 2);
  s.time.minuteText = t.substr(3, 2);
  s.time.secondText = t.substr(6, 2);
  s.object.objectKind = kind;
  SetObjectPosition(s.object, raHours, decDeg);
  ComputeAltAz(s);
  return s;
}

TEST(RiseTransitSet, CircumpolarAndNeverRisingInBothHemispheres) {
  struct Case {
    const char* legend;
    double latitude, dec;
    const char* rise;
    const char* transitLabel;
  };
  const Case cases[] = {
      {"north, near the pole", 50, 45, "Always Up", "TransitTime = "},
      {"north, deep south", 50, -45, "Never Rises", "   "},
      {"south, near the south pole", -35, -80, "Always Up", "TransitTime = "},
      {"south, far north", -35, 80, "Never Rises", "   "},
  };
  for (const Case& c : cases) {
    SharedState s = Sky(c.latitude, 3, c.dec, 1, "22:00:00");
    UpdateRiseTransitSet(s);
    EXPECT_EQ(s.object.riseText, c.rise) << c.legend;
    EXPECT_EQ(s.object.riseLabel, "RiseTime = ") << c.legend;
    EXPECT_EQ(s.object.setText, "Never") << c.legend;
    EXPECT_EQ(s.object.transitLabel, c.transitLabel) << c.legend;
    EXPECT_EQ(s.object.transitText, "") << c.legend;
    EXPECT_TRUE(s.time.riseSetCurrent);
  }
  // Objects that do rise and set: just below the circumpolar limit, and anything at the equator.
  for (auto [lat, dec] : {std::pair{50.0, 39.0}, {0.0, 89.0}, {0.0, -89.0}, {-35.0, -54.0}}) {
    SharedState s = Sky(lat, 3, dec, 1, "22:00:00");
    UpdateRiseTransitSet(s);
    EXPECT_NE(s.object.riseText, "Always Up") << lat << " " << dec;
    EXPECT_NE(s.object.riseText, "Never Rises") << lat << " " << dec;
    EXPECT_NE(s.object.setText, "Never") << lat << " " << dec;
  }
}

TEST(RiseTransitSet, ClockRateOfTheMoonAndOfEverythingElse) {
  // Two sidereal hours before rising, at 10:00 by the clock.
  const double lst = 4;
  const double ra = lst + 2 + kStarHorizonHours;
  SharedState star = Sky(0, ra, 0, lst, "10:00:00");
  UpdateRiseTransitSet(star);
  EXPECT_EQ(star.object.riseLabel, "NextRise = ");
  EXPECT_EQ(star.object.riseText, "11:59  ");  // 10 + 2 x 0.9973 h = 11:59.7

  SharedState moon = Sky(0, ra, 0, lst, "10:00:00", 3);
  UpdateRiseTransitSet(moon);
  // The Moon's horizon is lower (z0 90.82333), so it rises 0.25 degrees = 1 sidereal minute sooner.
  const double moonHours = 2 - 0.25 / 15;
  int minutes = static_cast<int>(moonHours * 1.0366 * 60);
  EXPECT_EQ(moon.object.riseText, "12:0" + std::to_string(minutes - 120) + "  ");
}

TEST(RiseTransitSet, SunRisesEarlierThanAStarAtTheSamePlace) {
  const double lst = 4, ra = lst + 2 + kStarHorizonHours;
  SharedState star = Sky(0, ra, 0, lst, "06:00:00");
  SharedState sun = Sky(0, ra, 0, lst, "06:00:00", 0);
  UpdateRiseTransitSet(star);
  UpdateRiseTransitSet(sun);
  EXPECT_EQ(star.object.riseText, "07:59  ");
  EXPECT_EQ(sun.object.riseText, "07:58  ");  // a quarter degree lower horizon: one minute earlier
}

TEST(RiseTransitSet, DayMarkers) {
  // Up now, and the rising computed a minute into the clock's future: it rose yesterday.
  const double lst = 10;
  const double r = lst + 1.0 / 60;  // sidereal time of rising, just ahead of now
  SharedState s = Sky(0, r + kStarHorizonHours, 0, lst, "12:00:00");
  s.object.altitudeCopy = 0.1;
  UpdateRiseTransitSet(s);
  EXPECT_EQ(s.object.riseLabel, "Rose At = ");
  EXPECT_EQ(s.object.riseText.substr(5), " -");

  // Next rise after midnight: " +".
  SharedState late = Sky(0, lst + 3 + kStarHorizonHours, 0, lst, "23:00:00");
  UpdateRiseTransitSet(late);
  EXPECT_EQ(late.object.riseLabel, "NextRise = ");
  EXPECT_EQ(late.object.riseText, "01:59 +");

  // Transit in three sidereal hours from 22:30 is tomorrow; three hours ago from 01:00 yesterday.
  SharedState t1 = Sky(0, lst + 3, 0, lst, "22:30:00");
  UpdateRiseTransitSet(t1);
  EXPECT_EQ(t1.object.transitLabel, "NextTransit = ");
  EXPECT_EQ(t1.object.transitText, "01:30 +");  // 22:30 + 2.9919 h = 25:29.5, rounded
  SharedState t2 = Sky(0, lst - 3, 0, lst, "01:00:00");
  UpdateRiseTransitSet(t2);
  EXPECT_EQ(t2.object.transitLabel, "LastTransit = ");
  EXPECT_EQ(t2.object.transitText, "22:00 -");  // 01:00 - 2.9919 h = 22:00.5

  // Up and setting after midnight.
  SharedState setting = Sky(0, lst - kStarHorizonHours + 2, 0, lst, "23:00:00");
  UpdateRiseTransitSet(setting);
  EXPECT_EQ(setting.object.setLabel, "Sets At = ");
  EXPECT_EQ(setting.object.setText, "01:00 +");  // 23:00 + 1.9946 h = 24:59.7, rounded
}

}  // namespace
}  // namespace astel
