// A label that reports clicks and double-clicks, like the old window labels did.
#pragma once

#include <QLabel>
#include <QMouseEvent>

namespace astel::ui {

class ClickableLabel : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;

 signals:
  void clicked();
  void doubleClicked();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
      emit clicked();
    }
    QLabel::mouseReleaseEvent(event);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) emit doubleClicked();
    QLabel::mouseDoubleClickEvent(event);
  }
};

}  // namespace astel::ui
