// The budget reports against golden files: each file holds the report as the command line
// writes it, then a map of the marked cells, and was checked by hand against the figures
// laid out in BudgetFixture.cpp. VANTREL_WRITE_GOLDEN=1 rewrites them for review.
#include "BudgetFixture.h"
#include "TestRegistry.h"
#include "app/cColours_Orvane.h"
#include "output/GridSort.h"
#include "output/ReportDetails.h"
#include "reports/BudgetReports.h"
#include "reports/ReportCsv.h"
#include "reports/ReportNavigation.h"

#include <QFile>
#include <QTest>

namespace {

const QString GoldenDir = QStringLiteral(VANTREL_SOURCE_DIR "/tests/reports/golden/");

// One letter per visible cell: "." the grid's colour, C coral, B blue, K black.
QString colourMap(const ReportGrid& grid) {
    const cColours colours;
    QString out;
    for (int r = 0; r < grid.rowCount(); ++r) {
        if (grid.row(r).hidden)
            continue;
        for (int c = 0; c < grid.colCount(); ++c) {
            const QColor colour = grid.cell(r, c).foreColor;
            out += !colour.isValid()                              ? QLatin1Char('.')
                   : colour == qColor(colours.CoreColour_Coral()) ? QLatin1Char('C')
                   : colour == QColor(0, 0, 255)                  ? QLatin1Char('B')
                   : colour == QColor(Qt::black)                  ? QLatin1Char('K')
                                                                  : QLatin1Char('?');
        }
        out += QLatin1Char('\n');
    }
    return out;
}

} // namespace

class BudgetReportsTest : public QObject {
    Q_OBJECT
private slots:
    void reportsMatchTheirGoldenFiles_data();
    void reportsMatchTheirGoldenFiles();
    void statuses_data();
    void statuses();
    void financialReportGrowsPastItsFirstHundredRows();
    void rowClickOfTheFinancialReportOpensTheAccumulativeReport();
};

void BudgetReportsTest::reportsMatchTheirGoldenFiles_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("budget"); // "master", "whole", "finance", "sales"
    QTest::addColumn<int>("view");
    QTest::addColumn<QList<int>>("clicks"); // heading clicks of the sort, or -1 to show the details
    QTest::newRow("periodic total of the master") << "periodic-master" << 6 << "master" << 5 << QList<int>{};
    QTest::newRow("its details shown") << "periodic-master-details" << 6 << "master" << 5 << QList<int>{-1};
    QTest::newRow("periodic usage of Finance")
        << "periodic-finance-usage" << 6 << "finance" << 1 << QList<int>{};
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
}

void BudgetReportsTest::reportsMatchTheirGoldenFiles() {
    QFETCH(QString, file);
    QFETCH(int, number);
    QFETCH(QString, budget);
    QFETCH(int, view);
    QFETCH(QList<int>, clicks);
    BudgetFixture f;
    const int id = budget == QLatin1String("master")  ? f.levelMaster
                   : budget == QLatin1String("whole") ? f.wholeBill
                   : budget == QLatin1String("sales") ? f.sales
                                                      : f.finance;
    ReportParams params{number, id};
    if (number == 6 || number == 7 || number == 9)
        params << view;
    ReportContext rc = f.context();
    ReportResult result = RunReport(rc, params);
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
    const QString actual = report.caption + QLatin1Char('\n') + reportToCsv(report) +
                           QStringLiteral("\n# colours\n") + colourMap(report.grid);
    QFile golden(GoldenDir + file + QStringLiteral(".csv"));
    if (qEnvironmentVariableIsSet("VANTREL_WRITE_GOLDEN")) {
        QVERIFY(golden.open(QIODevice::WriteOnly));
        golden.write(actual.toUtf8());
        return;
    }
    QVERIFY2(golden.open(QIODevice::ReadOnly), qPrintable(golden.fileName()));
    const QString expected = QString::fromUtf8(golden.readAll());
    if (actual != expected) {
        const QStringList a = actual.split(QLatin1Char('\n'));
        const QStringList e = expected.split(QLatin1Char('\n'));
        for (int i = 0; i < std::max(a.size(), e.size()); ++i)
            QVERIFY2(a.value(i) == e.value(i),
                     qPrintable(QStringLiteral("line %1\n  got      %2\n  expected %3")
                                    .arg(i + 1)
                                    .arg(a.value(i), e.value(i))));
    }
}

