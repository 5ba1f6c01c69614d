#include "ui/form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "astro/solar_system.h"
#include "session/home_location.h"
#include "session/tick_runner.h"
#include "ui/latin1.h"

namespace astel::ui {

namespace {

constexpr int kValuePointSize = 12;
constexpr int kTitlePointSize = 14;

QFrame* Group(QWidget* parent) {
  auto* frame = new QFrame(parent);
  frame->setFrameShape(QFrame::StyledPanel);
  return frame;
}

}  // namespace

Form1::Form1(GuiContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      logic_(context.state, context.clock, context.dialogs),
      palette_(context.state.display),
      searching_(new SearchingWindow(context.state.search, this)),
      catalogPorts_{context.dialogs, context.events, *searching_, context.shell},
      script_{context.state, context.dialogs, context.clock, context.events,
              context.shell, catalogPorts_,   context.comm} {
  endProgram = [](int code) { QCoreApplication::exit(code); };
  setObjectName("Form1");
  setAutoFillBackground(true);
  valueFont_ = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  valueFont_.setPointSize(kValuePointSize);

  label1_ = Value("Label1", "Click to change background color");
  QFont titleFont = font();
  titleFont.setPointSize(kTitlePointSize);
  titleFont.setBold(true);
  label1_->setFont(titleFont);
  label1_->setCursor(Qt::PointingHandCursor);
  general_ = Value("General", nullptr);
  general_->setFont(font());
  general_->setWordWrap(true);

  auto* header = new QHBoxLayout;
  header->addWidget(label1_);
  header->addSpacing(16);
  header->addWidget(general_, 1);

  auto* columns = new QHBoxLayout;
  columns->addWidget(BuildPlaceAndTime(), 0);
  columns->addWidget(BuildCatalogSearch(), 0);
  columns->addWidget(BuildSelectedObject(), 1);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(8, 6, 8, 6);
  layout->setSpacing(6);
  layout->addLayout(header);
  layout->addLayout(columns, 1);
  layout->addWidget(BuildTelescopeAndOptions());

  timer1_ = new QTimer(this);
  timer1_->setObjectName("Timer1");
  timer1_->setInterval(kTickMilliseconds);
  connect(timer1_, &QTimer::timeout, this, &Form1::Tick);
  name1ClickDelay_ = new QTimer(this);
  name1ClickDelay_->setSingleShot(true);

  ConnectActions();
  logic_.Tick();  // the first recalculation, so the first paint already shows the clock
  Refresh();
}

Form1::~Form1() = default;

QPushButton* Form1::Button(const char* name, const char* caption, const char* toolTip) {
  auto* b = new QPushButton(QString::fromLatin1(caption), this);
  b->setObjectName(name);
  if (toolTip) b->setToolTip(QString::fromLatin1(toolTip));
  b->setAutoDefault(false);
  return b;
}

ClickableLabel* Form1::Value(const char* name, const char* toolTip) {
  auto* label = new ClickableLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setFont(valueFont_);
  if (toolTip) label->setToolTip(QString::fromLatin1(toolTip));
  return label;
}

// Place and time, with the buttons that change them.
QWidget* Form1::BuildPlaceAndTime() {
  QFrame* frame = Group(this);
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(4);
  locOpt_ = Value("LocOpt",
                  "Click to load  location and option information from a file, or load from GPS");
  locOpt_->setText("Location / Option / GPS");
  locOpt_->setFont(font());
  QFont bold = locOpt_->font();
  bold.setBold(true);
  locOpt_->setFont(bold);
  auto* rule = new QFrame(frame);
  rule->setFrameShape(QFrame::HLine);
  rules_.push_back(rule);

  date_ = Value("Date", nullptr);
  time_ = Value("Time", nullptr);
  gmt_ = Value("gmt", nullptr);
  gmt_->setToolTip("Click to set your time zone");
  gmt_->setCursor(Qt::PointingHandCursor);
  sidereal_ =
      Value("SiderealTime",
            "The sidereal time is the Right Ascension of the current Meridian at your location");
  latitude_ = Value("Latitude", nullptr);
  longitude_ = Value("Longitude", nullptr);
  dateButton_ = Button("DateButton", "Date", "Click to change the date");
  timeButton_ = Button("TimeButton", "Time", "Click to change the time");
  latitudeButton_ = Button("LatitudeButton", "Latitude", "Click to set your Latitude");
  longitudeButton_ = Button("LongitudeButton", "Longitude", "Click to set your Longitude");
  command2_ = Button("Command2", "Save", "Click to save current location & options in a file");
  command3_ =
      Button("Command3", "Load",
             "Click to load  location and option information from a file, or load from GPS");
  realTime_ = Button("RealTime", "Back to Real Time",
                     "Click to exit fictitious time and return to real-time operation");

  int row = 0;
  grid->addWidget(locOpt_, row++, 0, 1, 2);
  grid->addWidget(rule, row++, 0, 1, 2);
  grid->addWidget(date_, row, 0);
  grid->addWidget(dateButton_, row++, 1);
  grid->addWidget(time_, row, 0);
  grid->addWidget(timeButton_, row++, 1);
  grid->addWidget(gmt_, row++, 0, 1, 2);
  grid->addWidget(sidereal_, row++, 0, 1, 2);
  grid->addWidget(latitude_, row, 0);
  grid->addWidget(latitudeButton_, row++, 1);
  grid->addWidget(longitude_, row, 0);
  grid->addWidget(longitudeButton_, row++, 1);
  grid->setRowStretch(row++, 1);
  auto* files = new QHBoxLayout;
  files->addWidget(command2_);
  files->addWidget(command3_);
  grid->addLayout(files, row++, 0, 1, 2);
  grid->addWidget(realTime_, row++, 0, 1, 2);
  return frame;
}

// The current catalog, the searches and the Solar System list.
QWidget* Form1::BuildCatalogSearch() {
  QFrame* frame = Group(this);
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(4);
  label20_ = Value("Label20", nullptr);
  label20_->setText("Catalog Search");
  QFont bold = font();
  bold.setBold(true);
  label20_->setFont(bold);
  auto* rule = new QFrame(frame);
  rule->setFrameShape(QFrame::HLine);
  rules_.push_back(rule);

  catalog_ = Value("Catalog", "Double-Click to place this name on Clipboard");
  catalogButton_ = Button("CatalogButton", "Catalog", "Click to change the object catalog");
  catalogPath_ = Value("CatalogPath", nullptr);
  catalogPath_->setFont(font());
  catalogPath_->setWordWrap(true);
  catalogNote_ = Value("CatalogNote", nullptr);
  catalogNote_->setFont(font());
  catalogNote_->setWordWrap(true);
  simpleSearch_ = Button("SimpleSearch", "Simple Search", "Click to find objects by name");
  detailedSearch_ = Button("DetailedSearch", "Detailed Search",
                           "Click to find objects matching several criteria");
  nextMatch_ = Button("NextMatchButton", "Next Match",
                      "Click to find the next item matching the current  search");
  previousMatch_ = Button("PreviousMatch", "Previous",
                          "Click to find the previous item matching the current  search");
  writeMatch_ = Button("WriteMatchButton", "Save Matches",
                       "Save all matches to a text file, and go to the final matching object");
  bestOf_ = Button("BestOf", "Best of the Sky", nullptr);

  list1_ = new QListWidget(this);
  list1_->setObjectName("List1");
  list1_->setToolTip("Click to locate a Solar System object");
  list1_->setFont(valueFont_);
  for (int kind = 0; kind < kBodyCount; ++kind) {
    list1_->addItem(FromLatin1(BodyName(kind)));
  }
  // Two columns of five keep all ten bodies in sight on a small screen.
  list1_->setFlow(QListView::TopToBottom);
  list1_->setWrapping(true);
  list1_->setResizeMode(QListView::Adjust);
  list1_->setUniformItemSizes(true);
  list1_->setGridSize(QSize(list1_->fontMetrics().horizontalAdvance("Mercury") + 40,
                            list1_->fontMetrics().height() + 6));
  list1_->setFixedHeight((list1_->fontMetrics().height() + 6) * 5 + 8);
  list1_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

  int row = 0;
  grid->addWidget(label20_, row++, 0, 1, 2);
  grid->addWidget(rule, row++, 0, 1, 2);
  grid->addWidget(catalog_, row, 0);
  grid->addWidget(catalogButton_, row++, 1);
  grid->addWidget(catalogPath_, row++, 0, 1, 2);
  grid->addWidget(catalogNote_, row++, 0, 1, 2);
  grid->addWidget(simpleSearch_, row, 0);
  grid->addWidget(detailedSearch_, row++, 1);
  grid->addWidget(nextMatch_, row, 0);
  grid->addWidget(previousMatch_, row++, 1);
  grid->addWidget(writeMatch_, row, 0);
  grid->addWidget(bestOf_, row++, 1);
  grid->setRowStretch(row++, 1);
  auto* planets = new QLabel("Sun, Moon and planets:", frame);
  grid->addWidget(planets, row++, 0, 1, 2);
  grid->addWidget(list1_, row++, 0, 1, 2);
  return frame;
}

// The selected object: names, position, magnitude, rise, transit and set.
QWidget* Form1::BuildSelectedObject() {
  QFrame* frame = Group(this);
  auto* grid = new QGridLayout(frame);
  grid->setVerticalSpacing(3);
  auto* heading = Value("ObjectHeading", nullptr);
  heading->setText("Selected Object");
  QFont bold = font();
  bold.setBold(true);
  heading->setFont(bold);
  auto* rule = new QFrame(frame);
  rule->setFrameShape(QFrame::HLine);
  rules_.push_back(rule);

  name1_ = Value("Name1", "Click to specify name & position of some object not in the catalogs");
  QFont nameFont = valueFont_;
  nameFont.setPointSize(kTitlePointSize);
  nameFont.setBold(true);
  name1_->setFont(nameFont);
  const char* copyTip = "Double-Click to place this name on Clipboard";
  name2_ = Value("Name2label", copyTip);
  name3_ = Value("name3label", copyTip);
  name4_ = Value("Name4label", copyTip);
  name5_ =
      Value("Name5Label",
            "The Julian date is the number of days that have passed since January 1, 4713 B.C.");
  magnitude_ = Value("Magnitude", nullptr);
  rightAsc_ = Value(
      "RightAsc",
      "the Right Ascension is the number of hours the object transits after the first point of "
      "Aries");
  declination_ = Value("Declination",
                       "The Declination is how far this object is north or south of the equator");
  altitude_ =
      Value("Altitude", "The number of degrees this object is above (or below) the horizon");
  azimuth_ = Value("Azimuth", "Object's position, degrees easward from due north");
  riseTime_ =
      Value("RiseTime", "The time the object becomes visible, allows for atmospheric refraction");
  transitTime_ = Value("TransitTime", "When the object crosses the meridian, its highest altitude");
  setTime_ = Value("SetTime", "The time the object disappears, allows for atmospheric refraction");
  objectButton_ = Button("ObjectButton", "Object",
                         "Click to Specify the Position of an Object not in the Catalog");
  addObject_ = Button("AddObject", "Add", "Click to add this object to the current catalog");
  command7_ = Button("Command7", "Observing Log", "Click to take observing notes on this object");
  skyChart_ = Button("SkyChart", "SkyChart",
                     "Click to produce an \"Instant Sky Chart\" centered on this object");

  int row = 0;
  grid->addWidget(heading, row++, 0, 1, 2);
  grid->addWidget(rule, row++, 0, 1, 2);
  grid->addWidget(name1_, row++, 0, 1, 2);
  grid->addWidget(name2_, row, 0);
  grid->addWidget(name3_, row++, 1);
  grid->addWidget(name4_, row, 0);
  grid->addWidget(name5_, row++, 1);
  grid->addWidget(magnitude_, row++, 0, 1, 2);
  grid->addWidget(rightAsc_, row, 0);
  grid->addWidget(declination_, row++, 1);
  grid->addWidget(altitude_, row, 0);
  grid->addWidget(azimuth_, row++, 1);
  grid->addWidget(riseTime_, row++, 0, 1, 2);
  grid->addWidget(transitTime_, row++, 0, 1, 2);
  grid->addWidget(setTime_, row++, 0, 1, 2);
  grid->setRowStretch(row++, 1);
  auto* buttons = new QGridLayout;
  buttons->addWidget(objectButton_, 0, 0);
  buttons->addWidget(addObject_, 0, 1);
  buttons->addWidget(command7_, 1, 0);
  buttons->addWidget(skyChart_, 1, 1);
  grid->addLayout(buttons, row++, 0, 1, 2);
  return frame;
}

// The telescope, the options and the status line.
QWidget* Form1::BuildTelescopeAndOptions() {
  QFrame* frame = Group(this);
  auto* row = new QHBoxLayout(frame);
  row->setContentsMargins(8, 4, 8, 4);
  scopeType_ = Value("ScopeType", "Goto scope type, Serial Port used");
  command1_ = Button("Command1", "GoTo ", "Click to have your telescope Goto this object");
  scope_ = Button("Scope", "Scope", "Click to select or manage Goto telescope");
  motorControl_ =
      Button("MotorControl", "Motor Control", "Click for scope motor control via mouse");
  check1_ = new QCheckBox("Night Vision", this);
  check1_->setObjectName("Check1");
  help_ = Button("Help", "Help", "Click for program help");
  status_ = Value("Status", nullptr);
  status_->setFont(font());
  row->addWidget(scopeType_);
  row->addWidget(command1_);
  row->addWidget(scope_);
  row->addWidget(motorControl_);
  row->addSpacing(12);
  row->addWidget(status_, 1);
  row->addWidget(check1_);
  row->addWidget(help_);
  return frame;
}

void Form1::Tick() {
  const SharedState& s = context_.state;
  if (exitCode_ || closing_) return;
  if (s.script.scriptRunning) {
    // A tick while a script command waits (WAIT, SLEEP): the display stands still, but the
    // status line says which command is waiting; then the timer rests until the command is over.
    status_->setText(FromLatin1(s.form.statusText));
    if (!s.form.timer1Enabled) timer1_->stop();
    return;
  }
  if (!s.form.timer1Enabled || actionRunning_) return;
  const TickOutcome outcome = RunTick(logic_, script_);
  if (outcome.exitProgram) {
    // The labels show what the last command did, then the program ends.
    exitCode_ = outcome.exitCode;
    logic_.Load();
    Refresh();
    EndProgram(outcome.exitCode);
    return;
  }
  Refresh();
}

void Form1::StopEverythingWaiting() {
  SharedState& s = context_.state;
  s.script.stopRequested = true;
  s.search.cancelRequested = true;
  context_.CancelLiveExchanges();
}

void Form1::EndProgram(int exitCode) {
  exitCode_ = exitCode;
  timer1_->stop();
  StopEverythingWaiting();
  // A script's end is unattended: nothing is asked, only the day colours are put back.
  if (context_.state.display.nightVision) palette_.Restore();
  endProgram(exitCode);
}

void Form1::Refresh() {
  const MainDisplay& d = logic_.Display();
  setWindowTitle(FromLatin1(d.windowTitle));
  label1_->setText(FromLatin1(d.label1));
  general_->setText(FromLatin1(d.general));
  date_->setText(FromLatin1(d.date));
  time_->setText(FromLatin1(d.time));
  gmt_->setText(FromLatin1(d.gmt));
  sidereal_->setText(FromLatin1(d.siderealTime));
  latitude_->setText(FromLatin1(d.latitude));
  longitude_->setText(FromLatin1(d.longitude));
  scopeType_->setText(FromLatin1(d.scopeType));

  catalog_->setText(FromLatin1(d.catalog));
  catalogPath_->setText(FromLatin1(d.catalogPath));
  catalogPath_->setVisible(!d.catalogPath.empty());
  catalogNote_->setText(FromLatin1(d.catalogNote));
  catalogNote_->setVisible(!d.catalogNote.empty());
  simpleSearch_->setText(FromLatin1(d.simpleSearchCaption));
  nextMatch_->setText(FromLatin1(d.nextMatchCaption));
  writeMatch_->setText(FromLatin1(d.writeMatchCaption));
  writeMatch_->setToolTip(FromLatin1(d.writeMatchToolTip));
  for (QPushButton* b : {simpleSearch_, detailedSearch_, nextMatch_, previousMatch_, writeMatch_}) {
    b->setEnabled(d.searchButtonsEnabled);
  }
  bestOf_->setEnabled(d.bestOfEnabled);
  bestOf_->setToolTip(FromLatin1(d.bestOfToolTip));

  name1_->setText(FromLatin1(d.name1));
  name2_->setText(FromLatin1(d.name2));
  name3_->setText(FromLatin1(d.name3));
  name4_->setText(FromLatin1(d.name4));
  name5_->setText(FromLatin1(d.name5));
  magnitude_->setText(FromLatin1(d.magnitude));
  rightAsc_->setText(FromLatin1(d.rightAsc));
  declination_->setText(FromLatin1(d.declination));
  altitude_->setText(FromLatin1(d.altitude));
  azimuth_->setText(FromLatin1(d.azimuth));
  riseTime_->setText(FromLatin1(d.riseTime));
  transitTime_->setText(FromLatin1(d.transitTime));
  setTime_->setText(FromLatin1(d.setTime));
  {
    const QSignalBlocker block(list1_);
    if (d.list1Index >= 0 && d.list1Index < list1_->count()) {
      list1_->setCurrentRow(d.list1Index);
    } else {
      list1_->clearSelection();
      list1_->setCurrentRow(-1);
    }
  }

  motorControl_->setVisible(d.motorControlVisible);
  motorControl_->setEnabled(d.motorControlVisible);
  for (QPushButton* b : {command1_, scope_, objectButton_}) {
    b->setEnabled(d.commandButtonsEnabled);
  }
  {
    const QSignalBlocker block(check1_);
    check1_->setChecked(context_.state.display.nightVision);
  }
  check1_->setToolTip(FromLatin1(d.nightVisionToolTip));
  status_->setText(FromLatin1(d.status));
  ApplyColours(d);

  // The live flag, not the copy of the last load: a chain may have stopped the timer since.
  if (!context_.state.form.timer1Enabled || closing_ || exitCode_) {
    timer1_->stop();
  } else if (!timer1_->isActive()) {
    timer1_->start();
  }
}

void Form1::ApplyColours(const MainDisplay& d) {
  if (d.backColor == shownBack_ && d.foreColor == shownFore_ && d.accentColor == shownAccent_) {
    return;
  }
  shownBack_ = d.backColor;
  shownFore_ = d.foreColor;
  shownAccent_ = d.accentColor;
  // Only the roles set here are the window's own; the rest follow the application palette, so
  // the buttons and lists take the night colours with it.
  QPalette own;
  own.setColor(QPalette::Window, ToQColor(d.backColor));
  own.setColor(QPalette::WindowText, ToQColor(d.foreColor));
  setPalette(own);
  QPalette rule;
  rule.setColor(QPalette::WindowText, ToQColor(d.accentColor));
  for (QWidget* line : rules_) {
    line->setPalette(rule);
  }
}

void Form1::paintEvent(QPaintEvent* event) {
  QWidget::paintEvent(event);
  if (!painted_) {
    painted_ = true;
    if (onFirstPaint) QTimer::singleShot(0, this, [this] { onFirstPaint(); });
  }
}

void Form1::closeEvent(QCloseEvent* event) {
  closing_ = true;
  timer1_->stop();
  StopEverythingWaiting();
  OfferSaveOnExit(context_.state, context_.dialogs);
  if (context_.state.display.nightVision) palette_.Restore();
  event->accept();
}

}  // namespace astel::ui
