#include "output/WorkbookCharts.h"

#include "app/cColours.h"
#include "output/ReportWorkbook.h"
#include "reports/Report.h"

#include <cmath>

namespace {

// The spreadsheet program's chart type numbers.
namespace XlChart {
constexpr int Area = 1;
constexpr int Column = 3;
constexpr int Line = 4;
constexpr int Pie = 5;
constexpr int ColumnStacked = 52;
constexpr int XYScatter = -4169;
} // namespace XlChart

constexpr double DefaultChartWidth = 480; // what a chart measures at scale 1
constexpr double DefaultChartHeight = 288;
// More series than this put the legend beside the plot, as the windows do.
constexpr int LegendBelowLimit = 6;

bool isBar(const ReportChart& chart) {
    return chart.type == ChartType::Bar2d || chart.type == ChartType::Bar3d;
}

uint8_t lxwChartType(int excelType) {
    switch (excelType) {
    case XlChart::Area:
        return LXW_CHART_AREA;
    case XlChart::Line:
        return LXW_CHART_LINE;
    case XlChart::Pie:
        return LXW_CHART_PIE;
    case XlChart::ColumnStacked:
        return LXW_CHART_COLUMN_STACKED;
    case XlChart::XYScatter:
        return LXW_CHART_SCATTER;
    default:
        return LXW_CHART_COLUMN;
    }
}

} // namespace

WorkbookCharts::WorkbookCharts(lxw_workbook* workbook, const cColours& colours)
    : wb_(workbook)
    , colours_(colours) {}

void WorkbookCharts::addDataSheet() {
    if (data_)
        return;
    data_ = workbook_add_worksheet(wb_, DataSheet);
    if (data_)
        worksheet_hide(data_);
}

void WorkbookCharts::check(lxw_error result) {
    if (result != LXW_NO_ERROR && error_.isEmpty())
        error_ = QString::fromUtf8(lxw_strerror(result));
}

// The chart's figures go to a block of the chart data sheet: its title and series
// labels on the first line, then a line per point (its label, its values; a null
// point an empty cell). The chart reads its series from there.
void WorkbookCharts::add(lxw_worksheet* sheet, const ReportChart& chart, int row, int col, int widthPx,
                         int heightPx) {
    if (chart.seriesCount() == 0 || chart.pointCount() == 0 || !data_)
        return;
    const int top = dataRow_;
    const int points = chart.pointCount();
    dataRow_ += points + 2;
    const auto data = [&](int r, int c, const QString& value) {
        if (!value.isEmpty())
            check(worksheet_write_string(data_, lxw_row_t(r), lxw_col_t(c), value.toUtf8().constData(),
                                         nullptr));
    };
    data(top, 0, chart.title);
    for (int p = 0; p < points; ++p)
        data(top + 1 + p, 0, chart.pointLabel(p));
    for (int s = 0; s < chart.seriesCount(); ++s) {
        data(top, s + 1, chart.seriesLabel(s));
        for (int p = 0; p < points; ++p)
            if (const std::optional<double> v = chart.value(s, p); v && std::isfinite(*v))
                check(worksheet_write_number(data_, lxw_row_t(top + 1 + p), lxw_col_t(s + 1), *v, nullptr));
    }

    const int type = ExcelChartType(chart);
    lxw_chart* out = workbook_add_chart(wb_, lxwChartType(type));
    if (!out) {
        if (error_.isEmpty())
            error_ = QStringLiteral("the chart could not be made");
        return;
    }
    const bool pie = type == XlChart::Pie;
    const auto first = lxw_row_t(top + 1);
    const auto last = lxw_row_t(top + points);
    for (int s = 0; s < (pie ? 1 : chart.seriesCount()); ++s) {
        lxw_chart_series* series = chart_add_series(out, nullptr, nullptr);
        chart_series_set_categories(series, DataSheet, first, 0, last, 0);
        chart_series_set_values(series, DataSheet, first, lxw_col_t(s + 1), last, lxw_col_t(s + 1));
        chart_series_set_name_range(series, DataSheet, lxw_row_t(top), lxw_col_t(s + 1));
        if (pie)
            colourSlices(series, chart);
        else
            colourSeries(series, chart, s, type);
    }
    // A title that starts with "=" would be read as a reference: it is taken from its cell.
    if (chart.title.isEmpty())
        chart_title_off(out);
    else if (chart.title.startsWith(QLatin1Char('=')))
        chart_title_set_name_range(out, DataSheet, lxw_row_t(top), 0);
    else
        chart_title_set_name(out, chart.title.toUtf8().constData());
    if (isBar(chart) && !pie) {
        if (!chart.xAxisTitle.isEmpty())
            chart_axis_set_name(out->x_axis, chart.xAxisTitle.toUtf8().constData());
        if (!chart.yAxisTitle.isEmpty())
            chart_axis_set_name(out->y_axis, chart.yAxisTitle.toUtf8().constData());
    }
    chart_legend_set_position(out, !chart.showLegend                        ? LXW_CHART_LEGEND_NONE
                                   : chart.seriesCount() > LegendBelowLimit ? LXW_CHART_LEGEND_RIGHT
                                                                            : LXW_CHART_LEGEND_BOTTOM);
    chart_show_blanks_as(out, LXW_CHART_BLANKS_AS_GAP);

    lxw_chart_options options{};
    options.x_scale = widthPx / DefaultChartWidth;
    options.y_scale = heightPx / DefaultChartHeight;
    check(worksheet_insert_chart_opt(sheet, lxw_row_t(row), lxw_col_t(col), out, &options));
}

