#include "ui/scope_form.h"

#include <QGroupBox>
#include <QVBoxLayout>

#include "scope/scope_models.h"
#include "session/scope_rows.h"
#include "ui/latin1.h"

namespace astel::ui {

namespace {
constexpr int kComPortRows = 8;
}

ScopeFormDialog::ScopeFormDialog(GuiContext& context, QWidget* parent)
    : QDialog(parent),
      context_(context),
      scope_(context.Scope()),
      logic_(scope_),
      live_(context, logic_.monitor()) {
  setObjectName("ScopeForm");
  setWindowTitle("Select Goto Telescope and Serial Port");
  const TelescopeState& t = context_.state.telescope;

  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setToolTip("The first digit is the telescope family");
  for (const ScopeRow& row : kScopeRows) {
    list1_->addItem(FromLatin1(std::string(row.text)));
  }
  if (int row = ScopeRowOfCode(t.scopeCode); row >= 0) list1_->setCurrentRow(row);
  list2_ = new QListWidget(this);
  list2_->setObjectName("List2");
  list2_->setToolTip("COM1 to COM4 are /dev/ttyUSB0.. or /dev/ttyS0.., or $ASTEL_COM1..4");
  for (int i = 1; i <= kComPortRows; ++i) {
    list2_->addItem(QString("Com%1").arg(i));
  }
  if (t.comPort >= 1 && t.comPort <= kComPortRows) list2_->setCurrentRow(t.comPort - 1);
  list2_->setMaximumWidth(list2_->fontMetrics().horizontalAdvance("Com8") * 3);

  ok_ = new QPushButton("OK", this);
  ok_->setObjectName("OK");
  ok_->setToolTip("Keep this telescope and port");
  upload_ = new QPushButton("Upload", this);
  upload_->setObjectName("Upload");
  upload_->setToolTip("Send your location, time zone, date and time to a Meade telescope");
  status_ = new QLabel(" ", this);
  status_->setObjectName("ScopeStatus");
  status_->setWordWrap(true);
  status_->setFrameShape(QFrame::StyledPanel);
  status_->setMinimumHeight(status_->fontMetrics().height() * 3);

  auto* scopes = new QGroupBox("Goto telescope", this);
  (new QVBoxLayout(scopes))->addWidget(list1_);
  auto* ports = new QGroupBox("Serial port", this);
  (new QVBoxLayout(ports))->addWidget(list2_);
  auto* lists = new QHBoxLayout;
  lists->addWidget(scopes, 1);
  lists->addWidget(ports);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(upload_);
  buttons->addStretch();
  buttons->addWidget(ok_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(lists);
  layout->addWidget(status_);
  layout->addLayout(buttons);

  logic_.monitor().onStatus = [this](const std::string& text) {
    status_->setText(FromLatin1(text));
  };
  connect(list1_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { logic_.List1Click(ToLatin1(item->text())); });
  connect(list2_, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { logic_.List2Click(ToLatin1(item->text())); });
  connect(ok_, &QPushButton::clicked, this, [this] {
    const QListWidgetItem* item = list1_->currentItem();
    const std::string row = item && item->isSelected() ? ToLatin1(item->text()) : "";
    if (logic_.OkClick(row)) accept();
  });
  connect(upload_, &QPushButton::clicked, this, [this] {
    if (logic_.monitor().busy) return;
    ShowBusy(true);
    logic_.UploadClick();
    ShowBusy(false);
  });
  resize(720, 380);
}

void ScopeFormDialog::ShowBusy(bool busy) {
  ok_->setEnabled(!busy);
  upload_->setEnabled(!busy);
}

void ScopeFormDialog::done(int result) {
  logic_.Close();
  QDialog::done(result);
}

}  // namespace astel::ui
