// The dialogs: each opens with its controls, and their clicks reach the logic.
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QPushButton>
#include <QtTest>

#include "tests/ui/ui_test_program.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/help_form.h"
#include "ui/move_scope.h"
#include "ui/palette.h"
#include "ui/qt_ports.h"
#include "ui/scope_form.h"
#include "ui/searching_window.h"

namespace astel::uitest {

namespace {

void Touch(const std::string& path) {
  QFile f(QString::fromStdString(path));
  f.open(QIODevice::WriteOnly);
  f.write("x\n");
}

}  // namespace

class DialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void cancelStopsALongScan() {
    TestProgram p;
    ui::SearchingWindow window(p.state.search, nullptr);
    window.ShowCaption("Searching for M  in Catalog FULL.OBC");
    QCOMPARE(window.cancelButton()->text(), QString("Cancel"));
    ui::QtEvents events;
    // The user clicks Cancel while the scan runs; the scan only sees it at its DoEvents.
    QTimer::singleShot(0, window.cancelButton(), &QPushButton::click);
    constexpr int kRecords = 1000000, kDoEventsEvery = 100;
    int read = 0;
    for (; read < kRecords && !p.state.search.cancelRequested; ++read) {
      if (read % kDoEventsEvery == 0) {
        window.SetProgress("Searching ... " + std::to_string(read));
        events.DoEvents();
      }
    }
    QVERIFY(p.state.search.cancelRequested);
    QVERIFY2(read <= 2 * kDoEventsEvery, qPrintable(QString::number(read)));
    QVERIFY(window.progressLabel()->text().startsWith("Searching ... "));
  }

  void motorButtonsActOnPressAndRelease() {
    TestProgram p;
    ui::MoveScopeDialog window(p.context, nullptr);
    std::vector<std::string> calls;
    window.onPress = [&](ui::MoveScopeDialog::Direction d, int button) {
      calls.push_back("down " + std::to_string(d) + " " + std::to_string(button));
    };
    window.onRelease = [&](ui::MoveScopeDialog::Direction d, int button) {
      calls.push_back("up " + std::to_string(d) + " " + std::to_string(button));
    };
    window.show();
    QPushButton* up = window.button(ui::MoveScopeDialog::kUp);
    QCOMPARE(up->toolTip(), QString("Moves scope Higher in Altitude"));
    QCOMPARE(window.button(ui::MoveScopeDialog::kRight)->toolTip(),
             QString("Movers Scope towards Lesser Azimuth"));
    QTest::mousePress(up, Qt::LeftButton);
    QCOMPARE(calls, (std::vector<std::string>{"down 0 1"}));
    QTest::mouseRelease(up, Qt::LeftButton);
    QTest::mousePress(window.button(ui::MoveScopeDialog::kLeft), Qt::LeftButton);
    QTest::mouseRelease(window.button(ui::MoveScopeDialog::kLeft), Qt::LeftButton);
    QCOMPARE(calls, (std::vector<std::string>{"down 0 1", "up 0 1", "down 2 1", "up 2 1"}));

    QCOMPARE(window.rates()->count(), 9);
    QCOMPARE(window.rates()->item(0)->text(), QString("1"));
    QCOMPARE(window.remoteMouse()->toolTip(),
             QString("Enables Mouse to be used for scope motion, at the eyepiece."));
    // With the remote mouse on, the free area of the window drives the telescope.
    std::vector<int> formPresses;
    window.onFormMouseDown = [&](int button) { formPresses.push_back(button); };
    QTest::mouseClick(&window, Qt::MiddleButton, {}, QPoint(2, 2));
    QVERIFY(formPresses.empty());
    window.remoteMouse()->setChecked(true);
    QTest::mouseClick(&window, Qt::MiddleButton, {}, QPoint(2, 2));
    QTest::mouseClick(&window, Qt::RightButton, {}, QPoint(2, 2));
    QCOMPARE(formPresses, (std::vector<int>{4, 2}));
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

  void objectModeHasItsOptionsAndNames() {
    TestProgram p;
    ui::DataEntryDialog window(p.context, ui::DataEntryDialog::Mode::kObject, nullptr);
    int option = -1;
    std::string first, second;
    window.objectOk = [&](int o, const std::string& n1, const std::string& n2) {
      option = o;
      first = n1;
      second = n2;
      return true;
    };
    window.option(2)->setChecked(true);
    window.text1()->setText("MyComet");
    window.text2()->setText("C/2026 A1");
    window.okButton()->click();
    QCOMPARE(option, 2);
    QCOMPARE(first, std::string("MyComet"));
    QCOMPARE(second, std::string("C/2026 A1"));
    QCOMPARE(window.result(), int(QDialog::Accepted));
  }

  void scopeFormListsTelescopesAndPorts() {
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
    std::string okRow;
    window.onOk = [&](const std::string& row) {
      okRow = row;
      return false;
    };
    window.okButton()->click();
    QCOMPARE(okRow, std::string("4 - Meade LX-200, LX-90 and compatibles"));
    window.setStatus("Waiting for Scope Response to Latitude.");
    QCOMPARE(window.statusLabel()->text(), QString("Waiting for Scope Response to Latitude."));
  }

  void catalogSelectListsCatalogsOnly() {
    TestProgram p;
    Touch(p.dir.path() + "/MINE.OBC");
    Touch(p.dir.path() + "/other.obc");
    Touch(p.dir.path() + "/notes.txt");
    ui::CatalogSelectDialog window(p.context, nullptr);
    QStringList names;
    for (int i = 0; i < window.files()->count(); ++i)
      names << window.files()->item(i)->text();
    QCOMPARE(names, (QStringList{"MINE.OBC", "other.obc"}));
    QCOMPARE(window.defaultCatalogButton()->text(), QString("Default Catalog"));
    std::string chosen;
    window.onFileChosen = [&](const std::string& dir, const std::string& name) {
      chosen = dir + name;
      return true;
    };
    QTest::mouseClick(window.files()->viewport(), Qt::LeftButton, {},
                      window.files()->visualItemRect(window.files()->item(0)).center());
    QCOMPARE(QString::fromStdString(chosen),
             QDir(QString::fromStdString(p.dir.path())).canonicalPath() + "/MINE.OBC");
  }

  void helpFormShowsTopicsAndOpensPages() {
    TestProgram p;
    Touch(p.dir.path() + "/ASTEL.HTM");
    Touch(p.dir.path() + "/GPS.HTML");
    Touch(p.dir.path() + "/readme.txt");
    ui::HelpFormDialog window(p.context, {{"Altitude", "How high."}, {"Azimuth", "Which way."}},
                              p.state.files.installDir + "ASTEL.HTM", nullptr);
    window.show();
    QCOMPARE(window.topics()->count(), 2);
    window.topics()->setCurrentRow(1);
    QCOMPARE(window.text()->toPlainText(), QString("Which way."));
    QCOMPARE(window.pages()->count(), 2);
    QTest::mouseClick(window.pages()->viewport(), Qt::LeftButton, {},
                      window.pages()->visualItemRect(window.pages()->item(1)).center());
    QCOMPARE(p.shell.opened.back(), p.state.files.installDir + "GPS.HTML");
    QTest::mouseClick(window.documentationLink(), Qt::LeftButton);
    QCOMPARE(p.shell.opened.back(), p.state.files.installDir + "ASTEL.HTM");
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
