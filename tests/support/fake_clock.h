// A clock that stands still until a test moves it, and records the times it was asked to set.
#pragma once

#include <vector>

#include "core/ports.h"

namespace astel::testing {

class FakeClock : public Clock {
 public:
  LocalDateTime now;
  ZoneInfo zone;
  bool acceptSetTime = true;
  std::vector<UtcDateTime> setTimes;

  LocalDateTime Now() override { return now; }
  ZoneInfo Zone() override { return zone; }
  bool SetSystemTime(const UtcDateTime& utc) override {
    setTimes.push_back(utc);
    return acceptSetTime;
  }
};

}  // namespace astel::testing
