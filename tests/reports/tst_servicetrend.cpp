#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/TrendReports.h"

#include <QTest>

namespace {

const QString PreTax = QStringLiteral("PreTax Cost");
const QString Usage = QStringLiteral("Usage Charges");

QStringList row(const Report& r, int line) {
    QStringList out;
    for (int c = 0; c < r.grid.colCount(); ++c)
        out << r.grid.text(line, c);
    return out;
}

void addCost(TrendFixture& f, const Date& date, const QString& product, std::optional<Money> cost,
             const QString& service = QStringLiteral("0100")) {
    f.add(date, service, {{PreTax, cost}}, product);
}

const Date Jan(2012, 1, 31);
const Date Feb(2012, 2, 29);

} // namespace

class ServiceTrendTest : public QObject {
    Q_OBJECT
private slots:
    void gridOfProductsByDate();
    void titles_data();
    void titles();
    void missingCostLeavesAnEmptyCellAndANullPoint();
    void windowDropsOlderDatesAndTheirCosts();
    void percentChange_data();
    void percentChange();
    void colourKeepsTheLastChange();
    void totalsSetTheScale();
    void costCentreWithoutNumbersHasNoRecords();

    void drillDownSplitsOneProductIntoFamilies();
    void drillDownTitles_data();
    void drillDownTitles();
    void drillDownPercentChange_data();
    void drillDownPercentChange();
    void productCodeWithAQuote();
};

void ServiceTrendTest::gridOfProductsByDate() {
    TrendFixture f;
    addCost(f, Jan, "P2", pounds(10));
    addCost(f, Jan, "P2", pounds(5), "0200");
    addCost(f, Jan, "p1", Money::fromRaw(12345));
    addCost(f, Feb, "P2", pounds(20));
    addCost(f, Feb, "P3", pounds(-4));
    f.add(TrendRow{Jan, "0100", "P9", {{PreTax, pounds(500)}}, "OTHER"});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_Service(rc, 0, QString());
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.number, 3);
    QCOMPARE(r.params, (ReportParams{3, 0, QString()}));
    QCOMPARE(r.note, QStringLiteral("Click on a line to drill-down"));
    QVERIFY(r.noteVisible);
    QCOMPARE(r.grid.rowCount(), 6);
    QCOMPARE(r.grid.colCount(), 3);
    QCOMPARE(row(r, 0), (QStringList{"Entry Dates", "31/01/2012", "29/02/2012"}));
    QCOMPARE(row(r, 1), (QStringList{"p1 (£)", "£1.23", "£0.00"}));
    QCOMPARE(row(r, 2), (QStringList{"P2 (£)", "£15.00", "£20.00"}));
    QCOMPARE(row(r, 3), (QStringList{"P3 (£)", "£0.00", "-£4.00"}));
    QCOMPARE(row(r, 4), (QStringList{"Totals (£)", "£16.23", "£16.00"}));
    // (16 - 16.2345) / 16.2345 = -1.444 %
    QCOMPARE(row(r, 5), (QStringList{"Percent Change (%)", "", "-1.44%"}));
    QCOMPARE(r.grid.cell(5, 2).foreColor, fallColour());
    QCOMPARE(r.grid.fixedRows, 1);
    QCOMPARE(r.grid.fixedCols, 1);
    for (int c = 0; c < 3; ++c) {
        QVERIFY(r.grid.column(c).alignment & Qt::AlignRight);
        QVERIFY(r.grid.cell(0, c).bold);
        QVERIFY(r.grid.cell(4, c).bold);
        QVERIFY(r.grid.cell(5, c).bold);
    }
    QVERIFY(r.grid.cell(2, 0).bold);
    QVERIFY(!r.grid.cell(2, 1).bold);
    QCOMPARE(r.grid.column(0).widthTwips, 3000);
    QCOMPARE(r.grid.column(2).widthTwips, 2000);
    QCOMPARE(r.grid.column(2).colData, 2);

    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.seriesLabels(), (QStringList{"Total Service Charges", "p1", "P2", "P3"}));
    QCOMPARE(chart.pointLabels(), (QStringList{"31/01/2012", "29/02/2012"}));
    QCOMPARE(chart.value(0, 0), std::optional<double>(16.2345));
    QCOMPARE(chart.value(1, 0), std::optional<double>(1.23)); // read back from the cell
    QCOMPARE(chart.value(1, 1), std::optional<double>(0));
    QCOMPARE(chart.value(3, 1), std::optional<double>(-4));
    QCOMPARE(chart.seriesColours[1], QColor(228, 56, 40));
}

