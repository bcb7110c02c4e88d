#include "DemoSite.h"
#include "TestRegistry.h"
#include "app/ErrorLog.h"
#include "app/frmMenu.h"
#include "app/gui/MenuForms.h"
#include "data/ucProjectSelector.h"
#include "trend/frmTrendManagement.h"

#include <QApplication>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QHeaderView>
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

// How many of Create, Delete and Delete All are enabled.
int actionsEnabled(const frmTrendManagement& form) {
    int n = 0;
    for (const char* name : {"cmdCreate", "cmdDelete", "cmdDeleteAll"})
        n += button(form, name)->isEnabled() ? 1 : 0;
    return n;
}

QList<QStringList> rows(const frmTrendManagement& form) {
    QList<QStringList> out;
    for (int i = 0; i < form.trendList()->topLevelItemCount(); ++i) {
        out << QStringList();
        for (int c = 0; c < form.trendList()->columnCount(); ++c)
            out.last() << form.trendList()->topLevelItem(i)->text(c);
    }
    return out;
}

// An amount in ten-thousandths of a pound as the list writes it: pound sign, thousands
// grouped, three decimals rounded half away from zero.
QString listAmount(qint64 tenThousandths) {
    const qint64 thousandths = (qAbs(tenThousandths) + 5) / 10;
    QString whole = QString::number(thousandths / 1000);
    for (int at = int(whole.size()) - 3; at > 0; at -= 3)
        whole.insert(at, QLatin1Char(','));
    const QString text = QStringLiteral("£%1.%2").arg(whole).arg(thousandths % 1000, 3, 10, QLatin1Char('0'));
    return tenThousandths < 0 && thousandths != 0 ? QLatin1Char('-') + text : text;
}

// The list line a bill should give, worked out from its own charge lines: its date, the
// pre-tax total, then usage (class 1), recurring (3), one-off (2), adjustments (4).
QStringList expectedLine(const QString& bill) {
    Database db = Database::open(bill, Database::Mode::ReadOnly);
    Statement header(db, QStringLiteral("SELECT CreateDate FROM Tbl50"));
    header.step();
    const QString sum = QStringLiteral("SELECT coalesce(sum(PreTaxCost), 0) FROM Tbl307");
    const QString ofClass = sum + QStringLiteral(" WHERE EventClass = ?");
    QStringList line{header.text(0), listAmount(queryInt(db, sum))};
    for (int eventClass : {1, 3, 2, 4})
        line << listAmount(queryInt(db, ofClass, eventClass));
    return line;
}

// Gathers the bills through the Create button, in the order given.
void create(DemoSite& site, frmTrendManagement& form, const QStringList& bills) {
    for (const QString& bill : bills) {
        site.dialogs.files.push_back(bill);
        form.cmdCreate_Click();
    }
}

const QString Created = QStringLiteral("Created Trend Information");

} // namespace

class TrendManagementTest : public QObject {
    Q_OBJECT
private slots:
    void createListsTheBillsWithTheirSums();
    void cancelledGatheringLeavesTheListAsItWas();
    void otherSourceAndFailure();
    void deleteAsksFirst_data();
    void deleteAsksFirst();
    void backClosesTheDropDownWithTheForm();
    void opensOverTheMenuAndSharesItsProject();
};

