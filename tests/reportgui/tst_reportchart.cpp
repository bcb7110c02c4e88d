#include "TestRegistry.h"
#include "app/cColours.h"
#include "render/ReportChartBuilder.h"
#include "render/ReportChartView.h"
#include "reports/Report.h"
#include "ui/ControlColours.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChartView>
#include <QLegendMarker>
#include <QLineSeries>
#include <QSignalSpy>
#include <QStackedBarSeries>
#include <QTest>
#include <QValueAxis>
#include <cmath>
#include <memory>

using Values = QList<double>; // NaN marks a null point

namespace {

ReportChart lineChart(const QList<Values>& series) {
    ReportChart chart;
    chart.type = ChartType::Line2d;
    chart.resize(int(series.size()), series.isEmpty() ? 0 : int(series.first().size()));
    for (int s = 0; s < chart.seriesCount(); ++s) {
        chart.setSeriesLabel(s, QStringLiteral("Series %1").arg(s + 1));
        for (int p = 0; p < chart.pointCount(); ++p) {
            const double v = series[s][p];
            chart.setValue(s, p, std::isnan(v) ? std::nullopt : std::optional<double>(v));
        }
    }
    for (int p = 0; p < chart.pointCount(); ++p)
        chart.setPointLabel(p, QStringLiteral("P%1").arg(p + 1));
    return chart;
}

QList<QLineSeries*> linesOf(QChart* chart) {
    QList<QLineSeries*> lines;
    for (QAbstractSeries* s : chart->series())
        if (auto* line = qobject_cast<QLineSeries*>(s))
            lines << line;
    return lines;
}

// A chart on a view's scene, where its legend is drawn.
struct ShownChart {
    explicit ShownChart(QChart* chart)
        : view(chart) {
        view.resize(600, 400);
        view.show();
        if (!QTest::qWaitForWindowExposed(&view))
            qWarning("the chart view was not shown");
    }
    QChart* operator->() const { return view.chart(); }
    QChart* get() const { return view.chart(); }
    QChartView view;
};

int visibleMarkers(QChart* chart) {
    int n = 0;
    for (QLegendMarker* marker : chart->legend()->markers())
        if (marker->isVisible())
            ++n;
    return n;
}

} // namespace

class ReportChartTest : public QObject {
    Q_OBJECT
private slots:
    void lineBreaksIntoRunsAtNullPoints_data();
    void lineBreaksIntoRunsAtNullPoints();
    void runsOfALineShareItsPenAndOneLegendEntry();
    void seriesTakeTheReportsColours();
    void missingBarsKeepTheirPlaces_data();
    void missingBarsKeepTheirPlaces();
    void valueAxisReachesZeroAndTheStackedHeights();
    void barClicksNameTheirPoint();
};

void ReportChartTest::lineBreaksIntoRunsAtNullPoints_data() {
    QTest::addColumn<Values>("values");
    QTest::addColumn<QList<QList<double>>>("runs"); // the x of each run's points
    const double n = std::nan("");
    QTest::newRow("no null") << Values{1, 2, 3} << QList<QList<double>>{{0, 1, 2}};
    QTest::newRow("one null inside") << Values{1, 2, n, 4, 5} << QList<QList<double>>{{0, 1}, {3, 4}};
    QTest::newRow("leading and trailing nulls") << Values{n, 2, 3, n} << QList<QList<double>>{{1, 2}};
    QTest::newRow("every other point") << Values{1, n, 3, n, 5} << QList<QList<double>>{{0}, {2}, {4}};
    QTest::newRow("nothing but nulls") << Values{n, n} << QList<QList<double>>{{}};
}

void ReportChartTest::lineBreaksIntoRunsAtNullPoints() {
    QFETCH(Values, values);
    QFETCH(QList<QList<double>>, runs);
    ShownChart chart(buildReportChart(lineChart({values}), cColours()));
    const QList<QLineSeries*> lines = linesOf(chart.get());
    QCOMPARE(lines.size(), runs.size());
    for (int r = 0; r < runs.size(); ++r) {
        QList<double> xs;
        for (const QPointF& point : lines[r]->points()) {
            xs << point.x();
            QCOMPARE(point.y(), values[int(point.x())]);
        }
        QCOMPARE(xs, runs[r]);
        QCOMPARE(reportSeriesOf(lines[r]), 0);
    }
    // However many runs, the line is one entry of the legend.
    QTRY_COMPARE(visibleMarkers(chart.get()), 1);
}

void ReportChartTest::runsOfALineShareItsPenAndOneLegendEntry() {
    const double n = std::nan("");
    std::unique_ptr<QChart> chart(buildReportChart(lineChart({{1, n, 3}, {4, 5, 6}, {n, 8, n}}), cColours()));
    const QList<QLineSeries*> lines = linesOf(chart.get());
    QCOMPARE(lines.size(), 4); // two runs, one, one
    QTRY_COMPARE(visibleMarkers(chart.get()), 3);
    // The series table gives the first three series these colours, whatever the runs.
    const cColours colours;
    QCOMPARE(lines[0]->color(), colours.seriesEntry(0).toQColor());
    QCOMPARE(lines[1]->color(), colours.seriesEntry(0).toQColor());
    QCOMPARE(lines[1]->pen().widthF(), lines[0]->pen().widthF());
    QVERIFY(lines[1]->property(SeriesContinuesProperty).toBool());
    QCOMPARE(lines[2]->color(), colours.seriesEntry(1).toQColor());
    QCOMPARE(lines[3]->color(), colours.seriesEntry(2).toQColor());
    QCOMPARE(lines[3]->name(), QStringLiteral("Series 3"));
}

