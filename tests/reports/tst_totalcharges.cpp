#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/TrendReports.h"

#include <QTest>

namespace {

const QString Usage = QStringLiteral("Usage Charges");
const QString Recurring = QStringLiteral("Recurring Charges");
const QString OneOff = QStringLiteral("One Off Charges and Credits");
const QString Adjust = QStringLiteral("Adjustments");

QStringList gridRow(const Report& r, int row) {
    QStringList out;
    for (int c = 0; c < r.grid.colCount(); ++c)
        out << r.grid.text(row, c);
    return out;
}

Date month(int i) {
    return Date(2010, 1, 15).addMonths(i);
}

} // namespace

class TotalChargesTest : public QObject {
    Q_OBJECT
private slots:
    void gridChartAndNoteOfTwoBills();
    void titles_data();
    void titles();
    void filterSelectsTheCostCentresNumbers_data();
    void filterSelectsTheCostCentresNumbers();
    void percentChange_data();
    void percentChange();
    void oneBillDateHasNoPercent();
    void thirtyBillDatesKeepTheLast24();
    void largeSingleChargesScaleTheChart();
    void totalsDoNotSetTheScale();
    void missingFamilySumTakesTheErrorPath();
};

void TotalChargesTest::gridChartAndNoteOfTwoBills() {
    TrendFixture f;
    const Date jan(2012, 1, 31), feb(2012, 2, 29);
    f.add(jan, "0100", {{Usage, pounds(10.50)}, {Recurring, pounds(20)}, {OneOff, pounds(-5.25)}});
    f.add(jan, "0200", {{Usage, pounds(1000)}, {Adjust, Money::fromRaw(12345)}});
    f.add(feb, "0100", {{Usage, pounds(500)}, {Recurring, pounds(20)}});
    f.add(TrendRow{jan, "0100", "P1", {{Usage, pounds(9999)}}, "OTHER"});
    ReportContext rc = f.context();

    const ReportResult result = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.number, 1);
    QCOMPARE(r.params, (ReportParams{1, 0, QString()}));
    QCOMPARE(r.caption, QStringLiteral("Total Charges Trend for Whole Bill"));
    QCOMPARE(r.note, QStringLiteral("Click on a line to drill-down"));
    QVERIFY(r.noteVisible);

    QCOMPARE(r.grid.rowCount(), 7);
    QCOMPARE(r.grid.colCount(), 3);
    QCOMPARE(gridRow(r, 0), (QStringList{"Date", "31/01/2012", "29/02/2012"}));
    QCOMPARE(gridRow(r, 1), (QStringList{"Usage Charges (£)", "£1,010.50", "£500.00"}));
    QCOMPARE(gridRow(r, 2), (QStringList{"Recurring Charges (£)", "£20.00", "£20.00"}));
    QCOMPARE(gridRow(r, 3), (QStringList{"One Off Charges and Credits (£)", "-£5.25", "£0.00"}));
    QCOMPARE(gridRow(r, 4), (QStringList{"Adjustment Charges (£)", "£1.23", "£0.00"}));
    QCOMPARE(gridRow(r, 5), (QStringList{"Totals (£)", "£1,026.48", "£520.00"}));
    QCOMPARE(gridRow(r, 6), (QStringList{"Percent Change (%)", "", "-49.34%"}));
    QCOMPARE(r.grid.cell(6, 2).foreColor, fallColour());

    for (int row = 0; row < 7; ++row)
        QVERIFY(r.grid.cell(row, 0).bold);
    for (int c = 0; c < 3; ++c) {
        QVERIFY(r.grid.cell(0, c).bold);
        QVERIFY(r.grid.cell(5, c).bold);
    }
    QVERIFY(!r.grid.cell(1, 1).bold);
    QVERIFY(!r.grid.cell(6, 1).bold);
    QVERIFY(r.grid.cell(6, 2).bold);
    QCOMPARE(r.grid.column(0).widthTwips, 3000);
    QCOMPARE(r.grid.column(1).widthTwips, 2000);
    QCOMPARE(r.grid.column(0).colData, 0);
    QCOMPARE(r.grid.column(2).colData, 2);
    QVERIFY(r.grid.column(2).alignment & Qt::AlignRight);

    QCOMPARE(r.charts.size(), size_t(1));
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.title, r.caption);
    QCOMPARE(chart.seriesLabels(), (QStringList{"Total Charges", "Usage Charges", "Recurring Charges",
                                                "One Off Charges", "Adjustments"}));
    QCOMPARE(chart.pointLabels(), (QStringList{"31/01/2012", "29/02/2012"}));
    QCOMPARE(chart.value(0, 0), std::optional<double>(1026.4845));
    QCOMPARE(chart.value(1, 0), std::optional<double>(1010.5));
    QCOMPARE(chart.value(3, 0), std::optional<double>(-5.25));
    QCOMPARE(chart.value(4, 0), std::optional<double>(1.2345));
    QCOMPARE(chart.value(0, 1), std::optional<double>(520));
    QCOMPARE(chart.seriesColours.size(), size_t(5));
    QCOMPARE(chart.seriesColours[0], QColor(113, 45, 194));
    QCOMPARE(chart.seriesColours[4], QColor(255, 128, 255));
}

