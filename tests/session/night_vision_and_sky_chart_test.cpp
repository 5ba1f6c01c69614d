#include <gtest/gtest.h>

#include "core/night_vision.h"
#include "session/night_vision_toggle.h"
#include "session/sky_chart_launch.h"
#include "tests/session/session_fixture.h"

namespace astel {
namespace {

// Toggling twice is the main window test's (tests/ui); here the Colour button's choice.
TEST(NightVision, ABackgroundChosenAtNightIsTheOneTheDayGetsBack) {
  SharedState s;
  FillColourTables(s.display);
  ToggleRedScreen(s.display);
  SetBackgroundColour(s, 0xFFFFFF);
  EXPECT_TRUE(s.program.configChanged);
  EXPECT_EQ(s.display.backColor, 128u);
  ToggleRedScreen(s.display);
  EXPECT_EQ(s.display.backColor, 0xFFFFFFu);
  EXPECT_EQ(s.display.accentColor, 0xFFFFFFu) << "white brings a white accent";
}

TEST(SkyChart, StartsTheChartOnTheShownPosition) {
  SharedState s;
  testing::ScriptedDialogs dialogs;
  testing::RecordingShell shell;

  EXPECT_FALSE(SkyChartClick(s, dialogs, shell));
  EXPECT_EQ(dialogs.messages.back(), kSkyChartMissingMessage);
  s.files.skyChartInstalled = true;
  s.files.skyChartDir = "/usr/bin/";
  EXPECT_FALSE(SkyChartClick(s, dialogs, shell));
  EXPECT_EQ(dialogs.messages.back(), kSkyChartNoObjectMessage);

  s.object.Name1 = "M31";
  s.object.objRaMinutes = 42.74;
  s.object.objDecDegrees = 41;
  s.object.objDecMinutes = 16.2;
  EXPECT_TRUE(SkyChartClick(s, dialogs, shell));
  EXPECT_EQ(shell.started.back(),
            "/usr/bin/skychart|--unique --nosplash --ra=0.71233 --dec=+41.2700 --fov=10.0");

  // -0 degrees 30 minutes stays south; the hours of 23h 59.99m keep five decimals.
  s.object.objRaHours = 23;
  s.object.objRaMinutes = 59.99;
  s.object.objDecDegrees = 0;
  s.object.objDecMinutes = 30;
  s.object.objDecSign = -1;
  EXPECT_EQ(SkyChartParameters(s.object),
            "--unique --nosplash --ra=23.99983 --dec=-0.5000 --fov=10.0");

  shell.works = false;
  EXPECT_FALSE(SkyChartClick(s, dialogs, shell));
  EXPECT_EQ(dialogs.messages.back(), "Cannot start the sky chart program /usr/bin/skychart");
}

}  // namespace
}  // namespace astel
