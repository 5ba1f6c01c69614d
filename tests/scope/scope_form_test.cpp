// The telescope selection dialog's logic: choosing a model and a port, and the Upload button.
#include "scope/scope_form.h"

#include <gtest/gtest.h>

#include "scope/scope_models.h"
#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

using Kind = ScriptedDialogs::Kind;

TEST(ScopeForm, OkTurnsTheChosenRowIntoModelCodeFamilyAndCapabilities) {
  struct Row {
    const char* legend;
    const char* row;
    std::vector<bool> answers;           // to the GPS questions, in order
    std::vector<std::string> questions;  // asked
    int code, type;
    bool gps, noDst, load;
  };
  const std::string gps = "Does this Scope have a GPS?";
  const std::string builtIn = "Is the GPS Built In?";
  const Row rows[] = {
      {"no telescope", "0 - No Goto Telescope", {}, {}, 10000, 0, false, false, false},
      {"NexStar GPS",
       "1 - Celestron NexStar GPS Family: 8 / 9.25 / 11",
       {},
       {},
       101,
       1,
       true,
       false,
       true},
      {"5i with GPS", "1 - Celestron NexStar 5i / 8i", {true}, {gps}, 107, 1, true, false, true},
      {"5i without GPS",
       "1 - Celestron NexStar 5i / 8i",
       {false},
       {gps},
       108,
       1,
       false,
       false,
       true},
      {"NexStar 60 since 2002",
       "1 - Celestron NexStar 60 / 80 /114/, Nexstar 4 made since 2002",
       {},
       {},
       103,
       1,
       false,
       false,
       false},
      {"CGE with GPS",
       "1 - Celestron CGE and Advanced Series with GoTo",
       {true},
       {gps},
       105,
       1,
       true,
       false,
       true},
      {"CGE without GPS: loading enabled when chosen",
       "1 - Celestron CGE and Advanced Series with GoTo",
       {false},
       {gps},
       106,
       1,
       false,
       false,
       true},
      {"original NexStar 5",
       "2 - Celestron Original NexStar 5 / 8",
       {},
       {},
       201,
       2,
       false,
       false,
       false},
      {"StarGuide", "3 - Tasco StarGuide", {}, {}, 302, 3, false, false, false},
      {"LX200 without GPS",
       "4 - Meade LX-200, LX-90 and compatibles",
       {false},
       {gps},
       407,
       4,
       false,
       false,
       true},
      {"LX200 with a built-in GPS",
       "4 - Meade LX-200, LX-90 and compatibles",
       {true, true},
       {gps, builtIn},
       406,
       4,
       true,
       true,
       true},
      {"LX200 with an external GPS",
       "4 - Meade LX-200, LX-90 and compatibles",
       {true, false},
       {gps, builtIn},
       405,
       4,
       true,
       false,
       true},
      {"Autostar", "4 - Meade Autostar and compatibles", {}, {}, 402, 4, false, true, true},
      {"SkySensor",
       "4 - Vixen SkySensor 2000 (Meade compatible)",
       {},
       {},
       404,
       4,
       false,
       false,
       true},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(4);
    h.state.telescope.comPort = 2;
    h.state.telescope.scopeNoDstShift = true;  // stale flags are replaced
    for (bool answer : row.answers)
      h.dialogs.QueueYesNo(answer);
    ScopeFormLogic form(h.context);
    EXPECT_TRUE(form.OkClick(row.row));
    EXPECT_EQ(h.dialogs.Prompts(Kind::kYesNo), row.questions);
    EXPECT_EQ(h.dialogs.Messages().size(), 0u);
    const TelescopeState& t = h.state.telescope;
    EXPECT_EQ(t.scopeCode, row.code);
    EXPECT_EQ(t.scopeType, row.type);
    EXPECT_EQ(t.scopeHasGps, row.gps);
    EXPECT_EQ(t.scopeNoDstShift, row.noDst);
    EXPECT_EQ(t.scopeLoadEnabled, row.load);
    EXPECT_EQ(t.comPort, row.code == 10000 ? 0 : 2) << "no telescope, no port";
    EXPECT_TRUE(h.state.program.configChanged);
  }
}

TEST(ScopeForm, AStoredCodeGetsItsFlagsFromTheCodeAlone) {
  struct Row {
    int code;
    bool gps, noDst, load;
  };
  const Row rows[] = {
      {101, true, false, true},   {105, true, false, true},     {107, true, false, true},
      {405, true, false, true},   {406, true, true, true},      {402, false, true, true},
      {108, false, false, true},  {403, false, false, true},    {404, false, false, true},
      {407, false, false, true},  {10000, false, false, false}, {103, false, false, false},
      {106, false, false, false}, {201, false, false, false},   {301, false, false, false},
      {302, false, false, false}, {401, false, false, false},   {999, false, false, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.code);
    TelescopeState t;
    t.scopeCode = row.code;
    t.scopeHasGps = t.scopeNoDstShift = t.scopeLoadEnabled = true;
    ApplyStoredScopeCode(t);
    EXPECT_EQ(t.scopeHasGps, row.gps);
    EXPECT_EQ(t.scopeNoDstShift, row.noDst);
    EXPECT_EQ(t.scopeLoadEnabled, row.load) << "106 loads only when chosen in the dialog";
    EXPECT_EQ(t.scopeCode, row.code);
  }
}

