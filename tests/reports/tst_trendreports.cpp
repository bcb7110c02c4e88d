// The trend reports (1 to 5): whole reports against golden files, then the rules that
// golden files would only restate: the change in percent, the chart's scale, the window
// of dates, the Top 10 ranking, and the failures.
#include "Golden.h"
#include "TestRegistry.h"
#include "reports/ReportFrame.h"
#include "reports/ReportNavigation.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

using namespace trendColumn;
const Date Jan(2012, 1, 31);
const Date Feb(2012, 2, 29);

Date month(int i) {
    return Date(2010, 1, 15).addMonths(i);
}

} // namespace

class TrendReportsTest : public QObject {
    Q_OBJECT
private slots:
    void reportsMatchTheirGoldenFiles_data();
    void reportsMatchTheirGoldenFiles();
    void percentChange_data();
    void percentChange();
    void chartScale_data();
    void chartScale();
    void windowKeepsTheLast24Dates();
    void top10RanksTiesByNameAndNegativesLastAndCanStop();
    void top10AgreesWithOneQueryPerCentreAndDate();
    void statuses_data();
    void statuses();
};

void TrendReportsTest::reportsMatchTheirGoldenFiles_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<ReportParams>("params");
    QTest::newRow("total charges, whole bill") << "total-whole" << totalChargesParams(0, "");
    QTest::newRow("total charges of a centre") << "total-sales" << totalChargesParams(1, "Sales");
    QTest::newRow("usage items") << "individual-usage" << individualChargesParams(0, "", 1);
    QTest::newRow("usage items of a centre")
        << "individual-usage-sales" << individualChargesParams(1, "Sales", 1);
    QTest::newRow("one off items of a number")
        << "individual-oneoff-0200" << individualChargesParams(6, "0200", 3);
    QTest::newRow("adjustments") << "individual-adjustments" << individualChargesParams(0, "", 4);
    QTest::newRow("service type, whole bill") << "service-whole" << serviceParams(0, "");
    QTest::newRow("service type of a centre") << "service-north" << serviceParams(2, "North");
    QTest::newRow("one product") << "service-p1" << serviceLevel2Params(0, "", "P1");
    QTest::newRow("a product with quotes") << "service-quotes" << serviceLevel2Params(0, "", "O'Neil \"X\"");
    QTest::newRow("top 10 by total") << "top10-total" << top10Params(1, "", 5);
    QTest::newRow("top 10 by usage less telemarketing") << "top10-usage-level2" << top10Params(2, "", 1);
    QTest::newRow("top 10 by recurring") << "top10-recurring" << top10Params(1, "", 2);
    QTest::newRow("top 10 by one off") << "top10-oneoff" << top10Params(1, "", 3);
    QTest::newRow("top 10 by adjustments") << "top10-adjustments" << top10Params(1, "", 4);
    QTest::newRow("top 10 by telemarketing") << "top10-telemarketing" << top10Params(1, "", 6);
    QTest::newRow("top 10 from a start date") << "top10-from-february" << top10Params(1, "2012 Feb 29", 5);
}

// Each file was checked by hand against the bills laid out at fillThreeBills().
void TrendReportsTest::reportsMatchTheirGoldenFiles() {
    QFETCH(QString, file);
    QFETCH(ReportParams, params);
    TrendFixture f;
    fillThreeBills(f);
    ReportContext rc = f.context();
    const ReportResult result = RunReport(rc, params);
    QVERIFY2(result.shown(),
             qPrintable(QStringLiteral("status %1, log: %2").arg(result.status).arg(f.logText())));
    QCOMPARE(result.report->params, params);
    golden::compare(*result.report, file);
}

