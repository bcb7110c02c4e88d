#include "render/ReportChartBuilder.h"

#include "app/BrandFont.h"
#include "app/cColours.h"
#include "render/ChartColours.h"
#include "reports/Report.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QGraphicsLayout>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPieSeries>
#include <QPieSlice>
#include <QStackedBarSeries>
#include <QValueAxis>
#include <algorithm>
#include <cmath>

namespace {

constexpr char SeriesIndexProperty[] = "vantrelReportSeries";
constexpr qreal LineWidth = 2.5;
constexpr qreal MarkerSize = 5;
// About this many steps up the value axis.
constexpr int ValueSteps = 8;
// More point labels than this lie slanted so that dates do not run into each other.
constexpr int UprightLabelLimit = 12;
// More series than this put the legend beside the plot rather than under it.
constexpr int LegendBelowLimit = 6;

QFont chartFont(qreal pointSize, bool bold) {
    QFont font(brandFontFamily());
    font.setPointSizeF(pointSize);
    font.setBold(bold);
    return font;
}

bool isBar(ChartType type) {
    return type == ChartType::Bar2d || type == ChartType::Bar3d;
}

// The span the value axis must show: always from or through 0, so that amounts compare
// by their heights.
struct Span {
    double low = 0;
    double high = 0;
    void take(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
};

Span lineSpan(const ReportChart& chart) {
    Span span;
    for (int s = 0; s < chart.seriesCount(); ++s)
        for (int p = 0; p < chart.pointCount(); ++p)
            if (const auto v = chart.value(s, p))
                span.take(*v);
    return span;
}

Span barSpan(const ReportChart& chart) {
    if (!chart.stacked)
        return lineSpan(chart);
    Span span;
    for (int p = 0; p < chart.pointCount(); ++p) {
        double up = 0;
        double down = 0;
        for (int s = 0; s < chart.seriesCount(); ++s) {
            const double v = chart.value(s, p).value_or(0.0);
            (v >= 0 ? up : down) += v;
        }
        span.take(up);
        span.take(down);
    }
    return span;
}

void styleAxis(QAbstractAxis* axis, const cColours& colours) {
    axis->setLabelsFont(chartFont(9, false));
    axis->setLabelsColor(qColor(colours.Grey(6)));
    axis->setTitleFont(chartFont(10, true));
    axis->setTitleBrush(qColor(colours.Grey(6)));
    axis->setLinePenColor(qColor(colours.Grey(4)));
    axis->setGridLineColor(qColor(colours.Grey(3)));
    axis->setShadesVisible(false);
}

// A round step (1, 2, 2.5 or 5 times a power of ten) that cuts the span into about
// ValueSteps parts.
double niceStep(double span) {
    const double raw = span / ValueSteps;
    const double magnitude = std::pow(10.0, std::floor(std::log10(raw)));
    const double residual = raw / magnitude;
    const double nice = residual <= 1     ? 1
                        : residual <= 2   ? 2
                        : residual <= 2.5 ? 2.5
                        : residual <= 5   ? 5
                                          : 10;
    return nice * magnitude;
}

QValueAxis* valueAxis(const Span& span, const QString& title, const cColours& colours) {
    auto* axis = new QValueAxis;
    const double step = niceStep(span.high > span.low ? span.high - span.low : 1.0);
    const double low = std::floor(span.low / step) * step;
    double high = std::ceil(span.high / step) * step;
    if (high <= low)
        high = low + step;
    axis->setRange(low, high);
    axis->setTickCount(int(std::lround((high - low) / step)) + 1);
    axis->setLabelFormat(step >= 1 ? QStringLiteral("%.0f")
                                   : (step >= 0.1 ? QStringLiteral("%.1f") : QStringLiteral("%.2f")));
    axis->setMinorTickCount(0);
    axis->setTitleText(title);
    styleAxis(axis, colours);
    return axis;
}

QBarCategoryAxis* categoryAxis(const ReportChart& chart, const QString& title, const cColours& colours) {
    auto* axis = new QBarCategoryAxis;
    // Equal labels would fold into one category; a trailing blank keeps them apart.
    QStringList labels;
    for (QString label : chart.pointLabels()) {
        while (labels.contains(label))
            label += QLatin1Char(' ');
        labels << label;
    }
    axis->append(labels);
    axis->setTitleText(title);
    if (chart.pointCount() > UprightLabelLimit)
        axis->setLabelsAngle(-90);
    axis->setGridLineVisible(false);
    styleAxis(axis, colours);
    return axis;
}

void attach(QChart* qchart, QAbstractSeries* series, QAbstractAxis* x, QAbstractAxis* y) {
    qchart->addSeries(series);
    series->attachAxis(x);
    series->attachAxis(y);
}

void addLines(QChart* qchart, const ReportChart& chart, QAbstractAxis* x, QAbstractAxis* y) {
    for (int s = 0; s < chart.seriesCount(); ++s) {
        std::vector<QLineSeries*> runs;
        QLineSeries* run = nullptr;
        for (int p = 0; p < chart.pointCount(); ++p) {
            const std::optional<double> v = chart.value(s, p);
            if (!v) {
                run = nullptr;
                continue;
            }
            if (!run) {
                run = new QLineSeries;
                runs.push_back(run);
            }
            run->append(p, *v);
        }
        // A line without a single value still has its place in the legend and colours.
        if (runs.empty())
            runs.push_back(new QLineSeries);
        for (size_t r = 0; r < runs.size(); ++r) {
            QLineSeries* line = runs[r];
            line->setName(chart.seriesLabel(s));
            line->setProperty(SeriesIndexProperty, s);
            line->setProperty(SeriesContinuesProperty, r > 0);
            QPen pen = line->pen();
            pen.setWidthF(LineWidth);
            line->setPen(pen);
            line->setPointsVisible(true);
            line->setMarkerSize(MarkerSize);
            attach(qchart, line, x, y);
            if (r > 0)
                for (QLegendMarker* marker : qchart->legend()->markers(line))
                    marker->setVisible(false);
        }
    }
}

void addBars(QChart* qchart, const ReportChart& chart, QAbstractAxis* x, QAbstractAxis* y) {
    QAbstractBarSeries* bars = chart.stacked ? static_cast<QAbstractBarSeries*>(new QStackedBarSeries)
                                             : static_cast<QAbstractBarSeries*>(new QBarSeries);
    bars->setBarWidth(chart.stacked ? 0.6 : 0.8);
    for (int s = 0; s < chart.seriesCount(); ++s) {
        auto* set = new QBarSet(chart.seriesLabel(s));
        for (int p = 0; p < chart.pointCount(); ++p)
            set->append(chart.value(s, p).value_or(0.0));
        bars->append(set);
    }
    attach(qchart, bars, x, y);
}

void addPie(QChart* qchart, const ReportChart& chart) {
    auto* pie = new QPieSeries;
    for (int p = 0; p < chart.pointCount(); ++p)
        pie->append(chart.pointLabel(p), chart.seriesCount() > 0 ? chart.value(0, p).value_or(0.0) : 0.0);
    qchart->addSeries(pie);
}

// The report's own colours over the scheme's, where it gives them.
void applyReportColours(QChart* qchart, const ReportChart& chart) {
    const auto colourOf = [&](int series) {
        return series >= 0 && series < int(chart.seriesColours.size()) ? chart.seriesColours[size_t(series)]
                                                                       : QColor();
    };
    for (QAbstractSeries* series : qchart->series()) {
        if (auto* bars = qobject_cast<QAbstractBarSeries*>(series)) {
            const QList<QBarSet*> sets = bars->barSets();
            for (int i = 0; i < sets.size(); ++i)
                if (const QColor c = colourOf(i); c.isValid()) {
                    sets[i]->setColor(c);
                    sets[i]->setBorderColor(c);
                }
        } else if (auto* line = qobject_cast<QLineSeries*>(series)) {
            if (const QColor c = colourOf(reportSeriesOf(line)); c.isValid()) {
                QPen pen = line->pen();
                pen.setColor(c);
                line->setPen(pen);
                line->setBrush(c);
            }
        } else if (auto* pie = qobject_cast<QPieSeries*>(series)) {
            const QList<QPieSlice*> slices = pie->slices();
            for (int i = 0; i < slices.size(); ++i)
                if (const QColor c = colourOf(i); c.isValid()) {
                    slices[i]->setColor(c);
                    slices[i]->setBorderColor(c);
                }
        }
    }
}

void styleChart(QChart* qchart, const ReportChart& chart, const cColours& colours) {
    qchart->setAnimationOptions(QChart::NoAnimation);
    qchart->setBackgroundRoundness(0);
    qchart->setBackgroundBrush(Qt::white);
    qchart->setMargins(QMargins(8, 8, 8, 8));
    qchart->layout()->setContentsMargins(0, 0, 0, 0); // the white reaches the edges
    qchart->setTitle(chart.title);
    qchart->setTitleFont(chartFont(12, true));
    qchart->setTitleBrush(qColor(colours.Indigo(6)));
    // Amounts read with the thousands separated, as the grids write them.
    qchart->setLocalizeNumbers(true);
    qchart->setLocale(QLocale(QLocale::English, QLocale::UnitedKingdom));
    QLegend* legend = qchart->legend();
    legend->setVisible(chart.showLegend);
    legend->setFont(chartFont(9, false));
    legend->setLabelColor(qColor(colours.Grey(6)));
    // Lines show a stroke with its point in the legend, bars a filled box.
    legend->setMarkerShape(isBar(chart.type) || chart.type == ChartType::Pie2d
                               ? QLegend::MarkerShapeRectangle
                               : QLegend::MarkerShapeFromSeries);
    legend->setAlignment(chart.seriesCount() > LegendBelowLimit ? Qt::AlignRight : Qt::AlignBottom);
}

} // namespace

int reportSeriesOf(const QAbstractSeries* series) {
    const QVariant index = series ? series->property(SeriesIndexProperty) : QVariant();
    return index.isValid() ? index.toInt() : -1;
}

QChart* buildReportChart(const ReportChart& chart, const cColours& colours) {
    auto* qchart = new QChart;
    styleChart(qchart, chart, colours);
    if (chart.type == ChartType::Pie2d) {
        addPie(qchart, chart);
    } else {
        QBarCategoryAxis* x = categoryAxis(chart, chart.xAxisTitle, colours);
        QValueAxis* y =
            valueAxis(isBar(chart.type) ? barSpan(chart) : lineSpan(chart), chart.yAxisTitle, colours);
        qchart->addAxis(x, Qt::AlignBottom);
        qchart->addAxis(y, Qt::AlignLeft);
        if (isBar(chart.type))
            addBars(qchart, chart, x, y);
        else
            addLines(qchart, chart, x, y);
    }
    SetGraphColours(colours, qchart);
    applyReportColours(qchart, chart);
    return qchart;
}
