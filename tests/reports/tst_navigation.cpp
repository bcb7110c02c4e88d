#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/ReportNavigation.h"

#include <QTest>

namespace {

const QString Usage = QStringLiteral("Usage Charges");

// A bill with two products in two months, numbers under two cost centres.
void fillBill(TrendFixture& f) {
    f.number("0100", {"Sales"});
    f.number("0200", {"Finance"});
    f.add(Date(2012, 1, 31), "0100", {{Usage, pounds(10)}, {"PreTax Cost", pounds(10)}}, "P1");
    f.add(Date(2012, 2, 29), "0100", {{Usage, pounds(20)}, {"PreTax Cost", pounds(20)}}, "P2 (x)");
    f.add(Date(2012, 2, 29), "0200", {{Usage, pounds(99)}, {"PreTax Cost", pounds(99)}}, "P1");
}

} // namespace

class NavigationTest : public QObject {
    Q_OBJECT
private slots:
    void runReportDispatchesByNumber_data();
    void runReportDispatchesByNumber();
    void registeredBuilderJoinsTheDispatch();
    void startClearsTheStackAndRecordsTheReport();
    void drillDownFromTotalChargesOpensTheFamily_data();
    void drillDownFromTotalChargesOpensTheFamily();
    void drillDownFromServiceTrendOpensTheProduct();
    void rowsAndReportsThatDoNotDrillDown_data();
    void rowsAndReportsThatDoNotDrillDown();
    void failedDrillDownLeavesTheStackAsItWas();
    void previousReportRebuildsTheLevelBehind();
    void previousReportWithNothingBehind();
    void previousReportOfAnUnknownNumber();
    void backForgetsThePath();
};

void NavigationTest::runReportDispatchesByNumber_data() {
    QTest::addColumn<ReportParams>("params");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("caption");
    QTest::newRow("1") << totalChargesParams(1, "Sales") << 1
                       << "Total Charges Trend where Cost Centre Level 1 = Sales";
    QTest::newRow("2") << individualChargesParams(0, "", 2) << 1 << "Recurring Charges for Whole Bill";
    QTest::newRow("2, bad view") << individualChargesParams(0, "", 9) << 4 << QString();
    QTest::newRow("3") << serviceParams(6, "0200") << 1 << "Service Type Trend for 0200";
    QTest::newRow("4") << serviceLevel2Params(0, "", "P2 (x)") << 1 << "P2 (x) Service Trend for Whole Bill";
    QTest::newRow("5") << top10Params(1, "", 2) << 1 << "Top 10 Cost Centres by Recurring Charges";
    QTest::newRow("0") << ReportParams{0} << 0 << QString();
    QTest::newRow("11") << ReportParams{11, 1} << 0 << QString();
    QTest::newRow("empty") << ReportParams{} << 0 << QString();
}

void NavigationTest::runReportDispatchesByNumber() {
    QFETCH(ReportParams, params);
    QFETCH(int, status);
    QFETCH(QString, caption);
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    const ReportResult result = RunReport(rc, params);
    QCOMPARE(result.status, status);
    QCOMPARE(result.report.has_value(), status == 1);
    if (result.report) {
        QCOMPARE(result.report->caption, caption);
        QCOMPARE(result.report->params, params);
    }
}

void NavigationTest::registeredBuilderJoinsTheDispatch() {
    TrendFixture f;
    ReportContext rc = f.context();
    ReportParams seen;
    setReportBuilder(9, [&](ReportContext&, const ReportParams& params) {
        seen = params;
        return ReportResult{2, std::nullopt};
    });
    QCOMPARE(RunReport(rc, ReportParams{9, 14, 3}).status, 2);
    QCOMPARE(seen, (ReportParams{9, 14, 3}));
    setReportBuilder(9, {});
}

void NavigationTest::startClearsTheStackAndRecordsTheReport() {
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    session.reportStack.Push(ReportParams{3, 0, QString()});
    const ReportResult result = StartReport(rc, session, totalChargesParams(0, QString()));
    QCOMPARE(result.status, 1);
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(!CanShowPreviousReport(session));
    QCOMPARE(session.currentReportNumber, 1);
    QCOMPARE(session.currentReportParams, (ReportParams{1, 0, QString()}));
}

void NavigationTest::drillDownFromTotalChargesOpensTheFamily_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("view");
    QTest::addColumn<QString>("caption");
    QTest::newRow("usage") << 1 << 1 << "Usage Charges where Cost Centre Level 1 = Sales";
    QTest::newRow("recurring") << 2 << 2 << "Recurring Charges where Cost Centre Level 1 = Sales";
    QTest::newRow("one off") << 3 << 3 << "Connection where Cost Centre Level 1 = Sales";
    QTest::newRow("adjustments") << 4 << 4 << "Total Adjustments where Cost Centre Level 1 = Sales";
}