void TrendReportsTest::percentChange_data() {
    QTest::addColumn<QList<double>>("totals");
    // The percent row in reports 1 to 4 from the first date on, "|" between cells, and the
    // colours of the whole row.
    QTest::addColumn<QStringList>("percents");
    QTest::addColumn<QStringList>("colours");
    const auto all = [](const char* text) { return QStringList(4, QString::fromUtf8(text)); };
    const auto but1 = [](const char* one, const char* rest) {
        return QStringList{one} + QStringList(3, rest);
    };
    QTest::newRow("rise") << QList<double>{100, 150} << all("|+50.00%") << all("..R");
    QTest::newRow("fall") << QList<double>{200, 150} << all("|-25.00%") << all("..G");
    QTest::newRow("rise from negative") << QList<double>{-200, -50} << all("|+75.00%") << all("..R");
    QTest::newRow("fall from negative, unsigned in 1")
        << QList<double>{-100, -150} << but1("|50.00%", "|-50.00%") << all("..G");
    QTest::newRow("rise from zero") << QList<double>{0, 10} << all("|") << all("...");
    QTest::newRow("fall from zero") << QList<double>{0, -10} << all("|") << all("...");
    QTest::newRow("equal") << QList<double>{80, 80} << all("|0.00%") << all("...");
    QTest::newRow("both zero") << QList<double>{0, 0} << all("|0.00%") << all("...");
    QTest::newRow("a third") << QList<double>{3, 4} << all("|+33.33%") << all("..R");
    QTest::newRow("grouped but in 1")
        << QList<double>{1, 12345.67} << but1("|+1234467.00%", "|+1,234,467.00%") << all("..R");
    // Reports 2 and 3 carry the colour of the last change into a cell without one; report
    // 3 keeps it for a "0.00%" from 0 too, report 2 never colours a "0.00%".
    QTest::newRow("colours after a change from 0")
        << QList<double>{100, 150, 0, 5, 5, 0, 0} << all("|+50.00%|-100.00%||0.00%|-100.00%|0.00%")
        << QStringList{"..RG..G.", "..RGG.G.", "..RGG.GG", "..RG..G."};
}

void TrendReportsTest::percentChange() {
    QFETCH(QList<double>, totals);
    QFETCH(QStringList, percents);
    QFETCH(QStringList, colours);
    TrendFixture f;
    for (int i = 0; i < totals.size(); ++i)
        f.add(month(i), "0100", {{Adjust, pounds(totals[i])}, {PreTax, pounds(totals[i])}}, "P1");
    ReportContext rc = f.context();
    const ReportParams reports[] = {totalChargesParams(0, ""), individualChargesParams(0, "", 4),
                                    serviceParams(0, ""), serviceLevel2Params(0, "", "P1")};
    for (int r = 0; r < 4; ++r) {
        const ReportResult result = RunReport(rc, reports[r]);
        QVERIFY(result.shown());
        const ReportGrid& grid = result.report->grid;
        QStringList texts;
        QString map;
        for (int c = 0; c < grid.colCount(); ++c) {
            texts << grid.text(grid.rowCount() - 1, c);
            map += golden::colourLetter(grid.cell(grid.rowCount() - 1, c).foreColor);
        }
        QCOMPARE(QStringLiteral("report %1: %2 %3").arg(r + 1).arg(texts.mid(1).join(QLatin1Char('|')), map),
                 QStringLiteral("report %1: %2 %3").arg(r + 1).arg(percents[r], colours[r]));
    }
}

