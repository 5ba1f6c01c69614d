#include "session/date_time_entry.h"

#include <gtest/gtest.h>

#include <map>

#include "catalog/catalog_select.h"
#include "catalog/transient_catalog.h"
#include "tests/catalog/catalog_files.h"
#include "tests/session/session_fixture.h"

namespace astel {
namespace {

using DateTimeEntryTest = testing::StartedProgram;

constexpr const char* kMonth =
    "Input Month, 1-12, press OK to Keep Current Value, press 'CANCEL' to use System Time";

TEST_F(DateTimeEntryTest, DateChainSetsAFictitiousDate) {
  const std::string title = JulianDateTitle(state.time);
  EXPECT_EQ(title.rfind("JulianDate = 2461", 0), 0u) << title;
  EXPECT_EQ(title.size(), std::string("JulianDate = 0000000.00000").size());
  dialogs.answers = {"3", "14", "2027"};
  DateButtonClick(state, dialogs, logic);
  EXPECT_EQ(dialogs.prompts,
            (std::vector<std::string>{kMonth, "Input date", "Input year, 1980-2199"}));
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{title, "Set Day of Month", "Set The Year"}));
  EXPECT_EQ(dialogs.defaults, (std::vector<std::string>{"11", "22", "2026"}));
  EXPECT_FALSE(state.time.realTimeMode);
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_EQ(logic.Display().date, "14-03-2027");
  logic.Tick();  // the timer keeps ticking but the fictitious date stays
  EXPECT_EQ(logic.Display().date, "14-03-2027");
}

TEST_F(DateTimeEntryTest, DateChainEdgeCases) {
  // The prompts by letter: Month, Day, Year, Leap year, and a leap year not in the Century 2100.
  const std::map<char, std::string> kPrompt = {
      {'M', kMonth},
      {'D', "Input date"},
      {'Y', "Input year, 1980-2199"},
      {'L', "Must be valid leap year, 1980-2199"},
      {'C', "Must be valid leap year, 1980-2199, not 2100"}};
  // Each row is one whole date chain: the answers in order, the prompts seen, the date set.
  const struct {
    const char* legend;
    std::vector<std::string> answers;
    std::string prompts;
    const char* date;
  } cases[] = {
      {"leap day in 2003 refused", {"2", "29", "2003", "2004"}, "MDYL", "29-02-2004"},
      {"leap day in 2100 refused", {"2", "29", "2100", "2096"}, "MDYC", "29-02-2096"},
      {"30 February asked again", {"2", "30", "28", "2003"}, "MDDY", "28-02-2003"},
      {"years 1979, 2200 asked again", {"7", "4", "1979", "2200", "2199"}, "MDYYY", "04-07-2199"},
      {"months 13, 0 asked again", {"13", "0", "12", "31", "1980"}, "MMMDY", "31-12-1980"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.legend);
    dialogs.prompts.clear();
    dialogs.answers.assign(c.answers.begin(), c.answers.end());
    DateButtonClick(state, dialogs, logic);
    std::vector<std::string> prompts;
    for (char letter : c.prompts)
      prompts.push_back(kPrompt.at(letter));
    EXPECT_EQ(dialogs.prompts, prompts);
    EXPECT_EQ(logic.Display().date, c.date);
  }
}

TEST_F(DateTimeEntryTest, TimeChainAcceptsCancelledMinutesAsZero) {
  const std::string title = JulianDateTitle(state.time);
  constexpr const char* kHour = "Input Hour, 0-23 (OR press 'CANCEL' to use System Time)";
  dialogs.answers = {"24", "3", "", "75", "7.5"};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_EQ(dialogs.prompts,
            (std::vector<std::string>{kHour, kHour, "Input minutes, 0-59", "Input seconds, 0-59",
                                      "Input seconds, 0-59"}));
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{title, "Input Hour", "Input Minutes",
                                                      "Input Seconds", "Input Seconds"}));
  EXPECT_EQ(dialogs.defaults, (std::vector<std::string>{"21", "21", "30", "05", "05"}));
  EXPECT_FALSE(state.time.realTimeMode);
  EXPECT_DOUBLE_EQ(state.time.second, 7.5);
  EXPECT_EQ(logic.Display().time.substr(0, 8), "03:00:07");

  // Cancel on the hour goes back to the computer's clock and zone.
  clock.zone = {-60, -60, false};
  dialogs.answers = {""};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_TRUE(state.time.realTimeMode);
  EXPECT_EQ(logic.Display().time.substr(0, 8), "21:30:05");
  EXPECT_DOUBLE_EQ(state.place.gmtOffset, -1);
}

