#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/TrendReports.h"

#include <QTest>

namespace {

const QString Adjust = QStringLiteral("Adjustments");

QStringList column(const Report& r, int col) {
    QStringList out;
    for (int row = 0; row < r.grid.rowCount(); ++row)
        out << r.grid.text(row, col);
    return out;
}

QStringList row(const Report& r, int line) {
    QStringList out;
    for (int c = 0; c < r.grid.colCount(); ++c)
        out << r.grid.text(line, c);
    return out;
}

} // namespace

class IndividualChargesTest : public QObject {
    Q_OBJECT
private slots:
    void viewOutsideTheFamiliesIsRefused_data();
    void viewOutsideTheFamiliesIsRefused();
    void titles_data();
    void titles();
    void usageItemsSumTheirColumnsAndTheTotalIsStored();
    void adjustmentsViewHasThreeRows();
    void percentChange_data();
    void percentChange();
    void colourFollowsTheLastPercentIntoEmptyCells();
    void missingItemSumShowsZero();
    void missingTotalTakesTheErrorPath();
    void theTotalRowSetsTheScale();
};

void IndividualChargesTest::viewOutsideTheFamiliesIsRefused_data() {
    QTest::addColumn<int>("view");
    QTest::newRow("0") << 0;
    QTest::newRow("5") << 5;
    QTest::newRow("-1") << -1;
}

void IndividualChargesTest::viewOutsideTheFamiliesIsRefused() {
    QFETCH(int, view);
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_IndividualCharges(rc, 0, QString(), view);
    QCOMPARE(result.status, 4);
    QVERIFY(f.dialogs.messages.empty());
    QVERIFY(f.logText().isEmpty());
}

void IndividualChargesTest::titles_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("view");
    QTest::addColumn<QString>("title");
    QTest::newRow("usage, whole bill") << 0 << QString() << 1 << "Usage Charges for Whole Bill";
    QTest::newRow("recurring, whole bill") << 0 << QString() << 2 << "Recurring Charges for Whole Bill";
    QTest::newRow("one off, whole bill") << 0 << QString() << 3 << "Connection for Whole Bill";
    QTest::newRow("adjustments, whole bill") << 0 << QString() << 4 << "Total Adjustments for Whole Bill";
    QTest::newRow("usage, number") << 6 << "0100" << 1 << "Zandel Chargecard for 0100";
    QTest::newRow("recurring, number") << 6 << "0100" << 2 << "Line Rental for 0100";
    QTest::newRow("usage, centre") << 3 << "North" << 1 << "Usage Charges where Cost Centre Level 3 = North";
    QTest::newRow("one off, no centre")
        << 2 << QString() << 3 << "Connection where Cost Centre Level 2 = No Cost Centre Selected";
}

void IndividualChargesTest::titles() {
    QFETCH(int, level);
    QFETCH(QString, value);
    QFETCH(int, view);
    QFETCH(QString, title);
    TrendFixture f;
    f.number("0100", {"", "", "North"});
    f.add(Date(2012, 1, 31), "0100", {});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_IndividualCharges(rc, level, value, view);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->caption, title);
    QCOMPARE(result.report->charts.front().title, title);
    QCOMPARE(result.report->params, (ReportParams{2, level, value, view}));
    QVERIFY(!result.report->noteVisible);
}

void IndividualChargesTest::usageItemsSumTheirColumnsAndTheTotalIsStored() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100",
          {{"Zandel Chargecard Local", pounds(1)},
           {"Zandel Chargecard National", pounds(2)},
           {"ZandelChargecard Inernational", pounds(3)},
           {"Zandel Chargecard Mobile and Premium Rate", pounds(4)},
           {"Zandel Chargecard Other", pounds(5)},
           {"Direct Dialled Local Rate", pounds(7)},
           {"Network Services Facilities", pounds(8)},
           {"Mobile Inclusive Calls", pounds(9)},
           {"Operator", pounds(10)},
           {"Telemarketing", pounds(11)},
           {"Information Services", pounds(12)},
           {"Usage Other", pounds(13)},
           {"Usage Discount", pounds(-14)},
           {"Usage Charges", pounds(100)}});
    f.add(Date(2012, 1, 31), "0200",
          {{"Zandel Chargecard Local", pounds(0.5)},
           {"Zandel Chargecard National", pounds(0)},
           {"ZandelChargecard Inernational", pounds(0)},
           {"Zandel Chargecard Mobile and Premium Rate", pounds(0)},
           {"Zandel Chargecard Other", pounds(0)},
           {"Usage Charges", pounds(0.5)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_IndividualCharges(rc, 0, QString(), 1);
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.grid.rowCount(), 12);
    QCOMPARE(r.grid.colCount(), 2);
    QCOMPARE(column(r, 0),
             (QStringList{"Date", "Zandel Chargecard (£)", "Direct Dialled (£)", "Network Services (£)",
                          "From Mobile (£)", "Operator (£)", "Telemarketing (£)", "Information Services (£)",
                          "Usage Other (£)", "Usage Discount (£)", "Total Usage Charges (£)",
                          "Percent Change (%)"}));
    // A part of an item that is missing leaves that row out of the item's sum, so only
    // rows with all five card columns count, and the other items of 0100 are missing.
    QCOMPARE(column(r, 1), (QStringList{"31/01/2012", "£15.50", "£0.00", "£0.00", "£0.00", "£10.00", "£11.00",
                                        "£12.00", "£13.00", "-£14.00", "£100.50", ""}));
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.seriesCount(), 10);
    QCOMPARE(chart.seriesLabel(0), QStringLiteral("Zandel Chargecard"));
    QCOMPARE(chart.seriesLabel(9), QStringLiteral("Total Usage Charges"));
    QCOMPARE(chart.value(0, 0), std::optional<double>(15.5));
    QCOMPARE(chart.value(1, 0), std::optional<double>(0));
    QCOMPARE(chart.value(9, 0), std::optional<double>(100.5));
    QCOMPARE(chart.seriesColours.size(), size_t(10));
    QCOMPARE(chart.seriesColours[9], QColor(178, 2, 214));
}

