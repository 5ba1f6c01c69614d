// The window's side of a telescope or GPS exchange that may wait on the device without limit.
// The window shows `status` in its label and sets `cancelRequested` when the user closes it; the
// exchange lets window events run once a round, then checks the flag and, when it is set, closes
// the port and returns false without a message.
#pragma once

#include <functional>
#include <string>
#include <utility>

namespace astel {

struct ExchangeMonitor {
  std::string status;
  bool cancelRequested = false;
  bool busy = false;  // the window's buttons stay disabled while an exchange runs
  std::function<void(const std::string&)> onStatus;  // lets the window repaint its label at once

  void ShowStatus(std::string text) {
    status = std::move(text);
    if (onStatus) onStatus(status);
  }
};

}  // namespace astel
