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
    bool realTime;
    const char* message;
  } rows[] = {
      {"no option", EntryOption::kNone, "X", true,
       "Choose one of the Options for getting Object Data"},
      {"no name", EntryOption::kCoordinates, "  ", true, "The Object must have at least one name!"},
      {"telescope outside real time", EntryOption::kTelescope, "X", false,
       "Must be in Real-Time Mode for Scope Load"}};
  for (const Row& r : rows) {
    state.time.realTimeMode = r.realTime;
    rig.dialogs.messages.clear();
    EXPECT_FALSE(Ok(r.option, r.name1)) << r.legend;
    EXPECT_EQ(rig.dialogs.messages, Names{r.message}) << r.legend;
  }
  EXPECT_TRUE(rig.dialogs.prompts.empty());
  EXPECT_EQ(scope.calls, 0);
}

TEST_F(ObjectEntryTest, CoordinatesChainRepeatsBadAnswersAndKeepsMinusZero) {
  state.object.Name1 = "OLD";
  rig.dialogs.answers = {"5", "30", "-0", "30", ""};
  EXPECT_FALSE(Ok(EntryOption::kCoordinates));
  EXPECT_EQ(state.object.Name1, "OLD") << "Cancel at the epoch leaves the shown object";

  rig.dialogs = {};
  rig.dialogs.answers = {"24", "x",    "5",        "60", "30", "-91", "-0",
                         "30", "2000", "NGC 9999", "",   "",   ""};
  ASSERT_TRUE(Ok(EntryOption::kCoordinates, "MyNeb", "Second"));
  const std::string ra = "Hours of Right Ascension", raMinutes = "Set Minutes of Right Ascension",
                    dec = "Degrees of Declination";
  EXPECT_EQ(rig.dialogs.titles,
            (Names{ra, ra, ra, raMinutes, raMinutes, dec, dec, "Minutes of Declination", "Epoch?",
                   "Third Name?", "Fourth Name?", "Fifth Name?", "Object's magnitude?"}));
  EXPECT_EQ(rig.dialogs.prompts[0], "Enter Hours of Right Ascension of object (0 to 23 )");
  EXPECT_EQ(rig.dialogs.prompts[8], "Epoch of those Coordinates?");
  EXPECT_EQ(rig.dialogs.defaults[8], "2000");
  EXPECT_EQ(rig.dialogs.prompts[12], "Enter object's magnitude, if known");
  const ObjectState& o = state.object;
  EXPECT_EQ(o.Name1 + o.Name2 + o.Name3, "MyNeb       Second      NGC 9999    ");
  EXPECT_EQ(state.search.foundState, 1);

  // Added to the catalog, the record reads back as -0.5 degrees and unknown magnitude.
  UseCatalog({});
  rig.dialogs.choices = {true};
  ASSERT_TRUE(AddObject(state, rig.dialogs));
  EXPECT_EQ(rig.dialogs.questions.back(),
            "Do you want to add the object MyNeb to catalog TEST.OBC ?");
  const std::vector<std::string> lines = Lines(ReadFile(File(dir, "TEST.OBC")));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[1].substr(60, 18), " 5.5000  -00.5000 ");
  EXPECT_EQ(ParseRecord(lines[1]).magnitude, kUnknownMagnitude);

  // Answered No, nothing is written.
  state.object.Name1 = "X";
  rig.dialogs.choices = {false};
  EXPECT_FALSE(AddObject(state, rig.dialogs));
  EXPECT_EQ(Lines(ReadFile(File(dir, "TEST.OBC"))), lines);
}

TEST_F(ObjectEntryTest, CoordinatesArePrecessedFromTheirEpoch) {
  state.time.roundedYear = 2027;
  rig.dialogs.answers = {"0", "42.7", "41", "16", "2000", "", "", "", "3.4"};
  ASSERT_TRUE(Ok(EntryOption::kCoordinates, "M31"));
  // About 3.3 s of time a year at M31's place, over 27 years.
  EXPECT_NEAR(state.object.objRaMinutes, 42.7 + 27 * 3.3 / 60, 0.05);
  EXPECT_EQ(state.object.sourceEpoch, 2027) << "the shown position is of the date";
  EXPECT_EQ(state.object.magnitudeText, "3.4     ");
}