void ServiceTrendTest::titles_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("title");
    QTest::newRow("whole bill") << 0 << QString() << "Service Type Trend for Whole Bill";
    QTest::newRow("number") << 6 << "0100"
                            << "Service Type Trend for 0100";
    QTest::newRow("no cost centre")
        << 1 << QString() << "Service Type Trend where Cost Centre Level 1 = No Cost Centre Selected";
}

void ServiceTrendTest::titles() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(QString, title);
    TrendFixture f;
    f.number("0100", {QVariant()});
    addCost(f, Jan, "P1", pounds(1));
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_Service(rc, level, value);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->caption, title);
    QCOMPARE(result.report->charts.front().title, title);
}

void ServiceTrendTest::missingCostLeavesAnEmptyCellAndANullPoint() {
    TrendFixture f;
    addCost(f, Jan, "P1", std::nullopt);
    addCost(f, Jan, "P2", pounds(7));
    ReportContext rc = f.context();
    const Report r = *TrendReport_Service(rc, 0, QString()).report;
    QCOMPARE(row(r, 1), (QStringList{"P1 (£)", ""}));
    QCOMPARE(row(r, 3), (QStringList{"Totals (£)", "£7.00"}));
    QCOMPARE(r.charts.front().value(1, 0), std::nullopt);
    QCOMPARE(r.charts.front().value(2, 0), std::optional<double>(7));
}

void ServiceTrendTest::windowDropsOlderDatesAndTheirCosts() {
    TrendFixture f;
    addCost(f, Date(2010, 1, 15), "OLD", pounds(1000));
    for (int i = 0; i < 25; ++i)
        addCost(f, Date(2010, 1, 15).addMonths(i), "NEW", pounds(1));
    ReportContext rc = f.context();
    const Report r = *TrendReport_Service(rc, 0, QString()).report;
    QCOMPARE(r.grid.colCount(), 25);
    QCOMPARE(r.grid.text(0, 1), QStringLiteral("15/02/2010"));
    QCOMPARE(r.grid.text(2, 0), QStringLiteral("OLD (£)"));
    for (int c = 1; c < 25; ++c) {
        QCOMPARE(r.grid.text(2, c), QStringLiteral("£0.00"));
        QCOMPARE(r.grid.text(3, c), QStringLiteral("£1.00"));
    }
    QCOMPARE(r.grid.text(4, 2), QStringLiteral("0.00%"));
    QCOMPARE(r.charts.front().pointCount(), 24);
}

void ServiceTrendTest::percentChange_data() {
    QTest::addColumn<double>("previous");
    QTest::addColumn<double>("present");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("rise from positive") << 100.0 << 150.0 << "+50.00%" << riseColour();
    QTest::newRow("fall from positive") << 200.0 << 150.0 << "-25.00%" << fallColour();
    QTest::newRow("rise from negative") << -200.0 << -50.0 << "+75.00%" << riseColour();
    QTest::newRow("fall from negative") << -100.0 << -150.0 << "-50.00%" << fallColour();
    QTest::newRow("rise from zero") << 0.0 << 10.0 << "" << QColor();
    QTest::newRow("fall from zero") << 0.0 << -10.0 << "" << QColor();
    QTest::newRow("equal") << 80.0 << 80.0 << "0.00%" << QColor();
    QTest::newRow("both zero") << 0.0 << 0.0 << "0.00%" << QColor();
    QTest::newRow("grouped") << 1.0 << 12345.67 << "+1,234,467.00%" << riseColour();
}

