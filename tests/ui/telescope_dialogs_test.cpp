// The dialogs that talk to a device: motor control, the GPS and telescope loads, the telescope
// read-back, the telescope selection and its upload, each over a pseudo-terminal to the simulated
// devices of tests/support.
#include <QPushButton>
#include <QtTest>

#include "tests/support/gps_feeder.h"
#include "tests/support/scope_simulator.h"
#include "tests/ui/ui_test_program.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/move_scope.h"
#include "ui/scope_form.h"

namespace astel::uitest {

namespace {

const std::string kValidFix = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kNoFix = "$GPRMC,123519,V,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";

#define REQUIRE_STARTED(device) \
  if (!(device).Start()) QSKIP("no pseudo-terminal available here")

}  // namespace

class TelescopeDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void motorButtonsDriveTheMountOnPressAndRelease() {
    TestProgram p;
    testing::ScopeSimulator mount(1);
    REQUIRE_STARTED(mount);
    p.devicePath = mount.DevicePath();
    p.state.telescope.scopeType = 1;
    p.state.telescope.comPort = 1;
    ui::MoveScopeDialog window(p.context, nullptr);
    window.show();
    QPushButton* up = window.button(MoveButton::kUp);
    QCOMPARE(up->toolTip(), QString("Moves scope Higher in Altitude"));
    QCOMPARE(window.button(MoveButton::kRight)->toolTip(),
             QString("Movers Scope towards Lesser Azimuth"));
    QCOMPARE(window.rates()->count(), 9);
    QCOMPARE(window.rates()->currentItem()->text(), QString("9"));

    // Rate 3, Up held: the altitude axis runs upward, the safety stop is armed and the main
    // window's telescope buttons rest; the release stops the axis and starts the pause.
    ClickRow(window.rates(), 2);
    QTest::mousePress(up, Qt::LeftButton);
    QVERIFY(window.safetyTimer()->isActive());
    QCOMPARE(window.safetyTimer()->interval(), kSafetyIntervalMs);
    QVERIFY(!p.state.form.commandButtonsEnabled);
    QTest::mouseRelease(up, Qt::LeftButton);
    QVERIFY(!window.safetyTimer()->isActive());
    QVERIFY(window.pauseTimer()->isActive());
    QVERIFY2(!up->isEnabled(), "the released button rests until the pause is over");
    QVERIFY(p.state.form.commandButtonsEnabled);
    std::vector<testing::MotorCommand> motions = mount.Mount().motions;
    QCOMPARE(motions.size(), std::size_t{2});
    QCOMPARE(motions[0].axis, 17);
    QCOMPARE(motions[0].direction, 36);
    QCOMPARE(motions[0].rate, 3);
    QCOMPARE(motions[1].rate, 0);

    // The pause timer's end readies the buttons; reversed, Up runs downward; the safety timer
    // stops a motion that is held too long.
    window.pauseTimer()->start(1);
    QTRY_VERIFY(up->isEnabled());
    window.reverseUpDown()->setChecked(true);
    QTest::mousePress(up, Qt::LeftButton);
    window.safetyTimer()->start(1);
    QTRY_COMPARE(window.general()->text(), QString("Timeout - Safety Stop"));
    QTest::mouseRelease(up, Qt::LeftButton);
    motions = mount.Mount().motions;
    QVERIFY(motions.size() >= 4);
    QCOMPARE(motions[2].direction, 37);
    QCOMPARE(motions[3].rate, 0);

    // The remote mouse: its hint, and the window's free area as buttons.
    window.remoteMouse()->setChecked(true);
    QCOMPARE(window.general()->text(),
             QString("Move mouse to blank part of form, then pick it up. Use L/R buttons for "
                     "motion. Middle button shifts axis."));
    window.logic().PauseTimeout();  // no need to wait out the pause of the last stop
    const std::size_t before = mount.Mount().motions.size();
    QTest::mousePress(&window, Qt::RightButton, {}, QPoint(2, 2));
    QCOMPARE(mount.Mount().motions.size(), before + 1);
    QCOMPARE(mount.Mount().motions.back().axis, 16);
    QCOMPARE(mount.Mount().motions.back().direction, 36);

    // Closing the window while the mount runs stops it first.
    window.reject();
    QCOMPARE(mount.Mount().motions.size(), before + 2);
    QCOMPARE(mount.Mount().motions.back().rate, 0);
    QVERIFY(!window.safetyTimer()->isActive());
  }

