#include "TestRegistry.h"
#include "TrendFixture.h"
#include "data/ReferenceData.h"
#include "reports/TrendReports.h"

#include <QRandomGenerator>
#include <QTest>
#include <algorithm>

namespace {

const QString Usage = QStringLiteral("Usage Charges");
const QString Recurring = QStringLiteral("Recurring Charges");
const QString OneOff = QStringLiteral("One Off Charges and Credits");
const QString Adjust = QStringLiteral("Adjustments");
const QString Tele = QStringLiteral("Telemarketing");

const Date Jan(2012, 1, 31);
const Date Feb(2012, 2, 29);
const Date Mar(2012, 3, 31);

std::vector<std::optional<double>> pointValues(const ReportChart& chart, int point) {
    std::vector<std::optional<double>> out;
    for (int s = 0; s < chart.seriesCount(); ++s)
        out.push_back(chart.value(s, point));
    return out;
}

using Values = std::vector<std::optional<double>>;

// The scale a chart's title carries, 1 when none.
qint64 scaleOf(const ReportChart& chart) {
    const int at = chart.title.indexOf(QStringLiteral("(£ / "));
    return at < 0 ? 1 : chart.title.mid(at + 5).chopped(1).toLongLong();
}

} // namespace

class Top10Test : public QObject {
    Q_OBJECT
private slots:
    void rankingTiesNegativesAndCentresWithoutCost();
    void chartTypes_data();
    void chartTypes();
    void missingAndEmptyNamesShareOneCentre();
    void onlyTenCentresShow();
    void twelveLatestDatesAtMost();
    void fewerThanTwelveDates();
    void startDateLeavesEarlierDatesOut();
    void largeAccumulatedCostScalesTheChart();
    void theLastCentreReadDoesNotSetTheScale();
    void noBillDatesIsNoData();
    void levelWithoutCostCentresGivesAnEmptyChart();
    void levelOutsideOneToFiveIsAnError();
    void progressCountsDatesAndCanStop();
    void nameWithAQuote();
    void agreesWithOneQueryPerCentreAndDate();
};

void Top10Test::rankingTiesNegativesAndCentresWithoutCost() {
    TrendFixture f;
    f.number("A1", {"Alpha"});
    f.number("B1", {"beta"});
    f.number("D1", {"Dead"});
    f.number("E1", {"Even"});
    f.number("N1", {"Neg"});
    f.add(Jan, "A1", {{Usage, pounds(60)}});
    f.add(Feb, "A1", {{Recurring, pounds(40)}});
    f.add(Jan, "B1", {{OneOff, pounds(100)}});
    f.add(Jan, "D1", {});
    f.add(Jan, "E1", {{Adjust, pounds(10)}});
    f.add(Feb, "E1", {{Adjust, pounds(-10)}});
    f.add(Feb, "N1", {{Usage, pounds(-50)}});
    f.add(TrendRow{Feb, "N1", "P1", {{Usage, pounds(1000)}}, "OTHER"});
    ReportContext rc = f.context();

    const ReportResult result = TrendReport_Top10CC(rc, 1, QString(), 5);
    QCOMPARE(result.status, 1);
    const Report& r = *result.report;
    QCOMPARE(r.number, 5);
    QCOMPARE(r.params, (ReportParams{5, 1, QString(), 5}));
    QCOMPARE(r.form, ReportForm::ReportArea);
    QCOMPARE(r.caption, QStringLiteral("Top 10 Cost Centres by Total Charges"));
    QVERIFY(!r.keyVisible);
    QCOMPARE(r.grid.rowCount(), 0);
    QCOMPARE(r.charts.size(), size_t(1));
    const ReportChart& chart = r.charts.front();
    QCOMPARE(chart.type, ChartType::Bar2d);
    QVERIFY(chart.stacked);
    QVERIFY(chart.showLegend);
    QCOMPARE(chart.title, r.caption);
    QCOMPARE(chart.xAxisTitle, QStringLiteral("Cost Centres"));
    QCOMPARE(chart.yAxisTitle, QStringLiteral("Costs (£)"));
    QCOMPARE(chart.seriesLabels(), (QStringList{"31/01/2012", "29/02/2012"}));
    // Equal totals go by name in any case; a zero total made of non-zero parts shows,
    // a centre with nothing but zeros does not, and a negative total comes last.
    QCOMPARE(chart.pointLabels(), (QStringList{"1. Alpha", "2. beta", "3. Even", "4. Neg"}));
    QCOMPARE(pointValues(chart, 0), (Values{60.0, 40.0}));
    QCOMPARE(pointValues(chart, 1), (Values{100.0, 0.0}));
    QCOMPARE(pointValues(chart, 2), (Values{10.0, -10.0}));
    QCOMPARE(pointValues(chart, 3), (Values{0.0, -50.0}));
    QCOMPARE(chart.seriesColours.size(), size_t(2));
    QCOMPARE(chart.seriesColours[1], QColor(228, 56, 40));
}

