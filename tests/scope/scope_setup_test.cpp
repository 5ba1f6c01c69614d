// Setting up the telescope: choosing a model and a port, and the LX200 upload of place,
// time-zone offset, date and time (its commands, and the whole exchange against a simulated
// LX200).
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "scope/meade_upload.h"
#include "scope/scope_form.h"
#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

TEST(ScopeForm, OkTurnsTheChosenRowIntoModelCodeFamilyAndCapabilitiesOrRefuses) {
  const std::string lx200 = "4 - Meade LX-200, LX-90 and compatibles";
  const std::string questions[] = {"Does this Scope have a GPS?", "Is the GPS Built In?"};
  const struct {
    std::string row;
    std::string answers;  // "Y" or "N" to each question, in order
    int code;
    const char* flags;  // "Y" or "N" for scopeHasGps, scopeNoDstShift and scopeLoadEnabled
  } rows[] = {
      {"0 - No Goto Telescope", "", 10000, "NNN"},  // and no port
      {"1 - Celestron NexStar 5i / 8i", "N", 108, "NNY"},
      {"1 - Celestron CGE and Advanced Series with GoTo", "N", 106, "NNY"},  // loads when chosen
      {lx200, "YY", 406, "YYY"},
      {"4 - Meade Autostar and compatibles", "", 402, "NYY"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.code);
    WireHarness h(4);
    h.state.telescope.comPort = 2;
    h.state.telescope.scopeNoDstShift = true;  // stale flags are replaced
    for (char answer : row.answers)
      h.dialogs.choices.push_back(answer == 'Y');
    EXPECT_TRUE(ScopeFormLogic(h.context).OkClick(row.row));
    EXPECT_EQ(h.dialogs.questions,
              std::vector<std::string>(questions, questions + row.answers.size()));
    const TelescopeState& t = h.state.telescope;
    std::string flags;
    for (bool flag : {t.scopeHasGps, t.scopeNoDstShift, t.scopeLoadEnabled})
      flags += flag ? 'Y' : 'N';
    EXPECT_EQ(std::tuple(t.scopeCode, int{t.scopeType}, flags, t.comPort),
              std::tuple(row.code, row.row[0] - '0', row.flags, row.code == 10000 ? 0 : 2));
    EXPECT_TRUE(h.state.program.configChanged);
  }
  WireHarness h(4);  // a telescope without a port
  h.state.telescope.comPort = 0;
  h.state.telescope.scopeCode = 301;
  EXPECT_FALSE(ScopeFormLogic(h.context).OkClick(lx200));
  EXPECT_EQ(h.dialogs.messages, Shown("No Com Port Selected!"));
  EXPECT_EQ(h.state.telescope.scopeCode, 301);
  EXPECT_FALSE(h.state.program.configChanged);
}

// The upload exchange below sends 48 deg 7 min north, 11 deg 31 min east, +5 h and two-digit
// clock texts; here the other forms and the daylight hour.
TEST(MeadeUploadCommands, SignsWrapsPaddingAndTheDaylightHour) {
  SharedState state;
  PlaceState& p = state.place;
  std::tie(p.latitudeMinutes, p.latitudeSign, p.longitudeMinutes, p.longitudeSign) =
      std::tuple(30, -1, 30, -1);
  EXPECT_EQ(EncodeMeadeLongitude(p), "#:Sg 359*30#") << "the sign alone makes it east";
  EXPECT_EQ(EncodeMeadeLatitude(p), "#:St -00*30#");
  std::tie(p.longitudeDegrees, p.longitudeMinutes, p.longitudeSign) = std::tuple(75, 30.2, 1);
  EXPECT_EQ(EncodeMeadeLongitude(p), "#:Sg 075*30#") << "west";
  EXPECT_EQ(EncodeMeadeOffset(5, true), "#:SG+05#");
  EXPECT_EQ(EncodeMeadeOffset(-5.5, false), "#:SG-05.5#");
  std::tie(state.time.hourText, state.time.minuteText, state.time.secondText) =
      std::tuple("7", "05", "9");
  EXPECT_EQ(EncodeMeadeTime(state.time), "#:SL 07:05:09#");

  FakeClock clock;
  state.place.gmtOffset = 4;
  EXPECT_EQ(UploadOffsetHours(state, clock), 4);
  clock.zone.daylight = true;
  EXPECT_EQ(UploadOffsetHours(state, clock), 5);
  state.telescope.scopeNoDstShift = true;
  EXPECT_EQ(UploadOffsetHours(state, clock), 4) << "the model shifts the hour itself";
}

