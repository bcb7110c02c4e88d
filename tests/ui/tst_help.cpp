#include "TempDir.h"
#include "TestRegistry.h"
#include "app/HelpTopics.h"
#include "app/cPathControl.h"
#include "ui/HelpWindow.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

namespace {

std::unique_ptr<cPathControl> pathsWithSystemFolder(const QString& folder) {
    testing::TempDir prog;
    auto paths = std::make_unique<cPathControl>(prog.path(), prog.path(), folder);
    paths->DataSystemFolder = folder;
    return paths;
}

} // namespace

class HelpTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void everyTopicHasAPageAndItsLinksResolve();
    void pagesAreFoundInTheSystemFolderFirst();
    void buildTreePagesServeWhenTheSystemFolderHasNone();
    void missingPageShowsAMessage();
    void oneHelpWindowForTheProgram();
};

void HelpTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void HelpTest::everyTopicHasAPageAndItsLinksResolve() {
    const QDir source(QStringLiteral(VANTREL_SOURCE_DIR "/share/help"));
    const QRegularExpression link(QStringLiteral("href=\"([^\"#:]+)\""));
    for (int topic : HelpTopic::All) {
        const QString page = source.filePath(QString::number(topic) + QStringLiteral(".html"));
        QVERIFY2(QFile::exists(page), qPrintable(page));
        QFile file(page);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());
        QVERIFY2(html.contains(QStringLiteral("<h1>")), qPrintable(page));
        for (auto it = link.globalMatch(html); it.hasNext();) {
            const QString target = it.next().captured(1);
            QVERIFY2(QFile::exists(source.filePath(target)),
                     qPrintable(page + QStringLiteral(" -> ") + target));
        }
    }
}

void HelpTest::pagesAreFoundInTheSystemFolderFirst() {
    testing::TempDir system;
    system.write(QStringLiteral("help/10006.html"), "<html><body><h1>Installed page</h1></body></html>");
    auto paths = pathsWithSystemFolder(system.path());
    QCOMPARE(helpPagePath(paths.get(), 10006),
             QDir(system.path(QStringLiteral("help"))).filePath("10006.html"));
    HelpWindow* help = ShowHelp(paths.get(), 10006);
    QVERIFY(help->pageFound());
    QVERIFY(help->browser()->toPlainText().contains(QStringLiteral("Installed page")));
}

void HelpTest::buildTreePagesServeWhenTheSystemFolderHasNone() {
    testing::TempDir system;
    auto paths = pathsWithSystemFolder(system.path());
    const QString page = helpPagePath(paths.get(), HelpTopic::BudgetForms);
    QVERIFY(!page.isEmpty());
    QVERIFY(page.startsWith(QDir::cleanPath(QStringLiteral(VANTREL_SYSTEM_DIR))));
    HelpWindow* help = ShowHelp(paths.get(), HelpTopic::BudgetForms);
    QVERIFY(help->browser()->toPlainText().contains(QStringLiteral("Master budgets")));
}

void HelpTest::missingPageShowsAMessage() {
    testing::TempDir system;
    auto paths = pathsWithSystemFolder(system.path());
    QVERIFY(helpPagePath(paths.get(), 99999).isEmpty());
    HelpWindow* help = ShowHelp(paths.get(), 99999);
    QVERIFY(help->isVisible());
    QVERIFY(!help->pageFound());
    const QString text = help->browser()->toPlainText();
    QVERIFY(text.contains(QStringLiteral("Help is not available")));
    QVERIFY(text.contains(QStringLiteral("99999")));
}

void HelpTest::oneHelpWindowForTheProgram() {
    testing::TempDir system;
    auto paths = pathsWithSystemFolder(system.path());
    HelpWindow* first = ShowHelp(paths.get(), HelpTopic::MainMenu);
    HelpWindow* second = ShowHelp(paths.get(), HelpTopic::TrendManagement);
    QCOMPARE(first, second);
    QCOMPARE(second->topic(), HelpTopic::TrendManagement);
    QVERIFY(!second->windowIcon().isNull());
}

VANTREL_TEST(HelpTest);
#include "tst_help.moc"