void Top10Test::chartTypes_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<double>("cost");
    QTest::newRow("1") << 1 << "Top 10 Cost Centres by Usage Charges - Telemarketing" << 70.0;
    QTest::newRow("2") << 2 << "Top 10 Cost Centres by Recurring Charges" << 20.0;
    QTest::newRow("3") << 3 << "Top 10 Cost Centres by One Off Charges and Credits" << 3.0;
    QTest::newRow("4") << 4 << "Top 10 Cost Centres by Adjustments" << 0.4;
    QTest::newRow("5") << 5 << "Top 10 Cost Centres by Total Charges" << 123.4;
    QTest::newRow("6") << 6 << "Top 10 Cost Centres by Telemarketing" << 30.0;
    QTest::newRow("any other") << 0 << "Top 10 Cost Centres by Total Charges" << 123.4;
}

void Top10Test::chartTypes() {
    QFETCH(int, type);
    QFETCH(QString, caption);
    QFETCH(double, cost);
    TrendFixture f;
    f.number("S1", {"Solo"});
    f.number("S2", {"Solo"});
    f.add(Jan, "S1", {{Usage, pounds(100)}, {Recurring, pounds(20)}, {Tele, pounds(30)}});
    f.add(Jan, "S2", {{OneOff, pounds(3)}, {Adjust, pounds(0.4)}});
    ReportContext rc = f.context();
    const Report r = *TrendReport_Top10CC(rc, 1, QString(), type).report;
    QCOMPARE(r.caption, caption);
    QCOMPARE(r.params, (ReportParams{5, 1, QString(), type}));
    QCOMPARE(r.charts.front().pointLabels(), QStringList{"1. Solo"});
    QCOMPARE(r.charts.front().value(0, 0), std::optional<double>(cost));
}

void Top10Test::missingAndEmptyNamesShareOneCentre() {
    TrendFixture f;
    f.number("N1", {QVariant(), "x"});
    f.number("N2", {"", "y"});
    f.number("N3", {"Named"});
    f.add(Jan, "N1", {{Usage, pounds(5)}});
    f.add(Jan, "N2", {{Usage, pounds(7)}});
    f.add(Jan, "N3", {{Usage, pounds(1)}});
    ReportContext rc = f.context();
    const ReportChart chart = TrendReport_Top10CC(rc, 1, QString(), 5).report->charts.front();
    QCOMPARE(chart.pointLabels(), (QStringList{"1. No Cost Centre Selected", "2. Named"}));
    QCOMPARE(chart.value(0, 0), std::optional<double>(12));
}

