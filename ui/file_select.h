// FileSelect: another home location file, or place and time from a GPS receiver or the
// telescope. A GPS or telescope load shows its progress in GPSstatus and keeps the load buttons
// disabled while it runs; closing the window (its Cancel included) stops it.
#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"
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

  // True once a home file, or place and time, were loaded through this window.
  bool loaded() const { return loaded_; }
  ExchangeMonitor& monitor() { return monitor_; }

 protected:
  void done(int result) override;

 private:
  void FillFileList();
  void LoadSelected();
  // GPSload and ScopeGPS: the load, then the window closes unless it never started.
  void RunLoad(bool fromTelescope);
  void ShowBusy(bool busy);

  GuiContext& context_;
  ScopeContext scope_;
  ExchangeMonitor monitor_;
  LiveExchange live_{context_, monitor_};
  bool scopeGpsEnabled_ = false;
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
