// HelpForm: short explanations of the program's terms (catalog/help_topics.h), and the longer
// help pages of the program folder.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QTextEdit>

#include "ui/gui_context.h"

namespace astel::ui {

class HelpFormDialog : public QDialog {
  Q_OBJECT
 public:
  HelpFormDialog(GuiContext& context, QWidget* parent);

  QListWidget* topics() const { return list1_; }
  QTextEdit* text() const { return text1_; }
  QListWidget* pages() const { return file1_; }
  QLabel* documentationLink() const { return label1_; }

 private:
  GuiContext& context_;
  QListWidget* list1_;
  QTextEdit* text1_;
  QListWidget* file1_;
  QLabel* label1_;
};

}  // namespace astel::ui
