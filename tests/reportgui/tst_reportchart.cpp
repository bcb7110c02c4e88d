#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cColours.h"
#include "render/ReportChartBuilder.h"
#include "render/ReportImage.h"
#include "reports/Report.h"

#include <QBarSet>
#include <QChart>
#include <QLegendMarker>
#include <QLineSeries>
#include <QStackedBarSeries>
#include <QTest>
#include <QValueAxis>
#include <cmath>
#include <memory>

using Values = QList<double>; // NaN marks a null point
const double Null = std::nan("");

namespace {

ReportChart chartOf(const QList<Values>& series, ChartType type = ChartType::Line2d, bool stacked = false) {
    ReportChart chart;
    chart.type = type;
    chart.stacked = stacked;
    chart.resize(int(series.size()), int(series.first().size()));
    for (int p = 0; p < chart.pointCount(); ++p)
        chart.setPointLabel(p, QStringLiteral("P%1").arg(p + 1));
    for (int s = 0; s < chart.seriesCount(); ++s)
        for (int p = 0; p < chart.pointCount(); ++p)
            chart.setValue(s, p, std::isnan(series[s][p]) ? std::nullopt : std::optional(series[s][p]));
    return chart;
}

} // namespace

// How a report's charts are drawn: on screen, and as a picture for the command line.
class ReportChartTest : public QObject {
    Q_OBJECT
private slots:
    void lineBreaksIntoRunsAtNullPoints_data() {
        QTest::addColumn<Values>("values");
        QTest::addColumn<QList<Values>>("runs"); // the x of each run's points
        QTest::newRow("no null") << Values{1, 2, 3} << QList<Values>{{0, 1, 2}};
        QTest::newRow("one null inside") << Values{1, 2, Null, 4, 5} << QList<Values>{{0, 1}, {3, 4}};
        QTest::newRow("leading and trailing nulls") << Values{Null, 2, 3, Null} << QList<Values>{{1, 2}};
        QTest::newRow("every other point") << Values{1, Null, 3, Null, 5} << QList<Values>{{0}, {2}, {4}};
        QTest::newRow("nothing but nulls") << Values{Null, Null} << QList<Values>{{}};
    }
    void lineBreaksIntoRunsAtNullPoints() {
        QFETCH(Values, values);
        QFETCH(QList<Values>, runs);
        ReportChart report = chartOf({values});
        report.seriesColours = {QColor(Qt::darkGreen)}; // before the scheme's
        std::unique_ptr<QChart> chart(buildReportChart(report, cColours()));
        QList<QLineSeries*> lines;
        for (QAbstractSeries* series : chart->series())
            lines << qobject_cast<QLineSeries*>(series);
        QCOMPARE(lines.size(), runs.size());
        for (int r = 0; r < runs.size(); ++r) {
            Values xs;
            for (const QPointF& point : lines[r]->points()) {
                xs << point.x();
                QCOMPARE(point.y(), values[int(point.x())]);
            }
            QCOMPARE(xs, runs[r]);
            QCOMPARE(reportSeriesOf(lines[r]), 0);
            QCOMPARE(lines[r]->color(), QColor(Qt::darkGreen));
        }
        // However many runs, the line is one entry of the legend.
        const auto markers = [&] {
            const QList<QLegendMarker*> all = chart->legend()->markers();
            return std::count_if(all.begin(), all.end(), [](QLegendMarker* m) { return m->isVisible(); });
        };
        QTRY_COMPARE(markers(), 1);
    }

    void missingBarsKeepTheirPlaces_data() {
        QTest::addColumn<bool>("stacked");
        QTest::addColumn<double>("highest"); // of the bars, stacked or side by side
        QTest::newRow("side by side") << false << 6.0;
        QTest::newRow("stacked") << true << 9.0;
    }
    void missingBarsKeepTheirPlaces() {
        QFETCH(bool, stacked);
        QFETCH(double, highest);
        std::unique_ptr<QChart> drawn(
            buildReportChart(chartOf({{1, Null, 3}, {Null, 5, 6}}, ChartType::Bar2d, stacked), cColours()));
        QCOMPARE(drawn->series().size(), 1);
        auto* bars = qobject_cast<QAbstractBarSeries*>(drawn->series().first());
        QCOMPARE(qobject_cast<QStackedBarSeries*>(bars) != nullptr, stacked);
        QList<Values> values;
        for (QBarSet* set : bars->barSets())
            values << Values{set->at(0), set->at(1), set->at(2)};
        QCOMPARE(values, (QList<Values>{{1, 0, 3}, {0, 5, 6}}));
        // The value axis reaches from zero to the highest bar.
        auto* axis = qobject_cast<QValueAxis*>(drawn->axes(Qt::Vertical).first());
        QVERIFY(axis->min() <= 0 && axis->max() >= highest);
    }

    void pictureHoldsEachChartUnderTheOther() {
        Report report;
        report.charts = {chartOf({{1200, 1300, 1400}}), chartOf({{800, 750, 700}}, ChartType::Bar2d)};
        const QImage image = renderReportCharts(report, cColours(), QSize(600, 400));
        QCOMPARE(image.size(), QSize(600, 800));
        // The first series' colour shows in each half.
        const QColor first = cColours().seriesEntry(0).toQColor();
        for (int half = 0; half < 2; ++half) {
            int found = 0;
            for (int y = 400 * half; y < 400 * (half + 1); ++y)
                for (int x = 0; x < 600; ++x)
                    found += image.pixelColor(x, y) == first;
            QVERIFY2(found > 50, qPrintable(QString::number(half)));
        }
        // Without a chart, no picture and no file.
        testing::TempDir dir;
        QString error;
        QVERIFY(!writeReportPng(Report{}, cColours(), dir.path(QStringLiteral("none.png")), &error));
        QVERIFY(!error.isEmpty() && !QFile::exists(dir.path(QStringLiteral("none.png"))));
    }
};

VANTREL_TEST(ReportChartTest);
#include "tst_reportchart.moc"