// The report's own colour of a series or slice, else the scheme's table entry.
QColor WorkbookCharts::colourOf(const ReportChart& chart, int index, bool pie) const {
    if (index < int(chart.seriesColours.size()) && chart.seriesColours[size_t(index)].isValid())
        return chart.seriesColours[size_t(index)];
    if (pie)
        return index < cColours::PieTableSize ? colours_.pieEntry(index).toQColor() : QColor();
    return index < cColours::SeriesTableSize ? colours_.seriesEntry(index).toQColor() : QColor();
}

void WorkbookCharts::colourSeries(lxw_chart_series* series, const ReportChart& chart, int s, int type) const {
    const QColor colour = colourOf(chart, s, false);
    if (!colour.isValid())
        return;
    lxw_chart_line line{};
    line.color = rgbOf(colour);
    lxw_chart_fill fill{};
    fill.color = rgbOf(colour);
    if (type == XlChart::Line || type == XlChart::XYScatter) {
        if (type == XlChart::Line)
            chart_series_set_line(series, &line);
        chart_series_set_marker_type(series, LXW_CHART_MARKER_CIRCLE);
        chart_series_set_marker_fill(series, &fill);
        chart_series_set_marker_line(series, &line);
    } else {
        chart_series_set_fill(series, &fill);
        chart_series_set_line(series, &line);
    }
}

void WorkbookCharts::colourSlices(lxw_chart_series* series, const ReportChart& chart) const {
    std::vector<lxw_chart_fill> fills(size_t(chart.pointCount()));
    std::vector<lxw_chart_point> points(fills.size());
    std::vector<lxw_chart_point*> list;
    for (size_t p = 0; p < fills.size(); ++p) {
        const QColor colour = colourOf(chart, int(p), true);
        fills[p].color = colour.isValid() ? rgbOf(colour) : 0;
        points[p].fill = colour.isValid() ? &fills[p] : nullptr;
        list.push_back(&points[p]);
    }
    list.push_back(nullptr);
    chart_series_set_points(series, list.data());
}

int ExcelChartType(const ReportChart& chart) {
    switch (chart.type) {
    case ChartType::Bar3d:
    case ChartType::Bar2d:
        return chart.stacked && chart.seriesCount() > 1 ? XlChart::ColumnStacked : XlChart::Column;
    case ChartType::Line3d:
    case ChartType::Line2d:
        return XlChart::Line;
    case ChartType::Area3d:
    case ChartType::Area2d:
        return XlChart::Area;
    case ChartType::Step3d:
    case ChartType::Step2d:
        return XlChart::ColumnStacked;
    case ChartType::Pie2d:
        return XlChart::Pie;
    case ChartType::XY2d:
        return XlChart::XYScatter;
    }
    return 0;
}
