#include "ui/searching_window.h"

#include <QVBoxLayout>

#include "ui/latin1.h"

namespace astel::ui {

SearchingWindow::SearchingWindow(SearchState& search, QWidget* parent)
    : QDialog(parent), search_(search) {
  setObjectName("Searching");
  setWindowTitle("Searching");
  setModal(true);
  label_ = new QLabel(this);
  label_->setObjectName("Label1");
  label_->setWordWrap(true);
  label_->setMinimumWidth(420);
  label_->setMinimumHeight(label_->fontMetrics().height() * 3);
  cancel_ = new QPushButton("Cancel", this);
  cancel_->setObjectName("CancelSearchButton");
  cancel_->setToolTip("Stop the search");
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(label_);
  layout->addWidget(cancel_, 0, Qt::AlignHCenter);
  connect(cancel_, &QPushButton::clicked, this, [this] { search_.cancelRequested = true; });
}

void SearchingWindow::Show(const std::string& caption) {
  label_->setText(FromLatin1(caption));
  show();
  raise();
}

void SearchingWindow::SetProgress(const std::string& text) {
  label_->setText(FromLatin1(text));
  if (!isVisible()) show();
}

void SearchingWindow::Hide() {
  hide();
}

void SearchingWindow::reject() {
  search_.cancelRequested = true;
}

}  // namespace astel::ui
