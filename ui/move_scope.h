// MoveScope: the telescope slewed by hand. The direction buttons act on press and on release;
// with the remote mouse on, presses on the window's free area drive the telescope too.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <functional>

#include "ui/gui_context.h"

namespace astel::ui {

class MoveScopeDialog : public QDialog {
  Q_OBJECT
 public:
  enum Direction { kUp = 0, kDown = 1, kLeft = 2, kRight = 3 };
  // Mouse button numbers as the motor logic counts them.
  static constexpr int kLeftMouse = 1, kRightMouse = 2, kMiddleMouse = 4;

  MoveScopeDialog(GuiContext& context, QWidget* parent);

  // Set by the owner of the motor logic.
  std::function<void(Direction, int mouseButton)> onPress;
  std::function<void(Direction, int mouseButton)> onRelease;
  std::function<void(int rateIndex)> onRate;
  std::function<void(bool)> onReverseLeftRight, onReverseUpDown, onRemoteMouse;
  std::function<void(int mouseButton)> onFormMouseDown, onFormMouseUp;
  std::function<void()> onDeactivate, onClose;

  void setGeneral(const std::string& text);
  QPushButton* button(Direction d) const { return buttons_[d]; }
  QListWidget* rates() const { return list1_; }
  QCheckBox* reverseLeftRight() const { return reverseLeftRight_; }
  QCheckBox* reverseUpDown() const { return reverseUpDown_; }
  QCheckBox* remoteMouse() const { return remoteMouse_; }
  QLabel* general() const { return general_; }
  // The window's own timers: Safety (10 s) and Timer1 (2 s).
  QTimer* safetyTimer() const { return safety_; }
  QTimer* pauseTimer() const { return pause_; }

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void done(int result) override;

 private:
  GuiContext& context_;
  QPushButton* buttons_[4];
  QListWidget* list1_;
  QCheckBox* reverseLeftRight_;
  QCheckBox* reverseUpDown_;
  QCheckBox* remoteMouse_;
  QLabel* general_;
  QTimer* safety_;
  QTimer* pause_;
};

}  // namespace astel::ui
