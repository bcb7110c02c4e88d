#include "DemoSite.h"
#include "TestRegistry.h"
#include "app/ErrorLog.h"
#include "app/HelpTopics.h"
#include "data/ucProjectSelector.h"
#include "trend/frmTrendManagement.h"
#include "ui/HelpWindow.h"
#include "ui/ListViewHelpers.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QApplication>
#include <QDate>
#include <QEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace {

QPushButton* button(const frmTrendManagement& form, const char* name) {
    return form.findChild<QPushButton*>(QLatin1String(name));
}

bool actionsEnabled(const frmTrendManagement& form) {
    const bool create = button(form, "cmdCreate")->isEnabled();
    const bool remove = button(form, "cmdDelete")->isEnabled();
    const bool removeAll = button(form, "cmdDeleteAll")->isEnabled();
    if (create != remove || create != removeAll)
        qWarning("the three actions disagree");
    return create && remove && removeAll;
}

QStringList rowTexts(const QTreeWidgetItem* item) {
    QStringList out;
    for (int c = 0; c < item->columnCount(); ++c)
        out << item->text(c);
    return out;
}

QList<QStringList> rows(const frmTrendManagement& form) {
    QList<QStringList> out;
    for (int i = 0; i < form.trendList()->topLevelItemCount(); ++i)
        out << rowTexts(form.trendList()->topLevelItem(i));
    return out;
}

// The list line a bill should give, worked out from its charge lines: its date from the
// header, the pre-tax total, then usage (class 1), recurring (3), one-off (2), adjustments (4).
QStringList expectedLine(const QString& bill) {
    Database db = Database::open(bill, Database::Mode::ReadOnly);
    Statement header(db, QStringLiteral("SELECT CreateDate FROM Tbl50"));
    header.step();
    const QString sum = QStringLiteral("SELECT coalesce(sum(PreTaxCost), 0) FROM Tbl307");
    const QString ofClass = sum + QStringLiteral(" WHERE EventClass = ?");
    return {header.text(0),
            listAmount(queryInt(db, sum)),
            listAmount(queryInt(db, ofClass, 1)),
            listAmount(queryInt(db, ofClass, 3)),
            listAmount(queryInt(db, ofClass, 2)),
            listAmount(queryInt(db, ofClass, 4))};
}

void selectRow(frmTrendManagement& form, int row) {
    QTreeWidget* list = form.trendList();
    const QRect rect = list->visualItemRect(list->topLevelItem(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
}

QString spokenDate(const QString& ddmmyyyy) {
    return QLocale::c().toString(QDate::fromString(ddmmyyyy, QStringLiteral("dd/MM/yyyy")),
                                 QStringLiteral("dd MMM yyyy"));
}

const QString Created = QStringLiteral("Created Trend Information");

} // namespace

class TrendManagementTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void captionsAndHints_data();
    void captionsAndHints();
    void formParts();
    void noProjectLeavesTheActionsDisabled();
    void projectOfAnotherSourceLeavesThemDisabled();
    void createListsTheBillWithItsSums();
    void createdBillsComeInDateOrder();
    void cancelledFileDialogDoesNothing();
    void fileThatIsNoProjectGivesNothing();
    void billOfAnotherSourceIsGatheredQuietly();
    void cancelledGatheringLeavesTheListAsItWas();
    void failureIsLoggedAndReported();
    void deleteAsksAboutTheClickedEntry_data();
    void deleteAsksAboutTheClickedEntry();
    void deleteNeedsAClickedEntry();
    void deleteAllRemovesTheAccountsEntries_data();
    void deleteAllRemovesTheAccountsEntries();
    void headerClickSortsByTrueDate();
    void helpOpensTheTopic();
    void backClosesTheForm();
};

void TrendManagementTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->inherits("HelpWindow"))
            w->close();
}

void TrendManagementTest::captionsAndHints_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("hint");
    QTest::newRow("create") << "cmdCreate"
                            << "Create From Project"
                            << "Create from project";
    QTest::newRow("delete") << "cmdDelete"
                            << "Delete Trend Entry"
                            << "Delete the selected entry";
    QTest::newRow("delete all") << "cmdDeleteAll"
                                << "Delete All Trends"
                                << "Delete all trends entries";
    QTest::newRow("back") << "cmdExit"
                          << "Back"
                          << "Return to main menu";
    QTest::newRow("help") << "cmdHelp"
                          << "Help"
                          << "Show Help";
}

