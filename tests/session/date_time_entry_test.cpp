#include "session/date_time_entry.h"

#include <gtest/gtest.h>

#include "catalog/catalog_select.h"
#include "catalog/transient_catalog.h"
#include "tests/catalog/catalog_files.h"
#include "tests/session/session_fixture.h"

namespace astel {
namespace {

using DateTimeEntryTest = testing::StartedProgram;

constexpr const char* kMonthPrompt =
    "Input Month, 1-12, press OK to Keep Current Value, press 'CANCEL' to use System Time";
constexpr const char* kYearPrompt = "Input year, 1980-2199";
constexpr const char* kLeapPrompt = "Must be valid leap year, 1980-2199";
constexpr const char* kLeap2100Prompt = "Must be valid leap year, 1980-2199, not 2100";

TEST_F(DateTimeEntryTest, DateChainSetsAFictitiousDate) {
  const std::string title = JulianDateTitle(state.time);
  EXPECT_EQ(title.rfind("JulianDate = 2461", 0), 0u) << title;
  EXPECT_EQ(title.size(), std::string("JulianDate = 0000000.00000").size());
  dialogs.answers = {"3", "14", "2027"};
  DateButtonClick(state, dialogs, logic);

  EXPECT_EQ(dialogs.prompts, (std::vector<std::string>{kMonthPrompt, "Input date", kYearPrompt}));
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{title, "Set Day of Month", "Set The Year"}));
  EXPECT_EQ(dialogs.defaults, (std::vector<std::string>{"11", "22", "2026"}));
  EXPECT_FALSE(state.time.realTimeMode);
  EXPECT_EQ(state.time.month, 3);
  EXPECT_EQ(state.time.day, 14);
  EXPECT_EQ(state.time.year, 2027);
  EXPECT_EQ(state.time.monthText, "3");
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_EQ(logic.Display().date, "14-03-2027");

  // The timer keeps ticking but the fictitious date stays.
  logic.Tick();
  EXPECT_EQ(logic.Display().date, "14-03-2027");
}

// Each row is one whole date chain: the answers given in order, the prompts the user saw, and the
// date that results.
struct DateChainCase {
  const char* legend;
  std::vector<std::string> answers;
  std::vector<std::string> prompts;
  int month, day, year;
};

TEST_F(DateTimeEntryTest, DateChainEdgeCases) {
  const DateChainCase cases[] = {
      {"29 February 2003 is refused, 2004 accepted",
       {"2", "29", "2003", "2004"},
       {kMonthPrompt, "Input date", kYearPrompt, kLeapPrompt},
       2,
       29,
       2004},
      {"29 February 2100 is refused with its own prompt",
       {"2", "29", "2100", "2096"},
       {kMonthPrompt, "Input date", kYearPrompt, kLeap2100Prompt},
       2,
       29,
       2096},
      {"day 30 in February is asked again (29 is February's longest)",
       {"2", "30", "28", "2003"},
       {kMonthPrompt, "Input date", "Input date", kYearPrompt},
       2,
       28,
       2003},
      {"years 1979 and 2200 are asked again, 2199 accepted",
       {"7", "4", "1979", "2200", "2199"},
       {kMonthPrompt, "Input date", kYearPrompt, kYearPrompt, kYearPrompt},
       7,
       4,
       2199},
      {"month 13 and 0 are asked again with the same prompt",
       {"13", "0", "12", "31", "1980"},
       {kMonthPrompt, kMonthPrompt, kMonthPrompt, "Input date", kYearPrompt},
       12,
       31,
       1980},
      {"Cancel on the day asks again",
       {"5", "", "1", "2030"},
       {kMonthPrompt, "Input date", "Input date", kYearPrompt},
       5,
       1,
       2030},
      {"Cancel on a leap year keeps the leap prompt it had",
       {"2", "29", "2001", "", "2000"},
       {kMonthPrompt, "Input date", kYearPrompt, kLeapPrompt, kLeapPrompt},
       2,
       29,
       2000},
  };
  for (const DateChainCase& c : cases) {
    SCOPED_TRACE(c.legend);
    dialogs.prompts.clear();
    dialogs.answers.assign(c.answers.begin(), c.answers.end());
    DateButtonClick(state, dialogs, logic);
    EXPECT_EQ(dialogs.prompts, c.prompts);
    EXPECT_TRUE(dialogs.answers.empty());
    EXPECT_EQ(state.time.month, c.month);
    EXPECT_EQ(state.time.day, c.day);
    EXPECT_EQ(state.time.year, c.year);
  }
}

TEST_F(DateTimeEntryTest, CancelOnTheFirstQuestionReturnsToRealTime) {
  dialogs.answers = {"6", "1", "2030"};
  DateButtonClick(state, dialogs, logic);
  ASSERT_FALSE(state.time.realTimeMode);
  const std::string dayText = state.time.dayText;

  dialogs.answers = {""};
  DateButtonClick(state, dialogs, logic);
  EXPECT_TRUE(state.time.realTimeMode);
  EXPECT_EQ(dialogs.prompts.back(), kMonthPrompt);
  EXPECT_EQ(logic.Display().date, "22-11-2026");
  EXPECT_TRUE(state.form.timer1Enabled);

  dialogs.answers = {"4", "30", "45"};
  TimeButtonClick(state, dialogs, logic);
  ASSERT_FALSE(state.time.realTimeMode);
  dialogs.answers = {""};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_TRUE(state.time.realTimeMode);
  EXPECT_EQ(logic.Display().time.substr(0, 8), "21:30:05");
}

