// The main window's buttons reach the logic and its labels show the result at once; its timer
// runs the program's tick, which steps a script and ends the program with the script's exit code.
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

#include "catalog/catalog_select.h"
#include "tests/catalog/catalog_files.h"
#include "tests/support/scope_simulator.h"
#include "tests/support/test_catalog.h"
#include "tests/ui/ui_test_program.h"
#include "ui/form1.h"

namespace astel::uitest {

namespace {

QString Text(QWidget& w, const char* name) {
  QLabel* label = w.findChild<QLabel*>(name);
  return label ? label->text() : QString("<missing>");
}

QPushButton* Button(QWidget& w, const char* name) {
  return w.findChild<QPushButton*>(name);
}

void Click(QWidget& w, const char* name) {
  QPushButton* b = Button(w, name);
  QVERIFY2(b, name);
  QTest::mouseClick(b, Qt::LeftButton);
}

// A catalog of `records` followed by `fillers` faint objects that no test searches for.
void WriteCatalogWithFillers(const std::string& path, std::vector<std::string> records,
                             int fillers) {
  for (int i = 0; i < fillers; ++i)
    records.push_back(testing::Rec("F" + std::to_string(i), 12, 10, "12.0"));
  testing::WriteCatalog(path, records);
}

}  // namespace

class MainWindowWiringTest : public QObject {
  Q_OBJECT

 private slots:
  void simpleSearchFillsTheObjectLabels() {
    TestProgram p;
    testing::WriteTestCatalog(p.Folder() + "TEST.OBC");  // M3, M30, M31 and three others
    QVERIFY(OpenCatalog(p.state, p.Folder(), "TEST.OBC"));
    ui::Form1 form(p.context);
    QCOMPARE(Text(form, "Catalog"), QString("test.obc"));
    QVERIFY2(!Button(form, "BestOf")->isEnabled(), "Best of the Sky needs the FULL catalog");

    p.dialogs.answers = {"M3"};
    Click(form, "SimpleSearch");
    QVERIFY(p.dialogs.prompts[0].rfind(
                "Name of Object to Search for In Current Catalog TEST.OBC Up to 12 Chars", 0) == 0);
    QCOMPARE(p.dialogs.titles[0], std::string("Search for Object in Catalog"));
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M3"));
    QCOMPARE(Text(form, "Name2label").trimmed(), QString("NGC 5272"));
    QVERIFY(Text(form, "RightAsc").startsWith("RA  13"));
    QVERIFY(Text(form, "Altitude") != "Alt");
    QVERIFY2(Text(form, "RiseTime") != "RiseTime = ", qPrintable(Text(form, "RiseTime")));
    QVERIFY(!form.searchingWindow()->isVisible());

    Click(form, "NextMatchButton");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M30"));
    Click(form, "NextMatchButton");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M31"));
    Click(form, "PreviousMatch");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M30"));

    // Save Matches runs the search to its end, then offers the list.
    p.dialogs.choices = {true};
    Click(form, "WriteMatchButton");
    QCOMPARE(p.dialogs.questions.back(),
             std::string("3 Matches written to 'matches.txt'. View list of matches?"));
    QCOMPARE(p.shell.opened.size(), std::size_t{1});
    QCOMPARE(Button(form, "WriteMatchButton")->text(), QString("View Matches"));
    QCOMPARE(Button(form, "WriteMatchButton")->toolTip(),
             QString("View the list of 3 saved matches"));
    QCOMPARE(Text(form, "Name1").trimmed(), QString("M31"));
    Click(form, "WriteMatchButton");
    QCOMPARE(p.shell.opened.size(), std::size_t{2});

    // Add appends the shown object to the current catalog.
    p.dialogs.choices = {true};
    Click(form, "AddObject");
    QCOMPARE(p.dialogs.questions.back(),
             std::string("Do you want to add the object M31 to catalog TEST.OBC ?"));
    const auto lines = testing::Lines(testing::ReadFile(p.Folder() + "TEST.OBC"));
    QCOMPARE(lines.size(), std::size_t{8});
    QCOMPARE(lines.back().substr(0, 12), std::string("M31         "));
  }

  void detailedSearchAsksItsLimits() {
    TestProgram p;
    testing::WriteTestCatalog(p.Folder() + "TEST.OBC");
    QVERIFY(OpenCatalog(p.state, p.Folder(), "TEST.OBC"));
    ui::Form1 form(p.context);
    // No second name, at least 85 degrees high, any magnitude: nothing stands that high.
    p.dialogs.answers = {"M3", "", "85", ""};
    Click(form, "DetailedSearch");
    QCOMPARE(p.dialogs.titles,
             (std::vector<std::string>{"Search for Object in Catalog", "Second Name?",
                                       "Set Minimum Altitude", "Set Faintest Magnitude"}));
    QCOMPARE(p.dialogs.messages.size(), std::size_t{1});
    QVERIFY(p.dialogs.messages[0].rfind("Object M3  Not Found in Catalog TEST.OBC", 0) == 0);
    QVERIFY(Text(form, "Name1").trimmed().isEmpty());
  }

