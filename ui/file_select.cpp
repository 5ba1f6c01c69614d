#include "ui/file_select.h"

#include <QDir>
#include <QGridLayout>
#include <QGroupBox>
#include <QVBoxLayout>

#include "catalog/search.h"
#include "scope/gps_load.h"
#include "scope/scope_gps_load.h"
#include "session/file_select.h"
#include "session/home_location.h"
#include "ui/latin1.h"

namespace astel::ui {

FileSelectDialog::FileSelectDialog(GuiContext& context, QWidget* parent)
    : QDialog(parent), context_(context), scope_(context.Scope()) {
  setObjectName("FileSelect");
  setWindowTitle("Load Home Location File or GPS Data");

  file1_ = new QListWidget(this);
  file1_->setObjectName("File1");
  file1_->setToolTip("Click this scroll bar to load location & options from a file");
  command1_ = new QPushButton("Load the selected file", this);
  command1_->setObjectName("Command1");
  command2_ = new QPushButton("Cancel", this);
  command2_->setObjectName("Command2");

  check1_ = new QCheckBox("Load Time From GPS or Scope", this);
  check1_->setObjectName("Check1");
  check1_->setToolTip("If this box is unchecked, the GPS will set the location, but not the time");
  scopeGps_ = new QPushButton(this);
  scopeGps_->setObjectName("ScopeGPS");
  gpsLoad_ = new QPushButton("Load From GPS Device", this);
  gpsLoad_->setObjectName("GPSload");
  gpsLoad_->setToolTip("Begin the process of loading data from a hand-held GPS receiver");
  gpsStatus_ = new QLabel("GPS Status", this);
  gpsStatus_->setObjectName("GPSstatus");
  gpsStatus_->setWordWrap(true);
  gpsStatus_->setFrameShape(QFrame::StyledPanel);
  gpsStatus_->setMinimumHeight(gpsStatus_->fontMetrics().height() * 3);

  auto* files = new QGroupBox("Home location files (*.HOM)", this);
  auto* filesLayout = new QVBoxLayout(files);
  filesLayout->addWidget(file1_);
  auto* fileButtons = new QHBoxLayout;
  fileButtons->addWidget(command1_);
  fileButtons->addWidget(command2_);
  filesLayout->addLayout(fileButtons);

  auto* gps = new QGroupBox("GPS receiver or telescope", this);
  auto* gpsLayout = new QVBoxLayout(gps);
  gpsLayout->addWidget(check1_);
  gpsLayout->addWidget(gpsLoad_);
  gpsLayout->addWidget(scopeGps_);
  gpsLayout->addWidget(gpsStatus_);
  gpsLayout->addStretch();

  auto* layout = new QHBoxLayout(this);
  layout->addWidget(files, 1);
  layout->addWidget(gps, 1);

  // Activation: the check box and ScopeGPS follow the telescope.
  const SharedState& s = context_.state;
  check1_->setChecked(LoadTimeChecked(s.telescope));
  const ScopeGpsButton scope = ScopeGpsButtonState(s.telescope);
  scopeGps_->setText(FromLatin1(scope.caption));
  scopeGps_->setToolTip(FromLatin1(scope.toolTip));
  scopeGps_->setEnabled(scope.enabled);
  scopeGpsEnabled_ = scope.enabled;
  FillFileList();
  monitor_.onStatus = [this](const std::string& text) {
    gpsStatus_->setText(FromLatin1(text));
    ShowBusy(monitor_.busy);
  };

  connect(check1_, &QCheckBox::clicked, this,
          [this](bool checked) { SetLoadTime(context_.state, checked); });
  connect(command1_, &QPushButton::clicked, this, &FileSelectDialog::LoadSelected);
  connect(file1_, &QListWidget::itemDoubleClicked, this, &FileSelectDialog::LoadSelected);
  connect(command2_, &QPushButton::clicked, this, &QDialog::reject);
  connect(gpsLoad_, &QPushButton::clicked, this, [this] { RunLoad(false); });
  connect(scopeGps_, &QPushButton::clicked, this, [this] { RunLoad(true); });
  resize(620, 320);
}

void FileSelectDialog::FillFileList() {
  QDir dir(FromLatin1(context_.state.files.installDir));
  const QStringList names = dir.entryList({"*.HOM"}, QDir::Files, QDir::Name | QDir::IgnoreCase);
  file1_->addItems(names);
  const QString current = FromLatin1(context_.state.files.homeFileName);
  for (int i = 0; i < file1_->count(); ++i) {
    if (file1_->item(i)->text() == current) file1_->setCurrentRow(i);
  }
}

void FileSelectDialog::LoadSelected() {
  const QListWidgetItem* item = file1_->currentItem();
  const std::string name = item && item->isSelected() ? ToLatin1(item->text()) : "";
  HomeFileContext home{context_.dialogs, context_.clock, context_.windows, context_.executablePath,
                       context_.desktopDir};
  if (!LoadSelectedHomeFile(context_.state, home, name)) return;
  loaded_ = true;
  accept();
}

void FileSelectDialog::RunLoad(bool fromTelescope) {
  if (monitor_.busy) return;
  ShowBusy(true);
  const LoadOutcome outcome =
      fromTelescope ? ScopeGpsLoad(scope_, monitor_) : GpsLoad(scope_, monitor_);
  ShowBusy(false);
  switch (outcome) {
    case LoadOutcome::kNotStarted:
      return;
    case LoadOutcome::kLoaded:
      // The place (and time) changed: the matches saved so far belong to the old ones.
      ResetMatchSaving(context_.state);
      loaded_ = true;
      accept();
      return;
    case LoadOutcome::kFailed:
      reject();
      return;
    case LoadOutcome::kCancelled:
      return;  // the window is already closing
  }
}

void FileSelectDialog::ShowBusy(bool busy) {
  gpsLoad_->setEnabled(!busy);
  scopeGps_->setEnabled(!busy && scopeGpsEnabled_);
  command1_->setEnabled(!busy);
}

void FileSelectDialog::done(int result) {
  // A load waiting for its device ends at its next round, then the window is gone.
  monitor_.cancelRequested = true;
  QDialog::done(result);
}

}  // namespace astel::ui
