#include "catalog/object_entry.h"

#include <gtest/gtest.h>

#include "catalog/scope_read_back.h"
#include "search_fixture.h"

namespace astel::testing {
namespace {

class ObjectEntryTest : public SearchTest, public ScopeReadBack {
 protected:
  // The telescope: reports a fixed position of date, or fails.
  bool ReadPosition(SharedState& s) override {
    if (scopeWorks) SetObjectPosition(s.object, 6 + 0.1 / 60, -0.5);
    return scopeWorks;
  }
  bool Ok(EntryOption option, const std::string& name1 = "MyNeb", const std::string& name2 = "") {
    return DataEntryOk(state, dialogs, *this, DataEntryForm{option, name1, name2});
  }
  bool scopeWorks = true;
};

TEST_F(ObjectEntryTest, FormChecksThenTheCoordinatesChainThenAddWritesTheRecord) {
  state.time.realTimeMode = false;
  EXPECT_FALSE(Ok(EntryOption::kNone) || Ok(EntryOption::kCoordinates, "  ") ||
               Ok(EntryOption::kTelescope));
  EXPECT_EQ(dialogs.messages, (Names{"Choose one of the Options for getting Object Data",
                                     "The Object must have at least one name!",
                                     "Must be in Real-Time Mode for Scope Load"}));

  state.object.Name1 = "OLD";
  dialogs.answers = {"5", "30", "-0", "30", ""};
  EXPECT_FALSE(Ok(EntryOption::kCoordinates));
  EXPECT_EQ(state.object.Name1, "OLD") << "Cancel at the epoch leaves the shown object";

  // Out of range or no number: asked again (a wrong acceptance shifts every later answer).
  dialogs.answers = {"24", "x", "5", "60", "30", "-91", "-0", "30", "2000", "NGC 9999", "", "", ""};
  ASSERT_TRUE(Ok(EntryOption::kCoordinates, "MyNeb", "Second"));
  const ObjectState& o = state.object;
  EXPECT_EQ(o.Name1 + o.Name2 + o.Name3, "MyNeb       Second      NGC 9999    ");

  UseCatalog({});
  dialogs.choices = {true, false};
  ASSERT_TRUE(AddObject(state, dialogs));
  EXPECT_EQ(dialogs.questions.back(), "Do you want to add the object MyNeb to catalog TEST.OBC ?");
  const std::vector<std::string> lines = Lines(ReadFile(File(dir, "TEST.OBC")));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[1].substr(60, 18), " 5.5000  -00.5000 ");
  EXPECT_EQ(ParseRecord(lines[1]).magnitude, kUnknownMagnitude);
  EXPECT_FALSE(AddObject(state, dialogs)) << "answered No";
  EXPECT_EQ(Lines(ReadFile(File(dir, "TEST.OBC"))), lines);
}

TEST_F(ObjectEntryTest, PositionsOfDateFromCoordinatesAltAzAndTheTelescope) {
  state.time.roundedYear = 2027;
  dialogs.answers = {"0", "42.7", "41", "16", "2000", "", "", "", "3.4"};
  ASSERT_TRUE(Ok(EntryOption::kCoordinates, "M31"));
  // About 3.3 s of time a year at M31's place, over 27 years.
  EXPECT_NEAR(state.object.objRaMinutes, 42.7 + 27 * 3.3 / 60, 0.05);
  EXPECT_EQ(state.object.sourceEpoch, 2027) << "the shown position is of the date";

  state.place.homeLatitude = 40.5 / kDegreesPerRadian;
  state.time.localSiderealTime = 7.25;
  dialogs.answers = {"91", "35", "20", "360", "359.9", "30", "", "", "", ""};
  ASSERT_TRUE(Ok(EntryOption::kAltAz));
  // Placing the computed position in the sky gives back what was typed.
  EXPECT_NEAR(state.object.altitude, 35 + 20.0 / 60, 1e-6);
  EXPECT_NEAR(state.object.azimuth, 359.9 + 30.0 / 60 - 360, 1e-6);

  dialogs.answers = {"", "", "", "6.5"};
  ASSERT_TRUE(Ok(EntryOption::kTelescope, "", "FromScope"));
  EXPECT_TRUE(state.object.objRaHours == 6 && state.object.objDecSign == -1);
  EXPECT_TRUE(state.telescope.positionFromScope);
  EXPECT_EQ(state.object.sourceEpoch, 2027) << "the telescope reports a place of date";
  scopeWorks = false;
  EXPECT_FALSE(Ok(EntryOption::kTelescope, "KEEP"));
  EXPECT_EQ(state.object.Name2, "FromScope   ") << "a failed read changes nothing";
}

TEST_F(ObjectEntryTest, AppendFollowsTheFileLineEnding) {
  const std::string rows[][2] = {
      {"HDR\r\nA\r\n", "HDR\r\nA\r\nREC\r\n"}, {"HDR\nA", "HDR\nA\nREC\n"}, {"", "REC\r\n"}};
  for (const auto& [before, after] : rows) {
    WriteFile(File(dir, "A.OBC"), before);
    ASSERT_TRUE(AppendCatalogLine(File(dir, "A.OBC"), "REC")) << before;
    EXPECT_EQ(ReadFile(File(dir, "A.OBC")), after);
  }
  EXPECT_FALSE(AppendCatalogLine(File(dir, "missing/A.OBC"), "REC"));
}

TEST(LocationEntry, FirstFaultFirst) {
  LocationEntry e{"40.5", "44.5", true, false, "180", "59.4", false, true};
  EXPECT_EQ(CheckLocationEntry(e), "Enter Whole Number of Degrees Only");
  e.latitudeDegrees = "40";
  EXPECT_EQ(CheckLocationEntry(e), "Degrees of longitude must be between 0 and 179");
  e.longitudeDegrees = "73";
  EXPECT_EQ(CheckLocationEntry(e), "");
}

}  // namespace
}  // namespace astel::testing
