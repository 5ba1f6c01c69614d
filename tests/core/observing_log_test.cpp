#include "core/observing_log.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "core/location.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/temp_dir.h"

namespace astel {
namespace {

class ObservingLogTest : public ::testing::Test {
 protected:
  void SetUp() override {
    s.files.installDir = dir.path() + "/";  // the home file is ASTEL.HOM
    TimeState& t = s.time;
    t.dayText = "22", t.monthText = "11", t.yearText = "2026", t.hourText = "21";
    t.minuteText = "15", t.secondText = "42", t.gmtTimeText = "03:15", t.gmtDaySign = "+";
    SetHomeLatitude(s.place, 40 + 44.52 / 60);
    SetHomeLongitude(s.place, 73 + 59.4 / 60);
    s.telescope.scopeType = 4, s.search.foundState = 1;  // M31 shown from the catalog
    ObjectState& o = s.object;
    o.Name1 = "M31         ", o.Name2 = "NGC 224     ", o.Name3 = "Andromeda Gx";
    o.Name4 = "galaxy      ", o.Name5 = "Andromeda   ";
    o.altitude = 63.449, o.magnitudeText = "    3.44";
  }
  std::string Log() {
    std::ifstream in(dir.path() + "/ASTELLOG.TXT", std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  testing::TempDir dir;
  testing::ScriptedDialogs dialogs;
  SharedState s;
};

TEST_F(ObservingLogTest, FirstNoteWritesTheHeaderOncePerRun) {
  dialogs.answers = {"Dust lane visible", ""};
  TakeObservingNotes(s, dialogs);
  EXPECT_EQ(dialogs.prompts[0], "Enter Observing Notes for M31          - a blank line exits");
  ASSERT_TRUE(WriteLogEntry(s, dialogs, "M32 too"));
  const std::string object =
      "M31          NGC 224      Andromeda Gx galaxy       Andromeda    Alt= 63.4 \xB0 MAG=3.44 "
      "22-11-2026 21:15:42\r\n";
  EXPECT_EQ(Log(),
            "  \r\n"
            "OBSERVING NOTES WRITTEN 22-11-2026 STARTING 21:15:42 LOCAL TIME, GMT= 03:15:15:42 + "
            "LOCATION FILE: ASTEL.HOM LAT= 40 \xB0 44.5 ' LONG= 73 \xB0 59.4 ' GOTO SCOPE= 4 \r\n"
            "  \r\n" +
                object + "Dust lane visible\r\n" + object + "M32 too\r\n");

  s.files.installDir = dir.path() + "/missing/";
  s.program.lastLoggedName = "";
  EXPECT_FALSE(WriteLogEntry(s, dialogs, "note"));
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_NE(dialogs.messages[0].find("No such file or directory"), std::string::npos);
  EXPECT_EQ(s.program.lastLoggedName, "") << "the header is still owed";
}

TEST_F(ObservingLogTest, APlanetLineNamesItsDistanceAndDisc) {
  s.program.lastLoggedName = "  ";  // header already written
  ObjectState& o = s.object;
  o.objectKind = 5, o.altitude = 25.06, o.Name5 = "JD 2461367.13";
  o.Name1 = "Jupiter", o.Name2 = "4.210 AU", o.Name3 = "Diam 46.8\"";
  EXPECT_EQ(ComposeLogEntry(s, "x"),
            "Jupiter Dist=4.210 AU Diam 46.8\". Alt= 25.1 \xB0 JD 2461367.13 22-11-2026 "
            "21:15:42\r\nx\r\n");
}

}  // namespace
}  // namespace astel