void TrendReportsTest::chartScale_data() {
    QTest::addColumn<QList<TrendRow>>("rows"); // each number in the cost centre of its product's name
    QTest::addColumn<ReportParams>("params");
    QTest::addColumn<QString>("label"); // of the first series; of the chart for the top 10
    QTest::addColumn<double>("value");  // the first series' first point
    QTest::newRow("9,999.9999")
        << QList<TrendRow>{{Jan, "0100", "P1", {{Usage, Money::fromRaw(99999999)}}, {}}}
        << totalChargesParams(0, "") << "Total Charges" << 9999.9999;
    QTest::newRow("10,000") << QList<TrendRow>{{Jan, "0100", "P1", {{Usage, pounds(10000)}}, {}}}
                            << totalChargesParams(0, "") << "Total Charges / 10" << 1000.0;
    QTest::newRow("nine digits") << QList<TrendRow>{{Jan, "0100", "P1", {{Usage, pounds(100000000)}}, {}}}
                                 << totalChargesParams(0, "") << "Total Charges / 100000" << 1000.0;
    QTest::newRow("total charges: a family")
        << QList<TrendRow>{{Jan, "0100", "P1", {{Usage, pounds(1234567)}, {Recurring, pounds(500)}}, {}}}
        << totalChargesParams(0, "") << "Total Charges / 1000" << 1235.067;
    QTest::newRow("total charges: not the total")
        << QList<TrendRow>{{Jan, "0100", "P1", {{Usage, pounds(9000)}, {Recurring, pounds(9000)}}, {}}}
        << totalChargesParams(0, "") << "Total Charges" << 18000.0;
    QTest::newRow("service type: the total")
        << QList<TrendRow>{{Jan, "0100", "A", {{PreTax, pounds(600000)}}, {}},
                           {Jan, "0100", "B", {{PreTax, pounds(634567)}}, {}}}
        << serviceParams(0, "") << "Total Service Charges / 1000" << 1234.567;
    QTest::newRow("individual charges: the total row")
        << QList<TrendRow>{{Jan, "0100", "P1", {{"Connection", pounds(9000)}, {OneOff, pounds(12345)}}, {}}}
        << individualChargesParams(0, "", 3) << "Connection / 10" << 900.0;
    // Small is ranked last, so Big's 1,234,567 over two bills sets the scale.
    QTest::newRow("top 10: a centre's whole cost")
        << QList<TrendRow>{{Jan, "B1", "Big", {{Usage, pounds(1000000)}}, {}},
                           {Feb, "B1", "Big", {{Usage, pounds(234567)}}, {}},
                           {Jan, "S1", "Small", {{Usage, pounds(5)}}, {}}}
        << top10Params(1, "", 5) << "Top 10 Cost Centres by Total Charges (£ / 1000)" << 1000.0;
    QTest::newRow("top 10: never the last centre")
        << QList<TrendRow>{{Jan, "B1", "Big", {{Usage, pounds(1234567)}}, {}}} << top10Params(1, "", 5)
        << "Top 10 Cost Centres by Total Charges" << 1234567.0;
}

void TrendReportsTest::chartScale() {
    QFETCH(QList<TrendRow>, rows);
    QFETCH(ReportParams, params);
    QFETCH(QString, label);
    QFETCH(double, value);
    TrendFixture f;
    for (const TrendRow& row : rows) {
        f.number(row.service, {row.product});
        f.add(row);
    }
    ReportContext rc = f.context();
    const ReportResult result = RunReport(rc, params);
    QVERIFY(result.shown());
    const ReportChart& chart = result.report->charts.front();
    QCOMPARE(reportNumberOf(params) == ReportNumber::Top10CC ? chart.title : chart.seriesLabel(0), label);
    QCOMPARE(chart.value(0, 0), std::optional<double>(value));
}

// Thirty monthly bills cost 1 to 30; the reports keep bills 7 to 30 (the Top 10 keeps 12,
// see the query below). A product of the first bill alone goes with it, cost and all.
void TrendReportsTest::windowKeepsTheLast24Dates() {
    TrendFixture f;
    f.add(month(0), "0100", {{PreTax, pounds(1000)}}, "OLD");
    for (int i = 0; i < 30; ++i)
        f.add(month(i), "0100", {{Usage, pounds(i + 1)}, {PreTax, pounds(i + 1)}}, "NEW");
    ReportContext rc = f.context();
    for (const ReportParams& params : {totalChargesParams(0, ""), individualChargesParams(0, "", 1),
                                       serviceParams(0, ""), serviceLevel2Params(0, "", "NEW")}) {
        const ReportResult result = RunReport(rc, params);
        QVERIFY(result.shown());
        const ReportGrid& grid = result.report->grid;
        const int totals = grid.rowCount() - 2;
        QCOMPARE(grid.colCount(), 25);
        QCOMPARE(grid.text(0, 1), QStringLiteral("15/07/2010"));
        QCOMPARE(grid.text(totals, 1), QStringLiteral("£7.00"));
        QCOMPARE(grid.text(totals + 1, 1), QString()); // no change into the first column shown
        QCOMPARE(grid.text(totals, 24), QStringLiteral("£30.00"));
        QCOMPARE(grid.text(totals + 1, 24), QStringLiteral("+3.45%"));
        const ReportChart& chart = result.report->charts.front();
        QCOMPARE(chart.pointCount(), 24);
        QCOMPARE(chart.value(reportNumberOf(params) == 2 ? chart.seriesCount() - 1 : 0, 0),
                 std::optional<double>(7));
        if (reportNumberOf(params) == ReportNumber::Service)
            for (int c = 1; c < 25; ++c)
                QCOMPARE(grid.text(2, c), QStringLiteral("£0.00")); // OLD
    }
}