void NavigationTest::drillDownFromTotalChargesOpensTheFamily() {
    QFETCH(int, row);
    QFETCH(int, view);
    QFETCH(QString, caption);
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    const Report shown = *StartReport(rc, session, totalChargesParams(1, "Sales")).report;
    const std::optional<ReportResult> next = DrillDown(rc, session, shown, row);
    QVERIFY(next);
    QCOMPARE(next->status, 1);
    QCOMPARE(next->report->caption, caption);
    QCOMPARE(session.currentReportNumber, 2);
    QCOMPARE(session.currentReportParams, (ReportParams{2, 1, QStringLiteral("Sales"), view}));
    QCOMPARE(session.reportStack.Count(), 1);
    QCOMPARE(session.reportStack.items().last().toList(), (ReportParams{1, 1, QStringLiteral("Sales")}));
    QVERIFY(CanShowPreviousReport(session));
}

void NavigationTest::drillDownFromServiceTrendOpensTheProduct() {
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    const Report shown = *StartReport(rc, session, serviceParams(6, "0100")).report;
    QCOMPARE(shown.grid.text(2, 0), QStringLiteral("P2 (x) (£)"));
    const std::optional<ReportResult> next = DrillDown(rc, session, shown, 2);
    QVERIFY(next);
    QCOMPARE(next->status, 1);
    QCOMPARE(session.currentReportParams,
             (ReportParams{4, 6, QStringLiteral("0100"), QStringLiteral("P2 (x)")}));
    QCOMPARE(next->report->grid.text(1, 1), QStringLiteral("£20.00"));
}

void NavigationTest::rowsAndReportsThatDoNotDrillDown_data() {
    QTest::addColumn<ReportParams>("params");
    QTest::addColumn<int>("row");
    QTest::newRow("headings") << totalChargesParams(0, "") << 0;
    QTest::newRow("totals") << totalChargesParams(0, "") << 5;
    QTest::newRow("percent") << totalChargesParams(0, "") << 6;
    QTest::newRow("below the grid") << totalChargesParams(0, "") << 9;
    QTest::newRow("service totals") << serviceParams(0, "") << 3;
    QTest::newRow("individual charges") << individualChargesParams(0, "", 1) << 1;
    QTest::newRow("product drill-down") << serviceLevel2Params(0, "", "P1") << 1;
}

void NavigationTest::rowsAndReportsThatDoNotDrillDown() {
    QFETCH(ReportParams, params);
    QFETCH(int, row);
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    const Report shown = *StartReport(rc, session, params).report;
    QVERIFY(!DrillDown(rc, session, shown, row));
    QCOMPARE(session.reportStack.Count(), 0);
    QCOMPARE(session.currentReportParams, params);
}

void NavigationTest::failedDrillDownLeavesTheStackAsItWas() {
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    StartReport(rc, session, serviceParams(0, QString()));
    PushCurrentReport(session);
    const Report shown = *OpenReport(rc, session, totalChargesParams(6, "0100")).report;
    // The bill goes away under the report: the next level finds nothing.
    f.ctx.trendDb.exec(QStringLiteral("DELETE FROM TblSummaryTrend"));
    const std::optional<ReportResult> next = DrillDown(rc, session, shown, 1);
    QVERIFY(next);
    QCOMPARE(next->status, 2);
    QCOMPARE(session.reportStack.Count(), 1);
    QCOMPARE(session.reportStack.items().first().toList(), (ReportParams{3, 0, QString()}));
    QCOMPARE(session.currentReportParams, (ReportParams{1, 6, QStringLiteral("0100")}));
}

void NavigationTest::previousReportRebuildsTheLevelBehind() {
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    const Report first = *StartReport(rc, session, totalChargesParams(1, "Sales")).report;
    DrillDown(rc, session, first, 2);
    const ReportResult back = ShowPreviousReport(rc, session);
    QCOMPARE(back.status, 1);
    QCOMPARE(back.report->caption, first.caption);
    QCOMPARE(back.report->grid.text(1, 1), first.grid.text(1, 1));
    QCOMPARE(session.currentReportNumber, 1);
    QCOMPARE(session.currentReportParams, (ReportParams{1, 1, QStringLiteral("Sales")}));
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(!CanShowPreviousReport(session));
}

void NavigationTest::previousReportWithNothingBehind() {
    TrendFixture f;
    ReportContext rc = f.context();
    ReportSession session;
    QCOMPARE(ShowPreviousReport(rc, session).status, 0);
    session.reportStack.Clear();
    QCOMPARE(ShowPreviousReport(rc, session).status, 0);
}

void NavigationTest::previousReportOfAnUnknownNumber() {
    TrendFixture f;
    ReportContext rc = f.context();
    ReportSession session;
    session.reportStack.Push(ReportParams{11, 0, QString()});
    QCOMPARE(ShowPreviousReport(rc, session).status, 0);
    QCOMPARE(session.reportStack.Count(), 0);
}

void NavigationTest::backForgetsThePath() {
    TrendFixture f;
    fillBill(f);
    ReportContext rc = f.context();
    ReportSession session;
    const Report first = *StartReport(rc, session, totalChargesParams(0, QString())).report;
    DrillDown(rc, session, first, 1);
    QCOMPARE(session.reportStack.Count(), 1);
    LeaveReports(session);
    QCOMPARE(session.reportStack.Count(), 0);
    QCOMPARE(ShowPreviousReport(rc, session).status, 0);
}

VANTREL_TEST(NavigationTest);
#include "tst_navigation.moc"
