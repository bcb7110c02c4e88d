// The budget reports against golden files: each file holds the report as the command line
// writes it, then a map of the marked cells, and was checked by hand against the figures
// laid out in BudgetFixture.cpp. VANTREL_WRITE_GOLDEN=1 rewrites them for review.
#include "BudgetFixture.h"
#include "Golden.h"
#include "TestRegistry.h"
#include "output/GridSort.h"
#include "output/ReportDetails.h"
#include "reports/BudgetReports.h"
#include "reports/ReportNavigation.h"

#include <QTest>

class BudgetReportsTest : public QObject {
    Q_OBJECT
private slots:
    void reportsMatchTheirGoldenFiles_data();
    void reportsMatchTheirGoldenFiles();
    void financialReportGrowsPastItsFirstHundredRowsAndDrillsDown();
};

void BudgetReportsTest::reportsMatchTheirGoldenFiles_data() {
    QTest::addColumn<QString>("file"); // a status number when the report is not shown
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("budget"); // "master", "whole", "finance", "sales", "exact", "lonely", ...
    QTest::addColumn<int>("view");
    QTest::addColumn<QList<int>>("clicks"); // heading clicks of the sort, or -1 to show the details
    QTest::newRow("periodic total of the master") << "periodic-master" << 6 << "master" << 5 << QList<int>{};
    QTest::newRow("its details shown") << "periodic-master-details" << 6 << "master" << 5 << QList<int>{-1};
    QTest::newRow("periodic usage of Finance")
        << "periodic-finance-usage" << 6 << "finance" << 1 << QList<int>{};
    // Exact: 1,100 live against 1,000 is +10.00 %, which is not above the mark.
    QTest::newRow("periodic usage of Exact") << "periodic-exact-usage" << 6 << "exact" << 1 << QList<int>{};
    QTest::newRow("periodic total of Sales") << "periodic-sales" << 6 << "sales" << 5 << QList<int>{};
    QTest::newRow("accumulative whole bill") << "accumulative-whole" << 7 << "whole" << 5 << QList<int>{};
    QTest::newRow("accumulative recurring")
        << "accumulative-whole-recurring" << 7 << "whole" << 2 << QList<int>{};
    QTest::newRow("top 10 through a child") << "top10" << 8 << "finance" << 0 << QList<int>{};
    QTest::newRow("deviation for usage") << "deviation-usage" << 9 << "master" << 1 << QList<int>{};
    QTest::newRow("financial") << "financial" << 10 << "finance" << 0 << QList<int>{};
    QTest::newRow("financial by budget, twice")
        << "financial-budget-desc" << 10 << "master" << 0 << QList<int>{1, 1};
    QTest::newRow("financial by percent text") << "financial-percent" << 10 << "master" << 0 << QList<int>{4};
    QTest::newRow("financial thrice, then name")
        << "financial-name" << 10 << "master" << 0 << QList<int>{3, 3, 3, 0};
    const QString noLevel = QString::number(ReportStatus::NoCostCentreLevel),
                  noData = QString::number(ReportStatus::NoData);
    QTest::newRow("top 10 of a whole-bill budget") << noLevel << 8 << "whole" << 0 << QList<int>{};
    QTest::newRow("financial of a whole-bill budget") << noLevel << 10 << "whole" << 0 << QList<int>{};
    QTest::newRow("top 10 of a master without children") << noData << 8 << "lonely" << 0 << QList<int>{};
    QTest::newRow("periodic of a budget without dates") << noData << 6 << "empty" << 5 << QList<int>{};
    QTest::newRow("periodic of a missing budget")
        << QString::number(ReportStatus::Error) << 6 << "missing" << 5 << QList<int>{};
}

void BudgetReportsTest::reportsMatchTheirGoldenFiles() {
    QFETCH(QString, file);
    QFETCH(int, number);
    QFETCH(QString, budget);
    QFETCH(int, view);
    QFETCH(QList<int>, clicks);
    BudgetFixture f;
    const int lonely = f.master(QStringLiteral("Lonely"), 2);
    f.entry(lonely, Date(2024, 1, 31), Money());
    const QMap<QString, int> ids{{"master", f.levelMaster},
                                 {"whole", f.wholeBill},
                                 {"sales", f.sales},
                                 {"exact", f.exact},
                                 {"finance", f.finance},
                                 {"lonely", lonely},
                                 {"empty", f.master(QStringLiteral("Empty"), 0)}};
    ReportParams params{number, ids.value(budget, 9999)};
    if (number == 6 || number == 7 || number == 9)
        params << view;
    ReportContext rc = f.context();
    ReportResult result = RunReport(rc, params);
    if (file.toInt() != 0) {
        QCOMPARE(result.status, file.toInt());
        if (result.status == ReportStatus::Error)
            QVERIFY(f.logText().contains(QStringLiteral("BudgetReport_MonthlyDeviation(9999, 5)")));
        return;
    }
    QVERIFY2(result.shown(),
             qPrintable(QStringLiteral("status %1, log: %2").arg(result.status).arg(f.logText())));
    Report& report = *result.report;
    GridSortState sort;
    for (int click : clicks) {
        if (click < 0)
            QVERIFY(ToggleReportDetails(report));
        else
            SortByHeading(report.grid, sort, click, f.ctx.colours);
    }
    golden::compare(report, file);
}

// A hundred and twenty centres, past the first hundred rows the report makes room for; a
// row opens its budget's accumulative report in the total view, and Previous comes back.
void BudgetReportsTest::financialReportGrowsPastItsFirstHundredRowsAndDrillsDown() {
    BudgetFixture f;
    const int big = f.master(QStringLiteral("Big"), 1);
    f.entry(big, Date(2024, 1, 31), Money());
    int last = 0;
    for (int i = 0; i < 120; ++i) {
        const QString tel = QStringLiteral("%1").arg(9000 + i), centre = QStringLiteral("CC%1").arg(100 + i);
        f.number(tel, {centre});
        f.add(Date(2024, 1, 31), tel, {{QStringLiteral("PreTax Cost"), Money::fromPounds(i)}});
        f.entry(last = f.child(big, centre), Date(2024, 1, 31), Money::fromPounds(1));
    }
    ReportContext rc = f.context();
    ReportSession session;
    const ReportResult result = StartReport(rc, session, financialReportParams(big));
    QVERIFY(result.shown());
    const ReportGrid& grid = result.report->grid;
    QCOMPARE(grid.rowCount(), 2 + 120 + 1);
    QCOMPARE(grid.text(121, 0), QStringLiteral("CC219"));
    // Budget 120 x 1; live 0 + 1 + ... + 119 = 7140.
    QCOMPARE(grid.text(122, 1), QStringLiteral("£120.00"));
    QCOMPARE(grid.text(122, 2), QStringLiteral("£7,140.00"));
    const std::optional<ReportResult> next = DrillDown(rc, session, *result.report, 121);
    QVERIFY(next && next->shown());
    QCOMPARE(next->report->params, accumulativeDeviationParams(last, 5));
    QCOMPARE(session.reportStack.Count(), 1);
    const ReportResult back = ShowPreviousReport(rc, session);
    QVERIFY(back.shown());
    QCOMPARE(back.report->params, financialReportParams(big));
}

VANTREL_TEST(BudgetReportsTest);
#include "tst_budgetreports.moc"
