#include "DemoSite.h"
#include "TestRegistry.h"
#include "data/ProjectSelection.h"
#include "data/ucProjectSelector.h"

#include <QApplication>
#include <QDir>
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
    explicit Window(AppContext& ctx, int width = 640) {
        auto* layout = new QVBoxLayout(&host);
        selector = new ucProjectSelector(ctx, &host);
        layout->addWidget(selector);
        layout->addStretch(1);
        host.resize(width, 420);
        host.show();
    }
    QStringList lines() const {
        QStringList out;
        for (int i = 0; i < selector->projectList()->count(); ++i)
            out << selector->projectList()->item(i)->text();
        return out;
    }
    void click(int line) {
        QListWidget* list = selector->projectList();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(line)).center());
    }
    QWidget host;
    ucProjectSelector* selector;
};

QString nameOf(const QString& path) {
    return QFileInfo(path).fileName();
}

} // namespace

class ProjectSelectorTest : public QObject {
    Q_OBJECT
private slots:
    void startsEmptyWithOnlyTheFileLine();
    void buttonDropsAndRaisesTheList();
    void cancelClosesOnlyAnOpenList();
    void moreProjectsAsksForAFile();
    void cancelledFileDialogChangesNothing();
    void recentProjectsNewestFirstAndTenAtMost();
    void recentLineSelectsItsProject();
    void vanishedProjectKeepsTheSelection();
    void refusedRegionIsNotSelected();
    void importLettersDecideTrendWork_data();
    void importLettersDecideTrendWork();
    void ac01AccountTakesTheShortAccountsCostCentres();
    void reselectingRaisesTheEventAgain();
    void instancesShareTheSelection();
    void longPathsAreShortenedToTheList();
    void focusMovesFromTheBoxToTheButton();
};

void ProjectSelectorTest::startsEmptyWithOnlyTheFileLine() {
    DemoSite site;
    Window w(site.ctx);
    QCOMPARE(w.selector->textBox()->text(), QStringLiteral("Please select a project"));
    QVERIFY(w.selector->textBox()->isReadOnly());
    QCOMPARE(w.selector->browseButton()->text(), QStringLiteral("Select"));
    QVERIFY(!w.selector->projectList()->isVisible());
    // No recent-projects file yet.
    QVERIFY(!QFile::exists(site.ctx.paths->AppFolder + QStringLiteral("/CallHistory.csv")));
    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    QCOMPARE(w.lines(), QStringList(QStringLiteral("More projects....")));
}

void ProjectSelectorTest::buttonDropsAndRaisesTheList() {
    DemoSite site;
    Window w(site.ctx);
    QSignalSpy drops(w.selector, &ucProjectSelector::DropDownChanged);
    QListWidget* list = w.selector->projectList();

    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    QVERIFY(list->isVisible());
    QCOMPARE(w.selector->browseButton()->text(), QStringLiteral("Cancel"));
    // It hangs below the box, over the window's other controls, eleven lines high.
    QCOMPARE(list->parentWidget(), &w.host);
    QVERIFY(list->geometry().top() >= w.selector->geometry().bottom());
    const int line = list->visualItemRect(list->item(0)).height();
    QVERIFY2(list->height() >= 11 * line && list->height() < 12 * line,
             qPrintable(QStringLiteral("%1 high for lines of %2").arg(list->height()).arg(line)));

    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    QVERIFY(!list->isVisible());
    QCOMPARE(w.selector->browseButton()->text(), QStringLiteral("Select"));
    QCOMPARE(drops.count(), 2);
    QCOMPARE(drops.at(0).at(0).toBool(), false);
    QCOMPARE(drops.at(1).at(0).toBool(), true);
}

void ProjectSelectorTest::cancelClosesOnlyAnOpenList() {
    DemoSite site;
    Window w(site.ctx);
    QSignalSpy drops(w.selector, &ucProjectSelector::DropDownChanged);
    w.selector->Cancel();
    QCOMPARE(drops.count(), 0);
    w.selector->cmdBrowse_Click();
    w.selector->Cancel();
    QVERIFY(!w.selector->isDroppedDown());
    QCOMPARE(w.selector->browseButton()->text(), QStringLiteral("Select"));
    QCOMPARE(drops.count(), 2);
    QCOMPARE(drops.last().at(0).toBool(), true);
}

