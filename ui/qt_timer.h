// The logic's Timer port on a QTimer that the window owns: the window connects the QTimer's
// timeout to the logic's handler, the logic starts and stops it through this port.
#pragma once

#include <QTimer>

#include "scope/timer_port.h"

namespace astel::ui {

class QtTimerPort : public Timer {
 public:
  explicit QtTimerPort(QTimer& timer) : timer_(timer) {}
  void Start(int intervalMs) override { timer_.start(intervalMs); }
  void Stop() override { timer_.stop(); }

 private:
  QTimer& timer_;
};

}  // namespace astel::ui
