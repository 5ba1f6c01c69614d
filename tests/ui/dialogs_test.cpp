// The dialogs without a device behind them: each opens with its controls, and their clicks reach
// the logic. The telescope and GPS exchanges are in telescope_dialogs_test.cpp.
#include <QPushButton>
#include <QtTest>

#include "catalog/help_topics.h"
#include "tests/catalog/catalog_files.h"
#include "tests/ui/ui_test_program.h"
#include "ui/catalog_select.h"
#include "ui/data_entry.h"
#include "ui/file_select.h"
#include "ui/help_form.h"

namespace astel::uitest {

using testing::WriteFile;

class DialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() { QVERIFY2(NoUnexpectedBox(), "a box no answer was queued for"); }

  void fileSelectLoadsAHomeFile() {
    TestProgram p;
    ui::FileSelectDialog window(p.context, nullptr);
    QCOMPARE(window.fileList()->count(), 1);
    QCOMPARE(window.fileList()->item(0)->text(), QString("ASTEL.HOM"));
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
    window.latitudeDegrees()->setText("95");
    window.okButton()->click();
    QCOMPARE(p.dialogs.messages.size(), std::size_t{1});
    QVERIFY(window.result() != QDialog::Accepted);

    window.latitudeDegrees()->setText("33");
    window.south()->setChecked(true);
    window.longitudeDegrees()->setText("151");
    window.east()->setChecked(true);
    window.okButton()->click();
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.place.latitudeDegrees, -33);
    QCOMPARE(p.state.place.longitudeDegrees, -151);
  }

  void catalogSelectListsCatalogsAndOpensTheClickedOne() {
    TestProgram p;
    WriteFile(p.Folder() + "MINE.OBC", "MINE    2000 my objects\r\n");
    WriteFile(p.Folder() + "other.obc", "OTHER   2000\r\n");
    WriteFile(p.Folder() + "notes.txt", "x\n");
    ui::CatalogSelectDialog window(p.context, nullptr);
    QStringList names;
    for (int i = 0; i < window.files()->count(); ++i)
      names << window.files()->item(i)->text();
    QCOMPARE(names, (QStringList{"MINE.OBC", "other.obc"}));
    ClickRow(window.files(), 0);
    QCOMPARE(window.result(), int(QDialog::Accepted));
    QCOMPARE(p.state.files.catalogFileName, std::string("MINE.OBC"));
  }

  void helpFormShowsTopicsAndOpensPages() {
    TestProgram p;
    WriteFile(p.Folder() + "ASTEL.HTM", "x");
    WriteFile(p.Folder() + "GPS.HTML", "x");
    WriteFile(p.Folder() + "readme.txt", "x");
    ui::HelpFormDialog window(p.context, nullptr);
    window.show();
    ClickRow(window.topics(), RowOf(window.topics(), "Transient Catalog"));
    QVERIFY(window.text()->toPlainText().startsWith("Transient Catalogs contain hourly"));
    QCOMPARE(window.pages()->count(), 2);
    ClickRow(window.pages(), 1);
    QCOMPARE(p.shell.opened.back(), p.Folder() + "GPS.HTML");
    QTest::mouseClick(window.documentationLink(), Qt::LeftButton);
    QCOMPARE(p.shell.opened.back(), DocumentationAddress(p.state));
  }
};

}  // namespace astel::uitest

QTEST_MAIN(astel::uitest::DialogsTest)
#include "dialogs_test.moc"
