// Form1's clicks: each one calls the logic that does the work, then refreshes the controls.
#include <QApplication>
#include <QColorDialog>

#include "catalog/best_of_sky.h"
#include "catalog/matches_file.h"
#include "catalog/object_entry.h"
#include "catalog/search.h"
#include "core/observing_log.h"
#include "scope/goto_scope.h"
#include "session/date_time_entry.h"
#include "session/home_location.h"
#include "session/night_vision_toggle.h"
#include "session/place_entry.h"
#include "session/sky_chart_launch.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/form1.h"
#include "ui/help_form.h"
#include "ui/latin1.h"
#include "ui/move_scope.h"
#include "ui/scope_form.h"

namespace astel::ui {

void Form1::ConnectActions() {
  SharedState& s = context_.state;
  Dialogs& dialogs = context_.dialogs;
  // A click whose work is one call of the logic.
  auto run = [this](auto work) { return [this, work] { RunAction(work); }; };

  connect(dateButton_, &QPushButton::clicked, this, run([this, &s, &dialogs] {
            timer1_->stop();
            DateButtonClick(s, dialogs, logic_);
          }));
  connect(timeButton_, &QPushButton::clicked, this, run([this, &s, &dialogs] {
            timer1_->stop();
            TimeButtonClick(s, dialogs, logic_);
          }));
  connect(latitudeButton_, &QPushButton::clicked, this, [this] { OpenLocationEntry(false); });
  connect(longitudeButton_, &QPushButton::clicked, this, [this] { OpenLocationEntry(true); });
  connect(gmt_, &ClickableLabel::clicked, this,
          run([this, &s, &dialogs] { TimeZoneClick(s, dialogs, context_.clock); }));
  connect(realTime_, &QPushButton::clicked, this, run([this] { logic_.BackToRealTime(); }));
  connect(command2_, &QPushButton::clicked, this, run([&s, &dialogs] { SaveButton(s, dialogs); }));
  connect(command3_, &QPushButton::clicked, this, &Form1::OpenFileSelect);
  connect(locOpt_, &ClickableLabel::clicked, this, &Form1::OpenFileSelect);
  connect(label1_, &ClickableLabel::clicked, this, run([this, &s] {
            const QColor chosen = QColorDialog::getColor(
                ToQColor(s.display.nightVision ? s.display.dayBackColor : s.display.backColor),
                this, "Background Color");
            if (chosen.isValid()) SetBackgroundColour(s, FromQColor(chosen));
          }));

  connect(list1_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    const int body = list1_->row(item);
    RunAction([this, body] { logic_.SelectSolarSystemBody(body); });
  });
  connect(catalogButton_, &QPushButton::clicked, this, &Form1::OpenCatalogSelect);
  connect(simpleSearch_, &QPushButton::clicked, this,
          run([this, &s] { SimpleSearch(s, catalogPorts_); }));
  connect(detailedSearch_, &QPushButton::clicked, this,
          run([this, &s] { DetailedSearch(s, catalogPorts_); }));
  connect(nextMatch_, &QPushButton::clicked, this,
          run([this, &s] { NextMatch(s, catalogPorts_); }));
  connect(previousMatch_, &QPushButton::clicked, this, run([&s] { PreviousMatch(s); }));
  connect(writeMatch_, &QPushButton::clicked, this,
          run([this, &s] { WriteMatchButtonClick(s, catalogPorts_); }));
  connect(bestOf_, &QPushButton::clicked, this,
          run([this, &s] { BestOfTheSky(s, catalogPorts_); }));

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
  connect(addObject_, &QPushButton::clicked, this, run([&s, &dialogs] { AddObject(s, dialogs); }));
  connect(command7_, &QPushButton::clicked, this,
          run([&s, &dialogs] { TakeObservingNotes(s, dialogs); }));
  connect(skyChart_, &QPushButton::clicked, this,
          run([this, &s, &dialogs] { SkyChartClick(s, dialogs, context_.shell); }));

  connect(command1_, &QPushButton::clicked, this,
          run([this, &s, &dialogs] { GotoScope(s, context_.comm, dialogs, context_.events); }));
  connect(scope_, &QPushButton::clicked, this, &Form1::OpenScopeForm);
  connect(motorControl_, &QPushButton::clicked, this, &Form1::OpenMoveScope);
  connect(check1_, &QCheckBox::clicked, this, &Form1::ToggleNightVision);
  connect(help_, &QPushButton::clicked, this, &Form1::OpenHelp);
}

void Form1::RunAction(const std::function<void()>& work) {
  if (actionRunning_ || closing_ || exitCode_) return;
  actionRunning_ = true;
  work();
  actionRunning_ = false;
  AfterChange();
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
  RunAction([this] {
    ToggleRedScreen(context_.state.display);
    palette_.Apply(context_.state.display);
  });
}

void Form1::OpenFileSelect() {
  RunAction([this] {
    FileSelectDialog dialog(context_, this);
    dialog.exec();
    // A home file brings its own colours, telescope and place.
    if (dialog.loaded()) palette_.Apply(context_.state.display);
  });
}

void Form1::OpenLocationEntry(bool longitude) {
  RunAction([this, longitude] {
    DataEntryDialog dialog(context_, DataEntryDialog::Mode::kLocation, this);
    if (longitude) dialog.focusLongitude();
    dialog.exec();
  });
}

void Form1::OpenObjectEntry() {
  RunAction([this] {
    DataEntryDialog dialog(context_, DataEntryDialog::Mode::kObject, this);
    dialog.exec();
  });
}

void Form1::OpenCatalogSelect() {
  RunAction([this] {
    CatalogSelectDialog dialog(context_, this);
    dialog.exec();
  });
}

void Form1::OpenScopeForm() {
  RunAction([this] {
    ScopeFormDialog dialog(context_, this);
    dialog.exec();
  });
}

void Form1::OpenMoveScope() {
  RunAction([this] {
    MoveScopeDialog dialog(context_, this);
    dialog.exec();
  });
}

void Form1::OpenHelp() {
  RunAction([this] {
    HelpFormDialog dialog(context_, this);
    dialog.exec();
  });
}

}  // namespace astel::ui
