// The main window against a started program: every control with its caption and tool tip, the
// timer, the date chain, the Solar System list, the clipboard and night vision.
#include <QApplication>
#include <QCheckBox>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

#include "tests/ui/ui_test_program.h"
#include "ui/file_select.h"
#include "ui/form1.h"
#include "ui/palette.h"

namespace astel::uitest {

class Form1Test : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  static T* Find(QWidget& w, const char* name) {
    T* child = w.findChild<T*>(name);
    if (!child) qWarning() << "no control" << name;
    return child;
  }
  static QString Text(QWidget& w, const char* name) {
    QLabel* label = Find<QLabel>(w, name);
    return label ? label->text() : QString("<missing>");
  }

 private slots:
  void everyButtonHasItsCaptionAndToolTip() {
    TestProgram p;
    QVERIFY(p.started);
    ui::Form1 form(p.context);
    struct Row {
      const char* name;
      const char* caption;
      const char* toolTip;
    };
    const Row rows[] = {
        {"DateButton", "Date", "Click to change the date"},
        {"TimeButton", "Time", "Click to change the time"},
        {"LatitudeButton", "Latitude", "Click to set your Latitude"},
        {"LongitudeButton", "Longitude", "Click to set your Longitude"},
        {"CatalogButton", "Catalog", "Click to change the object catalog"},
        {"SimpleSearch", "Simple Search", "Click to find objects by name"},
        {"DetailedSearch", "Detailed Search", "Click to find objects matching several criteria"},
        {"NextMatchButton", "Next Match",
         "Click to find the next item matching the current  search"},
        {"PreviousMatch", "Previous",
         "Click to find the previous item matching the current  search"},
        {"WriteMatchButton", "Save Matches",
         "Save all matches to a text file, and go to the final matching object"},
        {"BestOf", "Best of the Sky",
         "Click to have ASTEL suggest the best objects to view right now in a small telescope"},
        {"ObjectButton", "Object", "Click to Specify the Position of an Object not in the Catalog"},
        {"AddObject", "Add", "Click to add this object to the current catalog"},
        {"Command1", "GoTo ", "Click to have your telescope Goto this object"},
        {"Scope", "Scope", "Click to select or manage Goto telescope"},
        {"MotorControl", "Motor Control", "Click for scope motor control via mouse"},
        {"Command2", "Save", "Click to save current location & options in a file"},
        {"Command3", "Load",
         "Click to load  location and option information from a file, or load from GPS"},
        {"Command7", "Observing Log", "Click to take observing notes on this object"},
        {"SkyChart", "SkyChart",
         "Click to produce an \"Instant Sky Chart\" centered on this object"},
        {"RealTime", "Back to Real Time",
         "Click to exit fictitious time and return to real-time operation"},
        {"Help", "Help", "Click for program help"},
    };
    for (const Row& r : rows) {
      QPushButton* b = Find<QPushButton>(form, r.name);
      QVERIFY2(b, r.name);
      QCOMPARE(b->text(), QString::fromLatin1(r.caption));
      QCOMPARE(b->toolTip(), QString::fromLatin1(r.toolTip));
    }
    QCheckBox* night = Find<QCheckBox>(form, "Check1");
    QVERIFY(night);
    QCOMPARE(night->text(), QString("Night Vision"));
    QCOMPARE(night->toolTip(), QString("Click to darken the screen for night vision"));

    const Row labels[] = {
        {"Label1", "", "Click to change background color"},
        {"Name1", "", "Click to specify name & position of some object not in the catalogs"},
        {"Name2label", "", "Double-Click to place this name on Clipboard"},
        {"name3label", "", "Double-Click to place this name on Clipboard"},
        {"Name4label", "", "Double-Click to place this name on Clipboard"},
        {"Catalog", "", "Double-Click to place this name on Clipboard"},
        {"Name5Label", "",
         "The Julian date is the number of days that have passed since January 1, 4713 B.C."},
        {"Azimuth", "", "Object's position, degrees easward from due north"},
        {"TransitTime", "", "When the object crosses the meridian, its highest altitude"},
        {"ScopeType", "", "Goto scope type, Serial Port used"},
        {"LocOpt", "",
         "Click to load  location and option information from a file, or load from GPS"},
    };
    for (const Row& r : labels) {
      QLabel* l = Find<QLabel>(form, r.name);
      QVERIFY2(l, r.name);
      QCOMPARE(l->toolTip(), QString::fromLatin1(r.toolTip));
    }
    QCOMPARE(Text(form, "Label20"), QString("Catalog Search"));
    QCOMPARE(Text(form, "LocOpt"), QString("Location / Option / GPS"));
    QVERIFY(form.windowTitle().startsWith("ASTEL+S - "));
    QCOMPARE(Text(form, "Label1"), QString("ASTEL+S  Version 6.12"));
    QCOMPARE(Text(form, "Catalog"), QString("full.obc"));
    QVERIFY(Text(form, "General").startsWith("Hint: "));
    QCOMPARE(Text(form, "Date"), QString("22-11-2026"));
    QCOMPARE(Text(form, "Latitude"), QString::fromLatin1("Lat  51\xB0"
                                                         "28.6' N"));

    QListWidget* list = Find<QListWidget>(form, "List1");
    QVERIFY(list);
    QCOMPARE(list->count(), 10);
    QCOMPARE(list->item(0)->text(), QString("Sun"));
    QCOMPARE(list->item(9)->text(), QString("Pluto"));
    QCOMPARE(list->toolTip(), QString("Click to locate a Solar System object"));
    // Motor control is only for the NexStar family.
    QVERIFY(!Find<QPushButton>(form, "MotorControl")->isVisibleTo(&form));
  }