void Top10Test::onlyTenCentresShow() {
    TrendFixture f;
    for (int i = 1; i <= 12; ++i) {
        const QString tel = QStringLiteral("T%1").arg(i);
        f.number(tel, {QStringLiteral("C%1").arg(i, 2, 10, QLatin1Char('0'))});
        f.add(Jan, tel, {{Usage, pounds(13 - i)}});
    }
    ReportContext rc = f.context();
    const ReportChart chart = TrendReport_Top10CC(rc, 1, QString(), 5).report->charts.front();
    QCOMPARE(chart.pointCount(), 10);
    QCOMPARE(chart.pointLabel(0), QStringLiteral("1. C01"));
    QCOMPARE(chart.pointLabel(9), QStringLiteral("10. C10"));
    QCOMPARE(chart.value(0, 9), std::optional<double>(3));
}

void Top10Test::twelveLatestDatesAtMost() {
    TrendFixture f;
    f.number("T1", {"Only"});
    for (int i = 0; i < 14; ++i)
        f.add(Date(2011, 1, 10).addMonths(i), "T1", {{Usage, pounds(i + 1)}});
    ReportContext rc = f.context();
    const ReportChart chart = TrendReport_Top10CC(rc, 1, QString(), 5).report->charts.front();
    QCOMPARE(chart.seriesCount(), 12);
    QCOMPARE(chart.seriesLabel(0), QStringLiteral("10/03/2011"));
    QCOMPARE(chart.seriesLabel(11), QStringLiteral("10/02/2012"));
    QCOMPARE(chart.value(0, 0), std::optional<double>(3));
    QCOMPARE(chart.value(11, 0), std::optional<double>(14));
}

void Top10Test::fewerThanTwelveDates() {
    TrendFixture f;
    f.number("T1", {"Only"});
    f.add(Jan, "T1", {{Usage, pounds(1)}});
    f.add(Feb, "T1", {{Usage, pounds(2)}});
    f.add(Mar, "T1", {{Usage, pounds(3)}});
    ReportContext rc = f.context();
    const ReportChart chart = TrendReport_Top10CC(rc, 1, QString(), 5).report->charts.front();
    QCOMPARE(chart.seriesLabels(), (QStringList{"31/01/2012", "29/02/2012", "31/03/2012"}));
    QCOMPARE(pointValues(chart, 0), (Values{1.0, 2.0, 3.0}));
    QCOMPARE(chart.seriesColours.size(), size_t(3));
}

void Top10Test::startDateLeavesEarlierDatesOut() {
    TrendFixture f;
    f.number("T1", {"Only"});
    f.add(Jan, "T1", {{Usage, pounds(1)}});
    f.add(Feb, "T1", {{Usage, pounds(2)}});
    f.add(Mar, "T1", {{Usage, pounds(3)}});
    ReportContext rc = f.context();
    const Report r = *TrendReport_Top10CC(rc, 1, QStringLiteral("2012 Feb 29"), 5).report;
    QCOMPARE(r.charts.front().seriesLabels(), (QStringList{"29/02/2012", "31/03/2012"}));
    QCOMPARE(r.params, (ReportParams{5, 1, QStringLiteral("2012 Feb 29"), 5}));
}

void Top10Test::largeAccumulatedCostScalesTheChart() {
    TrendFixture f;
    f.number("B1", {"Big"});
    f.number("S1", {"Small"});
    f.add(Jan, "B1", {{Usage, pounds(1000000)}});
    f.add(Feb, "B1", {{Usage, pounds(234567)}});
    f.add(Jan, "S1", {{Usage, pounds(5)}});
    ReportContext rc = f.context();
    const ReportChart chart = TrendReport_Top10CC(rc, 1, QString(), 5).report->charts.front();
    QCOMPARE(chart.title, QStringLiteral("Top 10 Cost Centres by Total Charges (£ / 1000)"));
    QCOMPARE(chart.yAxisTitle, QStringLiteral("Costs (£/1000)"));
    QCOMPARE(pointValues(chart, 0), (Values{1000.0, 234.567}));
    QCOMPARE(pointValues(chart, 1), (Values{0.005, 0.0}));
    // The date labels carry no scale.
    QCOMPARE(chart.seriesLabel(0), QStringLiteral("31/01/2012"));
}

