// The dialogs: motor control over a pseudo-terminal to the simulated mount of tests/support, the
// telescope selection and the catalog chooser.
#include <QtTest>

#include "tests/catalog/catalog_files.h"
#include "tests/support/scope_simulator.h"
#include "tests/ui/ui_test_program.h"
#include "ui/catalog_select.h"
#include "ui/move_scope.h"
#include "ui/scope_form.h"

namespace astel::uitest {

class DialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { ASTEL_NO_UNEXPECTED_BOX(); }

  void motorButtonsDriveTheMountOnPressAndRelease() {
    TestProgram p;
    testing::ScopeSimulator mount(1);
    if (!mount.Start()) QSKIP("no pseudo-terminal available here");
    p.devicePath = mount.DevicePath();
    p.state.telescope.scopeType = 1;
    p.state.telescope.comPort = 1;
    ui::MoveScopeDialog window(p.context, nullptr);
    window.show();
    QPushButton* up = window.button(MoveButton::kUp);

    // Rate 3, Up held: the altitude axis runs upward, the safety stop is armed and the main
    // window's telescope buttons rest; the release stops the axis and starts the pause.
    ClickRow(window.rates(), 2);
    QTest::mousePress(up, Qt::LeftButton);
    QVERIFY(window.safetyTimer()->isActive());
    QTest::mouseRelease(up, Qt::LeftButton);
    QVERIFY(!window.safetyTimer()->isActive());
    QVERIFY2(!up->isEnabled(), "the released button rests until the pause is over");
    std::vector<testing::MotorCommand> motions = mount.Mount().motions;
    QCOMPARE(motions.size(), std::size_t{2});
    QCOMPARE(motions[0].rate, 3);
    QCOMPARE(motions[1].rate, 0);
    window.pauseTimer()->start(1);
    QTRY_VERIFY(up->isEnabled());

    // Closing the window while the mount runs stops it first.
    QTest::mousePress(up, Qt::LeftButton);
    window.reject();
    motions = mount.Mount().motions;
    QCOMPARE(motions.size(), std::size_t{4});
    QCOMPARE(motions[3].rate, 0);
  }

  void scopeFormSetsTheCodeAndFlags() {
    TestProgram p;
    p.state.telescope.scopeCode = 406;
    p.state.telescope.comPort = 3;
    ui::ScopeFormDialog window(p.context, nullptr);
    QCOMPARE(window.telescopes()->currentItem()->text(),
             QString("4 - Meade LX-200, LX-90 and compatibles"));

    // A NexStar 5i with a GPS on Com2.
    QListWidget* scopes = window.telescopes();
    ClickRow(
        scopes,
        scopes->row(scopes->findItems("1 - Celestron NexStar 5i / 8i", Qt::MatchExactly).value(0)));
    ClickRow(window.ports(), 1);
    p.dialogs.choices = {true};  // it has a GPS
    QTest::mouseClick(window.okButton(), Qt::LeftButton);
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.telescope.comPort, 2);
    QCOMPARE(p.state.telescope.scopeCode, 107);
    QVERIFY(p.state.telescope.scopeHasGps);
  }

  void catalogChooserListsCatalogsAndOpensTheClickedOne() {
    TestProgram p;
    testing::WriteFile(p.Folder() + "MINE.OBC", "MINE    2000 my objects\r\n");
    testing::WriteFile(p.Folder() + "other.obc", "OTHER   2000\r\n");
    testing::WriteFile(p.Folder() + "notes.txt", "x\n");
    ui::CatalogSelectDialog catalogs(p.context, nullptr);
    QCOMPARE(catalogs.files()->count(), 2);
    QCOMPARE(catalogs.files()->item(1)->text(), QString("other.obc"));
    ClickRow(catalogs.files(), 0);
    QCOMPARE(catalogs.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.files.catalogFileName, std::string("MINE.OBC"));
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::DialogsTest)
#include "dialogs_test.moc"
