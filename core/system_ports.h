// The ports the real computer offers whatever the front end: its clock and time zone, and the
// desktop's way to open documents and start programs.
#pragma once

#include "core/ports.h"

namespace astel {

// localtime_r (so TZ is honoured), tm_gmtoff and tm_isdst, and clock_settime for setting the time.
class SystemClock : public Clock {
 public:
  LocalDateTime Now() override;
  ZoneInfo Zone() override;
  bool SetSystemTime(const UtcDateTime& utc) override;
};

// Documents open with xdg-open; programs start detached (their own session, not waited for).
class SystemShell : public Shell {
 public:
  bool OpenDocument(const std::string& pathOrUrl, const std::string& workingDir) override;
  bool StartProgram(const std::string& program, const std::string& parameters) override;
};

}  // namespace astel