void TrendReportsTest::top10RanksTiesByNameAndNegativesLastAndCanStop() {
    TrendFixture f;
    for (const char* name : {"Alpha", "beta", "Dead", "Even", "Neg"})
        f.number(QString::fromUtf8(name).left(1), {QString::fromUtf8(name)});
    f.add(Jan, "A", {{Usage, pounds(60)}});
    f.add(Feb, "A", {{Recurring, pounds(40)}});
    f.add(Jan, "b", {{OneOff, pounds(100)}});
    f.add(Jan, "D", {});
    f.add(Jan, "E", {{Adjust, pounds(10)}});
    f.add(Feb, "E", {{Adjust, pounds(-10)}});
    f.add(Feb, "N", {{Usage, pounds(-50)}});
    QList<QPair<qint64, qint64>> calls;
    ReportContext rc = f.context([&](qint64 done, qint64 total) {
        calls.append({done, total});
        return calls.size() <= 3 || done < 1; // the second report stops after one date
    });
    const ReportResult result = RunReport(rc, top10Params(1, "", 5));
    QVERIFY(result.shown());
    QCOMPARE(calls, (QList<QPair<qint64, qint64>>{{0, 2}, {1, 2}, {2, 2}}));
    const ReportChart& chart = result.report->charts.front();
    // Equal totals go by name in any case; a zero total made of non-zero parts shows,
    // a centre with nothing but zeros does not, and a negative total comes last.
    QCOMPARE(chart.pointLabels(), (QStringList{"1. Alpha", "2. beta", "3. Even", "4. Neg"}));
    const double expected[4][2] = {{60, 40}, {100, 0}, {10, -10}, {0, -50}};
    for (int p = 0; p < 4; ++p)
        for (int d = 0; d < 2; ++d)
            QCOMPARE(chart.value(d, p), std::optional<double>(expected[p][d]));
    const ReportResult stopped = RunReport(rc, top10Params(1, "", 5));
    QCOMPARE(stopped.status, ReportStatus::NotProduced);
    QVERIFY(!stopped.report);
}

// Random bills against the ranking worked out in SQL: a sum per centre and date over the
// centre's numbers, a missing sum counting 0, and SQL's ordering.
void TrendReportsTest::top10AgreesWithOneQueryPerCentreAndDate() {
    TrendFixture f;
    QRandomGenerator random(20120131);
    const QStringList names{"North", "south", "East", "west", "Central", "",    "Depot",
                            "Field", "Hq",    "Lab",  "Port", "Yard",    "Zone"};
    f.ctx.trendDb.exec(QStringLiteral("CREATE TEMP TABLE Centres (TelNo TEXT, Centre TEXT)"));
    for (int n = 0; n < 60; ++n) {
        const QString name = names[int(random.bounded(names.size()))];
        f.number(QStringLiteral("N%1").arg(n), {"x", name.isEmpty() && n % 2 ? QVariant() : QVariant(name)});
        f.ctx.trendDb.exec(QStringLiteral("INSERT INTO Centres VALUES (?, ?)"), QStringLiteral("N%1").arg(n),
                           name.isEmpty() ? QStringLiteral("No Cost Centre Selected") : name);
    }
    const auto amount = [&]() -> std::optional<Money> {
        return random.bounded(10) == 0 ? std::nullopt
                                       : std::optional(Money::fromRaw(random.bounded(-50000, 2000000)));
    };
    for (int d = 0; d < 14; ++d)
        for (int n = 0; n < 70; ++n)
            if (random.bounded(4) != 0) {
                std::map<QString, std::optional<Money>> amounts;
                for (const QString& column : {Usage, Recurring, OneOff, Adjust, Tele})
                    amounts[column] = amount();
                f.add(month(d), QStringLiteral("N%1").arg(n), amounts);
            }
    ReportContext rc = f.context();
    const ReportChart chart = RunReport(rc, top10Params(2, QString(), 1)).report->charts.front();
    const int at = chart.title.indexOf(QStringLiteral("(£ / "));
    const double scale = at < 0 ? 1 : chart.title.mid(at + 5).chopped(1).toDouble();

    Statement st(f.ctx.trendDb,
                 "WITH d AS (SELECT DISTINCT BillDate FROM TblSummaryTrend ORDER BY BillDate DESC LIMIT 12), "
                 "s AS (SELECT c.Centre, d.BillDate, (SELECT ifnull(SUM(\"Usage Charges\"), 0) - "
                 "ifnull(SUM(Telemarketing), 0) FROM TblSummaryTrend t WHERE t.BillDate = d.BillDate AND "
                 "t.\"Service No\" IN (SELECT TelNo FROM Centres WHERE Centre = c.Centre)) AS Cost "
                 "FROM (SELECT DISTINCT Centre FROM Centres) c, d), "
                 "r AS (SELECT Centre, SUM(Cost) AS Total FROM s GROUP BY Centre HAVING MAX(Cost <> 0) "
                 "ORDER BY Total DESC, Centre COLLATE NOCASE LIMIT 10) "
                 "SELECT Centre, Cost FROM r JOIN s USING (Centre) ORDER BY Total DESC, Centre COLLATE "
                 "NOCASE, BillDate");
    QStringList labels;
    for (int i = 0; st.step(); ++i) {
        if (i % 12 == 0)
            labels << QStringLiteral("%1. %2").arg(labels.size() + 1).arg(st.text(0));
        QCOMPARE(chart.value(i % 12, int(labels.size()) - 1),
                 std::optional<double>(double(st.int64(1)) / 10000.0 / scale));
    }
    QCOMPARE(chart.pointLabels(), labels);
    QCOMPARE(chart.seriesCount(), 12);
}

