#include "astro/rise_transit_set.h"

#include <gtest/gtest.h>

#include "astro/coordinates.h"

namespace astel {
namespace {

// At latitude 0 an equatorial object (dec 0) has cos H = cos z0 exactly, so its horizon hour
// angle is z0 - 90 degrees more than six hours: 6.0382 h for a star, 6.0549 h for the Sun.
constexpr double kStarHorizonHours = 90.57333 / 15;

// The rise, transit and set of an object at `clock` ("hh:mm:ss"); `upNow` marks it above the
// horizon whatever its computed altitude.
ObjectState Times(double latitudeDeg, double raHours, double decDeg, double lstHours,
                  const std::string& clock, int kind = -1, bool upNow = false) {
  SharedState s;
  s.place.homeLatitude = latitudeDeg / kDegreesPerRadian;
  s.time.localSiderealTime = lstHours;
  s.time.hourText = clock.substr(0, 2);
  s.time.minuteText = clock.substr(3, 2);
  s.time.secondText = clock.substr(6, 2);
  s.object.objectKind = kind;
  SetObjectPosition(s.object, raHours, decDeg);
  ComputeAltAz(s);
  if (upNow) s.object.altitudeCopy = 0.1;
  UpdateRiseTransitSet(s);
  EXPECT_TRUE(s.time.riseSetCurrent);
  return s.object;
}

TEST(RiseTransitSet, CircumpolarAndNeverRisingInBothHemispheres) {
  struct Case {
    const char* legend;
    double latitude, dec;
    const char* rise;  // nullptr: rises and sets
    const char* transitLabel;
  } cases[] = {
      {"north, deep south", 50, -45, "Never Rises", "   "},
      {"south, near the south pole", -35, -80, "Always Up", "TransitTime = "},
      {"north, just below the circumpolar limit", 50, 39, nullptr, nullptr},
      {"south, just below the circumpolar limit", -35, -54, nullptr, nullptr},
  };
  for (const Case& c : cases) {
    const ObjectState o = Times(c.latitude, 3, c.dec, 1, "22:00:00");
    if (c.rise) {
      EXPECT_EQ(o.riseLabel + o.riseText, std::string("RiseTime = ") + c.rise) << c.legend;
      EXPECT_EQ(o.setText, "Never") << c.legend;
      EXPECT_EQ(o.transitLabel + o.transitText, c.transitLabel) << c.legend;
    } else {
      EXPECT_TRUE(o.riseText != "Always Up" && o.riseText != "Never Rises") << c.legend;
      EXPECT_NE(o.setText, "Never") << c.legend;
    }
  }
}

TEST(RiseTransitSet, ClockTimesRatesAndDayMarkers) {
  const double lst = 10, h = kStarHorizonHours;
  struct Row {
    const char* legend;
    double raFromLst;
    const char* clock;
    int kind;
    bool upNow;
    const char* expected;  // a label with its text
  } rows[] = {{"star, two sidereal hours before rising: 10 + 2 x 0.9973 h", 2 + h, "10:00:00", -1,
               false, "NextRise = 11:59  "},
              {"Moon: a horizon 0.25 deg lower and a clock rate of 1.0366", 2 + h, "10:00:00", 3,
               false, "NextRise = 12:03  "},
              {"Sun: a quarter degree lower horizon rises a minute earlier", 2 + h, "06:00:00", 0,
               false, "NextRise = 07:58  "},
              {"up now, rising computed a minute ahead: it rose yesterday", 1.0 / 60 + h,
               "12:00:00", -1, true, "Rose At = 12:00 -"},
              {"transit tomorrow: 22:30 + 2.9919 h = 25:29.5", 3, "22:30:00", -1, false,
               "NextTransit = 01:30 +"},
              {"transit yesterday: 01:00 - 2.9919 h = 22:00.5", -3, "01:00:00", -1, false,
               "LastTransit = 22:00 -"},
              {"up, setting after midnight: 23:00 + 1.9946 h", 2 - h, "23:00:00", -1, false,
               "Sets At = 01:00 +"}};
  for (const Row& r : rows) {
    const ObjectState o = Times(0, lst + r.raFromLst, 0, lst, r.clock, r.kind, r.upNow);
    const std::string all = "|" + o.riseLabel + o.riseText + "|" + o.transitLabel + o.transitText +
                            "|" + o.setLabel + o.setText + "|";
    EXPECT_NE(all.find(std::string("|") + r.expected + "|"), std::string::npos)
        << r.legend << ": " << all;
  }
}

}  // namespace
}  // namespace astel
