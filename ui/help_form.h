// HelpForm: short explanations of the program's terms, and the longer help pages.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QTextEdit>
#include <string>
#include <utility>
#include <vector>

#include "ui/gui_context.h"

namespace astel::ui {

struct HelpEntry {
  std::string title, text;
};

class HelpFormDialog : public QDialog {
  Q_OBJECT
 public:
  // `topics` in list order; `documentation` is what Label1 opens.
  HelpFormDialog(GuiContext& context, std::vector<HelpEntry> topics, std::string documentation,
                 QWidget* parent);

  QListWidget* topics() const { return list1_; }
  QTextEdit* text() const { return text1_; }
  QListWidget* pages() const { return file1_; }
  QLabel* documentationLink() const { return label1_; }

 private:
  GuiContext& context_;
  std::vector<HelpEntry> entries_;
  std::string documentation_;
  QListWidget* list1_;
  QTextEdit* text1_;
  QListWidget* file1_;
  QLabel* label1_;
};

}  // namespace astel::ui
