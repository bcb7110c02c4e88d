#include "DemoSite.h"
#include "TestRegistry.h"
#include "data/ProjectHistory.h"
#include "data/ProjectSelection.h"
#include "data/ucProjectSelector.h"

#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

namespace {

// A window holding one selector near its top, with room below for the drop-down.
struct Window {
    explicit Window(DemoSite& site)
        : site(site) {
        auto* layout = new QVBoxLayout(&host);
        selector = new ucProjectSelector(site.ctx, &host);
        layout->addWidget(selector);
        layout->addStretch(1);
        host.resize(640, 420);
        host.show();
    }
    // Drops the list (unless it is down) and clicks a line of it.
    void click(int line) {
        if (!selector->isDroppedDown())
            QTest::mouseClick(selector->browseButton(), Qt::LeftButton);
        QListWidget* list = selector->projectList();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(line)).center());
    }
    QString shown() const { return selector->textBox()->text(); }
    QStringList recent() const { return LoadHistory(site.ctx.paths->AppFolder); }
    DemoSite& site;
    QWidget host;
    ucProjectSelector* selector;
};

} // namespace

class ProjectSelectorTest : public QObject {
    Q_OBJECT
private slots:
    void buttonDropsAndRaisesTheList();
    void recentProjectsAndMoreProjects();
    void headerDecidesSelectionAndTrendWork_data();
    void headerDecidesSelectionAndTrendWork();
    void instancesShareTheSelection();
};

void ProjectSelectorTest::buttonDropsAndRaisesTheList() {
    DemoSite site;
    Window w(site);
    QSignalSpy drops(w.selector, &ucProjectSelector::DropDownChanged);
    QListWidget* list = w.selector->projectList();
    w.selector->Cancel(); // a closed list stays as it is
    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    QVERIFY(list->isVisible());
    QCOMPARE(list->count(), 1); // no recent projects: only the line that asks for a file
    // It hangs below the box, over the window's other controls, eleven lines high.
    QCOMPARE(list->parentWidget(), &w.host);
    QVERIFY(list->geometry().top() >= w.selector->geometry().bottom());
    const int line = list->visualItemRect(list->item(0)).height();
    QVERIFY2(list->height() >= 11 * line && list->height() < 12 * line, qPrintable(QString::number(line)));
    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    QVERIFY(!list->isVisible());
    w.selector->cmdBrowse_Click();
    w.selector->Cancel();
    QVERIFY(!w.selector->isDroppedDown());
    QList<bool> closed;
    for (const QList<QVariant>& event : drops)
        closed << event.at(0).toBool();
    QCOMPARE(closed, (QList<bool>{false, true, false, true}));
}

void ProjectSelectorTest::recentProjectsAndMoreProjects() {
    DemoSite site;
    Window w(site);
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);
    w.click(0); // "More projects": the file dialog is cancelled
    QVERIFY(site.ctx.projectPath.isEmpty() && changes.isEmpty() && site.dialogs.messages.empty());
    QVERIFY(!w.selector->isDroppedDown());
    QStringList picked;
    for (int i = 1; i <= 11; ++i) {
        picked << site.copyOf(QStringLiteral("pick%1.mdb").arg(i, 2, 10, QLatin1Char('0')));
        site.dialogs.files.push_back(picked.last());
        w.click(0);
        QCOMPARE(site.ctx.projectPath, picked.last());
        QCOMPARE(changes.last().at(0).toString(), picked.last());
    }
    QCOMPARE(w.shown(), QStringLiteral("pick11.mdb"));
    QVERIFY(site.ctx.trendEnabled && site.dialogs.messages.empty());
    // Newest first; the first pick fell off when the eleventh came.
    QStringList expected(picked.rbegin(), picked.rend() - 1);
    QCOMPARE(w.recent(), expected);
    w.selector->cmdBrowse_Click();
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(w.selector->projectList()->item(i + 1)->text(), expected[i]);

    // Picking an older one again moves it to the top, with no double.
    w.click(5); // pick07
    QCOMPARE(site.ctx.projectPath, picked[6]);
    QCOMPARE(w.shown(), QStringLiteral("pick07.mdb"));
    QVERIFY(!w.selector->isDroppedDown());
    expected.move(4, 0);
    QCOMPARE(w.recent(), expected);

    // One that has gone since is refused and the list stays down for another choice.
    QVERIFY(QFile::remove(picked[10]));
    changes.clear();
    w.click(2);
    QCOMPARE(site.dialogs.texts(), QStringList(SelectionText::DoesNotExist));
    QCOMPARE(site.ctx.projectPath, picked[6]);
    QVERIFY(changes.isEmpty() && w.selector->isDroppedDown());
}