void IndividualChargesTest::adjustmentsViewHasThreeRows() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{Adjust, pounds(-3)}});
    f.add(Date(2012, 2, 29), "0100", {{Adjust, pounds(-6)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_IndividualCharges(rc, 0, QString(), 4);
    const Report& r = *result.report;
    QCOMPARE(r.grid.rowCount(), 3);
    QCOMPARE(row(r, 1), (QStringList{"Total Adjustments (£)", "-£3.00", "-£6.00"}));
    QCOMPARE(row(r, 2), (QStringList{"Percent Change (%)", "", "-100.00%"}));
    QCOMPARE(r.grid.cell(2, 2).foreColor, fallColour());
    for (int c = 0; c < 3; ++c) {
        QVERIFY(r.grid.cell(0, c).bold);
        QVERIFY(r.grid.cell(1, c).bold);
        QVERIFY(r.grid.cell(2, c).bold);
    }
    QCOMPARE(r.grid.column(0).colData, 0);
    QCOMPARE(r.grid.column(1).colData, 2);
    QCOMPARE(r.grid.column(2).widthTwips, 2000);
}

void IndividualChargesTest::percentChange_data() {
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
    QTest::newRow("a third") << 3.0 << 4.0 << "+33.33%" << riseColour();
}

void IndividualChargesTest::percentChange() {
    QFETCH(double, previous);
    QFETCH(double, present);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{Adjust, pounds(previous)}});
    f.add(Date(2012, 2, 29), "0100", {{Adjust, pounds(present)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_IndividualCharges(rc, 0, QString(), 4);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->grid.text(2, 2), text);
    QCOMPARE(result.report->grid.cell(2, 2).foreColor, colour);
}

void IndividualChargesTest::colourFollowsTheLastPercentIntoEmptyCells() {
    TrendFixture f;
    const double totals[] = {100, 150, 0, 5, 5};
    for (int i = 0; i < 5; ++i)
        f.add(Date(2012, 1, 1).addMonths(i), "0100", {{Adjust, pounds(totals[i])}});
    ReportContext rc = f.context();
    const Report r = *TrendReport_IndividualCharges(rc, 0, QString(), 4).report;
    QCOMPARE(row(r, 2), (QStringList{"Percent Change (%)", "", "+50.00%", "-100.00%", "", "0.00%"}));
    QCOMPARE(r.grid.cell(2, 1).foreColor, QColor());
    QCOMPARE(r.grid.cell(2, 2).foreColor, riseColour());
    QCOMPARE(r.grid.cell(2, 3).foreColor, fallColour());
    QCOMPARE(r.grid.cell(2, 4).foreColor, fallColour()); // empty, yet coloured by the fall before it
    QCOMPARE(r.grid.cell(2, 5).foreColor, QColor());
}

void IndividualChargesTest::missingItemSumShowsZero() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100",
          {{"Connection", std::nullopt}, {"One Off Charges and Credits", pounds(2)}});
    ReportContext rc = f.context();
    const Report r = *TrendReport_IndividualCharges(rc, 0, QString(), 3).report;
    QCOMPARE(column(r, 1), (QStringList{"31/01/2012", "£0.00", "£0.00", "£0.00", "£2.00", ""}));
    QCOMPARE(r.charts.front().value(0, 0), std::optional<double>(0));
}

void IndividualChargesTest::missingTotalTakesTheErrorPath() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{"Line Rental", pounds(2)}, {"Recurring Charges", std::nullopt}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_IndividualCharges(rc, 1, QString(), 2);
    QCOMPARE(result.status, 2); // the number has no cost-centre row, so nothing matches
    f.number("0100", {""});
    const ReportResult failed = TrendReport_IndividualCharges(rc, 1, QString(), 2);
    QCOMPARE(failed.status, 3);
    QVERIFY(f.dialogs.messages.empty());
    QVERIFY2(f.logText().contains(QStringLiteral(
                 "   TrendReport_IndividualCharges(1, \"\", 2)   Error#94:Invalid use of Null. "
                 "Location:150\n")),
             qPrintable(f.logText()));
}

void IndividualChargesTest::theTotalRowSetsTheScale() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100",
          {{"Connection", pounds(9000)}, {"One Off Charges and Credits", pounds(12345)}});
    ReportContext rc = f.context();
    const Report r = *TrendReport_IndividualCharges(rc, 0, QString(), 3).report;
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.seriesLabel(0), QStringLiteral("Connection / 10"));
    QCOMPARE(chart.seriesLabel(3), QStringLiteral("Total One Off Charges and Credits / 10"));
    QCOMPARE(chart.value(0, 0), std::optional<double>(900));
    QCOMPARE(chart.value(3, 0), std::optional<double>(1234.5));
    QCOMPARE(r.grid.text(4, 1), QStringLiteral("£12,345.00"));
}

VANTREL_TEST(IndividualChargesTest);
#include "tst_individualcharges.moc"
