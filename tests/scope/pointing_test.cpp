// Both directions of the pointing position: the GoTo bytes of every family, compared with bytes
// worked out by hand from the wire formats (minutes of arc x 3 x 1.011358 steps; high byte
// truncated, low byte rounded half to even, with the carry and the wrap of a full circle) and sent
// over a pseudo-terminal, and the read-back of where the telescope points.
#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <thread>
#include <tuple>

#include "scope/goto_encoding.h"
#include "scope/goto_scope.h"
#include "scope/position_readback.h"
#include "tests/scope/wire_harness.h"

namespace astel::testing {
namespace {

constexpr double kMinutesTolerance = 0.01;

ObjectState Object(int raHours, double raMinutes, int decDegrees, double decMinutes, int decSign) {
  ObjectState o;
  std::tie(o.objRaHours, o.objRaMinutes, o.objDecDegrees, o.objDecMinutes, o.objDecSign) =
      std::tuple(raHours, raMinutes, decDegrees, decMinutes, decSign);
  return o;
}

TEST(GotoEncoding, CelestronFormsOfTheSamePositionCarryTheSameFourBytes) {
  const struct {
    const char* legend;
    ObjectState object;
    std::string nexstar;
  } rows[] = {
      {"-0 deg 30 min: the sign alone makes it negative", Object(5, 34.5, 0, 30, -1), "R3B77,FFA5"},
      {"-0 deg 0 min: 65,536 steps wrap to 0, each hex pair two digits", Object(0, 0, 0, 0, -1),
       "R0000,0000"},
      {"12 h and +45 deg: low bytes of 255.999 carry", Object(12, 0, 45, 0, 1), "R8000,2000"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    EXPECT_EQ(EncodeGotoNexStar(row.object), row.nexstar);
    std::string b;  // RAhi RAlo DEChi DEClo
    for (std::size_t at : {1, 3, 6, 8})
      b.push_back(static_cast<char>(std::stoi(row.nexstar.substr(at, 2), nullptr, 16)));
    EXPECT_EQ(EncodeGotoNexStarOriginal(row.object), "R" + b);
    EXPECT_EQ(EncodeGotoStarGuide(row.object),
              std::string("R") + b[0] + b[1] + '\0' + b[2] + b[3] + '\0');
  }
  for (auto [steps, value] : {std::pair{300.5, 300}, {301.5, 302}, {511.4, 511}}) {
    CircleBytes bytes = SplitCircleValue(steps);  // half to even; the high byte truncates
    EXPECT_EQ(bytes.high * 256 + bytes.low, value) << steps;
  }
}

TEST(GotoEncoding, Lx200CommandsKeepTheirFormatAndPointUnderADecimalCommaLocale) {
  EXPECT_EQ(EncodeLx200SetRa(Object(23, 59.94, 0, 30, -1)), "#:Sr 23:59.9#");
  EXPECT_EQ(EncodeLx200SetDec(Object(23, 59.94, 0, 30, -1)), "#:Sd -00*30#");
  const std::string saved = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) GTEST_SKIP() << "no German locale here";
  std::string ra = EncodeLx200SetRa(Object(5, 34.5, 0, 0, 1));
  std::setlocale(LC_ALL, saved.c_str());
  EXPECT_EQ(ra, "#:Sr 05:34.5#");
}

TEST(GotoScope, EachFamilySendsItsBytesOnItsLineAndAFailureClosesThePort) {
  const std::string reminder =
      "You must press a key on the scope before next 'GOTO' to prevent telescope lockup ";
  const struct {
    const char* legend;
    int type;
    bool script;
    std::string wire;
    bool twoStopBits;
    std::size_t pauses;  // of 5 ms
    const char* message;
  } rows[] = {
      {"type 1: hex text, a pause before each character", 1, false, "R3B77,FC2C", true, 11, {}},
      {"type 2: attention, then five bytes", 2, false, {"?R\x3B\x77\xFC\x2C", 6}, false, 1, {}},
      {"type 3: seven bytes and the reminder, in a script too", 3, true,
       std::string("R\x3B\x77\x00\xFC\x2C\x00", 7), false, 1, reminder.c_str()},
      {"type 4: LX200 commands", 4, false, "#:Sr 05:34.5##:Sd -05*23##:MS#", false, 0, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(row.type);
    ASSERT_SIM_STARTED(h);
    h.state.object = Object(5, 34.5, -5, 23, 1);
    h.state.script.scriptMode = row.script;
    EXPECT_TRUE(GotoScope(h.state, h.comm, h.dialogs, h.events));
    for (int tries = 0; tries < 200 && h.sim.ReceivedBytes().size() < row.wire.size(); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    std::this_thread::sleep_for(std::chrono::milliseconds(20));  // and nothing more comes
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    for (const ReceivedByte& byte : h.sim.Received())
      EXPECT_TRUE(byte.twoStopBits == row.twoStopBits && byte.speed == B9600);
    EXPECT_EQ(h.events.sleeps, std::vector<int>(row.pauses, 5));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
  }
  for (bool script : {false, true}) {
    for (int port : {2, kPort}) {  // no device; a line hung up in the middle of the command
      SCOPED_TRACE(std::to_string(port) + (script ? " (script)" : ""));
      WireHarness h(1, {.hangUpAfterBytes = 4});
      ASSERT_SIM_STARTED(h);
      h.state.telescope.comPort = port;
      h.state.script.scriptMode = script;
      EXPECT_FALSE(GotoScope(h.state, h.comm, h.dialogs, h.events));
      const char* message = port == 2 ? "UNABLE TO OPEN COM 2" : "UNABLE TO WRITE TO COM 1";
      EXPECT_EQ(h.dialogs.messages, Shown(script ? nullptr : message));
      EXPECT_EQ(h.sim.ReceivedBytes().size(), port == 2 ? 0u : 4u);
    }
  }
}

// Celestron or Meade read-back, by the family.
bool Load(WireHarness& h, bool startedByUser = true) {
  return h.state.telescope.scopeType == 1 ? CelestronLoad(h.context, h.monitor, startedByUser)
                                          : MeadeLoad(h.context, h.monitor);
}

TEST(PositionReadback, CelestronUnfoldsTheDeclinationAndMeadeReadsTheSignOfMinusZero) {
  WireHarness nexstar(1, {.ignoreFirstQueries = 3, .replies = {{"E", "4000,C000#"}}});
  ASSERT_SIM_STARTED(nexstar);
  nexstar.state.telescope.scopeCode = 103;
  EXPECT_TRUE(Load(nexstar));
  EXPECT_EQ(nexstar.sim.ReceivedBytes(), "JJJJE") << "asked until answered";
  const ObjectState& n = nexstar.state.object;
  EXPECT_EQ(std::pair(n.objRaHours, n.objDecDegrees), std::pair(6, 270)) << "south: 180..360";
  EXPECT_NEAR(n.objDecMinutes, 0, kMinutesTolerance);
  EXPECT_TRUE(nexstar.state.telescope.positionFromScope);
  EXPECT_EQ(nexstar.statuses, Shown("No scope response yet. Verify Connection.\nNexstar 60/80/114 "
                                    "must be in 'RS-232 Mode'"));

  WireHarness meade(4, {.replies = {{":GR", "05:34.5#"}, {":GD", "-00\33730#"}}});
  ASSERT_SIM_STARTED(meade);
  EXPECT_TRUE(Load(meade));
  EXPECT_EQ(meade.sim.ReceivedBytes(), "#:GR##:GD#");
  const ObjectState& m = meade.state.object;
  EXPECT_EQ(std::tuple(m.objRaHours, m.objDecDegrees, m.objDecMinutes, m.objDecSign),
            std::tuple(5, 0, 30.0, -1));
  EXPECT_NEAR(m.objRaMinutes, 34.5, kMinutesTolerance);
}

TEST(PositionReadback, FailuresKeepTheObjectAndSaySoWhenTheyShould) {
  const SimBehaviour hangUp{.hangUpAfterBytes = 1}, garbage{.fault = ReplyFault::kGarbage},
      notAligned{.replies = {{"J", std::string("\0#", 2)}}},
      positionShort{.replies = {{"E", "0000,0000"}}};
  const struct {
    const char* legend;
    SimBehaviour behaviour;
    bool startedByUser;
    const char *wire, *message;
  } rows[] = {
      {"not aligned", notAligned, true, "J", "Scope is Not Aligned"},
      {"garbage", garbage, true, "J", "Invalid Scope Response"},
      {"hung up, the user's load", hangUp, true, "J", "UNABLE TO WRITE TO COM 1"},
      {"hung up, another caller's load", hangUp, false, "J", nullptr},
      // A reply too short is no error: it is asked for again until the window is closed.
      {"NexStar position short", positionShort, true, "JEEE", nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.legend);
    WireHarness h(1, row.behaviour);
    ASSERT_SIM_STARTED(h);
    h.state.object = Object(1, 0, 2, 0, 1);
    h.CloseWindowWhen([&] { return h.sim.Commands().size() >= 4; });
    EXPECT_FALSE(Load(h, row.startedByUser));
    EXPECT_EQ(h.dialogs.messages, Shown(row.message));
    EXPECT_EQ(h.sim.ReceivedBytes(), row.wire);
    EXPECT_EQ(std::pair(h.state.object.objRaHours, h.state.object.objDecDegrees), std::pair(1, 2));
    EXPECT_FALSE(h.state.telescope.positionFromScope);
  }
}

}  // namespace
}  // namespace astel::testing
