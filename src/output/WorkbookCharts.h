#pragma once
// The native charts of a report workbook. A chart's figures go to a block of the hidden
// sheet "ChartData" (its title and series labels on the first line, then a line per point;
// a null point an empty cell, shown as a gap), and the chart that reads them is placed on
// the report's sheet.
#include <QColor>
#include <QString>
#include <xlsxwriter.h>

class cColours;
class ReportChart;

inline lxw_color_t rgbOf(const QColor& colour) {
    return lxw_color_t((colour.red() << 16) | (colour.green() << 8) | colour.blue());
}

class WorkbookCharts {
public:
    static constexpr char DataSheet[] = "ChartData";

    WorkbookCharts(lxw_workbook* workbook, const cColours& colours);

    // The hidden data sheet, once; added after the report sheets so that it comes last.
    void addDataSheet();
    // Places the chart at (row, col) of the sheet, sized in pixels. A chart without series
    // or points, or a workbook without the data sheet, gets none.
    void add(lxw_worksheet* sheet, const ReportChart& chart, int row, int col, int widthPx, int heightPx);
    // Empty unless something could not be written.
    const QString& error() const { return error_; }

private:
    // The report's own colour of a series or slice, else the scheme's table entry.
    QColor colourOf(const ReportChart& chart, int index, bool pie) const;
    void colourSeries(lxw_chart_series* series, const ReportChart& chart, int s, int type) const;
    void colourSlices(lxw_chart_series* series, const ReportChart& chart) const;
    void check(lxw_error result);

    lxw_workbook* wb_;
    const cColours& colours_;
    lxw_worksheet* data_ = nullptr;
    int dataRow_ = 0;
    QString error_;
};
