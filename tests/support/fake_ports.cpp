#include "tests/support/fake_ports.h"

#include <chrono>
#include <thread>

namespace astel::testing {

void FakeEvents::DoEvents() {
  ++doEventsCount;
  // A hook that itself lets events run must not recurse into itself.
  if (onDoEvents && !inHook_) {
    inHook_ = true;
    onDoEvents();
    inHook_ = false;
  }
}

void FakeEvents::Sleep(int milliseconds) {
  sleeps.push_back(milliseconds);
  if (milliseconds > 0) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace astel::testing
