#include "ui/move_scope.h"

#include <QGridLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "ui/latin1.h"

namespace astel::ui {

namespace {

int MouseNumber(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return MoveScopeDialog::kLeftMouse;
    case Qt::RightButton:
      return MoveScopeDialog::kRightMouse;
    case Qt::MiddleButton:
      return MoveScopeDialog::kMiddleMouse;
    default:
      return 0;
  }
}

constexpr int kRates = 9;
constexpr int kFastestRateRow = 8;

}  // namespace

MoveScopeDialog::MoveScopeDialog(GuiContext& context, QWidget* parent)
    : QDialog(parent), context_(context) {
  setObjectName("MoveScope");
  setWindowTitle("Telescope Motor Control");

  struct ButtonText {
    const char* name;
    const char* caption;
    const char* tip;
  };
  static constexpr ButtonText kButtons[4] = {
      {"Up", "Up", "Moves scope Higher in Altitude"},
      {"Down", "Down", "Moves Scope Lower in Altitude"},
      {"LeftButton", "Left", "Moves Scope Towards Greater Azimuth"},
      {"Right", "Right", "Movers Scope towards Lesser Azimuth"},
  };
  for (int i = 0; i < 4; ++i) {
    auto* b = new QPushButton(kButtons[i].caption, this);
    b->setObjectName(kButtons[i].name);
    b->setToolTip(kButtons[i].tip);
    b->setMinimumSize(90, 48);
    b->setAutoDefault(false);
    buttons_[i] = b;
    const auto direction = static_cast<Direction>(i);
    // QPushButton reports only the left button's press and release.
    connect(b, &QPushButton::pressed, this, [this, direction] {
      if (onPress) onPress(direction, kLeftMouse);
    });
    connect(b, &QPushButton::released, this, [this, direction] {
      if (onRelease) onRelease(direction, kLeftMouse);
    });
  }

  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setToolTip("Sets the rate of scope motion");
  for (int rate = 1; rate <= kRates; ++rate) {
    list1_->addItem(QString::number(rate));
  }
  list1_->setCurrentRow(kFastestRateRow);
  list1_->setMaximumWidth(list1_->fontMetrics().horizontalAdvance("0") * 6 + 30);

  reverseLeftRight_ = new QCheckBox("Reverse Left-Right", this);
  reverseLeftRight_->setObjectName("ReverseLeftRight");
  reverseLeftRight_->setToolTip("Reverses the Function of the Left-Right Buttons");
  reverseUpDown_ = new QCheckBox("Reverse Up-Down", this);
  reverseUpDown_->setObjectName("ReverseUpDown");
  reverseUpDown_->setToolTip("Reverses the function of the Up/Down Buttons");
  remoteMouse_ = new QCheckBox("Remote Mouse", this);
  remoteMouse_->setObjectName("RemoteMouse");
  remoteMouse_->setToolTip("Enables Mouse to be used for scope motion, at the eyepiece.");
  general_ = new QLabel(" ", this);
  general_->setObjectName("General");
  general_->setWordWrap(true);
  general_->setMinimumHeight(general_->fontMetrics().height() * 3);

  safety_ = new QTimer(this);
  safety_->setObjectName("Safety");
  pause_ = new QTimer(this);
  pause_->setObjectName("Timer1");

  auto* pad = new QGridLayout;
  pad->addWidget(buttons_[kUp], 0, 1);
  pad->addWidget(buttons_[kLeft], 1, 0);
  pad->addWidget(buttons_[kRight], 1, 2);
  pad->addWidget(buttons_[kDown], 2, 1);
  auto* rates = new QVBoxLayout;
  rates->addWidget(new QLabel("Rate", this));
  rates->addWidget(list1_);
  auto* top = new QHBoxLayout;
  top->addLayout(pad);
  top->addSpacing(16);
  top->addLayout(rates);
  auto* switches = new QHBoxLayout;
  switches->addWidget(reverseLeftRight_);
  switches->addWidget(reverseUpDown_);
  switches->addWidget(remoteMouse_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addLayout(switches);
  layout->addWidget(general_);

  connect(list1_, &QListWidget::currentRowChanged, this, [this](int row) {
    if (onRate && row >= 0) onRate(row);
  });
  connect(reverseLeftRight_, &QCheckBox::toggled, this, [this](bool on) {
    if (onReverseLeftRight) onReverseLeftRight(on);
  });
  connect(reverseUpDown_, &QCheckBox::toggled, this, [this](bool on) {
    if (onReverseUpDown) onReverseUpDown(on);
  });
  connect(remoteMouse_, &QCheckBox::toggled, this, [this](bool on) {
    if (onRemoteMouse) onRemoteMouse(on);
  });
}

void MoveScopeDialog::setGeneral(const std::string& text) {
  general_->setText(FromLatin1(text));
}

void MoveScopeDialog::mousePressEvent(QMouseEvent* event) {
  if (onFormMouseDown && remoteMouse_->isChecked()) onFormMouseDown(MouseNumber(event->button()));
  QDialog::mousePressEvent(event);
}

void MoveScopeDialog::mouseReleaseEvent(QMouseEvent* event) {
  if (onFormMouseUp && remoteMouse_->isChecked()) onFormMouseUp(MouseNumber(event->button()));
  QDialog::mouseReleaseEvent(event);
}

void MoveScopeDialog::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && !isActiveWindow() && onDeactivate) {
    onDeactivate();
  }
  QDialog::changeEvent(event);
}

void MoveScopeDialog::done(int result) {
  if (onClose) onClose();
  QDialog::done(result);
}

}  // namespace astel::ui