void ServiceTrendTest::percentChange() {
    QFETCH(double, previous);
    QFETCH(double, present);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    TrendFixture f;
    addCost(f, Jan, "P1", pounds(previous));
    addCost(f, Feb, "P1", pounds(present));
    ReportContext rc = f.context();
    const Report r = *TrendReport_Service(rc, 0, QString()).report;
    QCOMPARE(r.grid.text(3, 2), text);
    QCOMPARE(r.grid.cell(3, 2).foreColor, colour);
}

void ServiceTrendTest::colourKeepsTheLastChange() {
    TrendFixture f;
    const double totals[] = {100, 150, 0, 0, 5};
    for (int i = 0; i < 5; ++i)
        addCost(f, Date(2012, 1, 1).addMonths(i), "P1", pounds(totals[i]));
    ReportContext rc = f.context();
    const Report r = *TrendReport_Service(rc, 0, QString()).report;
    QCOMPARE(row(r, 3), (QStringList{"Percent Change (%)", "", "+50.00%", "-100.00%", "0.00%", ""}));
    QCOMPARE(r.grid.cell(3, 2).foreColor, riseColour());
    QCOMPARE(r.grid.cell(3, 3).foreColor, fallColour());
    // No change from 0 and a change away from 0 both keep the colour of the fall before.
    QCOMPARE(r.grid.cell(3, 4).foreColor, fallColour());
    QCOMPARE(r.grid.cell(3, 5).foreColor, fallColour());
}

void ServiceTrendTest::totalsSetTheScale() {
    TrendFixture f;
    addCost(f, Jan, "A", pounds(600000));
    addCost(f, Jan, "B", pounds(634567));
    ReportContext rc = f.context();
    const Report r = *TrendReport_Service(rc, 0, QString()).report;
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.seriesLabels(), (QStringList{"Total Service Charges / 1000", "A / 1000", "B / 1000"}));
    QCOMPARE(chart.value(0, 0), std::optional<double>(1234.567));
    QCOMPARE(chart.value(1, 0), std::optional<double>(600));
    QCOMPARE(r.grid.text(3, 1), QStringLiteral("£1,234,567.00"));
}

void ServiceTrendTest::costCentreWithoutNumbersHasNoRecords() {
    TrendFixture f;
    f.number("0100", {"Sales"});
    addCost(f, Jan, "P1", pounds(1));
    ReportContext rc = f.context();
    QCOMPARE(TrendReport_Service(rc, 1, QStringLiteral("Finance")).status, 2);
    QCOMPARE(TrendReport_ServiceLevel2(rc, 1, QStringLiteral("Finance"), QStringLiteral("P1")).status, 2);
}

void ServiceTrendTest::drillDownSplitsOneProductIntoFamilies() {
    TrendFixture f;
    f.add(Jan, "0100", {{Usage, pounds(3)}, {"Recurring Charges", pounds(4)}}, "P1");
    f.add(Jan, "0100", {{Usage, pounds(100)}}, "P2");
    f.add(Feb, "0200", {{Usage, pounds(6)}, {"Adjustments", pounds(-1)}}, "P1");
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_ServiceLevel2(rc, 0, QString(), QStringLiteral("P1"));
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.number, 4);
    QCOMPARE(r.params, (ReportParams{4, 0, QString(), QStringLiteral("P1")}));
    QVERIFY(!r.noteVisible);
    QCOMPARE(r.grid.rowCount(), 7);
    QCOMPARE(row(r, 0), (QStringList{"Date", "31/01/2012", "29/02/2012"}));
    QCOMPARE(row(r, 1), (QStringList{"Usage Charges (£)", "£3.00", "£6.00"}));
    QCOMPARE(row(r, 4), (QStringList{"Adjustment Charges (£)", "£0.00", "-£1.00"}));
    QCOMPARE(row(r, 5), (QStringList{"Totals (£)", "£7.00", "£5.00"}));
    QCOMPARE(row(r, 6), (QStringList{"Percent Change (%)", "", "-28.57%"}));
    QCOMPARE(r.charts.front().value(0, 1), std::optional<double>(5));
}

