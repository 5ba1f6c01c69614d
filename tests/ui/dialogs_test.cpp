// The dialogs: each opens with its controls, and their clicks reach the logic. Telescope and GPS
// exchanges run over pseudo-terminals against the simulated devices of tests/support.
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QPushButton>
#include <QtTest>

#include "catalog/help_topics.h"
#include "scope/scope_models.h"
#include "tests/support/gps_feeder.h"
#include "tests/support/scope_simulator.h"
#include "tests/ui/ui_test_program.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/help_form.h"
#include "ui/move_scope.h"
#include "ui/palette.h"
#include "ui/scope_form.h"
#include "ui/searching_window.h"

namespace astel::uitest {

namespace {

void Write(const std::string& path, const std::string& text) {
  QFile f(QString::fromStdString(path));
  f.open(QIODevice::WriteOnly);
  f.write(text.data(), static_cast<qint64>(text.size()));
}

void ClickRow(QListWidget* list, int row) {
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(row)).center());
}

int RowOf(QListWidget* list, const QString& text) {
  const auto found = list->findItems(text, Qt::MatchExactly);
  return found.isEmpty() ? -1 : list->row(found.front());
}

const std::string kValidFix = "$GPRMC,123519,A,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";
const std::string kNoFix = "$GPRMC,123519,V,4807.038,N,01131.000,E,022.4,084.4,230305,003.1,W";

#define REQUIRE_STARTED(device) \
  if (!(device).Start()) QSKIP("no pseudo-terminal available here")

}  // namespace

class DialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void searchingWindowShowsTheScanAndCancels() {
    TestProgram p;
    ui::SearchingWindow window(p.state.search, nullptr);
    SearchWindow& port = window;
    port.Show("Searching for M  in Catalog FULL.OBC");
    QVERIFY(window.isVisible());
    QVERIFY(window.isModal());
    QCOMPARE(window.progressLabel()->text(), QString("Searching for M  in Catalog FULL.OBC"));
    port.SetProgress("Searching for M  in Catalog FULL.OBC    300");
    QCOMPARE(window.progressLabel()->text(),
             QString("Searching for M  in Catalog FULL.OBC    300"));
    QCOMPARE(window.cancelButton()->text(), QString("Cancel"));
    QTest::mouseClick(window.cancelButton(), Qt::LeftButton);
    QVERIFY(p.state.search.cancelRequested);
    p.state.search.cancelRequested = false;
    QTest::keyClick(&window, Qt::Key_Escape);
    QVERIFY(p.state.search.cancelRequested);
    QVERIFY2(window.isVisible(), "only the scan hides the window, when it has stopped");
    port.Hide();
    QVERIFY(!window.isVisible());
  }

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

  void fileSelectLoadsAHomeFile() {
    TestProgram p;
    ui::FileSelectDialog window(p.context, nullptr);
    QCOMPARE(window.windowTitle(), QString("Load Home Location File or GPS Data"));
    QCOMPARE(window.loadButton()->text(), QString("Load the selected file"));
    QCOMPARE(window.statusLabel()->text(), QString("GPS Status"));
    QCOMPARE(window.gpsLoadButton()->text(), QString("Load From GPS Device"));
    QVERIFY(!window.scopeGpsButton()->isEnabled());
    QVERIFY(window.loadTimeBox()->isChecked());
    QCOMPARE(window.fileList()->count(), 1);
    QCOMPARE(window.fileList()->item(0)->text(), QString("ASTEL.HOM"));

    window.loadTimeBox()->click();
    QVERIFY(p.state.telescope.gpsLocationOnly);
    QVERIFY(p.state.program.configChanged);

    window.fileList()->clearSelection();
    window.loadButton()->click();
    QCOMPARE(p.dialogs.messages.back(), std::string("No File Selected!"));
    QVERIFY(!window.loaded());
    window.fileList()->setCurrentRow(0);
    window.loadButton()->click();
    QVERIFY(window.loaded());
    QCOMPARE(window.result(), int(QDialog::Accepted));
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

  void locationModeChecksAndSetsThePlace() {
    TestProgram p;
    ui::DataEntryDialog window(p.context, ui::DataEntryDialog::Mode::kLocation, nullptr);
    QCOMPARE(window.latitudeDegrees()->text(), QString("51"));
    QVERIFY(window.north()->isChecked());
    QVERIFY(window.west()->isChecked());
    window.latitudeDegrees()->setText("95");
    window.okButton()->click();
    QCOMPARE(p.dialogs.messages.back(),
             std::string("Degrees of latitude must be between 0 and 89"));
    QVERIFY(window.result() != QDialog::Accepted);

    window.latitudeDegrees()->setText("33");
    window.latitudeMinutes()->setText("52.5");
    window.south()->setChecked(true);
    window.longitudeDegrees()->setText("151");
    window.longitudeMinutes()->setText("12.5");
    window.east()->setChecked(true);
    window.okButton()->click();
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.place.latitudeDegrees, -33);
    QCOMPARE(p.state.place.longitudeDegrees, -151);
    QVERIFY(p.state.program.configChanged);
  }

  void objectEntryShowsTheObject() {
    TestProgram p;
    ui::DataEntryDialog window(p.context, ui::DataEntryDialog::Mode::kObject, nullptr);
    window.okButton()->click();
    QCOMPARE(p.dialogs.messages.back(),
             std::string("Choose one of the Options for getting Object Data"));

    // Coordinates: right ascension, declination, epoch, three more names, the magnitude.
    window.option(1)->setChecked(true);
    window.text1()->setText("MyComet");
    window.text2()->setText("C/2026 A1");
    p.dialogs.answers = {"5", "34.5", "22", "1", "2000", "", "", "", "8.5"};
    window.okButton()->click();
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.object.Name1.substr(0, 7), std::string("MyComet"));
    QCOMPARE(p.state.object.Name2.substr(0, 9), std::string("C/2026 A1"));
    QCOMPARE(p.state.object.objRaHours, 5);
    QCOMPARE(p.state.search.foundState, 1);

    // From the telescope: a family without a read-back says so and the window stays open.
    ui::DataEntryDialog again(p.context, ui::DataEntryDialog::Mode::kObject, nullptr);
    QCOMPARE(again.statusLabel()->objectName(), QString("Label3"));
    p.state.telescope.scopeType = 2;
    again.option(3)->setChecked(true);
    again.text1()->setText("Scope");
    again.okButton()->click();
    QCOMPARE(p.dialogs.messages.back(), std::string("Function not Available"));
    QVERIFY(again.result() != QDialog::Accepted);
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

  void catalogSelectOpensChoosesAndCreates() {
    TestProgram p;
    Write(p.Folder() + "MINE.OBC", "MINE    2000 my objects\r\n");
    Write(p.Folder() + "other.obc", "OTHER   2000\r\n");
    Write(p.Folder() + "notes.txt", "x\n");
    {
      ui::CatalogSelectDialog window(p.context, nullptr);
      QStringList names;
      for (int i = 0; i < window.files()->count(); ++i)
        names << window.files()->item(i)->text();
      QCOMPARE(names, (QStringList{"MINE.OBC", "other.obc"}));
      QCOMPARE(window.defaultCatalogButton()->text(), QString("Default Catalog"));
      QVERIFY2(!window.defaultCatalogButton()->isEnabled(), "the default catalog is current");
      ClickRow(window.files(), 0);
      QCOMPARE(window.result(), int(QDialog::Accepted));
      QCOMPARE(p.state.files.catalogFileName, std::string("MINE.OBC"));
      QVERIFY(p.state.form.catalogPath.find("MINE.OBC") != std::string::npos);
    }
    {
      ui::CatalogSelectDialog window(p.context, nullptr);
      QVERIFY(window.defaultCatalogButton()->isEnabled());
      QCOMPARE(window.defaultCatalogButton()->toolTip(),
               QString("Click to return to default catalog 'full.obc'"));
      p.dialogs.answers = {"mystars", "2010"};
      QTest::mouseClick(window.newCatalogButton(), Qt::LeftButton);
      QCOMPARE(window.result(), int(QDialog::Accepted));
      QCOMPARE(p.state.files.catalogFileName, std::string("mystars.OBC"));
      QVERIFY(QFile::exists(QString::fromStdString(p.Folder() + "mystars.OBC")));
    }
    {
      // The default catalog is not in this folder: said, and the window stays.
      ui::CatalogSelectDialog window(p.context, nullptr);
      QTest::mouseClick(window.defaultCatalogButton(), Qt::LeftButton);
      QCOMPARE(p.dialogs.messages.back(), std::string("Cannot Open Catalog FULL.OBC"));
      QVERIFY(window.result() != QDialog::Accepted);
    }
  }

  void helpFormShowsTopicsAndOpensPages() {
    TestProgram p;
    Write(p.Folder() + "ASTEL.HTM", "x");
    Write(p.Folder() + "GPS.HTML", "x");
    Write(p.Folder() + "readme.txt", "x");
    ui::HelpFormDialog window(p.context, nullptr);
    window.show();
    const auto topics = HelpTopics();
    QCOMPARE(window.topics()->count(), 53);
    QCOMPARE(window.topics()->count(), static_cast<int>(topics.size()));
    for (int i = 0; i < window.topics()->count(); ++i) {
      QCOMPARE(window.topics()->item(i)->text(), QString::fromLatin1(topics[i].title));
    }
    const int transient = RowOf(window.topics(), "Transient Catalog");
    QVERIFY(transient >= 0);
    ClickRow(window.topics(), transient);
    QCOMPARE(window.text()->toPlainText(),
             QString::fromLatin1(HelpText("Transient Catalog").c_str()));
    QVERIFY(window.text()->toPlainText().startsWith("Transient Catalogs contain hourly"));

    QCOMPARE(window.pages()->count(), 2);
    ClickRow(window.pages(), 1);
    QCOMPARE(p.shell.opened.back(), p.Folder() + "GPS.HTML");
    QTest::mouseClick(window.documentationLink(), Qt::LeftButton);
    QCOMPARE(p.shell.opened.back(), DocumentationAddress(p.state));
  }

  void nightPaletteUsesTheDesignedColours() {
    SharedState s;
    s.display.nightColors.fill(0);
    s.display.nightColors[5] = 128;
    s.display.nightColors[8] = 0x000001;
    s.display.nightColors[15] = 0x000002;
    s.display.nightColors[18] = 0x000003;
    s.display.nightColors[13] = 0x000004;
    s.display.nightColors[14] = 255;
    s.display.nightColors[17] = 0x808080;
    s.display.nightColors[23] = 0x000005;
    s.display.nightColors[24] = 0xE1FFFF;
    const QPalette night = ui::NightPalette(QPalette(), s.display.nightColors);
    QCOMPARE(night.color(QPalette::Window), QColor(128, 0, 0));
    QCOMPARE(night.color(QPalette::Base), QColor(128, 0, 0));
    QCOMPARE(night.color(QPalette::WindowText), QColor(1, 0, 0));
    QCOMPARE(night.color(QPalette::Text), QColor(1, 0, 0));
    QCOMPARE(night.color(QPalette::Button), QColor(2, 0, 0));
    QCOMPARE(night.color(QPalette::ButtonText), QColor(3, 0, 0));
    QCOMPARE(night.color(QPalette::Highlight), QColor(4, 0, 0));
    QCOMPARE(night.color(QPalette::HighlightedText), QColor(255, 0, 0));
    QCOMPARE(night.color(QPalette::ToolTipText), QColor(5, 0, 0));
    QCOMPARE(night.color(QPalette::ToolTipBase), QColor(0xFF, 0xFF, 0xE1));
    QCOMPARE(night.color(QPalette::Disabled, QPalette::ButtonText), QColor(0x80, 0x80, 0x80));

    // 0x00BBGGRR both ways, and the start palette read under the old numbers.
    QCOMPARE(ui::ToQColor(0x123456), QColor(0x56, 0x34, 0x12));
    QCOMPARE(ui::FromQColor(QColor(0x56, 0x34, 0x12)), Colour{0x123456});
    std::array<Colour, 26> saved{};
    ui::ReadSystemColours(night, saved);
    QCOMPARE(saved[0], Colour{0});
    QCOMPARE(saved[5], Colour{128});
    QCOMPARE(saved[18], Colour{3});
    QCOMPARE(saved[24], Colour{0xE1FFFF});
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::DialogsTest)
#include "dialogs_test.moc"
