#include "script/script_interpreter.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/catalog/catalog_files.h"
#include "tests/session/session_fixture.h"
#include "tests/support/test_catalog.h"

namespace astel {
namespace {

// Sleeping moves the fake clock a second at a time, so a WAIT ends when its time comes.
class ClockEvents : public Events {
 public:
  explicit ClockEvents(testing::FakeClock& clock) : clock_(clock) {}
  void DoEvents() override {}
  void Sleep(int milliseconds) override {
    sleptMs += milliseconds;
    carryMs_ += milliseconds;
    LocalDateTime& t = clock_.now;  // the tests stay inside one month
    const long s = ((t.day * 24L + t.hour) * 60 + t.minute) * 60 + t.second + carryMs_ / 1000;
    carryMs_ %= 1000;
    t.day = s / 86400;
    t.hour = s / 3600 % 24;
    t.minute = s / 60 % 60;
    t.second = s % 60;
  }
  long sleptMs = 0;

 private:
  testing::FakeClock& clock_;
  int carryMs_ = 0;
};

class NoSearchWindow : public SearchWindow {
 public:
  void Show(const std::string&) override {}
  void SetProgress(const std::string&) override {}
  void Hide() override {}
};

// A place in the north of England with a telescope port, the clock in late November at 21:00, a
// small catalog; each test starts the program with its script.
class ScriptCommands : public testing::StartedProgram {
 protected:
  void SetUp() override {
    home.homeLatitude = 53.0 / kDegreesPerRadianExact;
    home.homeLongitude = 2.0 / kDegreesPerRadianExact;
    home.comPort = 1;
    clock.now = {2026, 11, 22, 21, 0, 0};
    testing::WriteTestCatalog(dir.path() + "/TEST.OBC");
  }
  int Run(const std::string& line) { return ProcessCommand(context, line); }
  bool Logged(const std::string& text) {
    return testing::ReadFile(dir.path() + "/ASTELLOG.TXT").find(text) != std::string::npos;
  }

