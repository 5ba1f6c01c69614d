// The main window against a started program: what it shows, the date buttons, the Solar System
// list with the clipboard, night vision and closing.
#include <QApplication>
#include <QCheckBox>
#include <QtTest>

#include "tests/ui/ui_test_program.h"
#include "ui/file_select.h"
#include "ui/form1.h"

namespace astel::uitest {

class Form1Test : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { QVERIFY2(NoUnexpectedBox(), "a box no answer was queued for"); }

  void showsTheStartedProgramOnASmallScreen() {
    TestProgram p;
    QVERIFY(p.started);
    ui::Form1 form(p.context);
    QVERIFY(form.windowTitle().startsWith("ASTEL+S - "));
    QCOMPARE(Text(form, "Catalog"), QString("full.obc"));
    QCOMPARE(Text(form, "Latitude"), QString::fromLatin1("Lat  51\xB0"
                                                         "28.6' N"));
    QListWidget* list = form.findChild<QListWidget*>("List1");
    QCOMPARE(list->count(), 10);
    QCOMPARE(list->item(9)->text(), QString("Pluto"));
    QVERIFY2(!Button(form, "MotorControl")->isVisibleTo(&form), "only for the NexStar family");
    const QSize needed = form.minimumSizeHint();
    QVERIFY2(needed.width() <= 1024 && needed.height() <= 570,
             qPrintable(QString("%1 x %2").arg(needed.width()).arg(needed.height())));
  }

  void dateButtonsListAndClipboard() {
    TestProgram p;
    ui::Form1 form(p.context);
    p.state.form.writeMatchCaption = "View Matches";  // a finished search's list
    p.dialogs.answers = {"3", "14", "2027"};
    Click(form, "DateButton");
    QCOMPARE(Text(form, "Date"), QString("14-03-2027"));
    QVERIFY(form.timer1()->isActive());
    QCOMPARE(Button(form, "WriteMatchButton")->text(), QString("Save Matches"));

    Click(form, "RealTime");
    QCOMPARE(Text(form, "Date"), QString("22-11-2026"));

    ClickRow(form.findChild<QListWidget*>("List1"), 3);
    QCOMPARE(Text(form, "Name1"), QString("Moon"));
    QVERIFY(Text(form, "RightAsc").startsWith("RA  "));
    QTest::mouseDClick(form.findChild<QLabel*>("Name1"), Qt::LeftButton);
    QTest::mouseDClick(form.findChild<QLabel*>("Catalog"), Qt::LeftButton);
    QCOMPARE(p.clipboard.texts, (std::vector<std::string>{"Moon", "full.obc"}));
    // The double-click on Name1 must not also open the object entry afterwards.
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }

  void nightVisionTwiceRestoresThePalette() {
    TestProgram p;
    p.state.display.backColor = 0x336699;  // a background the user chose
    ui::Form1 form(p.context);
    const QPalette before = QApplication::palette();
    QCOMPARE(form.palette().color(QPalette::Window), QColor(0x99, 0x66, 0x33));

    QCheckBox* night = form.findChild<QCheckBox*>("Check1");
    QTest::mouseClick(night, Qt::LeftButton);
    QVERIFY(p.state.display.nightVision);
    QCOMPARE(night->toolTip(), QString("Click to return the screen to normal colors"));
    QCOMPARE(form.palette().color(QPalette::Window), QColor(128, 0, 0));
    QCOMPARE(form.palette().color(QPalette::WindowText), QColor(0, 0, 0));
    // Buttons take the application's night colours through the window.
    QCOMPARE(Button(form, "Help")->palette().color(QPalette::Button), QColor(128, 0, 0));

    QTest::mouseClick(night, Qt::LeftButton);
    QCOMPARE(night->toolTip(), QString("Click to darken the screen for night vision"));
    QVERIFY(QApplication::palette() == before);
    QCOMPARE(form.palette().color(QPalette::Window), QColor(0x99, 0x66, 0x33));
    QCOMPARE(form.palette().color(QPalette::WindowText), QColor(255, 255, 0));
  }

  void closingOffersToSaveStopsWhatWaitsAndPutsTheColoursBack() {
    TestProgram p;
    ui::Form1 form(p.context);
    ui::FileSelectDialog gpsWindow(p.context, nullptr);  // a load could be waiting in it
    const QPalette before = QApplication::palette();
    form.ToggleNightVision();
    p.state.program.configChanged = true;
    p.dialogs.answers = {""};  // Cancel: nothing saved
    form.show();
    QVERIFY(form.close());
    QCOMPARE(p.dialogs.prompts.back(),
             std::string("Do you want to save current configuration changes?"));
    QVERIFY(QApplication::palette() == before);
    QVERIFY(p.state.script.stopRequested);
    QVERIFY(p.state.search.cancelRequested);
    QVERIFY(gpsWindow.monitor().cancelRequested);
    QVERIFY(!form.timer1()->isActive());
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::Form1Test)
#include "form1_test.moc"