  void fitsASmallScreen() {
    TestProgram p;
    ui::Form1 form(p.context);
    const QSize needed = form.minimumSizeHint();
    QVERIFY2(needed.width() <= 1024 && needed.height() <= 570,
             qPrintable(QString("%1 x %2").arg(needed.width()).arg(needed.height())));
  }

  void timerTicksAndFollowsItsEnableRule() {
    TestProgram p;
    ui::Form1 form(p.context);
    QCOMPARE(form.timer1()->interval(), 900);
    QVERIFY(form.timer1()->isActive());

    p.clock.now.second = 9;
    form.Tick();
    QVERIFY(Text(form, "Time").startsWith("21:30:09"));

    // A chain that stops the timer: no tick changes the display until the logic enables it.
    p.state.form.timer1Enabled = false;
    form.Refresh();
    QVERIFY(!form.timer1()->isActive());
    p.clock.now.second = 20;
    form.Tick();
    QVERIFY(Text(form, "Time").startsWith("21:30:09"));
    form.logic().Load();
    form.Refresh();
    QVERIFY(form.timer1()->isActive());
  }

  void dateButtonRunsTheDateChain() {
    TestProgram p;
    ui::Form1 form(p.context);
    p.state.form.writeMatchCaption = "View Matches";  // a finished search's list
    p.state.search.catalogOpen = true;
    p.dialogs.answers = {"2", "29", "2003", "2004"};
    QTest::mouseClick(Find<QPushButton>(form, "DateButton"), Qt::LeftButton);
    QCOMPARE(p.dialogs.prompts.back(), std::string("Must be valid leap year, 1980-2199"));
    QCOMPARE(Text(form, "Date"), QString("29-02-2004"));
    QVERIFY(form.timer1()->isActive());
    QVERIFY(!p.state.time.realTimeMode);
    QCOMPARE(Find<QPushButton>(form, "WriteMatchButton")->text(), QString("Save Matches"));
    QVERIFY(!p.state.search.catalogOpen);

    QTest::mouseClick(Find<QPushButton>(form, "RealTime"), Qt::LeftButton);
    QCOMPARE(Text(form, "Date"), QString("22-11-2026"));
    QVERIFY(p.state.time.realTimeMode);
  }