void ServiceTrendTest::drillDownTitles_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("chartTitle");
    QTest::newRow("whole bill") << 0 << QString() << "P1 Service Trend for Whole Bill"
                                << "Whole Bill - P1 Service Trend";
    QTest::newRow("number") << 6 << "0100"
                            << "P1 Service Trend for 0100"
                            << "0100 - P1 Service Trend";
    QTest::newRow("cost centre") << 2 << "North"
                                 << "P1 Service Trend for North"
                                 << "North - P1 Service Trend";
    QTest::newRow("no cost centre") << 3 << QString() << "P1 Service Trend for No Cost Centre Selected"
                                    << "No Cost Centre Selected - P1 Service Trend";
}

void ServiceTrendTest::drillDownTitles() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(QString, caption);
    QFETCH(QString, chartTitle);
    TrendFixture f;
    f.number("0100", {"Sales", "North"});
    f.add(Jan, "0100", {{Usage, pounds(1)}}, "P1");
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_ServiceLevel2(rc, level, value, QStringLiteral("P1"));
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->caption, caption);
    QCOMPARE(result.report->charts.front().title, chartTitle);
}

void ServiceTrendTest::drillDownPercentChange_data() {
    QTest::addColumn<double>("previous");
    QTest::addColumn<double>("present");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("rise from positive") << 100.0 << 150.0 << "+50.00%" << riseColour();
    QTest::newRow("fall from positive") << 200.0 << 150.0 << "-25.00%" << fallColour();
    QTest::newRow("rise from negative") << -200.0 << -50.0 << "+75.00%" << riseColour();
    QTest::newRow("fall from negative") << -100.0 << -150.0 << "-50.00%" << fallColour();
    QTest::newRow("rise from zero") << 0.0 << 10.0 << "" << QColor();
    QTest::newRow("equal") << 80.0 << 80.0 << "0.00%" << QColor();
    QTest::newRow("both zero") << 0.0 << 0.0 << "0.00%" << QColor();
    QTest::newRow("grouped") << 1.0 << 12345.67 << "+1,234,467.00%" << riseColour();
}

void ServiceTrendTest::drillDownPercentChange() {
    QFETCH(double, previous);
    QFETCH(double, present);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    TrendFixture f;
    f.add(Jan, "0100", {{"One Off Charges and Credits", pounds(previous)}}, "P1");
    f.add(Feb, "0100", {{Usage, pounds(present)}}, "P1");
    ReportContext rc = f.context();
    const Report r = *TrendReport_ServiceLevel2(rc, 0, QString(), QStringLiteral("P1")).report;
    QCOMPARE(r.grid.text(6, 2), text);
    QCOMPARE(r.grid.cell(6, 2).foreColor, colour);
    QVERIFY(r.grid.cell(6, 2).bold);
}

void ServiceTrendTest::productCodeWithAQuote() {
    TrendFixture f;
    addCost(f, Jan, "O'Neil \"X\"", pounds(2));
    f.add(Jan, "0100", {{Usage, pounds(2)}}, "O'Neil \"X\"");
    ReportContext rc = f.context();
    const Report r = *TrendReport_Service(rc, 0, QString()).report;
    QCOMPARE(r.grid.text(1, 0), QStringLiteral("O'Neil \"X\" (£)"));
    const ReportResult drill = TrendReport_ServiceLevel2(rc, 0, QString(), QStringLiteral("O'Neil \"X\""));
    QCOMPARE(drill.status, 1);
    QCOMPARE(drill.report->grid.text(1, 1), QStringLiteral("£2.00"));
}

VANTREL_TEST(ServiceTrendTest);
#include "tst_servicetrend.moc"