TEST_F(ObjectEntryTest, AltitudeAzimuthRoundTripAndTheRefused360) {
  state.place.homeLatitude = 40.5 / kDegreesPerRadian;
  state.time.localSiderealTime = 7.25;
  rig.dialogs.answers = {"91", "35", "20", "360", "359.9", "30", "", "", "", ""};
  ASSERT_TRUE(Ok(EntryOption::kAltAz));
  const std::string alt = "Degrees of Altitude", az = "Degrees of Azimuth";
  EXPECT_EQ(rig.dialogs.titles,
            (Names{alt, alt, "Minutes of Altitude", az, az, "Set Minutes of Azimuth", "Third Name?",
                   "Fourth Name?", "Fifth Name?", "Object's magnitude?"}))
      << "91 and 360 are refused, 359.9 accepted";
  // Placing the computed position in the sky gives back what was typed.
  EXPECT_NEAR(state.object.altitude, 35 + 20.0 / 60, 1e-6);
  EXPECT_NEAR(state.object.azimuth, 359.9 + 30.0 / 60 - 360, 1e-6);
}

TEST_F(ObjectEntryTest, TelescopeReadBack) {
  state.time.realTimeMode = true;
  state.time.roundedYear = 2027;
  scope.raHours = 6 + 0.1 / 60, scope.decDegrees = -0.5;
  rig.dialogs.answers = {"", "", "", "6.5"};
  ASSERT_TRUE(Ok(EntryOption::kTelescope, "", "FromScope"));
  EXPECT_TRUE(state.object.objRaHours == 6 && state.object.objDecSign == -1);
  EXPECT_TRUE(state.telescope.positionFromScope);
  EXPECT_EQ(state.object.sourceEpoch, 2027) << "the telescope reports a place of date";

  scope.succeed = false;
  state.object.Name1 = "KEEP";
  EXPECT_FALSE(Ok(EntryOption::kTelescope));
  EXPECT_EQ(state.object.Name1, "KEEP");
}

TEST_F(ObjectEntryTest, AppendFollowsTheFileLineEnding) {
  struct Row {
    const char* legend;
    std::string before, after;
  } rows[] = {{"CRLF file", "HDR\r\nA\r\n", "HDR\r\nA\r\nREC\r\n"},
              {"unfinished last line", "HDR\nA", "HDR\nA\nREC\n"},
              {"empty file", "", "REC\r\n"}};
  for (const Row& r : rows) {
    WriteFile(File(dir, "A.OBC"), r.before);
    ASSERT_TRUE(AppendCatalogLine(File(dir, "A.OBC"), "REC")) << r.legend;
    EXPECT_EQ(ReadFile(File(dir, "A.OBC")), r.after) << r.legend;
  }
  EXPECT_FALSE(AppendCatalogLine(File(dir, "missing/A.OBC"), "REC"));
}

TEST(LocationEntry, MessagesInOrder) {
  using E = LocationEntry;
  const E good{"40", "44.5", true, false, "73", "59.4", false, true};
  EXPECT_EQ(CheckLocationEntry(good), "");
  const auto with = [&](auto field, auto value) {
    E e = good;
    e.*field = value;
    return e;
  };
  struct Row {
    const char* legend;
    E entry;
    const char* message;
  } rows[] = {{"latitude 90", with(&E::latitudeDegrees, "90"),
               "Degrees of latitude must be between 0 and 89"},
              {"latitude with decimals", with(&E::latitudeDegrees, "40.5"),
               "Enter Whole Number of Degrees Only"},
              {"latitude minutes 60", with(&E::latitudeMinutes, "60"),
               "Minutes of latitude must be between 0 and 59.999, decimals OK"},
              {"no hemisphere", with(&E::north, false), "Select 'North' or 'South'"},
              {"longitude 180", with(&E::longitudeDegrees, "180"),
               "Degrees of longitude must be between 0 and 179"},
              {"longitude minutes negative", with(&E::longitudeMinutes, "-1"),
               "Minutes of longitude must be between 0 and 59.999, decimals OK"},
              {"no east or west", with(&E::west, false), "Select 'East' or 'West'"}};
  for (const Row& r : rows)
    EXPECT_EQ(CheckLocationEntry(r.entry), r.message) << r.legend;
}

}  // namespace
}  // namespace astel::testing