TEST_F(DateTimeEntryTest, ShownObjectFollowsTheNewDate) {
  // A catalog object of epoch 2000 is carried to the new year.
  state.object.Name1 = "M31";
  state.object.objRaMinutes = 42.74;
  state.object.objDecDegrees = 41;
  state.object.sourceEpoch = state.object.targetEpoch = 2000;
  dialogs.answers = {"1", "1", "2100"};
  DateButtonClick(state, dialogs, logic);
  EXPECT_EQ(state.object.sourceEpoch, 2100);
  EXPECT_GT(state.object.objRaMinutes, 42.74 + 4) << "a century of precession moves M31 east";
}

// A transient catalog's position record for a GMT hour, named after that hour.
std::string HourRecord(int year, int month, int day, int hour, double raHours) {
  std::string line = testing::Rec("HOUR " + std::to_string(hour), raHours, 10.0, "7.5");
  line.replace(78, 9, TransientTimeText(year, month, day, hour));
  line[87] = 'T';
  return line;
}

TEST_F(DateTimeEntryTest, BothChainsServeTheTransientPositionAndRestartTheSearch) {
  // The computer's zone is GMT, so local hours are GMT hours.
  testing::WriteFile(dir.path() + "/COMET.OBC", ComposeHeader("COMET", 2027, "test", 'T') + "\r\n" +
                                                    HourRecord(2026, 11, 22, 21, 4.0) + "\r\n" +
                                                    HourRecord(2026, 11, 22, 23, 4.5) + "\r\n" +
                                                    HourRecord(2027, 3, 14, 21, 6.0) + "\r\n");
  ASSERT_TRUE(OpenCatalog(state, dir.path() + "/", "COMET.OBC"));
  logic.Load();
  ASSERT_EQ(state.object.objRaHours, 4);

  const struct {
    const char* legend;
    decltype(&DateButtonClick) chain;
    std::vector<std::string> answers;
    const char* name1;  // the record that serves the new moment
    int raHours;
  } rows[] = {
      {"a date with a position", DateButtonClick, {"3", "14", "2027"}, "HOUR 21", 6},
      {"back to real time by Cancel on the month", DateButtonClick, {""}, "HOUR 21", 4},
      {"a later hour of the same day", TimeButtonClick, {"23", "10", "0"}, "HOUR 23", 4},
  };
  for (const auto& r : rows) {
    SCOPED_TRACE(r.legend);
    // A search left open with its matches saved: a new moment starts both afresh.
    state.search.catalogOpen = true;
    state.form.writeMatchCaption = "View Matches";
    dialogs.answers.assign(r.answers.begin(), r.answers.end());
    r.chain(state, dialogs, logic);
    EXPECT_EQ(state.object.Name1.substr(0, 7), r.name1);
    EXPECT_EQ(state.object.objRaHours, r.raHours);
    EXPECT_FALSE(state.search.catalogOpen);
    EXPECT_EQ(state.form.writeMatchCaption, "Save Matches");
  }
  EXPECT_TRUE(dialogs.messages.empty());

  // A body chosen from the list stays shown.
  logic.SelectSolarSystemBody(3);
  dialogs.answers = {"22", "0", "0"};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_EQ(state.object.Name1, "Moon");
}

}  // namespace
}  // namespace astel