void ProjectSelectorTest::moreProjectsAsksForAFile() {
    DemoSite site;
    Window w(site.ctx);
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);
    const QString bill = site.bills(0).first();
    site.dialogs.files.push_back(bill);

    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    w.click(0);

    QCOMPARE(site.dialogs.asked.size(), size_t(1));
    QCOMPARE(site.dialogs.asked[0].title, QStringLiteral("Select a project"));
    QCOMPARE(site.dialogs.asked[0].filter, QStringLiteral("Project file (*.mdb)|*.mdb"));
    QCOMPARE(site.dialogs.asked[0].folder, site.demo.projectFolder);
    QCOMPARE(site.ctx.projectPath, bill);
    QVERIFY(site.ctx.trendEnabled);
    QCOMPARE(w.selector->textBox()->text(), nameOf(bill));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), bill);
    QVERIFY(!w.selector->isDroppedDown());
    QCOMPARE(w.selector->browseButton()->text(), QStringLiteral("Select"));
    QVERIFY(site.dialogs.messages.empty());
}

void ProjectSelectorTest::cancelledFileDialogChangesNothing() {
    DemoSite site;
    Window w(site.ctx);
    const QString bill = site.bills(0).first();
    QVERIFY(w.selector->SelectProject(bill));
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);

    w.selector->cmdBrowse_Click();
    w.click(0); // the recorder has no file: the dialog is cancelled

    QCOMPARE(site.dialogs.asked.size(), size_t(1));
    QCOMPARE(site.ctx.projectPath, bill);
    QCOMPARE(w.selector->textBox()->text(), nameOf(bill));
    QCOMPARE(changes.count(), 0);
    QVERIFY(site.dialogs.messages.empty());
    QVERIFY(!w.selector->isDroppedDown());
    QCOMPARE(w.selector->browseButton()->text(), QStringLiteral("Select"));
}

void ProjectSelectorTest::recentProjectsNewestFirstAndTenAtMost() {
    DemoSite site;
    Window w(site.ctx);
    const QString bill = site.bills(0).first();
    QStringList picked;
    for (int i = 1; i <= 11; ++i) {
        picked << site.copyOf(bill, QStringLiteral("pick%1.mdb").arg(i, 2, 10, QLatin1Char('0')));
        site.dialogs.files.push_back(picked.last());
        w.selector->cmdBrowse_Click();
        w.selector->lstProjects_Click(0);
        QCOMPARE(site.ctx.projectPath, picked.last());
    }
    // Newest first; the first pick fell off when the eleventh came.
    QStringList expected;
    for (int i = 11; i >= 2; --i)
        expected << picked[i - 1];
    QCOMPARE(site.recentProjects(), expected);

    w.selector->cmdBrowse_Click();
    QCOMPARE(w.lines().size(), 11);
    QCOMPARE(w.lines().first(), QStringLiteral("More projects...."));
    QCOMPARE(w.selector->history(), expected);

    // Picking an older one again moves it to the top, with no double.
    w.selector->lstProjects_Click(5); // pick07
    QCOMPARE(site.ctx.projectPath, picked[6]);
    expected.removeAll(picked[6]);
    expected.prepend(picked[6]);
    QCOMPARE(site.recentProjects(), expected);
}

void ProjectSelectorTest::recentLineSelectsItsProject() {
    DemoSite site;
    Window w(site.ctx);
    const QStringList bills = site.bills(0);
    QVERIFY(w.selector->SelectProject(bills[0]));
    QVERIFY(w.selector->SelectProject(bills[1]));
    QSignalSpy drops(w.selector, &ucProjectSelector::DropDownChanged);

    QTest::mouseClick(w.selector->browseButton(), Qt::LeftButton);
    QCOMPARE(w.lines().mid(1), (QStringList{bills[1], bills[0]}));
    w.click(2);
    QCOMPARE(site.ctx.projectPath, bills[0]);
    QCOMPARE(w.selector->textBox()->text(), nameOf(bills[0]));
    QVERIFY(!w.selector->isDroppedDown());
    QCOMPARE(drops.count(), 2);
    QCOMPARE(site.recentProjects(), (QStringList{bills[0], bills[1]}));
}

