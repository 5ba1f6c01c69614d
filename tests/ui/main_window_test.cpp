// The main window against a started program: what it shows, its buttons, night vision, closing,
// and its timer, which steps a script and ends the program with the script's exit code.
#include <QApplication>
#include <QCheckBox>
#include <QtTest>

#include "catalog/catalog_select.h"
#include "tests/catalog/catalog_files.h"
#include "tests/ui/ui_test_program.h"
#include "ui/file_select.h"
#include "ui/form1.h"

namespace astel::uitest {

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { ASTEL_NO_UNEXPECTED_BOX(); }

  void datesListAndClipboardOnASmallScreen() {
    TestProgram p;
    ui::Form1 form(p.context);
    p.dialogs.answers = {"3", "14", "2027"};
    Click(form, "DateButton");
    QCOMPARE(Text(form, "Date"), QString("14-03-2027"));
    QVERIFY(form.timer1()->isActive());
    Click(form, "RealTime");
    QCOMPARE(Text(form, "Date"), QString("22-11-2026"));

    ClickRow(form.findChild<QListWidget*>("List1"), 3);
    QCOMPARE(Text(form, "Name1"), QString("Moon"));
    QTest::mouseDClick(form.findChild<QLabel*>("Name1"), Qt::LeftButton);
    QTest::mouseDClick(form.findChild<QLabel*>("Catalog"), Qt::LeftButton);
    QCOMPARE(p.clipboard.texts, (std::vector<std::string>{"Moon", "full.obc"}));
    // The double-click on Name1 must not also open the object entry afterwards.
    QTest::qWait(QApplication::doubleClickInterval() + 100);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }

  void nightVisionTwiceRestoresThePaletteAndClosingPutsItBack() {
    TestProgram p;
    p.state.display.backColor = 0x336699;  // a background the user chose
    ui::Form1 form(p.context);
    ui::FileSelectDialog gpsWindow(p.context, nullptr);  // a load could be waiting in it
    const QPalette before = QApplication::palette();
    QCheckBox* night = form.findChild<QCheckBox*>("Check1");
    QTest::mouseClick(night, Qt::LeftButton);
    QCOMPARE(form.palette().color(QPalette::Window), QColor(128, 0, 0));
    QTest::mouseClick(night, Qt::LeftButton);
    QCOMPARE(form.palette().color(QPalette::Window), QColor(0x99, 0x66, 0x33));

    // Closing at night offers to save, stops what waits and puts the colours back.
    QTest::mouseClick(night, Qt::LeftButton);
    p.state.program.configChanged = true;
    p.dialogs.answers = {""};  // Cancel: nothing saved
    form.show();
    QVERIFY(form.close());
    QCOMPARE(p.dialogs.prompts.back(),
             std::string("Do you want to save current configuration changes?"));
    QVERIFY(QApplication::palette() == before);
    QVERIFY(p.state.script.stopRequested && p.state.search.cancelRequested);
    QVERIFY(gpsWindow.monitor().cancelRequested);
    QVERIFY(!form.timer1()->isActive());
  }

  void cancelStopsAScan() {
    TestProgram p;
    std::vector<std::string> records;
    for (int i = 0; i < 5000; ++i)
      records.push_back(testing::Rec("F" + std::to_string(i), 12, 10, "12.0"));
    testing::WriteCatalog(p.Folder() + "BIG.OBC", records);
    QVERIFY(OpenCatalog(p.state, p.Folder(), "BIG.OBC"));
    ui::Form1 form(p.context);
    form.show();
    // The user clicks Cancel once a thousand records have gone by.
    int recordsAtCancel = 0;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &form, [&] {
      ui::SearchingWindow* w = form.searchingWindow();
      const int shown = w->progressLabel()->text().section(' ', -1).toInt();
      if (!w->isVisible() || shown < 1000) return;
      recordsAtCancel = shown;
      user.stop();
      QTest::mouseClick(w->cancelButton(), Qt::LeftButton);
    });
    user.start(0);
    p.dialogs.answers = {"ZZZ"};
    Click(form, "SimpleSearch");
    QVERIFY(recordsAtCancel >= 1000);
    QVERIFY(p.state.search.recordsRead <= recordsAtCancel + 100);
    QVERIFY(!form.searchingWindow()->isVisible());
  }

  void scriptRunsInTheWindowAndEndsWithItsCode() {
    struct Row {
      const char* legend;
      const char* script;
      int exitCode;
      const char* name1;  // shown when the program ends
    } rows[] = {
        {"runs to its end", "SLEEP=0.1;PLANET=3", 0, "Moon"},
        {"a jump past the end fails after a body was chosen", "PLANET=5;COMMAND=9", 2, "Jupiter"},
        {"closing the window stops a waiting script", "WAIT=23:59;PLANET=3", 2, ""},
    };
    for (const Row& r : rows) {
      TestProgram p(r.script);
      ui::Form1 form(p.context);
      form.show();
      std::vector<int> ended;
      form.endProgram = [&ended](int code) { ended.push_back(code); };
      form.timer1()->setInterval(5);  // the real timer, only faster
      if (*r.name1 == '\0') QTimer::singleShot(200, &form, [&] { form.close(); });
      QTRY_VERIFY_WITH_TIMEOUT(form.programExitCode().has_value(), 5000);
      QCOMPARE(ended, std::vector<int>{r.exitCode});
      QCOMPARE(Text(form, "Name1").trimmed(), QString(r.name1));
    }
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::MainWindowTest)
#include "main_window_test.moc"
