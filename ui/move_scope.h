// MoveScope: the telescope slewed by hand. The direction buttons act on press and on release;
// with the remote mouse on, presses on the window's free area drive the telescope too. Every
// action goes to MoveScopeLogic; its Safety (10 s) and Timer1 (2 s) timers are QTimers here.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>

#include "scope/move_scope.h"
#include "ui/gui_context.h"
#include "ui/qt_timer.h"

namespace astel::ui {

class MoveScopeDialog : public QDialog {
  Q_OBJECT
 public:
  MoveScopeDialog(GuiContext& context, QWidget* parent);

  MoveScopeLogic& logic() { return logic_; }
  QPushButton* button(MoveButton b) const { return buttons_[static_cast<int>(b)]; }
  QListWidget* rates() const { return list1_; }
  QCheckBox* reverseLeftRight() const { return reverseLeftRight_; }
  QCheckBox* reverseUpDown() const { return reverseUpDown_; }
  QCheckBox* remoteMouse() const { return remoteMouse_; }
  QLabel* general() const { return general_; }
  QTimer* safetyTimer() const { return safety_; }
  QTimer* pauseTimer() const { return pause_; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void done(int result) override;

 private:
  void Press(MoveButton b);
  void Release(MoveButton b);
  // The logic's status text and button states into the controls.
  void ShowState();

  GuiContext& context_;
  QTimer* safety_;
  QTimer* pause_;
  QtTimerPort safetyPort_;
  QtTimerPort pausePort_;
  MoveScopeLogic logic_;
  QPushButton* buttons_[4];
  QListWidget* list1_;
  QCheckBox* reverseLeftRight_;
  QCheckBox* reverseUpDown_;
  QCheckBox* remoteMouse_;
  QLabel* general_;
  // The direction button held down, if any: a window that loses the focus never hears its
  // release, so it is released for it.
  int held_ = -1;
};

}  // namespace astel::ui
