// The main window's logic: the change cascade that recomputes the shown object and every caption,
// the 900 ms tick, "Back to Real Time" and the Solar System list. The Qt window and the headless
// runner both drive this one class.
#pragma once

#include "core/ports.h"
#include "core/shared_state.h"
#include "session/main_display.h"

namespace astel {

class MainWindowLogic {
 public:
  MainWindowLogic(SharedState& state, Clock& clock, Dialogs& dialogs)
      : state_(state), clock_(clock), dialogs_(dialogs) {}

  // The load handler: the shown object's position (a body, or a transient catalog's record for
  // the time), altitude and azimuth for the current moment, rise/transit/set when they are not
  // current, then every caption. Enables the main timer.
  void Load();

  // One timer tick: the clock (in real time), the time scales and zone label, then Load.
  void Tick();

  // "Back to Real Time": the clock and the computer's time zone again, the shown body recomputed.
  void BackToRealTime();

  // A click on the Solar System list: body 0..9 becomes the shown object.
  void SelectSolarSystemBody(int kind);

  const MainDisplay& Display() const { return display_; }

 private:
  void FillDisplay();

  SharedState& state_;
  Clock& clock_;
  Dialogs& dialogs_;
  MainDisplay display_;
};

// True when an object is shown (a search match, a body, or an entered object).
bool HasShownObject(const SharedState& state);

}  // namespace astel
