#include "scope/comm_mode.h"

#include <gtest/gtest.h>

#include <string>

namespace astel {
namespace {

// "baud parity data stop-times-two", "-" for a setting left out, "refused" for nullopt.
std::string Settings(const std::optional<SerialMode>& mode) {
  if (!mode) return "refused";
  auto number = [](std::optional<int> v) { return v ? std::to_string(*v) : std::string("-"); };
  return number(mode->baud) + " " + (mode->parity ? std::string(1, *mode->parity) : "-") + " " +
         number(mode->dataBits) + " " + number(mode->stopBitsTimesTwo);
}

TEST(ParseCommMode, ReadsTheModeStringsOfTheProgramAndRefusesWhatALineCannotBe) {
  const struct {
    const char *legend, *mode, *settings;
  } rows[] = {
      {"NexStar GoTo", "baud=9600 parity=N data=8 stop=2", "9600 N 8 4"},
      {"telescope", "baud=9600 parity=N data=8 stop=1", "9600 N 8 2"},
      {"any case, extra blanks", "  BAUD=4800   Parity=e DATA=7 Stop=1.5 ", "4800 E 7 3"},
      {"an empty string names nothing", "", "- - - -"},
      {"unknown key", "baud=9600 speed=fast", "refused"},
      {"baud not a number", "baud=96O0", "refused"},
      {"parity letter unknown", "parity=X", "refused"},
      {"nine data bits", "data=9", "refused"},
      {"three stop bits", "stop=3", "refused"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Settings(ParseCommMode(row.mode)), row.settings) << row.legend;
  }
}

// The raw line itself (no translation, echo or flow control) is shown byte by byte by CommIO.
TEST(ApplySerialMode, SetsSpeedParityAndSizeOrRefusesWhatLinuxCannotDo) {
  termios line{};
  ASSERT_EQ(ApplySerialMode(*ParseCommMode("baud=4800 parity=O data=7 stop=2"), line), 0);
  EXPECT_EQ(cfgetospeed(&line), B4800);
  EXPECT_EQ(line.c_cflag & (CSIZE | CSTOPB | PARENB | PARODD),
            static_cast<tcflag_t>(CS7 | CSTOPB | PARENB | PARODD));
  EXPECT_EQ(ApplySerialMode(*ParseCommMode("baud=9601"), line), EINVAL) << "no such speed";
  EXPECT_EQ(ApplySerialMode(*ParseCommMode("data=5 stop=1.5"), line), EINVAL)
      << "Linux has no one and a half stop bits";
}

}  // namespace
}  // namespace astel