void Top10Test::theLastCentreReadDoesNotSetTheScale() {
    TrendFixture f;
    f.number("B1", {"Big"});
    f.number("Z1", {"Zero"});
    f.add(Jan, "B1", {{Usage, pounds(1234567)}});
    ReportContext rc = f.context();
    const ReportChart alone = TrendReport_Top10CC(rc, 1, QString(), 5).report->charts.front();
    // "Zero" comes last and is the last centre read, so "Big" is compared.
    QCOMPARE(alone.title, QStringLiteral("Top 10 Cost Centres by Total Charges (£ / 1000)"));

    TrendFixture g;
    g.number("B1", {"Big"});
    g.add(Jan, "B1", {{Usage, pounds(1234567)}});
    ReportContext rc2 = g.context();
    const ReportChart single = TrendReport_Top10CC(rc2, 1, QString(), 5).report->charts.front();
    QCOMPARE(single.title, QStringLiteral("Top 10 Cost Centres by Total Charges"));
    QCOMPARE(single.value(0, 0), std::optional<double>(1234567));
}

void Top10Test::noBillDatesIsNoData() {
    TrendFixture f;
    f.number("T1", {"Only"});
    f.add(TrendRow{Jan, "T1", "P1", {{Usage, pounds(1)}}, "OTHER"});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_Top10CC(rc, 1, QString(), 5);
    QCOMPARE(result.status, 2);
    QVERIFY(!result.report);
}

