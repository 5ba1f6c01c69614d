#include "ui/help_form.h"

#include <QVBoxLayout>

#include "catalog/help_topics.h"
#include "ui/clickable_label.h"
#include "ui/latin1.h"

namespace astel::ui {

HelpFormDialog::HelpFormDialog(GuiContext& context, QWidget* parent)
    : QDialog(parent), context_(context) {
  setObjectName("HelpForm");
  setWindowTitle("ASTEL+S Help");

  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setToolTip("Click a topic to read about it");
  for (const HelpTopic& topic : HelpTopics()) {
    list1_->addItem(QString::fromLatin1(topic.title));
  }
  list1_->setMinimumWidth(list1_->sizeHintForColumn(0) + 30);
  text1_ = new QTextEdit(this);
  text1_->setObjectName("Text1");
  text1_->setReadOnly(true);
  file1_ = new QListWidget(this);
  file1_->setObjectName("File1");
  file1_->setToolTip("Click a page to open it in your web browser");
  for (const std::string& page : HelpPages(context_.state.files.installDir)) {
    file1_->addItem(FromLatin1(page));
  }
  file1_->setMaximumHeight(file1_->sizeHintForRow(0) * 7 + 8);

  auto* link = new ClickableLabel(this);
  link->setObjectName("Label1");
  link->setTextFormat(Qt::PlainText);
  link->setText("Program documentation (opens in your web browser)");
  QFont underlined = link->font();
  underlined.setUnderline(true);
  link->setFont(underlined);
  link->setToolTip(FromLatin1(DocumentationAddress(context_.state)));
  link->setCursor(Qt::PointingHandCursor);
  label1_ = link;

  auto* right = new QVBoxLayout;
  right->addWidget(text1_, 2);
  right->addWidget(new QLabel("Help pages:", this));
  right->addWidget(file1_, 1);
  right->addWidget(label1_);
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(list1_);
  layout->addLayout(right, 1);

  connect(list1_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (item) text1_->setPlainText(FromLatin1(HelpText(ToLatin1(item->text()))));
  });
  connect(file1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const std::string dir = context_.state.files.installDir;
    context_.shell.OpenDocument(dir + ToLatin1(item->text()), dir);
  });
  connect(link, &ClickableLabel::clicked, this, [this] {
    context_.shell.OpenDocument(DocumentationAddress(context_.state),
                                context_.state.files.installDir);
  });
  resize(760, 460);
}

}  // namespace astel::ui
