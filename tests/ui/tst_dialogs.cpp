#include "TestRegistry.h"
#include "app/BrowseForFile.h"
#include "app/DialogService.h"
#include "ui/ChoosePrinter.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QTest>

namespace {

// Keeps what the file dialog was asked, answers with a set file.
class AskedDialogs : public RecordingDialogService {
public:
    QString openFile(const QString& title, const QString& filter, const QString& folder) override {
        askedTitle = title;
        askedFilter = filter;
        askedFolder = folder;
        return RecordingDialogService::openFile(title, filter, folder);
    }
    QString askedTitle, askedFilter, askedFolder;
};

} // namespace

class DialogsTest : public QObject {
    Q_OBJECT
private slots:
    void browseAsksForProjectsOrAnyFile_data();
    void browseAsksForProjectsOrAnyFile();
    void browseGivesTheChosenFileOrNothing();
    void choosePrinterSetsTheChosenOrientation_data();
    void choosePrinterSetsTheChosenOrientation();
    void cancelledPrintDialogAnswersFalse();
};

void DialogsTest::browseAsksForProjectsOrAnyFile_data() {
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("filter");
    const QString project = QStringLiteral("Project File(*.MDB)|*.MDB|All Files|*.*");
    QTest::newRow("mdb") << "mdb"
                         << "Please select a Project" << project;
    QTest::newRow("MDB") << "MDB"
                         << "Please select a Project" << project;
    QTest::newRow("Mdb") << "Mdb"
                         << "Please select a Project" << project;
    QTest::newRow("xls") << "xls"
                         << "Please select a file"
                         << "All Files|*.*";
    QTest::newRow("none") << ""
                          << "Please select a file"
                          << "All Files|*.*";
}

void DialogsTest::browseAsksForProjectsOrAnyFile() {
    QFETCH(QString, extension);
    QFETCH(QString, title);
    QFETCH(QString, filter);
    AskedDialogs dialogs;
    BrowseForFile(dialogs, extension, QStringLiteral("/projects"));
    QCOMPARE(dialogs.askedTitle, title);
    QCOMPARE(dialogs.askedFilter, filter);
    QCOMPARE(dialogs.askedFolder, QStringLiteral("/projects"));
}

void DialogsTest::browseGivesTheChosenFileOrNothing() {
    AskedDialogs dialogs;
    dialogs.files.push_back(QStringLiteral("/projects/Jan2012.mdb"));
    QCOMPARE(BrowseForFile(dialogs, QStringLiteral("mdb")), QStringLiteral("/projects/Jan2012.mdb"));
    QCOMPARE(BrowseForFile(dialogs, QStringLiteral("mdb")), QString()); // cancelled
}

void DialogsTest::choosePrinterSetsTheChosenOrientation_data() {
    QTest::addColumn<int>("chosen");
    QTest::addColumn<int>("expected");
    QTest::newRow("landscape") << int(QPageLayout::Landscape) << int(QPageLayout::Landscape);
    QTest::newRow("portrait") << int(QPageLayout::Portrait) << int(QPageLayout::Portrait);
}

void DialogsTest::choosePrinterSetsTheChosenOrientation() {
    QFETCH(int, chosen);
    QFETCH(int, expected);
    QPrinter printer;
    printer.setPageOrientation(chosen == int(QPageLayout::Landscape) ? QPageLayout::Portrait
                                                                     : QPageLayout::Landscape);
    bool pageRangeOffered = true;
    const bool ok = ChoosePrinter(printer, nullptr, [&](QPrintDialog& dialog) {
        pageRangeOffered = dialog.testOption(QAbstractPrintDialog::PrintPageRange);
        dialog.printer()->setPageOrientation(QPageLayout::Orientation(chosen));
        return true;
    });
    QVERIFY(ok);
    QVERIFY(!pageRangeOffered);
    QCOMPARE(int(printer.pageLayout().orientation()), expected);
}

void DialogsTest::cancelledPrintDialogAnswersFalse() {
    QPrinter printer;
    QVERIFY(!ChoosePrinter(printer, nullptr, [](QPrintDialog&) { return false; }));
}

VANTREL_TEST(DialogsTest);
#include "tst_dialogs.moc"
