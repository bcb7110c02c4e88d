// Names that differ only in case are one name: one cost centre in the lists and the
// rankings, one product in the service type trend, matched by either spelling.
#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/ReportNavigation.h"
#include "reports/TrendReportChoices.h"

#include <QTest>

class TextCaseTest : public QObject {
    Q_OBJECT
private slots:
    void oneNameWhateverItsCase_data();
    void oneNameWhateverItsCase();
};

void TextCaseTest::oneNameWhateverItsCase_data() {
    QTest::addColumn<ReportParams>("params");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("col");
    QTest::addColumn<QString>("expected");
    // 0100 (Sales, p1) costs 100 and 0101 (SALES, P1) 20 on the one bill.
    QTest::newRow("total charges of SALES") << totalChargesParams(1, "SALES") << 5 << 1 << "£120.00";
    QTest::newRow("service type: one product") << serviceParams(0, "") << 1 << 1 << "£120.00";
    QTest::newRow("its drill-down by the other spelling")
        << serviceLevel2Params(0, "", "P1") << 1 << 1 << "£120.00";
}

void TextCaseTest::oneNameWhateverItsCase() {
    QFETCH(ReportParams, params);
    QFETCH(int, row);
    QFETCH(int, col);
    QFETCH(QString, expected);
    TrendFixture f;
    f.number("0100", {"Sales"});
    f.number("0101", {"SALES"});
    f.add(Date(2024, 1, 31), "0100", {{"Usage Charges", pounds(100)}, {"PreTax Cost", pounds(100)}}, "p1");
    f.add(Date(2024, 1, 31), "0101", {{"Usage Charges", pounds(20)}, {"PreTax Cost", pounds(20)}}, "P1");
    QCOMPARE(trendCostCentres(f.ctx, 1).size(), 1);
    ReportContext rc = f.context();
    const ReportResult result = RunReport(rc, params);
    QVERIFY(result.shown());
    QCOMPARE(result.report->grid.text(row, col), expected);
    // The top 10 by cost centre ranks them as one centre of 120.
    const ReportResult top = RunReport(rc, top10Params(1, QString(), 5));
    QVERIFY(top.shown());
    QCOMPARE(top.report->charts.front().pointCount(), 1);
    QCOMPARE(top.report->charts.front().value(0, 0).value_or(0), 120.0);
}

VANTREL_TEST(TextCaseTest);
#include "tst_textcase.moc"
