// FileSelect: another home location file, or place and time from a GPS receiver or the
// telescope.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "ui/gui_context.h"

namespace astel::ui {

class FileSelectDialog : public QDialog {
  Q_OBJECT
 public:
  FileSelectDialog(GuiContext& context, QWidget* parent);

  QListWidget* fileList() const { return file1_; }
  QPushButton* loadButton() const { return command1_; }
  QCheckBox* loadTimeBox() const { return check1_; }
  QPushButton* scopeGpsButton() const { return scopeGps_; }
  QPushButton* gpsLoadButton() const { return gpsLoad_; }
  QLabel* statusLabel() const { return gpsStatus_; }

  // True once a home file was loaded through this window.
  bool loaded() const { return loaded_; }

 private:
  void FillFileList();
  void LoadSelected();

  GuiContext& context_;
  QListWidget* file1_;
  QPushButton* command1_;
  QPushButton* command2_;
  QCheckBox* check1_;
  QPushButton* scopeGps_;
  QPushButton* gpsLoad_;
  QLabel* gpsStatus_;
  bool loaded_ = false;
};

}  // namespace astel::ui