void TrendManagementTest::captionsAndHints() {
    QFETCH(QString, name);
    QFETCH(QString, caption);
    QFETCH(QString, hint);
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    auto* control = form.findChild<QPushButton*>(name);
    QVERIFY(control);
    QCOMPARE(control->text(), caption);
    QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
    QApplication::sendEvent(control, &enter);
    QCOMPARE(form.hintLabel()->text(), hint);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(control, &leave);
    QCOMPARE(form.hintLabel()->text(), QStringLiteral("Help"));
}

void TrendManagementTest::formParts() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    QCOMPARE(form.header()->Title(), QStringLiteral("Vantrel"));
    QCOMPARE(form.footer()->ExitButtonText(), QStringLiteral("Back"));
    QVERIFY(!form.windowIcon().isNull());
    QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblProject"))->text(),
             QStringLiteral("Selected Project"));
    QCOMPARE(form.findChild<QLabel*>(QStringLiteral("lblNotes"))->text(),
             QStringLiteral("Click on a column header to sort."));
    QTreeWidget* list = form.trendList();
    QStringList headings;
    for (int c = 0; c < list->columnCount(); ++c)
        headings << list->headerItem()->text(c);
    QCOMPARE(headings,
             (QStringList{"Bill Date", "Total Bill Cost (£)", "Total Usage Costs (£)",
                          "Total Recurring Costs (£)", "Total One Off Costs (£)", "Total Adjustments (£)"}));
    QCOMPARE(listColumnTag(list, 0), QStringLiteral("d"));
    for (int c = 1; c < 6; ++c)
        QCOMPARE(listColumnTag(list, c), QStringLiteral("n"));
}

void TrendManagementTest::noProjectLeavesTheActionsDisabled() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    QCOMPARE(form.trendList()->topLevelItemCount(), 0);
    QVERIFY(!actionsEnabled(form));
    QCOMPARE(form.projectSelector()->textBox()->text(), QStringLiteral("Please select a project"));
}

void TrendManagementTest::projectOfAnotherSourceLeavesThemDisabled() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    QVERIFY(form.projectSelector()->SelectProject(site.bills(0).first()));
    QVERIFY(actionsEnabled(form));
    QVERIFY(form.projectSelector()->SelectProject(site.otherSourceBill()));
    QVERIFY(!actionsEnabled(form));
}

void TrendManagementTest::createListsTheBillWithItsSums() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    const QString bill = site.bills(0).first();
    site.dialogs.files.push_back(bill);

    form.cmdCreate_Click();

    // The project browse of the program: its own title and filter.
    QCOMPARE(site.dialogs.asked.size(), size_t(1));
    QCOMPARE(site.dialogs.asked[0].title, QStringLiteral("Please select a Project"));
    QCOMPARE(site.dialogs.asked[0].filter, QStringLiteral("Project File(*.MDB)|*.MDB|All Files|*.*"));
    QCOMPARE(site.dialogs.texts(), QStringList(Created));
    QCOMPARE(rows(form), QList<QStringList>{expectedLine(bill)});
    // The gathered bill is now the selected project.
    QCOMPARE(site.ctx.projectPath, bill);
    QCOMPARE(form.projectSelector()->textBox()->text(), QFileInfo(bill).fileName());
    QVERIFY(actionsEnabled(form));
}

void TrendManagementTest::createdBillsComeInDateOrder() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    const QStringList bills = site.bills(0);
    // Newest first, to see the list put them in order.
    for (int i = int(bills.size()) - 1; i >= 0; --i) {
        site.dialogs.files.push_back(bills[i]);
        form.cmdCreate_Click();
    }
    QList<QStringList> expected;
    for (const QString& bill : bills)
        expected << expectedLine(bill);
    QCOMPARE(rows(form), expected);
    QCOMPARE(site.dialogs.texts(), QStringList(bills.size(), Created));
    // Creating a bill again replaces its entry.
    site.dialogs.files.push_back(bills[1]);
    form.cmdCreate_Click();
    QCOMPARE(rows(form), expected);
}

