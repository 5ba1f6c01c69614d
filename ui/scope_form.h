// ScopeForm: the telescope model and its serial port, and the upload of place and time. Every
// click goes to ScopeFormLogic; ScopeStatus shows the upload's progress, and closing the window
// stops an upload that waits for the telescope.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "scope/scope_form.h"
#include "ui/gui_context.h"

namespace astel::ui {

class ScopeFormDialog : public QDialog {
  Q_OBJECT
 public:
  ScopeFormDialog(GuiContext& context, QWidget* parent);

  ScopeFormLogic& logic() { return logic_; }

  QListWidget* telescopes() const { return list1_; }
  QListWidget* ports() const { return list2_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* uploadButton() const { return upload_; }
  QLabel* statusLabel() const { return status_; }

 protected:
  void done(int result) override;

 private:
  void ShowBusy(bool busy);

  GuiContext& context_;
  ScopeContext scope_;
  ScopeFormLogic logic_;
  LiveExchange live_;
  QListWidget* list1_;
  QListWidget* list2_;
  QPushButton* ok_;
  QPushButton* upload_;
  QLabel* status_;
};

}  // namespace astel::ui
