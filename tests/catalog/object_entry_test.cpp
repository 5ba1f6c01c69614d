#include "catalog/object_entry.h"

#include <gtest/gtest.h>

#include "astro/coordinates.h"
#include "catalog/catalog_reader.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

class ObjectEntryTest : public SearchTest {
 protected:
  bool Ok(EntryOption option, const std::string& name1 = "MyNeb", const std::string& name2 = "") {
    return DataEntryOk(state, rig.dialogs, scope, DataEntryForm{option, name1, name2});
  }
  FakeScope scope;
};

TEST_F(ObjectEntryTest, FormChecksComeFirst) {
  struct Row {
    const char* legend;
    EntryOption option;
    const char* name1;
    const char* name2;
    bool realTime;
    const char* message;
  } rows[] = {
      {"no option", EntryOption::kNone, "X", "", true,
       "Choose one of the Options for getting Object Data"},
      {"no name", EntryOption::kCoordinates, "  ", "", true,
       "The Object must have at least one name!"},
      {"telescope outside real time", EntryOption::kTelescope, "X", "", false,
       "Must be in Real-Time Mode for Scope Load"},
  };
  for (const Row& r : rows) {
    state.time.realTimeMode = r.realTime;
    rig.dialogs.messages.clear();
    EXPECT_FALSE(Ok(r.option, r.name1, r.name2)) << r.legend;
    EXPECT_EQ(rig.dialogs.messages, std::vector<std::string>{r.message}) << r.legend;
    EXPECT_TRUE(rig.dialogs.prompts.empty()) << r.legend;
  }
  EXPECT_EQ(scope.calls, 0);
}

TEST_F(ObjectEntryTest, CoordinatesChainRepeatsBadAnswersAndKeepsMinusZero) {
  state.object.Name1 = "OLD";
  rig.dialogs.answers = {"24", "x", "5", "60", "30", "-91", "-0",
                         "30", "",  "",  "",   "",   "",    "" /* cancelled at the epoch */};
  EXPECT_FALSE(Ok(EntryOption::kCoordinates));
  EXPECT_EQ(state.object.Name1, "OLD") << "Cancel leaves the shown object";

  rig.dialogs.prompts.clear();
  rig.dialogs.titles.clear();
  rig.dialogs.answers = {"24", "x",    "5",        "60", "30", "-91", "-0",
                         "30", "2000", "NGC 9999", "",   "",   ""};
  ASSERT_TRUE(Ok(EntryOption::kCoordinates, "MyNeb", "Second"));
  const std::vector<std::string> titles = {"Hours of Right Ascension",
                                           "Hours of Right Ascension",
                                           "Hours of Right Ascension",
                                           "Set Minutes of Right Ascension",
                                           "Set Minutes of Right Ascension",
                                           "Degrees of Declination",
                                           "Degrees of Declination",
                                           "Minutes of Declination",
                                           "Epoch?",
                                           "Third Name?",
                                           "Fourth Name?",
                                           "Fifth Name?",
                                           "Object's magnitude?"};
  EXPECT_EQ(rig.dialogs.titles, titles);
  EXPECT_EQ(rig.dialogs.prompts[0], "Enter Hours of Right Ascension of object (0 to 23 )");
  EXPECT_EQ(rig.dialogs.prompts[8], "Epoch of those Coordinates?");
  EXPECT_EQ(rig.dialogs.defaults[8], "2000");
  EXPECT_EQ(rig.dialogs.prompts[12], "Enter object's magnitude, if known");
  const ObjectState& o = state.object;
  EXPECT_EQ(o.Name1, "MyNeb       ");
  EXPECT_EQ(o.Name2, "Second      ");
  EXPECT_EQ(o.Name3, "NGC 9999    ");
  EXPECT_EQ(o.objRaHours, 5);
  EXPECT_NEAR(o.objRaMinutes, 30, 1e-9);
  EXPECT_EQ(o.objDecDegrees, 0);
  EXPECT_NEAR(o.objDecMinutes, 30, 1e-9);
  EXPECT_EQ(o.objDecSign, -1);
  EXPECT_EQ(o.magnitudeText, "99      ") << "no magnitude is stored as 99";
  EXPECT_EQ(state.search.foundState, 1);

  // Added to the catalog, the record reads back as -0.5 degrees and unknown magnitude.
  UseCatalog({});
  rig.dialogs.choices = {true};
  ASSERT_TRUE(AddObject(state, rig.dialogs));
  EXPECT_EQ(rig.dialogs.questions.back(),
            "Do you want to add the object MyNeb to catalog TEST.OBC ?");
  const std::vector<std::string> lines = Lines(ReadFile(File(dir, "TEST.OBC")));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[1].substr(69, 9), "-00.5000 ");
  const CatalogRecord rec = ParseRecord(lines[1]);
  EXPECT_NEAR(rec.decDegrees, -0.5, 1e-9);
  EXPECT_EQ(rec.magnitude, kUnknownMagnitude);
  EXPECT_NEAR(rec.raHours, 5.5, 1e-9);

  rig.dialogs.answers = {"MyNeb"};
  ASSERT_TRUE(SimpleSearch(state, rig.ports)) << "the added object can be found";
  EXPECT_NE(Lines(Matches())[5].find(std::string(12, ' ') + "     R.A."), std::string::npos)
      << "and shows no magnitude in the matches file";
}