void TrendManagementTest::cancelledFileDialogDoesNothing() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.cmdCreate_Click();
    QCOMPARE(site.dialogs.asked.size(), size_t(1));
    QVERIFY(site.dialogs.messages.empty());
    QCOMPARE(site.ctx.projectPath, QString());
    QCOMPARE(site.trendRows(site.account(0)), 0);
}

void TrendManagementTest::fileThatIsNoProjectGivesNothing() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    site.dialogs.files.push_back(site.dir.write(QStringLiteral("notes.mdb"), QByteArray(4096, 'x')));
    form.cmdCreate_Click();
    QVERIFY(site.dialogs.messages.empty());
    QCOMPARE(site.ctx.projectPath, QString());
    QCOMPARE(queryInt(site.ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend")), 0);
}

void TrendManagementTest::billOfAnotherSourceIsGatheredQuietly() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    site.dialogs.files.push_back(site.otherSourceBill());
    form.cmdCreate_Click();
    // Gathered, but neither listed afresh by the create nor confirmed.
    QVERIFY(site.trendRows(site.account(0)) > 0);
    QCOMPARE(site.dialogs.texts(),
             QStringList(QStringLiteral("Please select a valid Velora project to enable Trend Reports")));
    QVERIFY(!actionsEnabled(form));
}

void TrendManagementTest::cancelledGatheringLeavesTheListAsItWas() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    const QString first = site.bills(0).first();
    site.dialogs.files.push_back(first);
    form.cmdCreate_Click();
    const QList<QStringList> before = rows(form);
    const qint64 rowsBefore = site.trendRows(site.account(0));

    // A bill long enough to report its progress, which the user cancels.
    const QString big = QDir(site.demo.projectFolder).filePath(QStringLiteral("big.mdb"));
    writeDemoProject(big, site.account(0), Date(2024, 3, 5), 20000, 7);
    site.dialogs.files.push_back(big);
    bool cancelled = false;
    QTimer::singleShot(0, &form, [&] {
        if (auto* progress = form.findChild<QProgressDialog*>()) {
            progress->cancel();
            cancelled = true;
        }
    });
    form.cmdCreate_Click();

    QVERIFY(cancelled);
    QCOMPARE(rows(form), before);
    QCOMPARE(site.trendRows(site.account(0)), rowsBefore);
    QCOMPARE(site.ctx.projectPath, first);
    QCOMPARE(site.dialogs.texts(), QStringList(Created));
    QVERIFY(!form.findChild<QProgressDialog*>());
}

void TrendManagementTest::failureIsLoggedAndReported() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    const QString bill = site.bills(0).first();
    site.dialogs.files.push_back(bill);
    site.ctx.trendDb.close();
    form.cmdCreate_Click();
    QCOMPARE(site.dialogs.texts().last(), QStringLiteral("Error creating Trend Information"));
    QFile log(errorLogPath(*site.ctx.paths));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(log.readAll())
                .contains(QStringLiteral("frmTrendManagement_cmdCreate(") + bill + ')'));
}

void TrendManagementTest::deleteAsksAboutTheClickedEntry_data() {
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TrendManagementTest::deleteAsksAboutTheClickedEntry() {
    QFETCH(bool, yes);
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    const QStringList bills = site.bills(0);
    for (const QString& bill : bills) {
        site.dialogs.files.push_back(bill);
        form.cmdCreate_Click();
    }
    const QList<QStringList> before = rows(form);
    QCOMPARE(before.size(), bills.size());
    site.dialogs.messages.clear();

    selectRow(form, 1);
    site.dialogs.answers.push_back(yes ? Answer::Yes : Answer::No);
    QTest::mouseClick(button(form, "cmdDelete"), Qt::LeftButton);

    const QString date = before[1][0];
    QCOMPARE(site.dialogs.texts(),
             QStringList(QStringLiteral("Are you sure you want to delete the trend entry ") +
                         spokenDate(date) + '?'));
    QList<QStringList> expected = before;
    if (yes)
        expected.removeAt(1);
    QCOMPARE(rows(form), expected);
    QCOMPARE(
        queryInt(site.ctx.trendDb,
                 QStringLiteral("SELECT count(DISTINCT BillDate) FROM tblSummaryTrend WHERE BillAccount = ?"),
                 site.account(0)),
        qint64(expected.size()));
}

void TrendManagementTest::deleteNeedsAClickedEntry() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    site.dialogs.files.push_back(site.bills(0).first());
    form.cmdCreate_Click();
    site.dialogs.messages.clear();

    form.cmdDelete_Click();
    QCOMPARE(site.dialogs.texts(), QStringList(QStringLiteral("Please select a trend entry.")));

    // A click is forgotten when the list is filled again.
    selectRow(form, 0);
    QVERIFY(form.selectedBillDate().isValid());
    form.FillTrendList();
    QVERIFY(!form.selectedBillDate().isValid());
    form.cmdDelete_Click();
    QCOMPARE(site.dialogs.texts().size(), 2);
    QCOMPARE(form.trendList()->topLevelItemCount(), 1);
}

