// A label that reports clicks and double-clicks, like the old window labels did.
#pragma once

#include <QLabel>
#include <QMouseEvent>
#include <utility>

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
    // The release that ends a double-click is part of it, not a click of its own.
    const bool endsDoubleClick = std::exchange(inDoubleClick_, false);
    if (event->button() == Qt::LeftButton && !endsDoubleClick &&
        rect().contains(event->position().toPoint())) {
      emit clicked();
    }
    QLabel::mouseReleaseEvent(event);
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    if (event->button() == Qt::LeftButton) {
      inDoubleClick_ = true;
      emit doubleClicked();
    }
    QLabel::mouseDoubleClickEvent(event);
  }

 private:
  bool inDoubleClick_ = false;
};

}  // namespace astel::ui
