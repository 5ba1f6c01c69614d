// The main window's buttons reach the logic and its labels show the result at once; its timer
// runs the program's tick, which steps a script and ends the program with the script's exit code.
#include <QProcess>
#include <QtTest>

#include "catalog/catalog_select.h"
#include "tests/catalog/catalog_files.h"
#include "tests/support/test_catalog.h"
#include "tests/ui/ui_test_program.h"
#include "ui/form1.h"

namespace astel::uitest {

class MainWindowWiringTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { QVERIFY2(NoUnexpectedBox(), "a box no answer was queued for"); }

  void searchButtonsFillTheObjectLabels() {
    // The searches themselves are the catalog tests'; here the buttons reach them.
    TestProgram p;
    testing::WriteTestCatalog(p.Folder() + "TEST.OBC");  // M3, M30, M31 and three others
    QVERIFY(OpenCatalog(p.state, p.Folder(), "TEST.OBC"));
    ui::Form1 form(p.context);
    QCOMPARE(Text(form, "Catalog"), QString("test.obc"));
    p.dialogs.answers = {"M3"};
    Click(form, "SimpleSearch");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M3"));
    QVERIFY(Text(form, "RightAsc").startsWith("RA  13"));
    Click(form, "NextMatchButton");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M30"));
    Click(form, "PreviousMatch");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M3"));

    // Save Matches runs the search to its end, then offers the list.
    p.dialogs.choices = {true};
    Click(form, "WriteMatchButton");
    QCOMPARE(p.shell.opened.size(), std::size_t{1});
    QCOMPARE(Button(form, "WriteMatchButton")->text(), QString("View Matches"));
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
    QVERIFY(p.dialogs.messages.empty());
    QVERIFY(!p.state.search.catalogOpen);
    QVERIFY(p.state.search.recordsRead <= recordsAtCancel + 100);
    QVERIFY(!form.searchingWindow()->isVisible());

    // The next Next Match starts again from the first record and runs to the end.
    Click(form, "NextMatchButton");
    QCOMPARE(p.dialogs.messages,
             std::vector<std::string>{"Object ZZZ  Not Found in Catalog BIG.OBC"});
    QVERIFY(p.state.search.recordsRead > 5000);
  }

  void scriptRunsInTheWindowAndEndsWithItsCode() {
    struct Row {
      const char* legend;
      const char* script;
      int exitCode;
      const char* name1;  // shown when the program ends
      const char* status;
    } rows[] = {
        {"runs to its end", "SLEEP=0.1;PLANET=3", 0, "Moon", "Processing Command2:  PLANET=3"},
        {"a jump past the end fails after a body was chosen", "PLANET=5;COMMAND=9", 2, "Jupiter",
         "Processing Command2:  COMMAND=9"},
    };
    for (const Row& r : rows) {
      TestProgram p(r.script);
      QVERIFY2(p.state.script.scriptMode, r.legend);
      ui::Form1 form(p.context);
      std::vector<int> ended;
      form.endProgram = [&ended](int code) { ended.push_back(code); };
      form.timer1()->setInterval(5);  // the real timer, only faster
      QTRY_VERIFY_WITH_TIMEOUT(form.programExitCode().has_value(), 5000);
      QCOMPARE(ended, std::vector<int>{r.exitCode});
      QVERIFY2(!form.timer1()->isActive(), r.legend);
      QCOMPARE(Text(form, "Name1").trimmed(), QString(r.name1));
      QCOMPARE(Text(form, "Status"), QString(r.status));
    }
  }

  void closingTheWindowStopsAWaitingScript() {
    TestProgram p("WAIT=23:59;PLANET=3");  // the clock stands at 21:30:05
    ui::Form1 form(p.context);
    form.show();
    std::vector<int> ended;
    form.endProgram = [&ended](int code) { ended.push_back(code); };
    form.timer1()->setInterval(5);
    bool timerRestedWhileWaiting = false;
    QTimer::singleShot(200, &form, [&] {
      timerRestedWhileWaiting = !form.timer1()->isActive();
      form.close();
    });
    form.Tick();  // runs the WAIT until the window closes
    QVERIFY(timerRestedWhileWaiting);
    QCOMPARE(ended, std::vector<int>{2});
    QVERIFY2(Text(form, "Name1") != "Moon", "the script stopped at its WAIT");
    const std::string log = testing::ReadFile(p.Folder() + "ASTELLOG.TXT");
    QVERIFY2(log.find("Command1: WAIT=23:59 Error: ") != std::string::npos, log.c_str());
  }

  void theProgramReturnsTheScriptsExitCode() {
    TestProgram p;  // only for its folder with a home file
    QProcess program;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "ASTEL_HEADLESS"})
      env.remove(name);
    env.insert("QT_QPA_PLATFORM", "offscreen");
    env.insert("ASTEL_HOME", QString::fromStdString(p.dir.path()));
    program.setProcessEnvironment(env);
    program.start(ASTEL_PROGRAM, {"FOO=1"});
    QVERIFY(program.waitForFinished(15000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 2);
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::MainWindowWiringTest)
#include "main_window_wiring_test.moc"
