// The telescope selection dialog's logic: choosing a model and a port, and the Upload button.
#include "scope/scope_form.h"

#include <gtest/gtest.h>

#include "scope/scope_models.h"
#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

// "Y" or "N" for scopeHasGps, scopeNoDstShift and scopeLoadEnabled.
std::string Flags(const TelescopeState& t) {
  std::string flags;
  for (bool flag : {t.scopeHasGps, t.scopeNoDstShift, t.scopeLoadEnabled})
    flags += flag ? 'Y' : 'N';
  return flags;
}

TEST(ScopeForm, OkTurnsTheChosenRowIntoModelCodeFamilyAndCapabilities) {
  const std::string questions[] = {"Does this Scope have a GPS?", "Is the GPS Built In?"};
  const struct {
    const char *legend, *row;
    std::string answers;  // "Y" or "N" to each question, in order
    int code;
    const char* flags;
  } rows[] = {
      {"no telescope, no port", "0 - No Goto Telescope", "", 10000, "NNN"},
      {"NexStar GPS", "1 - Celestron NexStar GPS Family: 8 / 9.25 / 11", "", 101, "YNY"},
      {"5i with GPS", "1 - Celestron NexStar 5i / 8i", "Y", 107, "YNY"},
      {"5i without GPS", "1 - Celestron NexStar 5i / 8i", "N", 108, "NNY"},
      {"CGE without GPS: loads when chosen", "1 - Celestron CGE and Advanced Series with GoTo", "N",
       106, "NNY"},
      {"StarGuide", "3 - Tasco StarGuide", "", 302, "NNN"},
      {"LX200 without GPS", "4 - Meade LX-200, LX-90 and compatibles", "N", 407, "NNY"},
      {"LX200, GPS built in", "4 - Meade LX-200, LX-90 and compatibles", "YY", 406, "YYY"},
      {"LX200, external GPS", "4 - Meade LX-200, LX-90 and compatibles", "YN", 405, "YNY"},
      {"Autostar", "4 - Meade Autostar and compatibles", "", 402, "NYY"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(4);
    h.state.telescope.comPort = 2;
    h.state.telescope.scopeNoDstShift = true;  // stale flags are replaced
    for (char answer : row.answers)
      h.dialogs.choices.push_back(answer == 'Y');
    ScopeFormLogic form(h.context);
    EXPECT_TRUE(form.OkClick(row.row));
    EXPECT_EQ(h.dialogs.questions,
              std::vector<std::string>(questions, questions + row.answers.size()));
    EXPECT_EQ(h.dialogs.messages.size(), 0u);
    const TelescopeState& t = h.state.telescope;
    EXPECT_EQ(t.scopeCode, row.code);
    EXPECT_EQ(t.scopeType, row.row[0] - '0');
    EXPECT_EQ(Flags(t), row.flags);
    EXPECT_EQ(t.comPort, row.code == 10000 ? 0 : 2);
    EXPECT_TRUE(h.state.program.configChanged);
  }
}

// The dialog's rows without questions take their flags from the code as a stored code does; the
// codes found only behind a question, and 106, which loads only when chosen, are checked here.
TEST(ScopeForm, AStoredCodeGetsItsFlagsFromTheCodeAlone) {
  for (auto [code, flags] : {std::pair{406, "YYY"}, {405, "YNY"}, {108, "NNY"}, {106, "NNN"}}) {
    TelescopeState t;
    t.scopeCode = code;
    t.scopeHasGps = t.scopeNoDstShift = t.scopeLoadEnabled = true;
    ApplyStoredScopeCode(t);
    EXPECT_EQ(Flags(t), flags) << code;
  }
}

TEST(ScopeForm, OkRefusesAnIncompleteChoiceAndChangesNothing) {
  const struct {
    const char *legend, *row;
    int port;
    const char* message;
  } rows[] = {
      {"nothing selected", "", 1, "No Scope Selected!"},
      {"not a row of the list", "5 - Some Other Telescope", 1, "Make a Selection"},
      {"telescope, no port", "4 - Meade Autostar and compatibles", 0, "No Com Port Selected!"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(4);
    h.state.telescope.comPort = row.port;
    h.state.telescope.scopeCode = 301;
    h.state.telescope.scopeType = 3;
    ScopeFormLogic form(h.context);
    EXPECT_FALSE(form.OkClick(row.row));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
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
  EXPECT_TRUE(h.dialogs.messages.empty()) << "no telescope needs no port";
  form.List1Click("3 - Tasco StarGuide");
  EXPECT_EQ(h.dialogs.messages, Shown("Now you must select a COM port"));
  form.List2Click("Com8");
  EXPECT_EQ(h.state.telescope.comPort, 8);
  form.List1Click("3 - Tasco StarGuide");
  form.List2Click("Com9");
  EXPECT_EQ(h.dialogs.messages,
            (std::vector<std::string>{"Now you must select a COM port", "No Com Port Selected!"}));
  EXPECT_EQ(h.state.telescope.comPort, 8);
}

TEST(ScopeForm, UploadRunsOnlyForLx200ModelsInRealTime) {
  const struct {
    const char* legend;
    int code;
    bool realTime;
    const char* message;
  } rows[] = {
      {"Autostar", 402, true, "Successful Upload to Telescope"},
      {"Celestron", 101, true, "Function not Available"},
      {"fictitious time", 402, false, "Must be in Real-Time Mode for Upload Operation"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(4);
    ASSERT_SIM_STARTED(h);
    h.state.telescope.scopeCode = row.code;
    h.state.time.realTimeMode = row.realTime;
    ScopeFormLogic form(h.context);
    bool busyDuringUpload = false;
    h.events.onDoEvents = [&] { busyDuringUpload |= form.monitor().busy; };
    form.UploadClick();
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    const bool sent = !h.sim.ReceivedBytes().empty();
    EXPECT_EQ(sent, row.message == std::string("Successful Upload to Telescope"));
    EXPECT_EQ(busyDuringUpload, sent) << "buttons disabled while the upload runs";
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