void TrendReportsTest::statuses_data() {
    QTest::addColumn<ReportParams>("params");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message"); // the one message shown, if any
    QTest::addColumn<QString>("log");     // a line of the error log, if any
    const QString null = QStringLiteral("Error#94:Invalid use of Null");
    const QString none;
    QTest::newRow("total charges, a family sum missing")
        << totalChargesParams(0, "") << 3 << "150:Invalid use of Null"
        << "   TrendReport_TotalCharges(0, \"\")   " + null + "\n";
    QTest::newRow("the same, a centre without numbers")
        << totalChargesParams(2, "Nowhere") << 2 << none << none;
    QTest::newRow("a number not in the project") << totalChargesParams(6, "0999") << 2 << none << none;
    QTest::newRow("individual charges, the total missing")
        << individualChargesParams(1, "", 2) << 3 << none
        << "   TrendReport_IndividualCharges(1, \"\", 2)   " + null + ". Location:150\n";
    QTest::newRow("individual charges, view 0") << individualChargesParams(0, "", 0) << 4 << none << none;
    QTest::newRow("individual charges, view 5") << individualChargesParams(0, "", 5) << 4 << none << none;
    QTest::newRow("service type, a centre without numbers")
        << serviceParams(1, "Finance") << 2 << none << none;
    QTest::newRow("top 10, level 0") << top10Params(0, "", 5) << 3 << none
                                     << QStringLiteral("   TrendReport_Top10CC(0, \"\", 5)   Error#");
    QTest::newRow("top 10, no bill from the start date")
        << top10Params(1, "2013 Jan 01", 5) << 2 << none << none;
    QTest::newRow("report 11") << ReportParams{11, 1} << 0 << none << none;
    QTest::newRow("no report") << ReportParams{} << 0 << none << none;
}

void TrendReportsTest::statuses() {
    QFETCH(ReportParams, params);
    QFETCH(int, status);
    QFETCH(QString, message);
    QFETCH(QString, log);
    TrendFixture f;
    f.number("0100", {"", "North"});
    f.add(Jan, "0100", {{Usage, pounds(5)}});
    f.add(Feb, "0100", {{Recurring, std::nullopt}});
    ReportContext rc = f.context();
    const ReportResult result = RunReport(rc, params);
    QCOMPARE(result.status, status);
    QCOMPARE(result.report.has_value(), status == ReportStatus::Shown);
    QCOMPARE(f.dialogs.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    QVERIFY2(log.isEmpty() ? f.logText().isEmpty() : f.logText().contains(log), qPrintable(f.logText()));
}

VANTREL_TEST(TrendReportsTest);
#include "tst_trendreports.moc"