void TrendManagementTest::createListsTheBillsWithTheirSums() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    // Nothing to gather: the file dialog cancelled, then a file that is no project.
    create(site, form, {QString(), site.dir.write(QStringLiteral("notes.mdb"), QByteArray(4096, 'x'))});
    QVERIFY(site.dialogs.messages.empty() && site.ctx.projectPath.isEmpty());
    QCOMPARE(queryInt(site.ctx.trendDb, QStringLiteral("SELECT count(*) FROM tblSummaryTrend")), 0);
    QCOMPARE(actionsEnabled(form), 0);
    // As text "01/01/2026" sorts before the demo's 2025 dates; as a date it comes last.
    QStringList bills = site.bills(0);
    bills << QDir(site.demo.projectFolder).filePath(QStringLiteral("late.mdb"));
    writeDemoProject(bills[3], site.account(0), Date(2026, 1, 1), 60, 4);
    // Out of order, to see the list put them in order.
    create(site, form, {bills[2], bills[3], bills[1], bills[0]});
    QList<QStringList> expected;
    for (const QString& bill : bills)
        expected << expectedLine(bill);
    QCOMPARE(rows(form), expected);
    QCOMPARE(site.dialogs.texts(), QStringList(bills.size(), Created));
    // The bill gathered last is now the selected project.
    QCOMPARE(site.ctx.projectPath, bills[0]);
    QCOMPARE(form.projectSelector()->textBox()->text(), QFileInfo(bills[0]).fileName());
    QCOMPARE(actionsEnabled(form), 3);
    // A click on the date heading sorts ascending, a second turns it round by true date;
    // creating a bill again replaces its entry, and the refill keeps the order.
    QHeaderView* header = form.trendList()->header();
    for (int click = 0; click < 2; ++click)
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          QPoint(header->sectionViewportPosition(0) + 5, header->height() / 2));
    create(site, form, {bills[1]});
    std::reverse(expected.begin(), expected.end());
    QCOMPARE(rows(form), expected);
}

void TrendManagementTest::cancelledGatheringLeavesTheListAsItWas() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    const QString first = site.bills(0).first();
    create(site, form, {first});
    const QList<QStringList> before = rows(form);
    const qint64 rowsBefore = site.trendRows(site.account(0));

    // A bill long enough to report its progress, which the user cancels.
    const QString big = QDir(site.demo.projectFolder).filePath(QStringLiteral("big.mdb"));
    writeDemoProject(big, site.account(0), Date(2024, 3, 5), 20000, 7);
    bool cancelled = false;
    QTimer::singleShot(0, &form, [&] {
        if (auto* progress = form.findChild<QProgressDialog*>()) {
            progress->cancel();
            cancelled = true;
        }
    });
    create(site, form, {big});

    QVERIFY(cancelled);
    QCOMPARE(rows(form), before);
    QCOMPARE(site.trendRows(site.account(0)), rowsBefore);
    QCOMPARE(site.ctx.projectPath, first);
    QCOMPARE(site.dialogs.texts(), QStringList(Created));
    QVERIFY(!form.findChild<QProgressDialog*>());
}

void TrendManagementTest::otherSourceAndFailure() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    // A bill of another source is gathered, but neither listed by the create nor confirmed.
    create(site, form, {site.otherSource()});
    QVERIFY(site.trendRows(site.account(0)) > 0);
    QCOMPARE(site.dialogs.texts(),
             QStringList(QStringLiteral("Please select a valid Velora project to enable Trend Reports")));
    QCOMPARE(actionsEnabled(form), 0);
    // A failure is reported and logged with the bill.
    const QString bill = site.bills(0).first();
    site.ctx.trendDb.close();
    create(site, form, {bill});
    QCOMPARE(site.dialogs.texts().last(), QStringLiteral("Error creating Trend Information"));
    QFile log(errorLogPath(*site.ctx.paths));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(log.readAll()).contains("frmTrendManagement_cmdCreate(" + bill + ')'));
}

void TrendManagementTest::deleteAsksFirst_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("yes");
    QTest::newRow("the clicked entry, yes") << "clicked" << true;
    QTest::newRow("the clicked entry, no") << "clicked" << false;
    QTest::newRow("all, yes") << "all" << true;
    QTest::newRow("all, no") << "all" << false;
    QTest::newRow("nothing clicked") << "nothing" << true;
    // A click is forgotten when the list is filled again.
    QTest::newRow("clicked before a refill") << "refilled" << true;
}

