#include "script/script_interpreter.h"

#include <gtest/gtest.h>

#include "tests/script/script_rig.h"

namespace astel {
namespace {

using ScriptCommands = testing::ScriptRig;

TEST_F(ScriptCommands, EveryKeywordsArgumentsAndTheirMessages) {
  Start("MINALT=1");  // one command, so COMMAND=2 is past the end
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
      {"FIND=Polaris", kFailed, "Object not found in TEST.OBC"},
      {"FIND=Achernar", kRunning, ""},
      {"MINALT=1", kRunning, ""},  // applies to the next search: Achernar never rises at 53 N
      {"FIND=Achernar", kFailed, "Object not found in TEST.OBC"},
      {"MINALT=0", kFailed, "Invalid Minimum Altitude"},
      {"MINALT=90", kFailed, "Invalid Minimum Altitude"},
      {"MINALT=abc", kFailed, "Invalid Minimum Altitude"},
      {"MINALT=89.5", kRunning, ""},
      {"MINMAG=-2", kRunning, ""},
      {"MINMAG=-2.1", kFailed, "Invalid Minimum Magnitude"},
      {"MINMAG=90", kFailed, "Invalid Minimum Magnitude"},
      {"DATE=0", kFailed, "Invalid date"},
      {"DATE=32", kFailed, "Invalid date"},
      {"DATE=31", kRunning, ""},
      {"SLEEP=0", kFailed, "Invalid Interval"},
      {"SLEEP=86400", kFailed, "Invalid Interval"},
      {"PLANET=10", kFailed, "Invalid Planet Number"},
      {"PLANET=-1", kFailed, "Invalid Planet Number"},
      {"COMMAND=0", kFailed, "Invalid Command Number"},
      {"COMMAND=2", kFailed, "Invalid Command Number"},
      {"WAIT=24:00", kFailed, "Invalid time format: invalid hour"},
      {"WAIT=10:60", kFailed, "Invalid time format: invalid minutes"},
      {"WAIT=10", kFailed, "Invalid time format: invalid minutes"},
      {"WAIT=10:00:60", kFailed, "Invalid time format: invalid seconds"},
      {"EXIT=2105", kFailed, "Invalid time format - no ':'"},
      {"EXIT=23:00:10", kFailed, "Invalid time format: invalid minutes"},  // no seconds
      {"RA=0534M DEC=22D01M", kFailed, "'hour' not specified"},
      {"RA=24H00M DEC=22D01M", kFailed, "invalid RA hour"},
      {"RA=5.5H00M DEC=22D01M", kFailed, "invalid RA hour"},
      {"RA=05H60M DEC=22D01M", kFailed, "invalid RA minutes"},
      {"RA=05H34.5M", kFailed, "'dec=' not specified"},
      {"RA=05H34.5M DEC=91D00M", kFailed, "invalid Dec degrees"},
      {"RA=05H34.5M DEC=22D60M", kFailed, "invalid Dec minutes"},
      {"RA=0H0M,DEC=90D30M", kFailed, "invalid Dec minutes"},
      {"RA=0H0M,DEC=+90D0M", kRunning, ""},
      {"RA=23H59.9M DEC=-89D59.9M 1950", kRunning, ""},  // the epoch without its keyword
      {"RA=05H34.5M DEC=22D01M EPOCH=1850", kFailed, "Invalid epoch Specified"},
      {"name2=Per", kRunning, ""},
      {"COMMAND=1", kRunning, ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Run(c.line), c.status) << c.line;
    EXPECT_EQ(state.script.message, c.message) << c.line;
  }
  EXPECT_TRUE(dialogs.messages.empty()) << "a script shows no message boxes";
  EXPECT_EQ(state.search.secondName, "Per");
  EXPECT_EQ(state.form.statusText, "Processing Command1:  COMMAND=1");
  EXPECT_EQ(events.sleptMs, 0) << "no refused WAIT or SLEEP waits";
  EXPECT_FLOAT_EQ(state.search.minAltitude, 89.5f);
  EXPECT_DOUBLE_EQ(state.search.faintestMagnitude, -2);
  EXPECT_EQ(state.script.waitDay, 31);
  EXPECT_EQ(state.object.Name3, "Epoch 1950");
  EXPECT_EQ(state.script.scriptLineIndex, 0) << "COMMAND=1: the step then runs command 1";
}

TEST_F(ScriptCommands, WaitAndSleepBlockWithTheTimerOff) {
  Start("WAIT=21:00:30");
  ASSERT_EQ(Run("WAIT=21:00:30"), kCommandRunning);
  EXPECT_EQ(clock.now.minute * 60 + clock.now.second, 30);
  EXPECT_TRUE(state.form.timer1Enabled);
  EXPECT_NE(Log().find("Command1: WAIT=21:00:30 Start Waiting\r\n"), std::string::npos);

  // A time passed less than twelve hours ago does not wait; one after midnight does.
  const long slept = events.sleptMs;
  ASSERT_EQ(Run("WAIT=20:00"), kCommandRunning);
  EXPECT_EQ(events.sleptMs, slept);
  ASSERT_EQ(Run("WAIT=00:10"), kCommandRunning);
  EXPECT_EQ(clock.now.day * 10000 + clock.now.hour * 100 + clock.now.minute, 230010);

  // DATE names the day the next WAIT ends on.
  ASSERT_EQ(Run("DATE=24"), kCommandRunning);
  ASSERT_EQ(Run("WAIT=00:05"), kCommandRunning);
  EXPECT_EQ(clock.now.day * 10000 + clock.now.hour * 100 + clock.now.minute, 240005);
  EXPECT_EQ(state.script.waitDay, 0) << "DATE served that WAIT only";

  const long before = events.sleptMs;
  ASSERT_EQ(Run("SLEEP=1.5"), kCommandRunning);
  EXPECT_EQ(events.sleptMs - before, 1500);
  EXPECT_NE(Log().find("Command1: SLEEP=1.5 Start Sleeping\r\n"), std::string::npos);

  // A closing window ends a wait.
  state.script.stopRequested = true;
  EXPECT_EQ(Run("SLEEP=100"), kCommandFailed);
  EXPECT_EQ(state.script.message, "Script stopped");
}

TEST_F(ScriptCommands, PositionsAndPlanets) {
  // The coordinates themselves reach the telescope in the end-to-end GoTo tests.
  Start("RA=1");
  ASSERT_EQ(Run("RA=05H34.5M,DEC=-0D30M,EPOCH=2027"), kCommandRunning) << state.script.message;
  EXPECT_EQ(state.object.Name3, "Epoch 2027");
  EXPECT_EQ(state.object.Name4, "ScriptCmd=1");
  EXPECT_EQ(state.search.foundState, 1);

  ASSERT_EQ(Run("RA=05H34.5M DEC=22D01M"), kCommandRunning);  // J2000, carried to the date
  EXPECT_GT(state.object.objRaMinutes, 35.5);
  EXPECT_EQ(state.object.Name3, "Epoch 2000");

  ASSERT_EQ(Run("PLANET=5"), kCommandRunning);
  EXPECT_EQ(state.object.Name1, "Jupiter");
  EXPECT_EQ(state.object.Name3, "");
  EXPECT_NE(Log().find("Jupiter Dist="), std::string::npos);
}

TEST_F(ScriptCommands, ShellGotoAndTheirFailures) {
  Start("SHELL=x");
  ASSERT_EQ(Run("SHELL=/usr/bin/notify-send Observing started"), kCommandRunning);
  EXPECT_EQ(shell.started, std::vector<std::string>{"/usr/bin/notify-send|Observing started"});
  EXPECT_EQ(Run("SHELL="), kCommandFailed);
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
  EXPECT_TRUE(dialogs.messages.empty());
}

TEST_F(ScriptCommands, StepsOneCommandAndEndsWithItsStatus) {
  Start("SLEEP=0.5;COMMAND=4;FOO=1;PLANET=3");
  EXPECT_FALSE(StepScript(context).finished);
  EXPECT_FALSE(StepScript(context).finished);  // COMMAND=4 skips the bad command
  EXPECT_EQ(state.script.scriptLineIndex, 4);
  EXPECT_FALSE(StepScript(context).finished);
  ScriptStep step = StepScript(context);
  EXPECT_TRUE(step.finished);
  EXPECT_EQ(step.exitCode, 0);

  state = SharedState{};
  Start("PLANET=3;FOO=1;PLANET=4");
  EXPECT_FALSE(StepScript(context).finished);
  step = StepScript(context);
  EXPECT_TRUE(step.finished);
  EXPECT_EQ(step.exitCode, kCommandFailed);
  EXPECT_EQ(LastOutcome(), "Command2: FOO=1 Error: Command not Recognized");

  // Once the exit time has come, the next command ends the script.
  state = SharedState{};
  Start("EXIT=21:05;PLANET=3;PLANET=4");
  EXPECT_FALSE(StepScript(context).finished);
  EXPECT_FALSE(StepScript(context).finished) << "21:00 is before the exit time";
  clock.now.minute = 5;
  EXPECT_FALSE(StepScript(context).finished);
  EXPECT_EQ(LastOutcome(), "Exit time detected");
  step = StepScript(context);
  EXPECT_TRUE(step.finished);
  EXPECT_EQ(step.exitCode, 0);
}

}  // namespace
}  // namespace astel