TEST_F(DateTimeEntryTest, TimeChainAcceptsCancelledMinutesAsZero) {
  const std::string title = JulianDateTitle(state.time);
  dialogs.answers = {"24", "3", "", "75", "7.5"};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_EQ(dialogs.prompts,
            (std::vector<std::string>{"Input Hour, 0-23 (OR press 'CANCEL' to use System Time)",
                                      "Input Hour, 0-23 (OR press 'CANCEL' to use System Time)",
                                      "Input minutes, 0-59", "Input seconds, 0-59",
                                      "Input seconds, 0-59"}));
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{title, "Input Hour", "Input Minutes",
                                                      "Input Seconds", "Input Seconds"}));
  EXPECT_EQ(dialogs.defaults, (std::vector<std::string>{"21", "21", "30", "05", "05"}));
  EXPECT_FALSE(state.time.realTimeMode);
  EXPECT_EQ(state.time.hourText, "3");
  EXPECT_EQ(state.time.hour, 3);
  EXPECT_EQ(state.time.minuteText, "");
  EXPECT_EQ(state.time.minute, 0);
  EXPECT_EQ(state.time.secondText, "7.5");
  EXPECT_DOUBLE_EQ(state.time.second, 7.5);
  EXPECT_EQ(logic.Display().time.substr(0, 8), "03:00:07");
}

TEST_F(DateTimeEntryTest, ShownObjectFollowsTheNewDate) {
  // A catalog object of epoch 2000 is carried to the new year; the Moon is computed afresh.
  state.object.Name1 = "M31";
  state.object.objRaHours = 0;
  state.object.objRaMinutes = 42.74;
  state.object.objDecDegrees = 41;
  state.object.objDecMinutes = 16;
  state.object.sourceEpoch = state.object.targetEpoch = 2000;
  dialogs.answers = {"1", "1", "2100"};
  DateButtonClick(state, dialogs, logic);
  EXPECT_EQ(state.object.sourceEpoch, 2100);
  EXPECT_GT(state.object.objRaMinutes, 42.74 + 4) << "a century of precession moves M31 east";
  EXPECT_FALSE(state.search.catalogOpen);

  logic.SelectSolarSystemBody(3);
  const std::string moonRa = logic.Display().rightAsc;
  dialogs.answers = {"1", "8", "2027"};
  DateButtonClick(state, dialogs, logic);
  EXPECT_EQ(state.object.objectKind, 3);
  EXPECT_NE(logic.Display().rightAsc, moonRa);
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
  std::string text = ComposeHeader("COMET", 2027, "test", 'T') + "\r\n";
  for (const std::string& r : {HourRecord(2026, 11, 22, 21, 4.0), HourRecord(2026, 11, 22, 23, 4.5),
                               HourRecord(2027, 3, 14, 21, 6.0)}) {
    text += r + "\r\n";
  }
  testing::WriteFile(dir.path() + "/COMET.OBC", text);
  ASSERT_TRUE(OpenCatalog(state, dir.path() + "/", "COMET.OBC"));
  logic.Load();
  ASSERT_EQ(state.object.Name1.substr(0, 7), "HOUR 21");
  ASSERT_EQ(state.object.objRaHours, 4);

  struct Row {
    const char* legend;
    bool dateChain;
    std::vector<std::string> answers;
    const char* name1;  // the record that serves the new moment
    int raHours;
  } rows[] = {
      {"a date with a position: that day's record", true, {"3", "14", "2027"}, "HOUR 21", 6},
      {"back to real time by Cancel on the month", true, {""}, "HOUR 21", 4},
      {"a later hour of the same day", false, {"23", "10", "0"}, "HOUR 23", 4},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.legend);
    // A search left open with its matches saved: a new moment starts both afresh.
    state.search.catalogOpen = true;
    state.search.catalogOffset = 1234;
    state.form.writeMatchCaption = "View Matches";
    state.search.matchesFileComplete = true;
    dialogs.answers.assign(r.answers.begin(), r.answers.end());
    if (r.dateChain) {
      DateButtonClick(state, dialogs, logic);
    } else {
      TimeButtonClick(state, dialogs, logic);
    }
    EXPECT_EQ(state.object.Name1.substr(0, 7), r.name1);
    EXPECT_EQ(state.object.objRaHours, r.raHours);
    EXPECT_FALSE(state.search.catalogOpen);
    EXPECT_EQ(state.search.catalogOffset, 0);
    EXPECT_EQ(state.form.writeMatchCaption, "Save Matches");
    EXPECT_FALSE(state.search.matchesFileComplete);
    EXPECT_TRUE(dialogs.messages.empty());
  }

  // A moment no record serves is said once; a body chosen from the list stays shown.
  dialogs.answers = {"1", "1", "2030"};
  DateButtonClick(state, dialogs, logic);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].rfind("The Transient Catalog COMET.OBC contains no positions", 0),
            0u);
  logic.SelectSolarSystemBody(3);
  dialogs.answers = {"22", "0", "0"};
  TimeButtonClick(state, dialogs, logic);
  EXPECT_EQ(state.object.objectKind, 3);
  EXPECT_EQ(state.object.Name1, "Moon");
}

}  // namespace
}  // namespace astel
