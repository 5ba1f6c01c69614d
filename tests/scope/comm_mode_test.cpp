#include "scope/comm_mode.h"

#include <gtest/gtest.h>

namespace astel {
namespace {

TEST(ParseCommMode, ReadsTheModeStringsOfTheProgramAndRefusesWhatALineCannotBe) {
  struct Row {
    const char* legend;
    const char* mode;
    bool valid;
    int baud, dataBits, stopTimesTwo;
    char parity;
  };
  const Row rows[] = {
      {"NexStar GoTo", "baud=9600 parity=N data=8 stop=2", true, 9600, 8, 4, 'N'},
      {"telescope", "baud=9600 parity=N data=8 stop=1", true, 9600, 8, 2, 'N'},
      {"GPS receiver", "baud=4800 parity=N data=8 stop=1", true, 4800, 8, 2, 'N'},
      {"keys and letters in any case, extra blanks", "  BAUD=4800   Parity=e DATA=7 Stop=1.5 ",
       true, 4800, 7, 3, 'E'},
      {"unknown key", "baud=9600 speed=fast", false, 0, 0, 0, 0},
      {"no equals sign", "baud 9600", false, 0, 0, 0, 0},
      {"baud not a number", "baud=96O0", false, 0, 0, 0, 0},
      {"parity letter unknown", "parity=X", false, 0, 0, 0, 0},
      {"nine data bits", "data=9", false, 0, 0, 0, 0},
      {"three stop bits", "stop=3", false, 0, 0, 0, 0},
      {"negative baud", "baud=-9600", false, 0, 0, 0, 0},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.legend);
    auto mode = ParseCommMode(row.mode);
    ASSERT_EQ(mode.has_value(), row.valid);
    if (!row.valid) continue;
    EXPECT_EQ(mode->baud, row.baud);
    EXPECT_EQ(mode->dataBits, row.dataBits);
    EXPECT_EQ(mode->stopBitsTimesTwo, row.stopTimesTwo);
    EXPECT_EQ(mode->parity, row.parity);
  }
}

TEST(ParseCommMode, AnEmptyStringNamesNothingAndIsAccepted) {
  auto mode = ParseCommMode("");
  ASSERT_TRUE(mode.has_value());
  EXPECT_FALSE(mode->baud || mode->parity || mode->dataBits || mode->stopBitsTimesTwo);
}

TEST(ApplySerialMode, GivesARawTransparentLineWithTheNamedSettings) {
  termios line{};
  line.c_iflag = ICRNL | IXON;  // a terminal's usual input translation and flow control
  line.c_lflag = ECHO | ICANON | ISIG;
  line.c_oflag = OPOST | ONLCR;
  ASSERT_EQ(ApplySerialMode(*ParseCommMode("baud=9600 parity=N data=8 stop=2"), line), 0);
  EXPECT_EQ(cfgetospeed(&line), B9600);
  EXPECT_EQ(line.c_cflag & CSIZE, static_cast<tcflag_t>(CS8));
  EXPECT_NE(line.c_cflag & CSTOPB, 0u);
  EXPECT_EQ(line.c_cflag & PARENB, 0u);
  EXPECT_EQ(line.c_iflag & (ICRNL | IXON | IXOFF), 0u) << "a 0x0D or 0x11 byte would be changed";
  EXPECT_EQ(line.c_lflag & (ECHO | ICANON | ISIG), 0u);
  EXPECT_EQ(line.c_oflag & OPOST, 0u);

  ASSERT_EQ(ApplySerialMode(*ParseCommMode("baud=4800 parity=O data=7 stop=1"), line), 0);
  EXPECT_EQ(cfgetospeed(&line), B4800);
  EXPECT_EQ(line.c_cflag & CSIZE, static_cast<tcflag_t>(CS7));
  EXPECT_EQ(line.c_cflag & CSTOPB, 0u);
  EXPECT_EQ(line.c_cflag & (PARENB | PARODD), static_cast<tcflag_t>(PARENB | PARODD));
}

TEST(ApplySerialMode, RefusesWhatTheLineCannotDo) {
  termios line{};
  EXPECT_EQ(ApplySerialMode(*ParseCommMode("baud=9601"), line), EINVAL) << "no such speed";
  EXPECT_EQ(ApplySerialMode(*ParseCommMode("data=5 stop=1.5"), line), EINVAL)
      << "Linux has no one and a half stop bits";
}

}  // namespace
}  // namespace astel