  void cancelStopsAScan() {
    TestProgram p;
    WriteCatalogWithFillers(p.Folder() + "BIG.OBC", {}, 5000);
    QVERIFY(OpenCatalog(p.state, p.Folder(), "BIG.OBC"));
    ui::Form1 form(p.context);
    form.show();
    // The user clicks Cancel once a thousand records have gone by.
    QString progressAtCancel;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &form, [&] {
      ui::SearchingWindow* w = form.searchingWindow();
      const QString progress = w->progressLabel()->text();
      if (!w->isVisible() || progress.section(' ', -1).toInt() < 1000) return;
      progressAtCancel = progress;
      user.stop();
      QTest::mouseClick(w->cancelButton(), Qt::LeftButton);
    });
    user.start(0);
    p.dialogs.answers = {"ZZZ"};
    Click(form, "SimpleSearch");
    QVERIFY2(progressAtCancel.startsWith("Searching for ZZZ  in Catalog BIG.OBC    "),
             qPrintable(progressAtCancel));
    const int recordsAtCancel = progressAtCancel.section(' ', -1).toInt();
    QVERIFY(p.dialogs.messages.empty());
    QVERIFY(!p.state.search.catalogOpen);
    QVERIFY(p.state.search.recordsRead >= recordsAtCancel);
    QVERIFY(p.state.search.recordsRead <= recordsAtCancel + 100);
    QVERIFY(!form.searchingWindow()->isVisible());

    // The next Next Match starts again from the first record and runs to the end.
    Click(form, "NextMatchButton");
    QCOMPARE(p.dialogs.messages,
             std::vector<std::string>{"Object ZZZ  Not Found in Catalog BIG.OBC"});
    QVERIFY(p.state.search.recordsRead > 5000);
  }

  void bestOfTheSkyOnTheDefaultCatalog() {
    TestProgram p;
    // Both stand higher than 20 degrees all night from latitude 51.5 north.
    WriteCatalogWithFillers(p.Folder() + "FULL.OBC",
                            {testing::Rec("Kochab", 14.85, 74.15, "2.1", "^Bet UMi"),
                             testing::Rec("Polaris", 2.53, 89.26, "2.0", "&Alp UMi")},
                            300);
    QVERIFY(OpenCatalog(p.state, p.Folder(), "FULL.OBC"));
    ui::Form1 form(p.context);
    QVERIFY(Button(form, "BestOf")->isEnabled());
    Click(form, "BestOf");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("Polaris"));
    Click(form, "NextMatchButton");
    QCOMPARE(Text(form, "Name1").trimmed(), QString("Kochab"));
  }

  void gotoSendsTheShownObject() {
    TestProgram p;
    testing::ScopeSimulator mount(4);
    if (!mount.Start()) QSKIP("no pseudo-terminal available here");
    p.devicePath = mount.DevicePath();
    p.state.telescope.scopeType = 4;
    p.state.telescope.scopeCode = 401;
    p.state.telescope.comPort = 1;
    ui::Form1 form(p.context);
    QListWidget* list = form.findChild<QListWidget*>("List1");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(5)).center());
    QCOMPARE(Text(form, "Name1"), QString("Jupiter"));
    Click(form, "Command1");
    QVERIFY(mount.WaitForCommands(3, std::chrono::seconds(2)));
    const std::vector<std::string> sent = mount.Commands();
    QCOMPARE(sent.size(), std::size_t{3});
    QCOMPARE(sent[0].substr(0, 4), std::string(":Sr "));
    QCOMPARE(sent[1].substr(0, 4), std::string(":Sd "));
    QCOMPARE(sent[2], std::string(":MS#"));
    QVERIFY(p.dialogs.messages.empty());

    // Without the telescope the GoTo says which port failed.
    p.devicePath = "/nonexistent/ttyASTEL";
    Click(form, "Command1");
    QCOMPARE(p.dialogs.messages, std::vector<std::string>{"UNABLE TO OPEN COM 1"});
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
        {"a command that is not known", "FOO=1", 2, "", "Processing Command1:  FOO=1"},
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
      QCOMPARE(*form.programExitCode(), r.exitCode);
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
    QString statusWhileWaiting;
    bool timerRestedWhileWaiting = false;
    QTimer::singleShot(200, &form, [&] {
      statusWhileWaiting = Text(form, "Status");
      timerRestedWhileWaiting = !form.timer1()->isActive();
      form.close();
    });
    form.Tick();  // runs the WAIT until the window closes
    QCOMPARE(statusWhileWaiting, QString("Processing Command1:  WAIT=23:59"));
    QVERIFY(timerRestedWhileWaiting);
    QVERIFY(p.state.script.stopRequested);
    QCOMPARE(ended, std::vector<int>{2});
    QVERIFY2(Text(form, "Name1") != "Moon", "the script stopped at its WAIT");
    const std::string log = testing::ReadFile(p.Folder() + "ASTELLOG.TXT");
    QVERIFY2(log.find("Command1: WAIT=23:59 Error: ") != std::string::npos, log.c_str());
  }

  void theProgramReturnsTheScriptsExitCode() {
    struct Row {
      const char* script;
      int exitCode;
    } rows[] = {{"PLANET=3", 0}, {"FOO=1", 2}};
    for (const Row& r : rows) {
      TestProgram p;  // only for its folder with a home file
      QProcess program;
      QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
      for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "ASTEL_HEADLESS"})
        env.remove(name);
      env.insert("QT_QPA_PLATFORM", "offscreen");
      env.insert("ASTEL_HOME", QString::fromStdString(p.dir.path()));
      program.setProcessEnvironment(env);
      program.start(ASTEL_PROGRAM, {r.script});
      QVERIFY(program.waitForFinished(15000));
      QCOMPARE(program.exitStatus(), QProcess::NormalExit);
      QCOMPARE(program.exitCode(), r.exitCode);
    }
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::MainWindowWiringTest)
#include "main_window_wiring_test.moc"
