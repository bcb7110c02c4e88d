// Moving between report levels: drill-down from a row, Previous, a fresh start; and the
// numbers a filter chooses and the lists to choose from.
#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/ReportCsv.h"
#include "reports/ReportFrame.h"
#include "reports/ReportNavigation.h"
#include "reports/TrendReportChoices.h"

#include <QTest>

class NavigationTest : public QObject {
    Q_OBJECT
private slots:
    void drillDownAndBack_data();
    void drillDownAndBack();
    void previousWithNothingToShowAndAFailedDrillDown();
    void filterNumbersPerLevel_data();
    void filterNumbersPerLevel();
};

void NavigationTest::drillDownAndBack_data() {
    QTest::addColumn<ReportParams>("shown");
    QTest::addColumn<int>("row");
    QTest::addColumn<ReportParams>("next"); // empty: the row does not drill down
    const ReportParams sales = totalChargesParams(1, "Sales");
    const ReportParams whole = totalChargesParams(0, "");
    QTest::newRow("usage") << sales << 1 << individualChargesParams(1, "Sales", 1);
    QTest::newRow("recurring") << sales << 2 << individualChargesParams(1, "Sales", 2);
    QTest::newRow("one off") << sales << 3 << individualChargesParams(1, "Sales", 3);
    QTest::newRow("adjustments") << sales << 4 << individualChargesParams(1, "Sales", 4);
    QTest::newRow("a product") << serviceParams(0, "") << 1 << serviceLevel2Params(0, "", "O'Neil \"X\"");
    QTest::newRow("headings") << whole << 0 << ReportParams{};
    QTest::newRow("totals") << whole << 5 << ReportParams{};
    QTest::newRow("percent") << whole << 6 << ReportParams{};
    QTest::newRow("below the grid") << whole << 9 << ReportParams{};
    QTest::newRow("service totals") << serviceParams(0, "") << 5 << ReportParams{};
    QTest::newRow("individual charges") << individualChargesParams(0, "", 1) << 1 << ReportParams{};
    QTest::newRow("product drill-down") << serviceLevel2Params(0, "", "P1") << 1 << ReportParams{};
}

void NavigationTest::drillDownAndBack() {
    QFETCH(ReportParams, shown);
    QFETCH(int, row);
    QFETCH(ReportParams, next);
    TrendFixture f;
    fillThreeBills(f);
    ReportContext rc = f.context();
    ReportSession session;
    session.reportStack.Push(serviceParams(0, QString())); // a start forgets it
    const Report first = *StartReport(rc, session, shown).report;
    QCOMPARE(session.currentReportNumber, reportNumberOf(shown));
    const std::optional<ReportResult> deeper = DrillDown(rc, session, first, row);
    QCOMPARE(deeper.has_value(), !next.isEmpty());
    if (next.isEmpty()) {
        QCOMPARE(session.reportStack.Count(), 0);
        QCOMPARE(session.currentReportParams, shown);
        return;
    }
    QVERIFY(deeper->shown());
    QCOMPARE(deeper->report->params, next);
    QCOMPARE(session.currentReportNumber, reportNumberOf(next));
    QCOMPARE(session.currentReportParams, next);
    QCOMPARE(session.reportStack.Count(), 1);
    QVERIFY(CanShowPreviousReport(session));
    // Previous builds the level behind again, and nothing is left behind it.
    const ReportResult back = ShowPreviousReport(rc, session);
    QVERIFY(back.shown());
    QCOMPARE(reportToCsv(*back.report), reportToCsv(first));
    QCOMPARE(session.currentReportParams, shown);
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(!CanShowPreviousReport(session));
}

void NavigationTest::previousWithNothingToShowAndAFailedDrillDown() {
    TrendFixture f;
    fillThreeBills(f);
    ReportContext rc = f.context();
    ReportSession session;
    QCOMPARE(ShowPreviousReport(rc, session).status, ReportStatus::NotProduced);
    // A number no builder has is dropped from the stack.
    session.reportStack.Push(ReportParams{11, 0, QString()});
    QCOMPARE(ShowPreviousReport(rc, session).status, ReportStatus::NotProduced);
    QCOMPARE(session.reportStack.Count(), 0);
    // Back forgets the whole path.
    const Report first = *StartReport(rc, session, totalChargesParams(0, QString())).report;
    QVERIFY(DrillDown(rc, session, first, 1));
    LeaveReports(session);
    QVERIFY(!CanShowPreviousReport(session));
    QCOMPARE(ShowPreviousReport(rc, session).status, ReportStatus::NotProduced);
    // The bill goes away under a report: the next level finds nothing, and the stack
    // stays as it was.
    StartReport(rc, session, serviceParams(0, QString()));
    PushCurrentReport(session);
    const Report shown = *OpenReport(rc, session, totalChargesParams(6, "0100")).report;
    f.ctx.trendDb.exec(QStringLiteral("DELETE FROM TblSummaryTrend"));
    const std::optional<ReportResult> next = DrillDown(rc, session, shown, 1);
    QVERIFY(next);
    QCOMPARE(next->status, ReportStatus::NoData);
    QCOMPARE(session.reportStack.items(), QVariantList{QVariant(serviceParams(0, QString()))});
    QCOMPARE(session.currentReportParams, totalChargesParams(6, "0100"));
}

void NavigationTest::filterNumbersPerLevel_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("numbers");
    QTest::newRow("level 1, either spelling") << 1 << "sales" << QStringList{"0100", "0200"};
    QTest::newRow("level 2 with a quote") << 2 << "St John's" << QStringList{"0200"};
    QTest::newRow("no cost centre: null and empty") << 2 << QString() << QStringList{"0100", "0300"};
    QTest::newRow("level 5") << 5 << "Desk 9" << QStringList{"0300"};
    QTest::newRow("one number") << 6 << "0300" << QStringList{"0300"};
    QTest::newRow("unknown centre") << 1 << "Nowhere" << QStringList{};
    QTest::newRow("no such level") << 7 << "Sales" << QStringList{};
}

void NavigationTest::filterNumbersPerLevel() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(QStringList, numbers);
    TrendFixture f;
    f.number(QStringLiteral("0100"), {"Sales", QVariant()});
    f.number(QStringLiteral("0200"), {"SALES", "St John's"});
    f.number(QStringLiteral("0300"), {"Finance", "", "", "", "Desk 9"});
    QStringList found = FilterServiceNumbers(f.ctx, level, value);
    found.sort();
    QCOMPARE(found, numbers);
    // The list to choose from names a centre once, whatever its case.
    QCOMPARE(trendCostCentres(f.ctx, 1), (QStringList{"Finance", "SALES"}));
}

VANTREL_TEST(NavigationTest);
#include "tst_navigation.moc"
