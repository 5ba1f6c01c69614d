// A window timer as the logic sees it: the window owns the real timer (a QTimer) and calls the
// logic's timeout handler when it fires.
#pragma once

namespace astel {

class Timer {
 public:
  virtual ~Timer() = default;
  virtual void Start(int intervalMs) = 0;  // (re)starts; fires every interval until stopped
  virtual void Stop() = 0;
};

}  // namespace astel
