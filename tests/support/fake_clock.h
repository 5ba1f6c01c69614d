// A clock that stands still until a test moves it, for every test that needs a fixed moment.
#pragma once

#include "core/ports.h"

namespace astel::testing {

class FakeClock : public Clock {
 public:
  LocalDateTime now;
  ZoneInfo zone;
  bool acceptSetTime = true;
  int setTimeCalls = 0;
  UtcDateTime lastSetTime;

  LocalDateTime Now() override { return now; }
  ZoneInfo Zone() override { return zone; }
  bool SetSystemTime(const UtcDateTime& utc) override {
    ++setTimeCalls;
    lastSetTime = utc;
    return acceptSetTime;
  }
};

}  // namespace astel::testing