void TrendManagementTest::deleteAsksFirst() {
    QFETCH(QString, what);
    QFETCH(bool, yes);
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    // A bill of the other account, which must survive.
    create(site, form, QStringList{site.bills(1).first()} + site.bills(0));
    const qint64 others = site.trendRows(site.account(1));
    QVERIFY(others > 0);
    QList<QStringList> expected = rows(form);
    QCOMPARE(expected.size(), 3);
    site.dialogs.messages.clear();
    site.dialogs.answers.push_back(yes ? Answer::Yes : Answer::No);

    QTreeWidget* list = form.trendList();
    if (what != "nothing")
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->topLevelItem(1)).center());
    if (what == "refilled")
        form.FillTrendList();
    QString question = QStringLiteral("Please select a trend entry.");
    if (what == "all") {
        form.cmdDeleteAll_Click();
        question =
            QStringLiteral("Are you sure you want to delete ALL the trend entries for the selected project?");
        if (yes)
            expected.clear();
    } else {
        QTest::mouseClick(button(form, "cmdDelete"), Qt::LeftButton);
        const QDate date = QDate::fromString(expected[1][0], QStringLiteral("dd/MM/yyyy"));
        if (what == "clicked")
            question = "Are you sure you want to delete the trend entry " +
                       QLocale::c().toString(date, QStringLiteral("dd MMM yyyy")) + '?';
        if (what == "clicked" && yes)
            expected.removeAt(1);
    }
    QCOMPARE(site.dialogs.texts(), QStringList(question));
    QCOMPARE(rows(form), expected);
    QCOMPARE(queryInt(site.ctx.trendDb,
                      "SELECT count(DISTINCT BillDate) FROM tblSummaryTrend WHERE BillAccount = ?",
                      site.account(0)),
             qint64(expected.size()));
    QCOMPARE(site.trendRows(site.account(1)), others);
}

void TrendManagementTest::backClosesTheDropDownWithTheForm() {
    DemoSite site;
    frmTrendManagement form(site.ctx);
    form.show();
    form.projectSelector()->cmdBrowse_Click();
    QTest::mouseClick(button(form, "cmdExit"), Qt::LeftButton);
    QVERIFY(!form.isVisible() && !form.projectSelector()->isDroppedDown());
    QCOMPARE(form.result(), int(QDialog::Accepted));
}

void TrendManagementTest::opensOverTheMenuAndSharesItsProject() {
    DemoSite site;
    frmMenu menu(site.ctx);
    connectMenuForms(menu, site.ctx);
    menu.show();
    auto* selector = menu.findChild<ucProjectSelector*>();
    QCOMPARE(selector->parentWidget(), menu.projectSelectorPlace());
    const QString bill = site.bills(0).first();
    const QString other = site.otherSource();
    QVERIFY(selector->SelectProject(bill)); // which enables the trend button
    selector->cmdBrowse_Click();

    QString shownProject;
    // Waits for the form: the menu yields to the event loop before it opens it.
    QTimer poll;
    poll.setInterval(10);
    connect(&poll, &QTimer::timeout, &menu, [&] {
        auto* form = qobject_cast<frmTrendManagement*>(QApplication::activeModalWidget());
        if (!form)
            return;
        poll.stop();
        shownProject = form->projectSelector()->textBox()->text();
        // A project chosen on the form is the menu's project too.
        site.dialogs.files.push_back(other);
        form->projectSelector()->cmdBrowse_Click();
        form->projectSelector()->lstProjects_Click(0);
        form->cmdExit_Click();
    });
    poll.start();
    QTest::mouseClick(menu.button(frmMenu::Opener::TrendManagement), Qt::LeftButton);

    QCOMPARE(shownProject, QFileInfo(bill).fileName());
    // The menu's drop-down was closed before the form came, and its box was refreshed after.
    QVERIFY(!selector->isDroppedDown());
    QCOMPARE(selector->textBox()->text(), QFileInfo(other).fileName());
    // A project of another source feeds no trends.
    QVERIFY(!menu.button(frmMenu::Opener::TrendManagement)->isEnabled());
    QVERIFY(!menu.findChild<QGroupBox*>(QStringLiteral("frameTrend"))->isEnabled());
}

VANTREL_TEST(TrendManagementTest);
#include "tst_trendmanagement.moc"
