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
      return kLeftMouse;
    case Qt::RightButton:
      return kRightMouse;
    case Qt::MiddleButton:
      return kMiddleMouse;
    default:
      return 0;
  }
}

constexpr int kRates = 9;

}  // namespace

MoveScopeDialog::MoveScopeDialog(GuiContext& context, QWidget* parent)
    : QDialog(parent),
      context_(context),
      safety_(new QTimer(this)),
      pause_(new QTimer(this)),
      safetyPort_(*safety_),
      pausePort_(*pause_),
      logic_(context.state, context.comm, context.dialogs, context.events, safetyPort_,
             pausePort_) {
  setObjectName("MoveScope");
  setWindowTitle("Telescope Motor Control");
  safety_->setObjectName("Safety");
  pause_->setObjectName("Timer1");

  struct ButtonText {
    const char* name;
    const char* caption;
    const char* tip;
  };
  // In the order of MoveButton.
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
    const auto which = static_cast<MoveButton>(i);
    // QPushButton reports only the left button's press and release, which is all that moves.
    connect(b, &QPushButton::pressed, this, [this, which] { Press(which); });
    connect(b, &QPushButton::released, this, [this, which] { Release(which); });
  }

  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setToolTip("Sets the rate of scope motion");
  for (int rate = 1; rate <= kRates; ++rate) {
    list1_->addItem(QString::number(rate));
  }
  list1_->setCurrentRow(kDefaultRateIndex);
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

  auto* pad = new QGridLayout;
  pad->addWidget(button(MoveButton::kUp), 0, 1);
  pad->addWidget(button(MoveButton::kLeft), 1, 0);
  pad->addWidget(button(MoveButton::kRight), 1, 2);
  pad->addWidget(button(MoveButton::kDown), 2, 1);
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
    if (row >= 0) logic_.SetRateIndex(row);
  });
  connect(reverseLeftRight_, &QCheckBox::toggled, this,
          [this](bool on) { logic_.SetReverseLeftRight(on); });
  connect(reverseUpDown_, &QCheckBox::toggled, this,
          [this](bool on) { logic_.SetReverseUpDown(on); });
  connect(remoteMouse_, &QCheckBox::toggled, this, [this](bool on) {
    logic_.SetRemoteMouse(on);
    ShowState();
  });
  connect(safety_, &QTimer::timeout, this, [this] {
    logic_.SafetyTimeout();
    ShowState();
  });
  connect(pause_, &QTimer::timeout, this, [this] {
    logic_.PauseTimeout();
    ShowState();
  });
}

void MoveScopeDialog::Press(MoveButton b) {
  held_ = static_cast<int>(b);
  switch (b) {
    case MoveButton::kUp:
      logic_.UpDown(kLeftMouse);
      break;
    case MoveButton::kDown:
      logic_.DownDown(kLeftMouse);
      break;
    case MoveButton::kLeft:
      logic_.LeftDown(kLeftMouse);
      break;
    case MoveButton::kRight:
      logic_.RightDown(kLeftMouse);
      break;
  }
  ShowState();
}

void MoveScopeDialog::Release(MoveButton b) {
  // Only the button that was pressed is released, once: disabling a button that Qt still thinks
  // is down reports one more release.
  if (held_ != static_cast<int>(b)) return;
  held_ = -1;
  switch (b) {
    case MoveButton::kUp:
      logic_.UpUp(kLeftMouse);
      break;
    case MoveButton::kDown:
      logic_.DownUp(kLeftMouse);
      break;
    case MoveButton::kLeft:
      logic_.LeftUp(kLeftMouse);
      break;
    case MoveButton::kRight:
      logic_.RightUp(kLeftMouse);
      break;
  }
  ShowState();
}

void MoveScopeDialog::ShowState() {
  general_->setText(FromLatin1(logic_.General()));
  for (int i = 0; i < 4; ++i) {
    const bool enabled = logic_.ButtonEnabled(static_cast<MoveButton>(i));
    // A button that is held stays enabled, or Qt would lose its release.
    if (i != held_) buttons_[i]->setEnabled(enabled);
  }
}

void MoveScopeDialog::mousePressEvent(QMouseEvent* event) {
  if (remoteMouse_->isChecked()) {
    logic_.FormMouseDown(MouseNumber(event->button()));
    ShowState();
  }
  QDialog::mousePressEvent(event);
}

void MoveScopeDialog::mouseReleaseEvent(QMouseEvent* event) {
  if (remoteMouse_->isChecked()) {
    logic_.FormMouseUp(MouseNumber(event->button()));
    ShowState();
  }
  QDialog::mouseReleaseEvent(event);
}

void MoveScopeDialog::changeEvent(QEvent* event) {
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) {
    if (held_ >= 0) Release(static_cast<MoveButton>(held_));
    logic_.Deactivate();
  }
  QDialog::changeEvent(event);
}

void MoveScopeDialog::done(int result) {
  // A motion still running is stopped (by Close) before the window goes; no release follows it.
  held_ = -1;
  logic_.Close();
  QDialog::done(result);
}

}  // namespace astel::ui