void ProjectSelectorTest::vanishedProjectKeepsTheSelection() {
    DemoSite site;
    Window w(site.ctx);
    const QString bill = site.bills(0).first();
    const QString gone = site.copyOf(bill, QStringLiteral("gone.mdb"));
    QVERIFY(w.selector->SelectProject(gone));
    QVERIFY(w.selector->SelectProject(bill));
    QVERIFY(QFile::remove(gone));
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);

    w.selector->cmdBrowse_Click();
    w.selector->lstProjects_Click(2);

    QCOMPARE(site.dialogs.texts(), QStringList(QStringLiteral("Project does not exist. Please try again.")));
    QCOMPARE(site.ctx.projectPath, bill);
    QCOMPARE(w.selector->textBox()->text(), nameOf(bill));
    QCOMPARE(changes.count(), 0);
    // The list stays down for another choice.
    QVERIFY(w.selector->isDroppedDown());
}

void ProjectSelectorTest::refusedRegionIsNotSelected() {
    DemoSite site;
    Window w(site.ctx);
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);
    QVERIFY(!w.selector->SelectProject(site.refusedRegionBill()));
    QCOMPARE(
        site.dialogs.texts(),
        QStringList(QStringLiteral("The selected project file is not valid for use with this application")));
    QCOMPARE(site.dialogs.messages.front().icon, MessageIcon::Information);
    QCOMPARE(site.ctx.projectPath, QString());
    QVERIFY(!site.ctx.projectDb.isOpen());
    QCOMPARE(w.selector->textBox()->text(), QStringLiteral("Please select a project"));
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toString(), QString());
    QVERIFY(site.recentProjects().isEmpty());
}

void ProjectSelectorTest::importLettersDecideTrendWork_data() {
    QTest::addColumn<QString>("imports");
    QTest::addColumn<int>("callRows");
    QTest::addColumn<bool>("trends");
    QTest::newRow("O with call data") << "O" << 3 << true;
    QTest::newRow("O without call data") << "O" << 0 << false;
    // Only a capital O is held to the call data.
    QTest::newRow("o without call data") << "o" << 0 << true;
    QTest::newRow("o with call data") << "o" << 3 << true;
    QTest::newRow("another source") << "A" << 3 << false;
}

void ProjectSelectorTest::importLettersDecideTrendWork() {
    QFETCH(QString, imports);
    QFETCH(int, callRows);
    QFETCH(bool, trends);
    DemoSite site;
    Window w(site.ctx);
    const QString bill = site.copyOf(site.bills(0).first(), QStringLiteral("letters.mdb"), imports, callRows);
    QVERIFY(w.selector->SelectProject(bill));
    QCOMPARE(site.ctx.trendEnabled, trends);
    QCOMPARE(
        site.dialogs.texts(),
        trends ? QStringList()
               : QStringList(QStringLiteral("Please select a valid Velora project to enable Trend Reports")));
    // Selected either way: a bill of another source still serves budgets.
    QCOMPARE(site.ctx.projectPath, bill);
    QCOMPARE(w.selector->textBox()->text(), QStringLiteral("letters.mdb"));
    QCOMPARE(site.recentProjects(), QStringList(bill));
}

