#include "scope/move_scope.h"

#include "scope/nexstar_protocol.h"
#include "scope/scope_link.h"

namespace astel {

namespace {

constexpr int kPacingMs = 3;
constexpr int kReplyWaitMs = 100;
constexpr int kReadyPollMs = 10;  // the wait for the end of the pause rests between event passes

}  // namespace

MoveScopeLogic::MoveScopeLogic(SharedState& state, CommPorts& comm, Dialogs& dialogs,
                               Events& events, Timer& safety, Timer& pause)
    : state_(state),
      comm_(comm),
      dialogs_(dialogs),
      events_(events),
      safety_(safety),
      pause_(pause) {}

void MoveScopeLogic::UpDown(int mouseButton) {
  Press(mouseButton, true, reverseUpDown_ ? -1 : 1);
}
void MoveScopeLogic::DownDown(int mouseButton) {
  Press(mouseButton, true, reverseUpDown_ ? 1 : -1);
}
void MoveScopeLogic::LeftDown(int mouseButton) {
  Press(mouseButton, false, reverseLeftRight_ ? 1 : -1);
}
void MoveScopeLogic::RightDown(int mouseButton) {
  Press(mouseButton, false, reverseLeftRight_ ? -1 : 1);
}
void MoveScopeLogic::UpUp(int mouseButton) {
  Release(mouseButton, MoveButton::kUp);
}
void MoveScopeLogic::DownUp(int mouseButton) {
  Release(mouseButton, MoveButton::kDown);
}
void MoveScopeLogic::LeftUp(int mouseButton) {
  Release(mouseButton, MoveButton::kLeft);
}
void MoveScopeLogic::RightUp(int mouseButton) {
  Release(mouseButton, MoveButton::kRight);
}

void MoveScopeLogic::Press(int mouseButton, bool altitudeAxis, int direction) {
  if (mouseButton != kLeftMouse) return;
  state_.form.commandButtonsEnabled = false;
  StartMotion(altitudeAxis, direction);
}

void MoveScopeLogic::Release(int mouseButton, MoveButton button) {
  if (mouseButton != kLeftMouse) return;
  // The released button rests until the pause after the stop is over.
  buttonEnabled_[Index(button)] = false;
  StopMotion();
}

void MoveScopeLogic::SetRemoteMouse(bool on) {
  remoteMouse_ = on;
  general_ = on ? "Move mouse to blank part of form, then pick it up. Use L/R buttons for motion. "
                  "Middle button shifts axis."
                : " ";
}

void MoveScopeLogic::FormMouseDown(int mouseButton) {
  if (!remoteMouse_) return;
  if (mouseButton == kMiddleMouse) {
    remoteAxis_ = !remoteAxis_;
  } else if (mouseButton == kLeftMouse) {
    remoteAxis_ ? UpDown(kLeftMouse) : LeftDown(kLeftMouse);
  } else if (mouseButton == kRightMouse) {
    remoteAxis_ ? DownDown(kLeftMouse) : RightDown(kLeftMouse);
  }
}

void MoveScopeLogic::FormMouseUp(int mouseButton) {
  if (!remoteMouse_) return;
  if (mouseButton == kLeftMouse) {
    remoteAxis_ ? UpUp(kLeftMouse) : LeftUp(kLeftMouse);
  } else if (mouseButton == kRightMouse) {
    remoteAxis_ ? DownUp(kLeftMouse) : RightUp(kLeftMouse);
  }
}

bool MoveScopeLogic::StartMotion(bool altitudeAxis, int direction) {
  stopRequested_ = false;
  // A press during the pause after a stop waits for its end; a release meanwhile gives up.
  while (!ready_) {
    events_.DoEvents();
    if (stopRequested_ || closed_) return false;
    if (!ready_) events_.Sleep(kReadyPollMs);
  }
  if (portOpen_ || moving_) return false;
  // Not ready again until the pause after this motion's stop has ended.
  ready_ = false;
  currentAxis_ = altitudeAxis;
  if (state_.telescope.scopeType != 1) return false;
  bool started = CelestronMotion(altitudeAxis, direction, rateIndex_ + 1);
  if (started && !stopRequested_) {
    moving_ = true;
    safety_.Start(kSafetyIntervalMs);
  }
  return started;
}

void MoveScopeLogic::StopMotion() {
  stopRequested_ = true;
  ++stopCount_;
  if (portOpen_) {
    comm_.CommClose(state_.telescope.comPort);
    portOpen_ = false;
  }
  if (state_.telescope.scopeType == 1) {
    CelestronMotion(currentAxis_, 1, 0);  // rate 0 stops the axis
    comm_.CommClose(state_.telescope.comPort);
    portOpen_ = false;
  }
  moving_ = false;
  ready_ = false;
  pause_.Start(kPauseAfterStopMs);
  state_.form.commandButtonsEnabled = true;
  safety_.Stop();
}

bool MoveScopeLogic::CelestronMotion(bool altitudeAxis, int direction, int rate) {
  const int port = state_.telescope.comPort;
  const int stopsAtStart = stopCount_;
  if (!OpenScopePort(comm_, dialogs_, port, kModeTelescope, true)) {
    portOpen_ = false;
    return false;
  }
  portOpen_ = true;
  const std::string command = EncodeCelestronMotion(altitudeAxis, direction, rate);
  general_ = "Sending Command for Motion Control";
  comm_.CommFlush(port);
  for (char byte : command) {
    events_.Sleep(kPacingMs);
    if (comm_.CommWrite(port, std::string(1, byte)) != 1) {
      // A stop that came in during this command closed the port under it: it has taken over.
      if (stopCount_ == stopsAtStart) dialogs_.MessageBox(PortMessage(kUnableToWriteCom, port));
      comm_.CommClose(port);
      portOpen_ = false;
      return false;
    }
  }
  bool acknowledged = CelestronGetResponse();
  comm_.CommClose(port);
  portOpen_ = false;
  general_ = " ";
  return acknowledged;
}

bool MoveScopeLogic::CelestronGetResponse() {
  const int port = state_.telescope.comPort;
  events_.Sleep(kReplyWaitMs);
  std::string reply;
  comm_.CommRead(port, reply, kCelestronMotionReplyLength);
  if (static_cast<int>(reply.size()) < kCelestronMotionReplyLength) {
    comm_.CommClose(port);
    portOpen_ = false;
    dialogs_.MessageBox("No Scope response - Press 'Undo' on Hand Controller");
    return false;
  }
  if (reply[2] != '#') {
    comm_.CommClose(port);
    portOpen_ = false;
    dialogs_.MessageBox(std::string(kInvalidScopeResponse));
    return false;
  }
  return true;
}

void MoveScopeLogic::SafetyTimeout() {
  safety_.Stop();
  StopMotion();
  general_ = "Timeout - Safety Stop";
}

void MoveScopeLogic::PauseTimeout() {
  pause_.Stop();
  stopRequested_ = false;
  ready_ = true;
  buttonEnabled_.fill(true);
}

void MoveScopeLogic::Deactivate() {
  state_.form.commandButtonsEnabled = true;
}

void MoveScopeLogic::Close() {
  if (moving_ || portOpen_) StopMotion();
  closed_ = true;
  safety_.Stop();
  pause_.Stop();
  state_.form.commandButtonsEnabled = true;
}

}  // namespace astel