void TotalChargesTest::titles_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("title");
    QTest::newRow("whole bill") << 0 << QString() << "Total Charges Trend for Whole Bill";
    QTest::newRow("number") << 6 << "0100"
                            << "Total Charges Trend for 0100";
    QTest::newRow("cost centre") << 2 << "North"
                                 << "Total Charges Trend where Cost Centre Level 2 = North";
    QTest::newRow("no cost centre")
        << 1 << QString() << "Total Charges Trend where Cost Centre Level 1 = No Cost Centre Selected";
}

void TotalChargesTest::titles() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(QString, title);
    TrendFixture f;
    f.number("0100", {QVariant(), "North"});
    f.add(Date(2012, 1, 31), "0100", {{Usage, pounds(1)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, level, value);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->caption, title);
    QCOMPARE(result.report->charts.front().title, title);
}

void TotalChargesTest::filterSelectsTheCostCentresNumbers_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("usage");
    QTest::newRow("whole bill") << 0 << QString() << 1 << "£111.00";
    QTest::newRow("cost centre") << 1 << "Sales" << 1 << "£11.00";
    QTest::newRow("name with a quote") << 1 << "St John's" << 1 << "£100.00";
    QTest::newRow("no cost centre") << 1 << QString() << 1 << "£0.00";
    QTest::newRow("one number") << 6 << "0200" << 1 << "£10.00";
    QTest::newRow("centre without numbers") << 1 << "Empty" << 2 << QString();
    QTest::newRow("number not in the table") << 6 << "0999" << 2 << QString();
}

void TotalChargesTest::filterSelectsTheCostCentresNumbers() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(int, status);
    QFETCH(QString, usage);
    TrendFixture f;
    f.number("0100", {"Sales"});
    f.number("0200", {"Sales"});
    f.number("0300", {"St John's"});
    f.number("0400", {""});
    const Date jan(2012, 1, 31);
    f.add(jan, "0100", {{Usage, pounds(1)}});
    f.add(jan, "0200", {{Usage, pounds(10)}});
    f.add(jan, "0300", {{Usage, pounds(100)}});
    f.add(jan, "0400", {});
    f.add(jan, "0999", {});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, level, value);
    QCOMPARE(result.status, status);
    if (status == 1)
        QCOMPARE(result.report->grid.text(1, 1), usage);
    else
        QVERIFY(!result.report);
}

void TotalChargesTest::percentChange_data() {
    QTest::addColumn<double>("previous");
    QTest::addColumn<double>("present");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("rise from positive") << 100.0 << 150.0 << "+50.00%" << riseColour();
    QTest::newRow("fall from positive") << 200.0 << 150.0 << "-25.00%" << fallColour();
    QTest::newRow("rise from negative") << -200.0 << -50.0 << "+75.00%" << riseColour();
    QTest::newRow("fall from negative shows no sign") << -100.0 << -150.0 << "50.00%" << fallColour();
    QTest::newRow("rise from zero") << 0.0 << 10.0 << "" << QColor();
    QTest::newRow("fall from zero") << 0.0 << -10.0 << "" << QColor();
    QTest::newRow("equal") << 80.0 << 80.0 << "0.00%" << QColor();
    QTest::newRow("both zero") << 0.0 << 0.0 << "0.00%" << QColor();
    QTest::newRow("no grouping") << 1.0 << 12345.67 << "+1234467.00%" << riseColour();
    QTest::newRow("a third") << 3.0 << 4.0 << "+33.33%" << riseColour();
}

