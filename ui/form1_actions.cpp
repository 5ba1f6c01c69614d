// Form1's clicks: each one calls the logic that does the work, then refreshes the controls.
#include <QApplication>
#include <QColorDialog>
#include <QFileInfo>

#include "core/observing_log.h"
#include "session/date_time_entry.h"
#include "session/home_location.h"
#include "session/night_vision_toggle.h"
#include "session/place_entry.h"
#include "session/sky_chart_launch.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/form1.h"
#include "ui/latin1.h"
#include "ui/move_scope.h"
#include "ui/scope_form.h"

namespace astel::ui {

void Form1::ConnectActions() {
  SharedState& s = context_.state;
  auto after = [this](auto action) {
    return [this, action] {
      action();
      AfterChange();
    };
  };

  connect(dateButton_, &QPushButton::clicked, this, [this, &s] {
    timer1_->stop();
    DateButtonClick(s, context_.dialogs, logic_);
    Refresh();
  });
  connect(timeButton_, &QPushButton::clicked, this, [this, &s] {
    timer1_->stop();
    TimeButtonClick(s, context_.dialogs, logic_);
    Refresh();
  });
  connect(latitudeButton_, &QPushButton::clicked, this, [this] { OpenLocationEntry(false); });
  connect(longitudeButton_, &QPushButton::clicked, this, [this] { OpenLocationEntry(true); });
  connect(gmt_, &ClickableLabel::clicked, this,
          after([this, &s] { TimeZoneClick(s, context_.dialogs, context_.clock); }));
  connect(realTime_, &QPushButton::clicked, this, [this] {
    logic_.BackToRealTime();
    Refresh();
  });
  connect(command2_, &QPushButton::clicked, this, [this, &s] { SaveButton(s, context_.dialogs); });
  connect(command3_, &QPushButton::clicked, this, &Form1::OpenFileSelect);
  connect(locOpt_, &ClickableLabel::clicked, this, &Form1::OpenFileSelect);
  connect(label1_, &ClickableLabel::clicked, this, [this, &s] {
    const QColor chosen = QColorDialog::getColor(
        ToQColor(s.display.nightVision ? s.display.dayBackColor : s.display.backColor), this,
        "Background Color");
    if (!chosen.isValid()) return;
    SetBackgroundColour(s, FromQColor(chosen));
    AfterChange();
  });

  connect(list1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    logic_.SelectSolarSystemBody(list1_->row(item));
    Refresh();
  });
  connect(catalogButton_, &QPushButton::clicked, this, &Form1::OpenCatalogSelect);
  connect(objectButton_, &QPushButton::clicked, this, &Form1::OpenObjectEntry);
  // Name1 opens the object entry on a click, but not on the first click of a double-click.
  connect(name1_, &ClickableLabel::clicked, this,
          [this] { name1ClickDelay_->start(QApplication::doubleClickInterval()); });
  connect(name1ClickDelay_, &QTimer::timeout, this, &Form1::OpenObjectEntry);
  connect(name1_, &ClickableLabel::doubleClicked, this, [this] {
    name1ClickDelay_->stop();
    CopyToClipboard(name1_);
  });
  for (ClickableLabel* label : {name2_, name3_, name4_, name5_, catalog_}) {
    connect(label, &ClickableLabel::doubleClicked, this, [this, label] { CopyToClipboard(label); });
  }
  connect(command7_, &QPushButton::clicked, this,
          [this, &s] { TakeObservingNotes(s, context_.dialogs); });
  connect(skyChart_, &QPushButton::clicked, this,
          [this, &s] { SkyChartClick(s, context_.dialogs, context_.shell); });

  connect(scope_, &QPushButton::clicked, this, &Form1::OpenScopeForm);
  connect(motorControl_, &QPushButton::clicked, this, &Form1::OpenMoveScope);
  connect(check1_, &QCheckBox::clicked, this, &Form1::ToggleNightVision);
  connect(help_, &QPushButton::clicked, this, &Form1::OpenHelp);
}

void Form1::AfterChange() {
  logic_.Load();
  Refresh();
}

void Form1::CopyToClipboard(const QLabel* label) {
  // The names are padded to line up; the clipboard gets the name alone.
  context_.clipboard.SetText(ToLatin1(label->text().trimmed()));
}

void Form1::ToggleNightVision() {
  ToggleRedScreen(context_.state.display);
  palette_.Apply(context_.state.display);
  AfterChange();
}

void Form1::OpenFileSelect() {
  FileSelectDialog dialog(context_, this);
  dialog.exec();
  if (dialog.loaded()) {
    // A home file brings its own colours, telescope and place.
    palette_.Apply(context_.state.display);
    AfterChange();
  }
}

void Form1::OpenLocationEntry(bool longitude) {
  DataEntryDialog dialog(context_, DataEntryDialog::Mode::kLocation, this);
  if (longitude) dialog.focusLongitude();
  if (dialog.exec() == QDialog::Accepted) AfterChange();
}

void Form1::OpenObjectEntry() {
  DataEntryDialog dialog(context_, DataEntryDialog::Mode::kObject, this);
  if (dialog.exec() == QDialog::Accepted) AfterChange();
}

void Form1::OpenCatalogSelect() {
  CatalogSelectDialog dialog(context_, this);
  if (dialog.exec() == QDialog::Accepted) AfterChange();
}

void Form1::OpenScopeForm() {
  ScopeFormDialog dialog(context_, this);
  dialog.exec();
  AfterChange();
}

void Form1::OpenMoveScope() {
  MoveScopeDialog dialog(context_, this);
  dialog.exec();
  AfterChange();
}

std::vector<HelpEntry> Form1::HelpTopicList() const {
  return {};
}

void Form1::OpenHelp() {
  HelpFormDialog dialog(context_, HelpTopicList(), context_.state.files.installDir + "ASTEL.HTM",
                        this);
  dialog.exec();
}

}  // namespace astel::ui
