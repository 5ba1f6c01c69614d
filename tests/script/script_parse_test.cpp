#include <gtest/gtest.h>

#include "script/script_position.h"
#include "script/script_time.h"

namespace astel {
namespace {

TEST(ScriptTime, WaitAndExitFields) {
  auto wait = ParseWaitTime("23:59:59");
  ASSERT_TRUE(wait.time);
  EXPECT_EQ(wait.time->SecondOfDay(), 86399);
  ASSERT_TRUE(ParseWaitTime(" 7:05 ").time);
  EXPECT_FALSE(ParseWaitTime("7:5x").time);
  EXPECT_FALSE(ParseWaitTime(":30").time);
  EXPECT_FALSE(ParseWaitTime("-1:30").time);

  EXPECT_EQ(ParseExitTime("23:00:10").error, "Invalid time format: invalid minutes")
      << "EXIT takes hours and minutes only";
  auto exit = ParseExitTime("06:30");
  ASSERT_TRUE(exit.time);
  EXPECT_EQ(exit.time->MinuteOfDay(), 390);
}

TEST(ScriptPosition, SeparatorsSignsAndEpoch) {
  auto p = ParseScriptPosition("RA=23H59.9M DEC=-89D59.9M 1950");
  ASSERT_TRUE(p.position) << p.error;
  EXPECT_EQ(p.position->raHours, 23);
  EXPECT_DOUBLE_EQ(p.position->raMinutes, 59.9);
  EXPECT_EQ(p.position->decDegrees, -89);
  EXPECT_EQ(p.position->decSign, -1);
  EXPECT_DOUBLE_EQ(p.position->epoch, 1950);

  p = ParseScriptPosition("RA=0H0M,DEC=+90D0M");
  ASSERT_TRUE(p.position) << p.error;
  EXPECT_EQ(p.position->decDegrees, 90);
  EXPECT_DOUBLE_EQ(p.position->epoch, 2000);
  EXPECT_EQ(ParseScriptPosition("RA=0H0M,DEC=90D30M").error, "invalid Dec minutes");
}

}  // namespace
}  // namespace astel