void BudgetReportsTest::statuses_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("budget");
    QTest::addColumn<int>("status");
    QTest::newRow("top 10 of a whole-bill budget") << 8 << "whole" << int(ReportStatus::NoCostCentreLevel);
    QTest::newRow("financial of a whole-bill budget")
        << 10 << "whole" << int(ReportStatus::NoCostCentreLevel);
    QTest::newRow("top 10 of a master without children") << 8 << "lonely" << int(ReportStatus::NoData);
    QTest::newRow("periodic of a budget without dates") << 6 << "empty" << int(ReportStatus::NoData);
    QTest::newRow("periodic of a missing budget") << 6 << "missing" << int(ReportStatus::Error);
}

void BudgetReportsTest::statuses() {
    QFETCH(int, number);
    QFETCH(QString, budget);
    QFETCH(int, status);
    BudgetFixture f;
    const int lonely = f.master(QStringLiteral("Lonely"), 2);
    f.entry(lonely, Date(2024, 1, 31), Money());
    const int empty = f.master(QStringLiteral("Empty"), 0);
    const int id = budget == QLatin1String("whole")    ? f.wholeBill
                   : budget == QLatin1String("lonely") ? lonely
                   : budget == QLatin1String("empty")  ? empty
                                                       : 9999;
    ReportContext rc = f.context();
    ReportParams params{number, id};
    if (number == 6)
        params << 5;
    QCOMPARE(RunReport(rc, params).status, status);
    if (status == ReportStatus::Error)
        QVERIFY(f.logText().contains(QStringLiteral("BudgetReport_MonthlyDeviation(9999, 5)")));
}

void BudgetReportsTest::financialReportGrowsPastItsFirstHundredRows() {
    BudgetFixture f;
    const int big = f.master(QStringLiteral("Big"), 1);
    f.entry(big, Date(2024, 1, 31), Money());
    for (int i = 0; i < 120; ++i) {
        const QString centre = QStringLiteral("CC%1").arg(i, 3, 10, QLatin1Char('0'));
        f.number(QStringLiteral("9%1").arg(i, 3, 10, QLatin1Char('0')), {centre});
        f.add(Date(2024, 1, 31), QStringLiteral("9%1").arg(i, 3, 10, QLatin1Char('0')),
              {{QStringLiteral("PreTax Cost"), Money::fromPounds(i)}});
        f.entry(f.child(big, centre), Date(2024, 1, 31), Money::fromPounds(1));
    }
    ReportContext rc = f.context();
    const ReportResult result = BudgetReport_FinancialReport(rc, big);
    QVERIFY(result.shown());
    const ReportGrid& grid = result.report->grid;
    QCOMPARE(grid.rowCount(), 2 + 120 + 1);
    QCOMPARE(grid.text(121, 0), QStringLiteral("CC119"));
    // Budget 120 x 1; live 0 + 1 + ... + 119 = 7140.
    QCOMPARE(grid.text(122, 1), QStringLiteral("£120.00"));
    QCOMPARE(grid.text(122, 2), QStringLiteral("£7,140.00"));
}

void BudgetReportsTest::rowClickOfTheFinancialReportOpensTheAccumulativeReport() {
    BudgetFixture f;
    ReportContext rc = f.context();
    ReportSession session;
    const ReportResult financial = StartReport(rc, session, financialReportParams(f.levelMaster));
    QVERIFY(financial.shown());
    // Line 3 is Finance (the lines go by centre name: Exact, Finance, ...).
    const std::optional<ReportResult> next = DrillDown(rc, session, *financial.report, 3);
    QVERIFY(next && next->shown());
    QCOMPARE(next->report->params, accumulativeDeviationParams(f.finance, 5));
    QCOMPARE(session.reportStack.Count(), 1);
    const ReportResult back = ShowPreviousReport(rc, session);
    QVERIFY(back.shown());
    QCOMPARE(back.report->number, int(ReportNumber::FinancialReport));
}

VANTREL_TEST(BudgetReportsTest);
#include "tst_budgetreports.moc"