  void gpsLoadShowsItsProgressAndSetsThePlace() {
    TestProgram p;
    // A sentence without a fix, the one after it dropped (as always after a refused one), then
    // the fix that is used.
    testing::GpsFeeder receiver({kNoFix, kValidFix, kValidFix});
    REQUIRE_STARTED(receiver);
    p.devicePath = receiver.DevicePath();
    p.state.telescope.comPort = 1;
    p.state.form.writeMatchCaption = "View Matches";
    ui::FileSelectDialog window(p.context, nullptr);
    window.show();
    QCOMPARE(p.context.liveExchanges.size(), std::size_t{1});
    p.dialogs.choices = {true};  // "Connect Up GPS Device": OK
    QString statusAtEnd;
    bool buttonsRestedAtEnd = false;
    p.dialogs.onShow = [&](const std::string& text) {
      if (text.rfind("Successful GPS Reading", 0) != 0) return;
      statusAtEnd = window.statusLabel()->text();
      buttonsRestedAtEnd = !window.gpsLoadButton()->isEnabled() &&
                           !window.loadButton()->isEnabled() &&
                           !window.scopeGpsButton()->isEnabled();
    };
    QTest::mouseClick(window.gpsLoadButton(), Qt::LeftButton);
    QCOMPARE(p.dialogs.messages,
             std::vector<std::string>{"Successful GPS Reading. Location and Time have been set."});
    QCOMPARE(statusAtEnd, QString("GPS Data Valid"));
    QVERIFY(buttonsRestedAtEnd);
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QVERIFY(window.loaded());
    QCOMPARE(p.state.place.latitudeDegrees, 48);
    QCOMPARE(p.state.place.longitudeDegrees, -11);
    QCOMPARE(p.state.form.writeMatchCaption, std::string("Save Matches"));
  }

  void cancelEndsAGpsLoadThatFindsNoFix() {
    TestProgram p;
    testing::FeederOptions options;
    options.repeat = true;
    testing::GpsFeeder receiver({kNoFix}, options);
    REQUIRE_STARTED(receiver);
    p.devicePath = receiver.DevicePath();
    p.state.telescope.comPort = 1;
    const PlaceState before = p.state.place;
    ui::FileSelectDialog window(p.context, nullptr);
    window.show();
    p.dialogs.choices = {true};
    // The user gives up once the receiver has been heard without a fix.
    QTimer cancel;
    QObject::connect(&cancel, &QTimer::timeout, &window, [&] {
      if (window.statusLabel()->text() == "Waiting for Valid Satellite Data Fix") {
        QTest::mouseClick(window.findChild<QPushButton*>("Command2"), Qt::LeftButton);
      }
    });
    cancel.start(20);
    QTest::mouseClick(window.gpsLoadButton(), Qt::LeftButton);
    QCOMPARE(window.result(), int(QDialog::Rejected));
    QVERIFY(p.dialogs.messages.empty());
    QVERIFY(!window.monitor().busy);
    QCOMPARE(p.state.place.latitudeDegrees, before.latitudeDegrees);
    QVERIFY(window.gpsLoadButton()->isEnabled());
  }

  void scopeGpsReadsTheTelescopesSite() {
    TestProgram p;
    testing::ScopeSimulator mount(4);
    REQUIRE_STARTED(mount);
    p.devicePath = mount.DevicePath();
    p.state.telescope.scopeType = 4;
    p.state.telescope.scopeCode = 401;
    p.state.telescope.comPort = 1;
    p.state.telescope.gpsLocationOnly = true;
    ui::FileSelectDialog window(p.context, nullptr);
    QCOMPARE(window.scopeGpsButton()->text(), QString("Load Position from Meade Scope"));
    QVERIFY(window.scopeGpsButton()->isEnabled());
    QTest::mouseClick(window.scopeGpsButton(), Qt::LeftButton);
    QCOMPARE(p.dialogs.messages.size(), std::size_t{1});
    QVERIFY(p.dialogs.messages[0].rfind("Successful Scope Reading. Location ", 0) == 0);
    QCOMPARE(mount.CountCommands(":Gt#"), 1);
    QCOMPARE(mount.CountCommands(":Gg#"), 1);
    QCOMPARE(p.state.place.latitudeDegrees, 51);
    QCOMPARE(window.result(), int(QDialog::Accepted));
  }

