#include "TempDir.h"
#include "TestRegistry.h"
#include "app/BrowseForFile.h"
#include "app/HelpTopics.h"
#include "app/cPathControl.h"
#include "ui/ChoosePrinter.h"
#include "ui/HelpWindow.h"

#include <QDir>
#include <QFile>
#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

// The file and print dialogs, and the help window.
class DialogsTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void browseOffersProjectsForAnyCaseOfMdb();
    void choosePrinterTakesTheOrientation();
    void everyTopicHasAPageAndItsLinksResolve();
    void helpPagesAreLookedForInOrder_data();
    void helpPagesAreLookedForInOrder();
};

void DialogsTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void DialogsTest::browseOffersProjectsForAnyCaseOfMdb() {
    for (const QString extension : {"mdb", "MDB", "Mdb", "xls", ""})
        QCOMPARE(browseSetupFor(extension).filter.contains(QStringLiteral("*.MDB")),
                 extension.toLower() == "mdb");
}

void DialogsTest::choosePrinterTakesTheOrientation() {
    for (auto chosen : {QPageLayout::Landscape, QPageLayout::Portrait}) {
        QPrinter printer;
        printer.setPageOrientation(chosen == QPageLayout::Landscape ? QPageLayout::Portrait
                                                                    : QPageLayout::Landscape);
        bool pageRangeOffered = true;
        QVERIFY(ChoosePrinter(printer, nullptr, [&](QPrintDialog& dialog) {
            pageRangeOffered = dialog.testOption(QAbstractPrintDialog::PrintPageRange);
            dialog.printer()->setPageOrientation(chosen);
            return true;
        }));
        QVERIFY(!pageRangeOffered);
        QCOMPARE(printer.pageLayout().orientation(), chosen);
    }
    QPrinter printer;
    QVERIFY(!ChoosePrinter(printer, nullptr, [](QPrintDialog&) { return false; }));
}

void DialogsTest::everyTopicHasAPageAndItsLinksResolve() {
    const QDir source(QStringLiteral(VANTREL_SOURCE_DIR "/share/help"));
    const QRegularExpression link(QStringLiteral("href=\"([^\"#:]+)\""));
    for (int topic : HelpTopic::All) {
        QFile file(source.filePath(QString::number(topic) + QStringLiteral(".html")));
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        const QString html = QString::fromUtf8(file.readAll());
        QVERIFY2(html.contains(QStringLiteral("<h1>")), qPrintable(file.fileName()));
        for (auto it = link.globalMatch(html); it.hasNext();) {
            const QString target = it.next().captured(1);
            QVERIFY2(QFile::exists(source.filePath(target)), qPrintable(file.fileName() + " -> " + target));
        }
    }
}

void DialogsTest::helpPagesAreLookedForInOrder_data() {
    QTest::addColumn<int>("topic");
    QTest::addColumn<bool>("found");
    QTest::addColumn<QString>("text");
    // The system folder holds a page of its own for 10006 only.
    QTest::newRow("system folder first") << 10006 << true << "Installed page";
    QTest::newRow("then the build tree") << HelpTopic::BudgetForms << true << "Master budgets";
    QTest::newRow("nowhere") << 99999 << false << "Help is not available";
}

void DialogsTest::helpPagesAreLookedForInOrder() {
    QFETCH(int, topic);
    QFETCH(bool, found);
    QFETCH(QString, text);
    testing::TempDir system;
    system.write(QStringLiteral("help/10006.html"), "<html><body><h1>Installed page</h1></body></html>");
    testing::TempDir prog;
    cPathControl paths(prog.path(), prog.path(), system.path());
    paths.DataSystemFolder = system.path();
    QCOMPARE(helpPagePath(&paths, topic).isEmpty(), !found);
    HelpWindow* help = ShowHelp(&paths, topic);
    QVERIFY(help->isVisible());
    QCOMPARE(help->pageFound(), found);
    QCOMPARE(help->topic(), topic);
    QVERIFY(help->browser()->toPlainText().contains(text));
    QVERIFY(found || help->browser()->toPlainText().contains(QString::number(topic)));
    // One help window for the whole program.
    QCOMPARE(ShowHelp(&paths, HelpTopic::MainMenu), help);
}

VANTREL_TEST(DialogsTest);
#include "tst_dialogs.moc"