  ClockEvents events{clock};
  testing::RecordingShell shell;
  NoSearchWindow searchWindow;
  std::ostringstream diagnostics;
  CatalogPorts catalogPorts{dialogs, events, searchWindow, shell};
  CommPorts comm{events, diagnostics, [](int) { return std::string("/nonexistent/tty"); }};
  ScriptContext context{state, dialogs, clock, events, shell, catalogPorts, comm};
};

TEST_F(ScriptCommands, KeywordsArgumentsAndTheirMessages) {
  Start("MINALT=1");
  const int kFailed = kCommandFailed, kRunning = kCommandRunning;
  const struct {
    const char* line;
    int status;
    const char* message;
  } cases[] = {
      {"FIND M31", kFailed, "No 'equal sign' in command"},
      {"FOO=1", kFailed, "Command not Recognized"},
      {"CAT=NOPE.OBC", kFailed, "Cannot Open Catalog NOPE.OBC"},
      // The letters right before the first "=" decide: text in front is tolerated, lower-case
      // keywords work (the argument keeps its case: NAME2 below).
      {"  please cat=TEST.OBC", kRunning, ""},
      {"FIND=Achernar", kRunning, ""},
      {"MINALT=1", kRunning, ""},  // applies to the next search: Achernar never rises at 53 N
      {"FIND=Achernar", kFailed, "Object not found in TEST.OBC"},
      {"MINALT=89.5", kRunning, ""},
      {"WAIT=24:00", kFailed, "Invalid time format: invalid hour"},
      {"RA=05H34.5M", kFailed, "'dec=' not specified"},
      {"RA=05H34.5M DEC=91D00M", kFailed, "invalid Dec degrees"},
      {"RA=0H0M,DEC=90D30M", kFailed, "invalid Dec minutes"},
      {"RA=0H0M,DEC=+90D0M", kRunning, ""},
      {"RA=23H59.9M DEC=-89D59.9M 1950", kRunning, ""},  // the epoch without its keyword
      {"name2=Per", kRunning, ""},
      {"COMMAND=1", kRunning, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Run(c.line), c.status) << c.line;
    EXPECT_EQ(state.script.message, c.message) << c.line;
  }
  EXPECT_TRUE(dialogs.messages.empty()) << "a script shows no message boxes";
  EXPECT_EQ(state.search.secondName, "Per");
  EXPECT_EQ(events.sleptMs, 0) << "no refused WAIT or SLEEP waits";
  EXPECT_FLOAT_EQ(state.search.minAltitude, 89.5f);
  EXPECT_EQ(state.object.Name3, "Epoch 1950");
  EXPECT_EQ(state.script.scriptLineIndex, 0) << "COMMAND=1: the step then runs command 1";
}

TEST_F(ScriptCommands, WaitAndSleepBlockUntilTheirTime) {
  Start("WAIT=21:00:30");
  ASSERT_EQ(Run("WAIT=21:00:30"), kCommandRunning);
  EXPECT_EQ(clock.now.minute * 60 + clock.now.second, 30);
  EXPECT_TRUE(state.form.timer1Enabled);

  // A time passed less than twelve hours ago does not wait; one after midnight does, and DATE
  // names the day the next WAIT ends on.
  const long slept = events.sleptMs;
  ASSERT_EQ(Run("WAIT=20:00"), kCommandRunning);
  EXPECT_EQ(events.sleptMs, slept);
  ASSERT_EQ(Run("WAIT=00:10"), kCommandRunning);
  EXPECT_EQ(clock.now.day * 10000 + clock.now.hour * 100 + clock.now.minute, 230010);
  ASSERT_EQ(Run("DATE=24"), kCommandRunning);
  ASSERT_EQ(Run("WAIT=00:05"), kCommandRunning);
  EXPECT_EQ(clock.now.day * 10000 + clock.now.hour * 100 + clock.now.minute, 240005);
  EXPECT_EQ(state.script.waitDay, 0) << "DATE served that WAIT only";

  const long before = events.sleptMs;
  ASSERT_EQ(Run("SLEEP=1.5"), kCommandRunning);
  EXPECT_EQ(events.sleptMs - before, 1500);
  state.script.stopRequested = true;  // a closing window ends a wait
  EXPECT_EQ(Run("SLEEP=100"), kCommandFailed);
  EXPECT_EQ(state.script.message, "Script stopped");
}

TEST_F(ScriptCommands, PositionsPlanetsShellAndGotoFailures) {
  Start("RA=1");
  ASSERT_EQ(Run("RA=05H34.5M,DEC=-0D30M,EPOCH=2027"), kCommandRunning) << state.script.message;
  EXPECT_EQ(state.object.Name3, "Epoch 2027");
  ASSERT_EQ(Run("RA=05H34.5M DEC=22D01M"), kCommandRunning);  // J2000, carried to the date
  EXPECT_GT(state.object.objRaMinutes, 35.5);
  ASSERT_EQ(Run("PLANET=5"), kCommandRunning);
  EXPECT_EQ(state.object.Name1, "Jupiter");
  EXPECT_TRUE(Logged("Jupiter Dist="));

  ASSERT_EQ(Run("SHELL=/usr/bin/notify-send Observing started"), kCommandRunning);
  EXPECT_EQ(shell.started, std::vector<std::string>{"/usr/bin/notify-send|Observing started"});
  shell.works = false;
  EXPECT_EQ(Run("SHELL=missing-program"), kCommandFailed);
  EXPECT_EQ(state.script.message, "Error Running Program");

  // Telescope messages are not shown in a script, only logged.
  ASSERT_EQ(Run("PLANET=3"), kCommandRunning);
  EXPECT_EQ(Run("GOTO=1"), kCommandFailed);
  EXPECT_EQ(state.script.message, "Invalid telescope selection for automation");
  state.telescope.scopeType = 4;
  EXPECT_EQ(Run("GOTO=1"), kCommandFailed) << "no device behind COM1";
  EXPECT_EQ(state.script.message, "error processing Goto command");
  state.search.foundState = 0;
  state.object = {};
  EXPECT_EQ(Run("STAY=1"), kCommandFailed);
  EXPECT_EQ(state.script.message, "No object selected or object not visible");
}

TEST_F(ScriptCommands, StepsOneCommandAndEndsAtTheExitTime) {
  Start("EXIT=21:05;COMMAND=4;FOO=1;PLANET=3;PLANET=4");
  for (int i = 0; i < 3; ++i)  // COMMAND=4 skips the bad command; 21:00 is before the exit time
    EXPECT_FALSE(StepScript(context).finished) << "step " << i;
  clock.now.minute = 5;  // once the exit time has come, the next command ends the script
  EXPECT_FALSE(StepScript(context).finished);
  EXPECT_TRUE(Logged("Exit time detected"));
  const ScriptStep step = StepScript(context);
  EXPECT_TRUE(step.finished);
  EXPECT_EQ(step.exitCode, 0);
}

}  // namespace
}  // namespace astel