TEST_F(ObjectEntryTest, CoordinatesArePrecessedFromTheirEpoch) {
  state.time.roundedYear = 2027;
  rig.dialogs.answers = {"0", "42.7", "41", "16", "2000", "", "", "", "3.4"};
  ASSERT_TRUE(Ok(EntryOption::kCoordinates, "M31"));
  ObjectState expected;
  SetObjectPosition(expected, 42.7 / 60, 41 + 16.0 / 60);
  expected.sourceEpoch = 2000;
  expected.targetEpoch = 2027;
  PrecessToDate(expected);
  EXPECT_NEAR(state.object.objRaMinutes, expected.objRaMinutes, 1e-9);
  EXPECT_NEAR(state.object.objDecMinutes, expected.objDecMinutes, 1e-9);
  EXPECT_EQ(state.object.sourceEpoch, 2027) << "the shown position is of the date";
  EXPECT_EQ(state.object.magnitudeText, "3.4     ");
  EXPECT_DOUBLE_EQ(state.object.magnitude, 3.4);
}

TEST_F(ObjectEntryTest, AltitudeAzimuthRoundTripAndTheRefused360) {
  state.place.homeLatitude = 40.5 / kDegreesPerRadian;
  state.time.localSiderealTime = 7.25;
  rig.dialogs.answers = {"91", "35", "20", "360", "359.9", "30", "", "", "", ""};
  ASSERT_TRUE(Ok(EntryOption::kAltAz));
  const std::vector<std::string> titles = {
      "Degrees of Altitude", "Degrees of Altitude",    "Minutes of Altitude", "Degrees of Azimuth",
      "Degrees of Azimuth",  "Set Minutes of Azimuth", "Third Name?",         "Fourth Name?",
      "Fifth Name?",         "Object's magnitude?"};
  EXPECT_EQ(rig.dialogs.titles, titles) << "360 is refused, 359.9 accepted";
  // Placing the computed position in the sky gives back what was typed.
  EXPECT_NEAR(state.object.altitude, 35 + 20.0 / 60, 1e-6);
  EXPECT_NEAR(state.object.azimuth, 359.9 + 30.0 / 60 - 360, 1e-6);
}

TEST(AltAzRoundTrip, ThroughBothDirections) {
  SharedState s;
  for (double lat : {-33.9, 0.0, 51.5}) {
    s.place.homeLatitude = lat / kDegreesPerRadian;
    s.time.localSiderealTime = 3.3;
    for (double alt : {1.0, 12.5, 45.0, 88.0}) {
      for (double az : {10.0, 95.0, 180.5, 271.0}) {
        const Equatorial eq = AltAzToEquatorial(s, alt, az);
        SetObjectPosition(s.object, eq.raHours, eq.decDegrees);
        ComputeAltAz(s);
        EXPECT_NEAR(s.object.altitude, alt, 1e-6) << lat << " " << alt << " " << az;
        EXPECT_NEAR(s.object.azimuth, az, 1e-5) << lat << " " << alt << " " << az;
      }
    }
  }
}