TEST(ScopeForm, OkRefusesAnIncompleteChoiceAndChangesNothing) {
  struct Row {
    const char* legend;
    const char* row;
    int port;
    const char* message;
  };
  const Row rows[] = {
      {"nothing selected", "", 1, "No Scope Selected!"},
      {"not a row of the list", "5 - Some Other Telescope", 1, "Make a Selection"},
      {"telescope without a port", "4 - Meade Autostar and compatibles", 0,
       "No Com Port Selected!"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(4);
    h.state.telescope.comPort = row.port;
    h.state.telescope.scopeCode = 301;
    h.state.telescope.scopeType = 3;
    ScopeFormLogic form(h.context);
    EXPECT_FALSE(form.OkClick(row.row));
    EXPECT_EQ(h.dialogs.Messages(), std::vector<std::string>{row.message});
    EXPECT_EQ(h.state.telescope.scopeCode, 301);
    EXPECT_EQ(h.state.telescope.scopeType, 3);
    EXPECT_FALSE(h.state.program.configChanged);
  }
}

TEST(ScopeForm, ListClicksChooseAPortOrAskForOne) {
  WireHarness h(4);
  ScopeFormLogic form(h.context);
  h.state.telescope.comPort = 0;
  form.List1Click("0 - No Goto Telescope");
  EXPECT_EQ(h.dialogs.Messages().size(), 0u) << "no telescope needs no port";
  form.List1Click("3 - Tasco StarGuide");
  EXPECT_EQ(h.dialogs.Messages(), std::vector<std::string>{"Now you must select a COM port"});

  form.List2Click("Com3");
  EXPECT_EQ(h.state.telescope.comPort, 3);
  form.List2Click("Com8");
  EXPECT_EQ(h.state.telescope.comPort, 8);
  form.List1Click("3 - Tasco StarGuide");
  EXPECT_EQ(h.dialogs.Messages().size(), 1u) << "a port is chosen now";
  form.List2Click("Com9");
  form.List2Click("");
  EXPECT_EQ(h.dialogs.Messages().back(), "No Com Port Selected!");
  EXPECT_EQ(h.state.telescope.comPort, 8);
}

TEST(ScopeForm, UploadRunsOnlyForLx200ModelsInRealTime) {
  struct Row {
    const char* legend;
    int code;
    bool realTime;
    std::vector<std::string> messages;
    bool sent;
  };
  const Row rows[] = {
      {"Autostar", 402, true, {"Successful Upload to Telescope"}, true},
      {"LX200 with GPS", 406, true, {"Successful Upload to Telescope"}, true},
      {"Celestron", 101, true, {"Function not Available"}, false},
      {"no telescope", 10000, true, {"Function not Available"}, false},
      {"fictitious time", 402, false, {"Must be in Real-Time Mode for Upload Operation"}, false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(4);
    ASSERT_SIM_STARTED(h);
    h.state.telescope.scopeCode = row.code;
    h.state.time.realTimeMode = row.realTime;
    ScopeFormLogic form(h.context);
    bool busyDuringUpload = false;
    h.events.onDoEvents = [&] { busyDuringUpload |= form.monitor().busy; };
    form.UploadClick();
    EXPECT_EQ(h.dialogs.Messages(), row.messages);
    EXPECT_EQ(!h.sim.ReceivedBytes().empty(), row.sent);
    EXPECT_EQ(busyDuringUpload, row.sent) << "buttons disabled while the upload runs";
    EXPECT_FALSE(form.monitor().busy);
  }
}

TEST(ScopeForm, ClosingDuringAnUploadStopsItQuietlyAndFreesThePortAndTheMainButtons) {
  WireHarness h(4, WithFault(ReplyFault::kSilent));
  ASSERT_SIM_STARTED(h);
  h.state.telescope.scopeCode = 402;
  h.state.form.commandButtonsEnabled = false;
  ScopeFormLogic form(h.context);
  h.events.onDoEvents = [&] {
    if (h.sim.Commands().size() >= 2) form.Close();
  };
  form.UploadClick();
  EXPECT_EQ(h.dialogs.shown.size(), 0u);
  EXPECT_FALSE(h.comm.IsOpen(kPort));
  EXPECT_TRUE(h.state.form.commandButtonsEnabled);
  EXPECT_EQ(form.monitor().status, "No scope response yet. Verify Connection.\n")
      << "a waiting text only once something arrives";
}

}  // namespace
}  // namespace astel::testing
