// The dialogs without a device behind them: each opens with its controls, and their clicks reach
// the logic. The telescope and GPS exchanges are in telescope_dialogs_test.cpp.
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QPushButton>
#include <QtTest>

#include "catalog/help_topics.h"
#include "tests/ui/ui_test_program.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/help_form.h"
#include "ui/palette.h"
#include "ui/searching_window.h"

namespace astel::uitest {

namespace {

void Write(const std::string& path, const std::string& text) {
  QFile f(QString::fromStdString(path));
  f.open(QIODevice::WriteOnly);
  f.write(text.data(), static_cast<qint64>(text.size()));
}

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