TEST_F(ObjectEntryTest, TelescopeReadBack) {
  state.time.realTimeMode = true;
  state.time.roundedYear = 2027;
  scope.raHours = 6, scope.raMinutes = 0.1, scope.decDegrees = 0, scope.decMinutes = 30,
  scope.decSign = -1;
  rig.dialogs.answers = {"", "", "", "6.5"};
  ASSERT_TRUE(Ok(EntryOption::kTelescope, "", "FromScope"));
  EXPECT_EQ(scope.calls, 1);
  EXPECT_EQ(state.object.objRaHours, 6);
  EXPECT_EQ(state.object.objDecSign, -1);
  EXPECT_TRUE(state.telescope.positionFromScope);
  EXPECT_EQ(state.object.sourceEpoch, 2027);

  scope.succeed = false;
  state.object.Name1 = "KEEP";
  EXPECT_FALSE(Ok(EntryOption::kTelescope));
  EXPECT_EQ(state.object.Name1, "KEEP");
}

TEST_F(ObjectEntryTest, AppendFollowsTheFileLineEnding) {
  struct Row {
    const char* legend;
    std::string before, after;
  } rows[] = {
      {"CRLF file", "HDR\r\nA\r\n", "HDR\r\nA\r\nREC\r\n"},
      {"LF file", "HDR\nA\n", "HDR\nA\nREC\n"},
      {"unfinished last line", "HDR\nA", "HDR\nA\nREC\n"},
      {"empty file", "", "REC\r\n"},
  };
  for (const Row& r : rows) {
    WriteFile(File(dir, "A.OBC"), r.before);
    ASSERT_TRUE(AppendCatalogLine(File(dir, "A.OBC"), "REC")) << r.legend;
    EXPECT_EQ(ReadFile(File(dir, "A.OBC")), r.after) << r.legend;
  }
  EXPECT_FALSE(AppendCatalogLine(File(dir, "missing/A.OBC"), "REC"));
}

TEST_F(ObjectEntryTest, AddObjectAnsweredNoWritesNothing) {
  UseCatalog({Rec("M1", 5.5, 22)});
  const std::string before = ReadFile(File(dir, "TEST.OBC"));
  state.object.Name1 = "X";
  rig.dialogs.choices = {false};
  EXPECT_FALSE(AddObject(state, rig.dialogs));
  EXPECT_EQ(ReadFile(File(dir, "TEST.OBC")), before);
}

TEST(LocationEntry, MessagesInOrder) {
  const LocationEntry good{"40", "44.5", true, false, "73", "59.4", false, true};
  EXPECT_EQ(CheckLocationEntry(good), "");
  struct Row {
    const char* legend;
    LocationEntry entry;
    const char* message;
  } rows[] = {
      {"latitude 90",
       {"90", "0", true, false, "73", "0", false, true},
       "Degrees of latitude must be between 0 and 89"},
      {"latitude not a number",
       {"abc", "0", true, false, "73", "0", false, true},
       "Degrees of latitude must be between 0 and 89"},
      {"latitude with decimals",
       {"40.5", "0", true, false, "73", "0", false, true},
       "Enter Whole Number of Degrees Only"},
      {"latitude minutes 60",
       {"40", "60", true, false, "73", "0", false, true},
       "Minutes of latitude must be between 0 and 59.999, decimals OK"},
      {"no hemisphere",
       {"40", "0", false, false, "73", "0", false, true},
       "Select 'North' or 'South'"},
      {"longitude 180",
       {"40", "0", true, false, "180", "0", false, true},
       "Degrees of longitude must be between 0 and 179"},
      {"longitude with decimals",
       {"40", "0", true, false, "73.2", "0", false, true},
       "Enter Whole Number of Degrees Only"},
      {"longitude minutes negative",
       {"40", "0", true, false, "73", "-1", false, true},
       "Minutes of longitude must be between 0 and 59.999, decimals OK"},
      {"no east or west",
       {"40", "0", true, false, "73", "0", false, false},
       "Select 'East' or 'West'"},
  };
  for (const Row& r : rows)
    EXPECT_EQ(CheckLocationEntry(r.entry), r.message) << r.legend;
}

}  // namespace
}  // namespace astel::testing