void ReportChartTest::seriesTakeTheReportsColours() {
    const double n = std::nan("");
    ReportChart chart = lineChart({{1, n, 3}, {4, 5, 6}});
    chart.seriesColours = {QColor(Qt::darkGreen), QColor()};
    std::unique_ptr<QChart> drawn(buildReportChart(chart, cColours()));
    const QList<QLineSeries*> lines = linesOf(drawn.get());
    QCOMPARE(lines[0]->color(), QColor(Qt::darkGreen));
    QCOMPARE(lines[1]->color(), QColor(Qt::darkGreen));
    // Where the report gives no colour the scheme's second series colour stands.
    QCOMPARE(lines[2]->color(), QColor(228, 56, 40));
}

void ReportChartTest::missingBarsKeepTheirPlaces_data() {
    QTest::addColumn<bool>("stacked");
    QTest::newRow("side by side") << false;
    QTest::newRow("stacked") << true;
}

void ReportChartTest::missingBarsKeepTheirPlaces() {
    QFETCH(bool, stacked);
    const double n = std::nan("");
    ReportChart chart = lineChart({{1, n, 3}, {n, 5, 6}});
    chart.type = ChartType::Bar2d;
    chart.stacked = stacked;
    std::unique_ptr<QChart> drawn(buildReportChart(chart, cColours()));
    QCOMPARE(drawn->series().size(), 1);
    auto* bars = qobject_cast<QAbstractBarSeries*>(drawn->series().first());
    QVERIFY(bars);
    QCOMPARE(qobject_cast<QStackedBarSeries*>(bars) != nullptr, stacked);
    const QList<QBarSet*> sets = bars->barSets();
    QCOMPARE(sets.size(), 2);
    QCOMPARE(sets[0]->count(), 3);
    QCOMPARE(sets[0]->at(0), 1.0);
    QCOMPARE(sets[0]->at(1), 0.0);
    QCOMPARE(sets[0]->at(2), 3.0); // not moved one place left
    QCOMPARE(sets[1]->at(0), 0.0);
    QCOMPARE(sets[1]->at(2), 6.0);
    QCOMPARE(sets[1]->label(), QStringLiteral("Series 2"));
    QCOMPARE(sets[1]->color(), QColor(228, 56, 40));
}

void ReportChartTest::valueAxisReachesZeroAndTheStackedHeights() {
    ReportChart chart = lineChart({{50, 60}, {70, -20}});
    chart.type = ChartType::Bar2d;
    chart.stacked = true;
    std::unique_ptr<QChart> drawn(buildReportChart(chart, cColours()));
    const QList<QAbstractAxis*> axes = drawn->axes(Qt::Vertical);
    QCOMPARE(axes.size(), 1);
    auto* axis = qobject_cast<QValueAxis*>(axes.first());
    QVERIFY(axis);
    // The first bar stands 120 high, the second part of the second reaches down to -20.
    QVERIFY(axis->max() >= 120);
    QVERIFY(axis->min() <= -20);

    ReportChart positive = lineChart({{500, 700}});
    std::unique_ptr<QChart> line(buildReportChart(positive, cColours()));
    auto* lineAxis = qobject_cast<QValueAxis*>(line->axes(Qt::Vertical).first());
    QCOMPARE(lineAxis->min(), 0.0);
    QVERIFY(lineAxis->max() >= 700);
}

void ReportChartTest::barClicksNameTheirPoint() {
    ReportChart chart = lineChart({{10, 20, 30}, {5, 5, 5}});
    chart.type = ChartType::Bar2d;
    chart.stacked = true;
    ReportChartView view(chart, cColours());
    view.resize(700, 450);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    QSignalSpy bars(&view, &ReportChartView::barClicked);
    QSignalSpy elsewhere(&view, &ReportChartView::chartClicked);
    QAbstractSeries* series = view.chart()->series().first();
    // The middle of the third bar's lower part, and a point high above the first bar.
    const QPointF third = view.chart()->mapToPosition(QPointF(2, 15), series);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.mapFromScene(third));
    QCOMPARE(bars.size(), 1);
    QCOMPARE(bars.first().first().toInt(), 2);
    QCOMPARE(elsewhere.size(), 0);
    const QPointF above = view.chart()->mapToPosition(QPointF(0, 34), series);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, view.mapFromScene(above));
    QCOMPARE(bars.size(), 1);
    QCOMPARE(elsewhere.size(), 1);
}

VANTREL_TEST(ReportChartTest);
#include "tst_reportchart.moc"
