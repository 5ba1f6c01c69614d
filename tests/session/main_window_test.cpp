#include "session/main_window.h"

#include <gtest/gtest.h>

#include "astro/coordinates.h"
#include "core/location.h"
#include "tests/session/session_fixture.h"

namespace astel {
namespace {

using MainWindowTest = testing::StartedProgram;
const std::string kDeg(1, kDegreeSign);

TEST_F(MainWindowTest, PlaceAndTimeCaptions) {
  const MainDisplay& d = logic.Display();
  EXPECT_EQ(d.label1, "ASTEL+S  Version 6.12");
  EXPECT_EQ(d.windowTitle.rfind("ASTEL+S - ", 0), 0u);
  EXPECT_EQ(d.date, "22-11-2026");
  EXPECT_EQ(d.time, "21:30:05 GMT");
  EXPECT_EQ(d.gmt, "GMT 21:30:05  (offset 0 h)");
  EXPECT_EQ(d.latitude, "Lat  51" + kDeg + "28.6' N");
  EXPECT_EQ(d.longitude, "Long 000" + kDeg + "00.0' W");
  EXPECT_EQ(d.scopeType, "Type 0  no GoTo scope");
  EXPECT_FALSE(d.motorControlVisible);
  // Greenwich mean sidereal time at 2026-11-22 21:30:05 UT is 01:37.7 (almanac); the program's
  // day-count series gives 01:37.6.
  EXPECT_EQ(d.siderealTime.substr(0, 14), "Sidereal 01:37");

  // Month first, a zone west of Greenwich past midnight GMT, half a degree south, east.
  state.place.usDateOrder = true;
  clock.zone = {300, 300, false};
  state.place.gmtOffset = state.place.zoneBiasHours = 5;
  state.place.homeLongitude = -10.5 / kDegreesPerRadianExact;
  state.place.homeLatitude = -0.5 / kDegreesPerRadianExact;
  DeriveLocationFields(state.place);
  logic.Tick();
  EXPECT_EQ(d.date, "11-22-2026");
  EXPECT_EQ(d.time, "21:30:05 EST");
  EXPECT_EQ(d.gmt, "GMT 02:30:05 +1 day  (offset 5 h)");
  EXPECT_EQ(d.latitude, "Lat  00" + kDeg + "30.0' S");
  EXPECT_EQ(d.longitude, "Long 010" + kDeg + "30.0' E");
}

TEST_F(MainWindowTest, BestOfFollowsTheCatalogName) {
  state.form.nextMatchCaption = "Next Best";
  state.files.catalogFileName = "FULL.OBC";
  logic.Load();
  EXPECT_TRUE(logic.Display().bestOfEnabled);
  EXPECT_EQ(logic.Display().nextMatchCaption, "Next Best");
  state.files.catalogFileName = "full.obc";  // the case must match
  logic.Load();
  EXPECT_FALSE(logic.Display().bestOfEnabled);
  EXPECT_EQ(logic.Display().bestOfToolTip,
            "This button is only valid when the default FULL catalog is used ");
  EXPECT_EQ(logic.Display().nextMatchCaption, "Next Match");
}

TEST_F(MainWindowTest, ShownObjectCaptionsAndRiseSetOncePerMinute) {
  EXPECT_EQ(logic.Display().rightAsc, "RA");
  state.object.Name1 = "M31         ";
  state.object.objRaMinutes = 42.74;
  state.object.objDecDegrees = 41;
  state.object.objDecMinutes = 15.996;
  state.object.magnitudeText = "    3.44";
  state.time.riseSetCurrent = false;
  logic.Tick();
  const MainDisplay& d = logic.Display();
  EXPECT_EQ(d.rightAsc, "RA  00h 42.7m");
  EXPECT_EQ(d.declination, "Dec +41\xB0 16'");
  EXPECT_EQ(d.magnitude, "Mag 3.44");
  EXPECT_EQ(d.riseTime, "RiseTime = Always Up");  // 41 degrees north from 51.5 north

  // Rise and set are recomputed when a new minute starts, not on every tick.
  state.object.riseText = "stale";
  clock.now.second = 6;
  logic.Tick();
  EXPECT_EQ(state.object.riseText, "stale");
  clock.now.minute = 31;
  clock.now.second = 0;
  logic.Tick();
  EXPECT_EQ(state.object.riseText, "Always Up");

  state.object.objDecDegrees = 0;
  state.object.objDecMinutes = 30;
  state.object.objDecSign = -1;
  logic.Load();
  EXPECT_EQ(d.declination, "Dec -00\xB0 30'");
}

}  // namespace
}  // namespace astel