void Top10Test::levelWithoutCostCentresGivesAnEmptyChart() {
    TrendFixture f;
    f.add(Jan, "T1", {{Usage, pounds(1)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_Top10CC(rc, 3, QString(), 5);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->charts.front().pointCount(), 0);
    QCOMPARE(result.report->charts.front().seriesCount(), 1);
}

void Top10Test::levelOutsideOneToFiveIsAnError() {
    TrendFixture f;
    f.number("T1", {"Only"});
    f.add(Jan, "T1", {{Usage, pounds(1)}});
    ReportContext rc = f.context();
    QCOMPARE(TrendReport_Top10CC(rc, 0, QString(), 5).status, 3);
    QVERIFY(f.logText().contains(QStringLiteral("   TrendReport_Top10CC(0, \"\", 5)   Error#")));
    QVERIFY(f.dialogs.messages.empty());
}

void Top10Test::progressCountsDatesAndCanStop() {
    TrendFixture f;
    f.number("T1", {"Only"});
    f.add(Jan, "T1", {{Usage, pounds(1)}});
    f.add(Feb, "T1", {{Usage, pounds(1)}});
    QList<QPair<qint64, qint64>> calls;
    ReportContext rc = f.context([&](qint64 done, qint64 total) {
        calls.append({done, total});
        return true;
    });
    QCOMPARE(TrendReport_Top10CC(rc, 1, QString(), 5).status, 1);
    QCOMPARE(calls, (QList<QPair<qint64, qint64>>{{0, 2}, {1, 2}, {2, 2}}));

    ReportContext stopping = f.context([](qint64 done, qint64) { return done < 1; });
    const ReportResult stopped = TrendReport_Top10CC(stopping, 1, QString(), 5);
    QCOMPARE(stopped.status, 0);
    QVERIFY(!stopped.report);
}

void Top10Test::nameWithAQuote() {
    TrendFixture f;
    f.number("T1", {"St John's"});
    f.add(Jan, "T1", {{Usage, pounds(4)}});
    ReportContext rc = f.context();
    const ReportResult result = TrendReport_Top10CC(rc, 1, QString(), 5);
    QCOMPARE(result.status, 1);
    QCOMPARE(result.report->charts.front().pointLabels(), QStringList{"1. St John's"});
}

// The ranking worked out the slow way: one SQL sum per centre and date, and SQL ordering.
void Top10Test::agreesWithOneQueryPerCentreAndDate() {
    TrendFixture f;
    QRandomGenerator random(20120131);
    const QStringList names{"North", "south", "East", "west", "Central", "",    "Depot",
                            "Field", "Hq",    "Lab",  "Port", "Yard",    "Zone"};
    for (int n = 0; n < 60; ++n) {
        const QString name = names[int(random.bounded(names.size()))];
        f.number(QStringLiteral("N%1").arg(n), {"x", name.isEmpty() && n % 2 ? QVariant() : QVariant(name)});
    }
    for (int d = 0; d < 14; ++d) {
        for (int n = 0; n < 70; ++n) {
            if (random.bounded(4) == 0)
                continue;
            const auto amount = [&]() -> std::optional<Money> {
                if (random.bounded(10) == 0)
                    return std::nullopt;
                return Money::fromRaw(random.bounded(-50000, 2000000));
            };
            f.add(Date(2011, 1, 5).addMonths(d), QStringLiteral("N%1").arg(n),
                  {{Usage, amount()},
                   {Recurring, amount()},
                   {OneOff, amount()},
                   {Adjust, amount()},
                   {Tele, amount()}});
        }
    }
    ReportContext rc = f.context();
    const ReportChart chart = TrendReport_Top10CC(rc, 2, QString(), 1).report->charts.front();

    QStringList dates;
    Statement ds(f.ctx.trendDb,
                 "SELECT DISTINCT BillDate FROM TblSummaryTrend ORDER BY BillDate DESC LIMIT 12");
    while (ds.step())
        dates.prepend(ds.text(0));
    QStringList centres;
    Statement cs(f.ctx.projectDb, "SELECT DISTINCT ifnull(CostCentre2, '') FROM TblCC");
    while (cs.step())
        centres << cs.text(0);
    // Usage less telemarketing, per centre and date, a missing sum counting 0.
    struct Row {
        QString name;
        std::vector<double> costs;
        qint64 total = 0;
        bool any = false;
    };
    std::vector<Row> rows;
    for (const QString& centre : centres) {
        Row row{centre.isEmpty() ? QStringLiteral("No Cost Centre Selected") : centre, {}, 0, false};
        QStringList numbers;
        Statement ns(f.ctx.projectDb, "SELECT TelNo FROM TblCC WHERE ifnull(CostCentre2, '') = ?");
        ns.bind(1, centre);
        while (ns.step())
            numbers << ns.text(0);
        for (const QString& date : dates) {
            Statement st(f.ctx.trendDb,
                         "SELECT ifnull(SUM(\"Usage Charges\"), 0) - ifnull(SUM(Telemarketing), 0) "
                         "FROM TblSummaryTrend WHERE BillAccount = 'ACC1' AND BillDate = ? AND "
                         "\"Service No\" IN (SELECT value FROM json_each(?))");
            st.bindAll(date, jsonList(numbers));
            st.step();
            row.costs.push_back(double(st.int64(0)) / 10000.0);
            row.total += st.int64(0);
            row.any = row.any || st.int64(0) != 0;
        }
        rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
        return a.total != b.total ? a.total > b.total : a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    QStringList labels;
    int rank = 0;
    for (const Row& row : rows) {
        if (!row.any || rank == 10)
            continue;
        labels << QStringLiteral("%1. %2").arg(++rank).arg(row.name);
        for (int d = 0; d < 12; ++d)
            QCOMPARE(chart.value(d, rank - 1),
                     std::optional<double>(row.costs[size_t(d)] / double(scaleOf(chart))));
    }
    QCOMPARE(chart.pointLabels(), labels);
    QCOMPARE(chart.seriesCount(), 12);
}

VANTREL_TEST(Top10Test);
#include "tst_top10.moc"