void TotalChargesTest::percentChange() {
    QFETCH(double, previous);
    QFETCH(double, present);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    TrendFixture f;
    // The total is split over two families, so it is the total that is compared.
    f.add(Date(2012, 1, 31), "0100", {{Usage, pounds(previous / 2)}, {OneOff, pounds(previous / 2)}});
    f.add(Date(2012, 2, 29), "0100", {{Recurring, pounds(present)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->grid.text(6, 2), text);
    QCOMPARE(result.report->grid.cell(6, 2).foreColor, colour);
}

void TotalChargesTest::oneBillDateHasNoPercent() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{Usage, pounds(5)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->grid.colCount(), 2);
    QCOMPARE(result.report->grid.text(6, 1), QString());
    QCOMPARE(result.report->charts.front().pointCount(), 1);
}

void TotalChargesTest::thirtyBillDatesKeepTheLast24() {
    TrendFixture f;
    for (int i = 0; i < 30; ++i)
        f.add(month(i), "0100", {{Usage, pounds(i + 1)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.grid.colCount(), 25);
    // Bills 7 to 30 stay (the sixth is the last one dropped).
    QCOMPARE(r.grid.text(0, 1), QStringLiteral("15/07/2010"));
    QCOMPARE(r.grid.text(1, 1), QStringLiteral("£7.00"));
    QCOMPARE(r.grid.text(6, 1), QString());
    QCOMPARE(r.grid.text(0, 24), QStringLiteral("15/06/2012"));
    QCOMPARE(r.grid.text(6, 24), QStringLiteral("+3.45%")); // 29 to 30
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.pointCount(), 24);
    QCOMPARE(chart.pointLabel(0), QStringLiteral("15/07/2010"));
    QCOMPARE(chart.value(1, 23), std::optional<double>(30));
}

void TotalChargesTest::largeSingleChargesScaleTheChart() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{Usage, pounds(1234567)}, {Recurring, pounds(500)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.grid.text(1, 1), QStringLiteral("£1,234,567.00")); // the grid is never scaled
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.seriesLabels(),
             (QStringList{"Total Charges / 1000", "Usage Charges / 1000", "Recurring Charges / 1000",
                          "One Off Charges / 1000", "Adjustments / 1000"}));
    QCOMPARE(chart.value(1, 0), std::optional<double>(1234.567));
    QCOMPARE(chart.value(2, 0), std::optional<double>(0.5));
    QCOMPARE(chart.value(0, 0), std::optional<double>(1235.067));
}

void TotalChargesTest::totalsDoNotSetTheScale() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100",
          {{Usage, pounds(9000)}, {Recurring, pounds(9000)}, {OneOff, pounds(9000)}, {Adjust, pounds(9000)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(result.report->grid.text(5, 1), QStringLiteral("£36,000.00"));
    QCOMPARE(result.report->charts.front().seriesLabel(0), QStringLiteral("Total Charges"));
    QCOMPARE(result.report->charts.front().value(0, 0), std::optional<double>(36000));
}

void TotalChargesTest::missingFamilySumTakesTheErrorPath() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{Usage, pounds(5)}});
    f.add(Date(2012, 2, 29), "0100", {{Recurring, std::nullopt}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_TotalCharges(rc, 2, QStringLiteral("North"));
    QCOMPARE(result.status, 2); // no numbers under North: no error
    const ReportResult failed = TrendReport_TotalCharges(rc, 0, QString());
    QCOMPARE(failed.status, 3);
    QVERIFY(!failed.report);
    QCOMPARE(f.dialogs.messages.size(), size_t(1));
    QCOMPARE(f.dialogs.messages.front().icon, MessageIcon::None);
    QCOMPARE(f.dialogs.messages.front().text, QStringLiteral("150:Invalid use of Null"));
    QVERIFY2(f.logText().contains(
                 QStringLiteral("   TrendReport_TotalCharges(0, \"\")   Error#94:Invalid use of Null\n")),
             qPrintable(f.logText()));
}

VANTREL_TEST(TotalChargesTest);
#include "tst_totalcharges.moc"