  void objectEntryReadsTheTelescopeAndShowsItsProgress() {
    TestProgram p;
    testing::ScopeSimulator mount(4);
    REQUIRE_STARTED(mount);
    testing::MountState m = mount.Mount();
    m.raSteps = 0x4000;   // 6 h
    m.decSteps = 0x2000;  // +45 degrees
    mount.SetMount(m);
    p.devicePath = mount.DevicePath();
    p.state.telescope.scopeType = 4;
    p.state.telescope.comPort = 1;
    ui::DataEntryDialog window(p.context, ui::DataEntryDialog::Mode::kObject, nullptr);
    window.option(3)->setChecked(true);
    window.text1()->setText("Pointed");
    p.dialogs.answers = {"", "", "", ""};  // no more names, no magnitude
    window.okButton()->click();
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.object.objRaHours, 6);
    QCOMPARE(p.state.object.objDecDegrees, 45);
    QVERIFY(window.statusLabel()->text().contains("Waiting for Scope Declination."));
  }

  void scopeFormSetsTheCodeAndFlags() {
    TestProgram p;
    p.state.telescope.scopeCode = 406;
    p.state.telescope.comPort = 3;
    ui::ScopeFormDialog window(p.context, nullptr);
    QCOMPARE(window.telescopes()->count(), 12);
    QCOMPARE(window.telescopes()->currentItem()->text(),
             QString("4 - Meade LX-200, LX-90 and compatibles"));
    QCOMPARE(window.ports()->count(), 8);
    QCOMPARE(window.ports()->item(7)->text(), QString("Com8"));
    QCOMPARE(window.ports()->currentRow(), 2);
    QCOMPARE(window.uploadButton()->text(), QString("Upload"));

    // A NexStar 5i with a GPS on Com2.
    ClickRow(window.telescopes(), RowOf(window.telescopes(), "1 - Celestron NexStar 5i / 8i"));
    ClickRow(window.ports(), 1);
    QCOMPARE(p.state.telescope.comPort, 2);
    p.dialogs.choices = {true};  // "Does this Scope have a GPS?"
    QTest::mouseClick(window.okButton(), Qt::LeftButton);
    QCOMPARE(p.dialogs.questions, std::vector<std::string>{"Does this Scope have a GPS?"});
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.telescope.scopeCode, 107);
    QCOMPARE(int(p.state.telescope.scopeType), 1);
    QVERIFY(p.state.telescope.scopeHasGps);
    QVERIFY(!p.state.telescope.scopeNoDstShift);
    QVERIFY(p.state.telescope.scopeLoadEnabled);

    // No telescope: the port is cleared.
    ui::ScopeFormDialog none(p.context, nullptr);
    ClickRow(none.telescopes(), 0);
    QTest::mouseClick(none.okButton(), Qt::LeftButton);
    QCOMPARE(p.state.telescope.scopeCode, 10000);
    QCOMPARE(p.state.telescope.comPort, 0);
    QCOMPARE(int(p.state.telescope.scopeType), 0);
  }

  void uploadShowsItsProgressAndClosingStopsIt() {
    TestProgram p;
    testing::ScopeSimulator mount(4);
    REQUIRE_STARTED(mount);
    p.devicePath = mount.DevicePath();
    p.state.telescope.scopeType = 4;
    p.state.telescope.scopeCode = 402;
    p.state.telescope.comPort = 1;
    {
      ui::ScopeFormDialog window(p.context, nullptr);
      QString statusAtEnd;
      p.dialogs.onShow = [&](const std::string&) { statusAtEnd = window.statusLabel()->text(); };
      QTest::mouseClick(window.uploadButton(), Qt::LeftButton);
      QCOMPARE(p.dialogs.messages, std::vector<std::string>{"Successful Upload to Telescope"});
      QVERIFY(statusAtEnd.contains("Waiting for Scope Response to Time Upload."));
      QCOMPARE(mount.CountCommands(":SL 21:30:05#"), 1);
      QVERIFY(window.uploadButton()->isEnabled());
    }

    // A telescope that never answers: the upload repeats its first command until the window
    // is closed.
    testing::SimBehaviour silent;
    silent.fault = testing::ReplyFault::kSilent;
    mount.SetBehaviour(silent);
    mount.ClearRecords();
    p.dialogs.messages.clear();
    p.dialogs.onShow = nullptr;
    ui::ScopeFormDialog window(p.context, nullptr);
    window.show();
    QTimer::singleShot(300, &window, [&] {
      QVERIFY(!window.uploadButton()->isEnabled());
      window.reject();
    });
    QTest::mouseClick(window.uploadButton(), Qt::LeftButton);
    QVERIFY(p.dialogs.messages.empty());
    QVERIFY(mount.Commands().size() >= 2);
    QVERIFY(!window.logic().monitor().busy);
    QVERIFY(p.context.liveExchanges.size() == 1);
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::TelescopeDialogsTest)
#include "telescope_dialogs_test.moc"
