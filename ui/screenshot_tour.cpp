#include "ui/screenshot_tour.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QInputDialog>
#include <QThread>

#include "session/date_time_entry.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/help_form.h"
#include "ui/latin1.h"
#include "ui/move_scope.h"
#include "ui/scope_form.h"
#include "ui/searching_window.h"

namespace astel::ui {

namespace {

constexpr int kSettleMs = 150;  // lets the window manager map and the window paint

void Settle() {
  QElapsedTimer t;
  t.start();
  while (t.elapsed() < kSettleMs) {
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QThread::msleep(5);
  }
}

void Save(QWidget& window, const QString& dir, const char* name) {
  window.show();
  window.raise();
  Settle();
  window.grab().save(QDir(dir).filePath(QString::fromLatin1(name) + ".png"));
}

}  // namespace

void RunScreenshotTour(Form1& form, GuiContext& context, const QString& dir) {
  QDir().mkpath(dir);
  form.logic().SelectSolarSystemBody(3);  // the Moon fills every object label
  form.Refresh();
  Save(form, dir, "form1_day");

  {
    SearchingWindow w(context.state.search, &form);
    w.ShowCaption("Searching for M31  in Catalog FULL.OBC    12400");
    Save(w, dir, "searching");
  }
  {
    FileSelectDialog w(context, &form);
    Save(w, dir, "file_select");
  }
  {
    DataEntryDialog w(context, DataEntryDialog::Mode::kObject, &form);
    Save(w, dir, "data_entry_object");
  }
  {
    DataEntryDialog w(context, DataEntryDialog::Mode::kLocation, &form);
    Save(w, dir, "data_entry_location");
  }
  {
    CatalogSelectDialog w(context, &form);
    Save(w, dir, "catalog_select");
  }
  {
    ScopeFormDialog w(context, &form);
    w.setStatus("No scope response yet. Verify Connection.");
    Save(w, dir, "scope_form");
  }
  {
    MoveScopeDialog w(context, &form);
    w.setGeneral(
        "Move mouse to blank part of form, then pick it up. Use L/R buttons for motion. Middle "
        "button shifts axis.");
    Save(w, dir, "move_scope");
  }
  {
    HelpFormDialog w(context, {{"Night Vision", "Darkens the screen."}},
                     context.state.files.installDir + "ASTEL.HTM", &form);
    w.topics()->setCurrentRow(0);
    Save(w, dir, "help_form");
  }
  {
    QInputDialog w(&form);
    w.setWindowTitle(FromLatin1(JulianDateTitle(context.state.time)));
    w.setLabelText(
        "Input Month, 1-12, press OK to Keep Current Value, press 'CANCEL' to use System Time");
    w.setTextValue(FromLatin1(context.state.time.monthText));
    Save(w, dir, "input_box");
  }

  form.ToggleNightVision();
  Save(form, dir, "form1_night");
  {
    ScopeFormDialog w(context, &form);
    Save(w, dir, "scope_form_night");
  }
  form.ToggleNightVision();
  Save(form, dir, "form1_day_again");
}

}  // namespace astel::ui
