// The motor-control window (MoveScope) as logic: four direction buttons held down to slew a
// NexStar (type 1) mount, a rate list, two reversing switches and the remote mouse. The Qt window
// forwards presses and releases here, shows `General()` in its status label, enables the
// direction buttons from `ButtonEnabled`, and calls SafetyTimeout and PauseTimeout when its
// Safety (10 s) and Timer1 (2 s) timers fire.
//
// While a motion runs, the main window's GoTo, Scope and Object buttons are disabled
// (state.form.commandButtonsEnabled): each of them would start its own exchange on the port.
#pragma once

#include <array>
#include <string>

#include "core/ports.h"
#include "core/shared_state.h"
#include "scope/comm_io.h"
#include "scope/timer_port.h"

namespace astel {

inline constexpr int kSafetyIntervalMs = 10000;
inline constexpr int kPauseAfterStopMs = 2000;
inline constexpr int kDefaultRateIndex = 8;  // rate 9, the hand controllers' own default slew

enum class MoveButton { kUp, kDown, kLeft, kRight };

// Mouse button numbers as the window reports them.
inline constexpr int kLeftMouse = 1;
inline constexpr int kRightMouse = 2;
inline constexpr int kMiddleMouse = 4;

class MoveScopeLogic {
 public:
  MoveScopeLogic(SharedState& state, CommPorts& comm, Dialogs& dialogs, Events& events,
                 Timer& safety, Timer& pause);

  // Button actions; each acts only for the left mouse button.
  void UpDown(int mouseButton);
  void UpUp(int mouseButton);
  void DownDown(int mouseButton);
  void DownUp(int mouseButton);
  void LeftDown(int mouseButton);
  void LeftUp(int mouseButton);
  void RightDown(int mouseButton);
  void RightUp(int mouseButton);

  void SetRateIndex(int index) { rateIndex_ = index; }  // List1's row, 0 for "1" .. 8 for "9"
  void SetReverseLeftRight(bool on) { reverseLeftRight_ = on; }
  void SetReverseUpDown(bool on) { reverseUpDown_ = on; }
  void SetRemoteMouse(bool on);
  // Presses and releases on the window's free area, used while the remote mouse is on: left and
  // right drive the current axis, the middle button switches the axis.
  void FormMouseDown(int mouseButton);
  void FormMouseUp(int mouseButton);

  void SafetyTimeout();  // the Safety timer fired: stop whatever runs
  void PauseTimeout();   // Timer1 fired: the pause after a stop is over
  void Deactivate();     // the window lost the focus
  void Close();          // the window closes

  bool StartMotion(bool altitudeAxis, int direction);
  void StopMotion();
  // One motor command over the port; true when the mount acknowledged it.
  bool CelestronMotion(bool altitudeAxis, int direction, int rate);
  bool CelestronGetResponse();

  const std::string& General() const { return general_; }
  bool ButtonEnabled(MoveButton button) const { return buttonEnabled_[Index(button)]; }
  bool Ready() const { return ready_; }
  bool StopRequested() const { return stopRequested_; }

 private:
  static std::size_t Index(MoveButton button) { return static_cast<std::size_t>(button); }
  void Press(int mouseButton, bool altitudeAxis, int direction);
  void Release(int mouseButton, MoveButton button);

  SharedState& state_;
  CommPorts& comm_;
  Dialogs& dialogs_;
  Events& events_;
  Timer& safety_;
  Timer& pause_;

  bool ready_ = true;
  bool stopRequested_ = false;
  bool portOpen_ = false;
  bool moving_ = false;
  bool closed_ = false;
  bool remoteAxis_ = false;   // remote mouse drives the altitude axis
  bool currentAxis_ = false;  // axis of the running motion, true = altitude
  int stopCount_ = 0;         // counts stops, so a command cut short by one stays quiet
  int rateIndex_ = kDefaultRateIndex;
  bool reverseLeftRight_ = false;
  bool reverseUpDown_ = false;
  bool remoteMouse_ = false;
  std::array<bool, 4> buttonEnabled_ = {true, true, true, true};
  std::string general_ = " ";
};

}  // namespace astel