  void solarSystemListAndClipboard() {
    TestProgram p;
    ui::Form1 form(p.context);
    QListWidget* list = Find<QListWidget>(form, "List1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(3)).center());
    QCOMPARE(Text(form, "Name1"), QString("Moon"));
    QVERIFY(Text(form, "RightAsc").startsWith("RA  "));
    QCOMPARE(list->currentRow(), 3);

    const QString phase = Text(form, "Name2label");
    QCOMPARE(phase.size(), 8);
    QTest::mouseDClick(Find<QLabel>(form, "Name2label"), Qt::LeftButton);
    QTest::mouseDClick(Find<QLabel>(form, "Name1"), Qt::LeftButton);
    QTest::mouseDClick(Find<QLabel>(form, "Catalog"), Qt::LeftButton);
    QCOMPARE(p.clipboard.texts.size(), std::size_t{3});
    QCOMPARE(QString::fromLatin1(p.clipboard.texts[0].c_str()), phase.trimmed());
    QCOMPARE(p.clipboard.texts[1], std::string("Moon"));
    QCOMPARE(p.clipboard.texts[2], std::string("full.obc"));
    // The double-click on Name1 must not also open the object entry afterwards.
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }

  void timeZoneAndSkyChartClicks() {
    TestProgram p;
    ui::Form1 form(p.context);
    p.dialogs.answers = {"5"};
    QTest::mouseClick(Find<QLabel>(form, "gmt"), Qt::LeftButton);
    QVERIFY(Text(form, "gmt").endsWith("(offset 5 h)"));
    QVERIFY(p.state.program.configChanged);

    QTest::mouseClick(Find<QPushButton>(form, "SkyChart"), Qt::LeftButton);
    QVERIFY(p.shell.started.empty());
    QCOMPARE(p.dialogs.messages.size(), std::size_t{1});
    QVERIFY(p.dialogs.messages[0].find("Skychart") != std::string::npos);
  }

  void nightVisionTwiceRestoresThePalette() {
    TestProgram p;
    p.state.display.backColor = 0x336699;  // a background the user chose
    ui::Form1 form(p.context);
    const QPalette before = QApplication::palette();
    const QColor formBack = form.palette().color(QPalette::Window);
    QCOMPARE(formBack, QColor(0x99, 0x66, 0x33));
    QCOMPARE(form.palette().color(QPalette::WindowText), QColor(255, 255, 0));

    QCheckBox* night = Find<QCheckBox>(form, "Check1");
    QTest::mouseClick(night, Qt::LeftButton);
    QVERIFY(p.state.display.nightVision);
    QVERIFY(night->isChecked());
    QCOMPARE(night->toolTip(), QString("Click to return the screen to normal colors"));
    const QPalette dark = QApplication::palette();
    QCOMPARE(dark.color(QPalette::Window), QColor(128, 0, 0));
    QCOMPARE(dark.color(QPalette::ButtonText), QColor(0, 0, 0));
    QCOMPARE(dark.color(QPalette::HighlightedText), QColor(255, 0, 0));
    QCOMPARE(dark.color(QPalette::ToolTipBase), QColor(0xFF, 0xFF, 0xE1));
    QCOMPARE(form.palette().color(QPalette::Window), QColor(128, 0, 0));
    QCOMPARE(form.palette().color(QPalette::WindowText), QColor(0, 0, 0));
    // Buttons take the application's night colours through the window.
    QCOMPARE(Find<QPushButton>(form, "Help")->palette().color(QPalette::Button), QColor(128, 0, 0));

    QTest::mouseClick(night, Qt::LeftButton);
    QVERIFY(!p.state.display.nightVision);
    QCOMPARE(night->toolTip(), QString("Click to darken the screen for night vision"));
    QVERIFY(QApplication::palette() == before);
    QCOMPARE(form.palette().color(QPalette::Window), formBack);
    QCOMPARE(form.palette().color(QPalette::WindowText), QColor(255, 255, 0));
  }

  void closingOffersToSaveAndPutsTheColoursBack() {
    TestProgram p;
    ui::Form1 form(p.context);
    ui::FileSelectDialog gpsWindow(p.context, nullptr);  // a load could be waiting in it
    const QPalette before = QApplication::palette();
    form.ToggleNightVision();
    QVERIFY(!(QApplication::palette() == before));
    p.state.program.configChanged = true;
    p.dialogs.answers = {""};  // Cancel: nothing saved
    form.show();
    QVERIFY(form.close());
    QCOMPARE(p.dialogs.prompts.back(),
             std::string("Do you want to save current configuration changes?"));
    QVERIFY(QApplication::palette() == before);
    // Whatever waits is told to stop: a script's WAIT or SLEEP, a scan, a telescope exchange.
    QVERIFY(p.state.script.stopRequested);
    QVERIFY(p.state.search.cancelRequested);
    QVERIFY(gpsWindow.monitor().cancelRequested);
    QVERIFY(!form.timer1()->isActive());
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::Form1Test)
#include "form1_test.moc"
