// Form1: the main window. It shows the texts that MainWindowLogic computes (place, time, catalog,
// the selected object, telescope) and forwards every click to the logic; a 900 ms timer runs the
// program's tick (RunTick), so the display follows the clock and a script advances one command.
#pragma once

#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "catalog/search_ports.h"
#include "script/script_interpreter.h"
#include "session/main_window.h"
#include "ui/clickable_label.h"
#include "ui/gui_context.h"
#include "ui/palette.h"
#include "ui/searching_window.h"

namespace astel::ui {

class Form1 : public QWidget {
  Q_OBJECT
 public:
  explicit Form1(GuiContext& context, QWidget* parent = nullptr);
  ~Form1() override;

  MainWindowLogic& logic() { return logic_; }
  const PaletteKeeper& paletteKeeper() const { return palette_; }
  QTimer* timer1() const { return timer1_; }
  SearchingWindow* searchingWindow() const { return searching_; }
  CatalogPorts& catalogPorts() { return catalogPorts_; }

  // What Timer1 does: the program's tick (the recalculation and one script command) while the
  // logic keeps the timer enabled and no button's work is in progress, then Refresh. When the
  // script has ended, the program ends with its exit code.
  void Tick();
  // Copies the logic's display texts, tool tips, states and colours into the controls.
  void Refresh();

  // Called once, after the window's first paint (start-up timing, screenshots).
  std::function<void()> onFirstPaint;
  // How the program ends when a script is over; QCoreApplication::exit unless a test replaces it.
  std::function<void(int exitCode)> endProgram;
  // The exit code once a script has ended the program.
  std::optional<int> programExitCode() const { return exitCode_; }

  // The dialogs the buttons open, also reached by the screenshot tour.
  void OpenFileSelect();
  void OpenLocationEntry(bool longitude);
  void OpenObjectEntry();
  void OpenCatalogSelect();
  void OpenScopeForm();
  void OpenMoveScope();
  void OpenHelp();
  void ToggleNightVision();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QPushButton* Button(const char* name, const char* caption, const char* toolTip);
  ClickableLabel* Value(const char* name, const char* toolTip);
  QWidget* BuildPlaceAndTime();
  QWidget* BuildCatalogSearch();
  QWidget* BuildSelectedObject();
  QWidget* BuildTelescopeAndOptions();
  void ConnectActions();
  void ApplyColours(const MainDisplay& d);
  void CopyToClipboard(const QLabel* label);
  void AfterChange();  // the load handler again, then the controls
  // Runs a button's work, then AfterChange. A click that arrives while another button's work
  // lets events run (a scan, a telescope exchange, a dialog) is ignored.
  void RunAction(const std::function<void()>& work);
  // Stops whatever waits (a script's WAIT or SLEEP, a scan, a telescope exchange).
  void StopEverythingWaiting();
  void EndProgram(int exitCode);

  GuiContext& context_;
  MainWindowLogic logic_;
  PaletteKeeper palette_;
  SearchingWindow* searching_;
  CatalogPorts catalogPorts_;
  ScriptContext script_;
  bool actionRunning_ = false;
  bool closing_ = false;
  std::optional<int> exitCode_;
  QTimer* timer1_;
  QTimer* name1ClickDelay_;
  bool painted_ = false;
  Colour shownBack_ = 0xFFFFFFFF, shownFore_ = 0xFFFFFFFF, shownAccent_ = 0xFFFFFFFF;
  QFont valueFont_;
  std::vector<QWidget*> rules_;  // the lines under the group headers, drawn in the accent colour

  ClickableLabel *label1_, *general_, *locOpt_, *label20_, *status_;
  ClickableLabel *date_, *time_, *gmt_, *sidereal_, *latitude_, *longitude_;
  ClickableLabel *catalog_, *catalogPath_, *catalogNote_;
  ClickableLabel *name1_, *name2_, *name3_, *name4_, *name5_, *magnitude_;
  ClickableLabel *rightAsc_, *declination_, *altitude_, *azimuth_;
  ClickableLabel *riseTime_, *transitTime_, *setTime_, *scopeType_;
  QPushButton *dateButton_, *timeButton_, *latitudeButton_, *longitudeButton_;
  QPushButton *catalogButton_, *simpleSearch_, *detailedSearch_, *nextMatch_, *previousMatch_;
  QPushButton *writeMatch_, *bestOf_, *objectButton_, *addObject_, *command1_, *scope_;
  QPushButton *motorControl_, *command2_, *command3_, *command7_, *skyChart_, *realTime_;
  QPushButton* help_;
  QCheckBox* check1_;
  QListWidget* list1_;
};

}  // namespace astel::ui
