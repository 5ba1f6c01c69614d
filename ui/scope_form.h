// ScopeForm: the telescope model and its serial port, and the upload of place and time.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "ui/gui_context.h"

namespace astel::ui {

class ScopeFormDialog : public QDialog {
  Q_OBJECT
 public:
  ScopeFormDialog(GuiContext& context, QWidget* parent);

  // Set by the owner of the telescope-selection logic.
  std::function<void(const std::string& row)> onTelescopeClicked;
  std::function<void(const std::string& row)> onPortClicked;
  std::function<bool(const std::string& row)> onOk;  // true closes the window
  std::function<void()> onUpload;
  std::function<void()> onClose;

  void setStatus(const std::string& text);
  void setBusy(bool busy);

  QListWidget* telescopes() const { return list1_; }
  QListWidget* ports() const { return list2_; }
  QPushButton* okButton() const { return ok_; }
  QPushButton* uploadButton() const { return upload_; }
  QLabel* statusLabel() const { return status_; }

 protected:
  void done(int result) override;

 private:
  GuiContext& context_;
  QListWidget* list1_;
  QListWidget* list2_;
  QPushButton* ok_;
  QPushButton* upload_;
  QLabel* status_;
};

}  // namespace astel::ui