void ProjectSelectorTest::ac01AccountTakesTheShortAccountsCostCentres() {
    DemoSite site;
    Window w(site.ctx);
    const QString account = site.account(1);
    QVERIFY(account.endsWith(QStringLiteral("AC01")));
    QVERIFY(w.selector->SelectProject(site.bills(1).last()));
    QCOMPARE(site.ctx.billAccount, account);

    // The central store keeps the account's cost centres under the account without its "01".
    const QString shortAccount = account.left(account.size() - 2);
    const qint64 central =
        queryInt(site.ctx.costCentreDb, QStringLiteral("SELECT count(*) FROM TblCC WHERE VeloraAccount = ?"),
                 shortAccount);
    QVERIFY(central > 0);
    QCOMPARE(queryInt(site.ctx.projectDb, QStringLiteral("SELECT count(*) FROM TblCC")), central);
    QCOMPARE(queryInt(site.ctx.projectDb,
                      QStringLiteral("SELECT count(*) FROM TblCC WHERE VeloraAccount = ?"), account),
             central);
}

void ProjectSelectorTest::reselectingRaisesTheEventAgain() {
    DemoSite site;
    Window w(site.ctx);
    const QString bill = site.bills(0).first();
    QVERIFY(w.selector->SelectProject(bill));
    QSignalSpy changes(w.selector, &ucProjectSelector::ProjectChanged);
    sqlite3* before = site.ctx.projectDb.handle();

    QVERIFY(w.selector->SelectProject(bill));
    w.selector->Refresh();

    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes.at(0).at(0).toString(), bill);
    QCOMPARE(changes.at(1).at(0).toString(), bill);
    // Nothing was closed or opened again.
    QCOMPARE(site.ctx.projectDb.handle(), before);
    QVERIFY(site.dialogs.messages.empty());
}

void ProjectSelectorTest::instancesShareTheSelection() {
    DemoSite site;
    Window first(site.ctx);
    Window second(site.ctx);
    const QString bill = site.bills(1).first();
    QVERIFY(first.selector->SelectProject(bill));
    QCOMPARE(second.selector->textBox()->text(), QStringLiteral("Please select a project"));
    QSignalSpy changes(second.selector, &ucProjectSelector::ProjectChanged);
    second.selector->Refresh();
    QCOMPARE(second.selector->textBox()->text(), nameOf(bill));
    QCOMPARE(changes.count(), 1);

    // Closing the selection on one shows on the other at its next refresh.
    QVERIFY(second.selector->SelectProject(QString()));
    QCOMPARE(site.ctx.projectPath, QString());
    first.selector->Refresh();
    QCOMPARE(first.selector->textBox()->text(), QStringLiteral("Please select a project"));
}

void ProjectSelectorTest::longPathsAreShortenedToTheList() {
    DemoSite site;
    Window w(site.ctx, 300);
    QString folder = site.dir.path(QStringLiteral("a-rather-long-folder-name"));
    for (int i = 0; i < 4; ++i)
        folder += QStringLiteral("/another-long-folder-level-%1").arg(i);
    QVERIFY(QDir().mkpath(folder));
    const QString deep = folder + QStringLiteral("/bill.mdb");
    QVERIFY(QFile::copy(site.bills(0).first(), deep));
    QVERIFY(w.selector->SelectProject(deep));

    w.selector->cmdBrowse_Click();
    const QString line = w.lines().value(1);
    QListWidget* list = w.selector->projectList();
    QVERIFY(line != deep);
    QVERIFY(line.startsWith(deep.left(3) + QStringLiteral("...")));
    QVERIFY(line.endsWith(QStringLiteral("/another-long-folder-level-3/bill.mdb")) ||
            line.endsWith(QStringLiteral("/bill.mdb")));
    QVERIFY(list->fontMetrics().horizontalAdvance(line + QStringLiteral("WW")) <= list->width());
    // The line still stands for the full path.
    w.selector->lstProjects_Click(1);
    QCOMPARE(site.ctx.projectPath, deep);
}

void ProjectSelectorTest::focusMovesFromTheBoxToTheButton() {
    DemoSite site;
    Window w(site.ctx);
    QApplication::setActiveWindow(&w.host);
    if (!QTest::qWaitForWindowActive(&w.host))
        QSKIP("the platform gives no window the focus");
    w.selector->textBox()->setFocus(Qt::MouseFocusReason);
    QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(w.selector->browseButton()));
}

VANTREL_TEST(ProjectSelectorTest);
#include "tst_projectselector.moc"