void ProjectSelectorTest::headerDecidesSelectionAndTrendWork_data() {
    QTest::addColumn<QString>("script");
    QTest::addColumn<bool>("selected");
    QTest::addColumn<bool>("trends");
    QTest::newRow("O with call data") << "" << true << true;
    QTest::newRow("O without call data") << "DELETE FROM Tbl997" << true << false;
    // Only a capital O is held to the call data.
    QTest::newRow("o without call data")
        << "UPDATE Tbl50 SET Imports = 'o'; DELETE FROM Tbl997" << true << true;
    // A bill of another source still serves budgets.
    QTest::newRow("another source") << "UPDATE Tbl50 SET Imports = 'A'" << true << false;
    // Refused: no "no trends" message on top of the refusal.
    QTest::newRow("refused region") << "UPDATE Tbl50 SET CRV = 'IRE'" << false << true;
}

void ProjectSelectorTest::headerDecidesSelectionAndTrendWork() {
    QFETCH(QString, script);
    QFETCH(bool, selected);
    QFETCH(bool, trends);
    DemoSite site;
    Window w(site);
    const QString bill = site.copyOf(QStringLiteral("header.mdb"), script);
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);
    QCOMPARE(w.selector->SelectProject(bill), selected);
    QStringList messages;
    if (!selected)
        messages << SelectionText::NotValid;
    if (!trends)
        messages << SelectionText::NoTrends;
    QCOMPARE(site.dialogs.texts(), messages);
    // With nothing selected there is nothing to gather.
    QCOMPARE(site.ctx.trendEnabled, selected && trends);
    const QString now = selected ? bill : QString();
    QCOMPARE(site.ctx.projectPath, now);
    QCOMPARE(site.ctx.projectDb.isOpen(), selected);
    QCOMPARE(w.recent(), selected ? QStringList(bill) : QStringList());
    QCOMPARE(w.shown(), selected ? QFileInfo(bill).fileName() : SelectionText::PleaseSelect);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), now);
}

void ProjectSelectorTest::instancesShareTheSelection() {
    DemoSite site;
    Window first(site), second(site);
    const QString bill = site.bills(1).first();
    QVERIFY(first.selector->SelectProject(bill));
    sqlite3* opened = site.ctx.projectDb.handle();
    QSignalSpy changes(second.selector, &ucProjectSelector::ProjectChanged);
    second.selector->Refresh();
    QCOMPARE(second.shown(), QFileInfo(bill).fileName());
    // Selecting it again raises the event again, and neither closes nor opens the project.
    QVERIFY(second.selector->SelectProject(bill));
    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes.at(1).at(0).toString(), bill);
    QCOMPARE(site.ctx.projectDb.handle(), opened);
    QVERIFY(site.dialogs.messages.empty());
    // Closing the selection on one shows on the other at its next refresh.
    QVERIFY(second.selector->SelectProject(QString()));
    QCOMPARE(site.ctx.projectPath, QString());
    first.selector->Refresh();
    QCOMPARE(first.shown(), SelectionText::PleaseSelect);
}

VANTREL_TEST(ProjectSelectorTest);
#include "tst_projectselector.moc"
