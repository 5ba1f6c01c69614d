#include "ui/screenshot_tour.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QInputDialog>
#include <QThread>

#include "catalog/search.h"
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

// The Searching window of a real scan, photographed once the scan is well under way.
class PhotographedSearch : public SearchWindow {
 public:
  PhotographedSearch(SearchingWindow& window, QString dir)
      : window_(window), dir_(std::move(dir)) {}
  void Show(const std::string& caption) override { window_.Show(caption); }
  void SetProgress(const std::string& text) override {
    window_.SetProgress(text);
    if (++progressCalls_ == kShotAtProgress) Save(window_, dir_, "searching");
  }
  void Hide() override { window_.Hide(); }

 private:
  static constexpr int kShotAtProgress = 40;  // 4,000 records read
  SearchingWindow& window_;
  QString dir_;
  int progressCalls_ = 0;
};

}  // namespace

void RunScreenshotTour(Form1& form, GuiContext& context, const QString& dir) {
  QDir().mkpath(dir);
  // A search deep into the default catalog: the Searching window mid-scan, then the match.
  {
    PhotographedSearch searching(*form.searchingWindow(), dir);
    CatalogPorts ports{context.dialogs, context.events, searching, context.shell};
    form.timer1()->stop();  // no tick in the middle of the scan (Refresh starts it again)
    FindObject(context.state, ports, "Mizar");
    form.logic().Load();
    form.Refresh();
    Save(form, dir, "form1_search");
  }
  form.logic().SelectSolarSystemBody(3);  // the Moon fills every object label
  form.Refresh();
  Save(form, dir, "form1_day");

  {
    FileSelectDialog w(context, &form);
    w.monitor().ShowStatus("Waiting for Valid Satellite Data Fix");
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
    w.logic().monitor().ShowStatus("No scope response yet. Verify Connection.");
    Save(w, dir, "scope_form");
  }
  {
    MoveScopeDialog w(context, &form);
    w.remoteMouse()->setChecked(true);
    Save(w, dir, "move_scope");
  }
  {
    HelpFormDialog w(context, &form);
    const auto found = w.topics()->findItems("Night Vision", Qt::MatchExactly);
    if (!found.isEmpty()) w.topics()->setCurrentItem(found.front());
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