// An LX200 Autostar with the observer 48 deg 7 min north, 11 deg 31 min east, 5 hours west of
// Greenwich in offset, on 23 March 2005 at 21:05:09.
struct UploadHarness : WireHarness {
  explicit UploadHarness(SimBehaviour behaviour = {}) : WireHarness(4, behaviour) {
    state.telescope.scopeCode = 402;
    PlaceState& p = state.place;
    std::tie(p.latitudeDegrees, p.latitudeMinutes, p.longitudeDegrees, p.longitudeMinutes,
             p.gmtOffset) = std::tuple(48, 7.038, -11, 31, 5);
  }
};

TEST(UploadMeade, RepeatsRefusalsAndHangUps) {
  const SimBehaviour healthy, hangUpEarly{.hangUpAfterBytes = 5},
      hangUpInOffset{.hangUpAfterBytes = 30}, noDecimalOffset{.replies = {{":SG+05.0", "0"}}};
  const struct {
    const char* legend;
    SimBehaviour sim;
    bool fromUploadButton;
    std::string time;  // hh:mm:ss shown
    bool uploaded;
    const char* message;
    std::size_t commands;  // received by the telescope
  } rows[] = {
      {"decimal offset refused: whole hours", noDecimalOffset, true, "21:05:09", true, {}, 6},
      {"hung up in the longitude, the user's upload", hangUpEarly, true, "21:05:09", false,
       "UNABLE TO WRITE TO COM 1", 0},
      {"hung up in the longitude, another upload", hangUpEarly, false, "21:05:09", false, {}, 0},
      {"hung up in the offset, another upload", hangUpInOffset, false, "21:05:09", false,
       "UNABLE TO WRITE TO COM 1", 2},
      {"23:59:56", healthy, true, "23:59:56", false,
       "Date rollover, possible inconsistency. Try Again", 0},
      {"23:59:55 still goes", healthy, true, "23:59:55", true, nullptr, 5},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    UploadHarness h(row.sim);
    ASSERT_SIM_STARTED(h);
    const std::string& t = row.time;
    std::tie(h.state.time.hourText, h.state.time.minuteText, h.state.time.secondText) =
        std::tuple(t.substr(0, 2), t.substr(3, 2), t.substr(6, 2));
    EXPECT_EQ(UploadMeade(h.context, h.monitor, row.fromUploadButton), row.uploaded);
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.Commands().size(), row.commands);
  }
}

TEST(UploadMeade, TheUploadButtonSendsTheFiveStepsAndClosingDuringThemStopsQuietly) {
  for (bool closeDuringUpload : {false, true}) {
    UploadHarness h({.fault = closeDuringUpload ? ReplyFault::kSilent : ReplyFault::kNone});
    ASSERT_SIM_STARTED(h);
    h.state.form.commandButtonsEnabled = false;
    ScopeFormLogic form(h.context);
    bool busyDuringUpload = false;
    h.events.onDoEvents = [&] {
      busyDuringUpload |= form.monitor().busy;
      if (closeDuringUpload && h.sim.Commands().size() >= 2) form.Close();
    };
    form.UploadClick();
    EXPECT_EQ(h.dialogs.messages,
              Shown(closeDuringUpload ? nullptr : "Successful Upload to Telescope"));
    if (!closeDuringUpload) {
      EXPECT_EQ(h.sim.ReceivedBytes(),
                "#:Sg 348*29##:St +48*07##:SG+05.0##:SC 03/23/05##:SL 21:05:09#");
      EXPECT_EQ(std::count(h.events.sleeps.begin(), h.events.sleeps.end(), 500), 1)
          << "the date's long answer is waited out once";
    }
    EXPECT_TRUE(busyDuringUpload) << "buttons disabled while the upload runs";
    EXPECT_FALSE(form.monitor().busy);
    EXPECT_EQ(h.state.form.commandButtonsEnabled, closeDuringUpload) << "the main window's, freed";
  }
}

}  // namespace
}  // namespace astel::testing