void TrendManagementTest::deleteAllRemovesTheAccountsEntries_data() {
    QTest::addColumn<bool>("yes");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TrendManagementTest::deleteAllRemovesTheAccountsEntries() {
    QFETCH(bool, yes);
    DemoSite site;
    frmTrendManagement form(site.ctx);
    // A bill of the other account, which must survive.
    site.dialogs.files.push_back(site.bills(1).first());
    form.cmdCreate_Click();
    for (const QString& bill : site.bills(0)) {
        site.dialogs.files.push_back(bill);
        form.cmdCreate_Click();
    }
    const qint64 others = site.trendRows(site.account(1));
    QVERIFY(others > 0);
    const QList<QStringList> before = rows(form);
    site.dialogs.messages.clear();

    site.dialogs.answers.push_back(yes ? Answer::Yes : Answer::No);
    form.cmdDeleteAll_Click();

    QCOMPARE(site.dialogs.texts(),
             QStringList(QStringLiteral(
                 "Are you sure you want to delete ALL the trend entries for the selected project?")));
    QCOMPARE(form.trendList()->topLevelItemCount(), yes ? 0 : int(before.size()));
    QCOMPARE(site.trendRows(site.account(0)) == 0, yes);
    QCOMPARE(site.trendRows(site.account(1)), others);
}

void TrendManagementTest::headerClickSortsByTrueDate() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    // As text "12/01/2024" sorts after "05/03/2025"; as dates it comes first.
    const QString early = QDir(site.demo.projectFolder).filePath(QStringLiteral("early.mdb"));
    const QString late = QDir(site.demo.projectFolder).filePath(QStringLiteral("late.mdb"));
    writeDemoProject(early, QStringLiteral("SORT1"), Date(2024, 1, 12), 60, 3);
    writeDemoProject(late, QStringLiteral("SORT1"), Date(2025, 3, 5), 60, 4);
    site.dialogs.files = {late, early};
    form.cmdCreate_Click();
    form.cmdCreate_Click();
    auto dates = [&] {
        QStringList out;
        for (const QStringList& row : rows(form))
            out << row[0];
        return out;
    };
    QCOMPARE(dates(), (QStringList{"12/01/2024", "05/03/2025"}));

    QHeaderView* header = form.trendList()->header();
    const QPoint dateHeading(header->sectionViewportPosition(0) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, dateHeading);
    QCOMPARE(dates(), (QStringList{"12/01/2024", "05/03/2025"}));
    // A second click on the same heading turns the order round.
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, dateHeading);
    QCOMPARE(dates(), (QStringList{"05/03/2025", "12/01/2024"}));
    // A refill keeps the order the user chose.
    form.FillTrendList();
    QCOMPARE(dates(), (QStringList{"05/03/2025", "12/01/2024"}));
}

void TrendManagementTest::helpOpensTheTopic() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    QTest::mouseClick(button(form, "cmdHelp"), Qt::LeftButton);
    HelpWindow* help = nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* h = qobject_cast<HelpWindow*>(w); h && h->isVisible())
            help = h;
    QVERIFY(help);
    QCOMPARE(help->topic(), HelpTopic::TrendManagement);
    QVERIFY(help->pageFound());
}

void TrendManagementTest::backClosesTheForm() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    form.projectSelector()->cmdBrowse_Click();
    QTest::mouseClick(button(form, "cmdExit"), Qt::LeftButton);
    QVERIFY(!form.isVisible());
    QVERIFY(!form.projectSelector()->isDroppedDown());
    QCOMPARE(form.result(), int(QDialog::Accepted));
}

VANTREL_TEST(TrendManagementTest);
#include "tst_trendmanagement.moc"
