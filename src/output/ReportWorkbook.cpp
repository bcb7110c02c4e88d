#include "output/ReportWorkbook.h"

#include "app/AppContext.h"
#include "app/cColours.h"
#include "output/ReportDisclaimer.h"
#include "reports/Report.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QRandomGenerator>
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <tuple>
#include <xlsxwriter.h>

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

constexpr lxw_color_t BandColour = 0x5514B4; // red 85, green 20, blue 180: headings and titles
constexpr lxw_color_t WhiteText = 0xFFFFFF;
constexpr char MoneyFormat[] = "£#,##0.00";
constexpr char DateFormat[] = "dd/mm/yyyy";
constexpr char ChartDataSheet[] = "ChartData";

// Sheet geometry, in zero-based rows and columns.
constexpr int TitleRow = 6;
constexpr int NoteRow = 7;
constexpr int ChartRow = 8;      // row 9: the chart, or the first charts of the report area
constexpr int ChartRows = 17;    // rows 9 to 25
constexpr int ChartColumns = 10; // columns A to J
constexpr int ChartGridRow = 27; // row 28
constexpr int GridOnlyRow = 8;   // row 9

// Pixels as the workbook measures them: rows of 20, columns from their width in characters.
constexpr int RowPixels = 20;
constexpr int DefaultColumnPixels = 64;
constexpr double DefaultChartWidth = 480; // what a chart measures at scale 1
constexpr double DefaultChartHeight = 288;
// The logo: 10 points in from the corner, 60 points square.
constexpr int LogoOffset = 13;
constexpr double LogoPixels = 80;
// Report area charts, sized as the window sizes them, and the room between them.
constexpr int SmallChartWidth = 540;
constexpr int SmallChartHeight = 340;
constexpr int LargeChartWidth = 900;
constexpr int LargeChartHeight = 560;
constexpr int ChartGap = 16;
constexpr int AreaChartsPerRow = 2;
constexpr double SwatchWidth = 2.5;
// More series than this put the legend beside the plot, as the windows do.
constexpr int LegendBelowLimit = 6;
// A fitted column never grows past this many characters.
constexpr double WidestColumn = 100;

lxw_color_t rgbOf(const QColor& colour) {
    return lxw_color_t((colour.red() << 16) | (colour.green() << 8) | colour.blue());
}

int columnPixels(double width) {
    return width < 1 ? int(width * 12 + 0.5) : int(width * 7 + 0.5) + 5;
}

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

// The number format of a percent cell, with as many decimals as its text shows.
QString percentFormat(const QString& text) {
    const qsizetype point = text.indexOf(QLatin1Char('.'));
    qsizetype decimals = 0;
    if (point >= 0)
        while (point + 1 + decimals < text.size() && text[point + 1 + decimals].isDigit())
            ++decimals;
    return decimals == 0 ? QStringLiteral("##0%")
                         : QStringLiteral("##0.") + QString(decimals, QLatin1Char('0')) + QLatin1Char('%');
}

uint8_t horizontalOf(Qt::Alignment alignment) {
    if (alignment & Qt::AlignHCenter)
        return LXW_ALIGN_CENTER;
    if (alignment & Qt::AlignRight)
        return LXW_ALIGN_RIGHT;
    return LXW_ALIGN_LEFT;
}

uint8_t verticalOf(Qt::Alignment alignment) {
    if (alignment & Qt::AlignTop)
        return LXW_ALIGN_VERTICAL_TOP;
    if (alignment & Qt::AlignBottom)
        return LXW_ALIGN_VERTICAL_BOTTOM;
    return LXW_ALIGN_VERTICAL_CENTER;
}

// The number a cell holds, where the workbook can hold it as one: amounts, finite percents,
// and dates from 1 March 1900 on (day 61, from where the workbook's day numbers are ours).
std::optional<double> numberOf(const ReportCell& cell) {
    if (const Money* money = std::get_if<Money>(&cell.value))
        return money->toDouble();
    if (const Percent* percent = std::get_if<Percent>(&cell.value); percent && std::isfinite(percent->ratio))
        return percent->ratio;
    if (const Date* date = std::get_if<Date>(&cell.value); date && date->isValid() && date->serial() >= 61)
        return double(date->serial());
    return std::nullopt;
}

// Everything a cell's look is made of; equal styles share one workbook format.
struct Style {
    QString numFormat;
    bool bold = false;
    bool italic = false;
    long long font = -1; // an lxw colour, or -1 for the default
    long long fill = -1;
    uint8_t horizontal = LXW_ALIGN_NONE;
    uint8_t vertical = LXW_ALIGN_NONE;

    bool operator<(const Style& o) const {
        return std::tie(numFormat, bold, italic, font, fill, horizontal, vertical) <
               std::tie(o.numFormat, o.bold, o.italic, o.font, o.fill, o.horizontal, o.vertical);
    }
};

struct Sheet {
    lxw_worksheet* ws = nullptr;
    std::vector<double> widths; // widest text per column, in characters; 0 where none

    void measure(int col, const QString& text, bool bold) {
        if (col >= int(widths.size()))
            widths.resize(size_t(col) + 1, 0.0);
        const double chars = double(text.size()) * (bold ? 1.1 : 1.0);
        widths[size_t(col)] = std::max(widths[size_t(col)], chars);
    }
    double width(int col) const {
        const double chars = col < int(widths.size()) ? widths[size_t(col)] : 0.0;
        return chars > 0 ? std::min(chars * 1.1 + 1.5, WidestColumn) : -1.0;
    }
    int pixels(int firstCol, int lastCol) const {
        int sum = 0;
        for (int c = firstCol; c <= lastCol; ++c)
            sum += width(c) < 0 ? DefaultColumnPixels : columnPixels(width(c));
        return sum;
    }
};

// The charts a report's sheet shows: the grid report none, the chart-and-grid report its
// first, the report area all.
std::span<const ReportChart> drawnCharts(const Report& report) {
    const size_t shown = report.form == ReportForm::Grid           ? 0
                         : report.form == ReportForm::ChartAndGrid ? std::min<size_t>(report.charts.size(), 1)
                                                                   : report.charts.size();
    return std::span<const ReportChart>(report.charts.data(), shown);
}

class WorkbookWriter {
public:
    WorkbookWriter(lxw_workbook* workbook, const WorkbookLook& look)
        : wb_(workbook)
        , look_(look) {}

    // Adds every sheet first, so that the chart data sheet comes last.
    bool write(std::span<const Report> reports, const QStringList& names) {
        std::vector<Sheet> sheets;
        for (const QString& name : names) {
            sheets.push_back(Sheet{workbook_add_worksheet(wb_, name.toUtf8().constData()), {}});
            if (!sheets.back().ws)
                return fail(QStringLiteral("the sheet name '%1' cannot be used").arg(name));
        }
        for (const Report& report : reports)
            for (const ReportChart& chart : drawnCharts(report))
                if (!data_ && chart.seriesCount() > 0 && chart.pointCount() > 0) {
                    data_ = workbook_add_worksheet(wb_, ChartDataSheet);
                    worksheet_hide(data_);
                }
        for (size_t i = 0; i < reports.size(); ++i)
            writeReport(sheets[i], reports[i]);
        return error_.isEmpty();
    }

    const QString& error() const { return error_; }

private:
    void writeReport(Sheet& sheet, const Report& report) {
        switch (report.form) {
        case ReportForm::ChartAndGrid: {
            writeLogo(sheet);
            writeTitle(sheet, report.caption, 3, true);
            const int rows = writeGrid(sheet, report.grid, ChartGridRow);
            writeDisclaimer(sheet, ChartGridRow + rows + 1);
            fitColumns(sheet);
            if (!report.charts.empty())
                addChart(sheet, report.charts.front(), ChartRow, 0, sheet.pixels(0, ChartColumns - 1),
                         ChartRows * RowPixels);
            break;
        }
        case ReportForm::Grid: {
            writeTitle(sheet, report.caption, 3, false);
            writeLogo(sheet);
            const int rows = writeGrid(sheet, report.grid, GridOnlyRow);
            writeDisclaimer(sheet, GridOnlyRow + rows + 1);
            fitColumns(sheet);
            break;
        }
        case ReportForm::ReportArea:
            writeArea(sheet, report);
            break;
        }
    }

    // The charts two by two (one large chart alone), the key and periods to their right,
    // the grid, when the report has one, under them.
    void writeArea(Sheet& sheet, const Report& report) {
        writeLogo(sheet);
        writeTitle(sheet, report.caption, 4, true);
        if (report.noteVisible && !report.note.isEmpty()) {
            Style italic;
            italic.italic = true;
            text(sheet, NoteRow, 0, report.note, italic, false);
        }
        const int charts = int(report.charts.size());
        const bool alone = charts == 1;
        const int width = alone ? LargeChartWidth : SmallChartWidth;
        const int height = alone ? LargeChartHeight : SmallChartHeight;
        const int perRow = alone ? 1 : AreaChartsPerRow;
        const int columnsEach = (width + ChartGap + DefaultColumnPixels - 1) / DefaultColumnPixels;
        const int rowsEach = (height + ChartGap + RowPixels - 1) / RowPixels;
        for (int i = 0; i < charts; ++i)
            addChart(sheet, report.charts[size_t(i)], ChartRow + (i / perRow) * rowsEach,
                     (i % perRow) * columnsEach, width, height);

        const int keyCol = std::min(charts, perRow) * columnsEach;
        int keyRow = ChartRow;
        if (report.keyVisible) {
            for (const ReportKeyEntry& entry : report.key) {
                Style swatch;
                swatch.fill = rgbOf(entry.colour);
                worksheet_write_blank(sheet.ws, lxw_row_t(keyRow), lxw_col_t(keyCol), format(swatch));
                text(sheet, keyRow++, keyCol + 1, entry.label, Style{}, true);
            }
            for (const QString& period : report.periodLabels)
                text(sheet, keyRow++, keyCol + 1, period, Style{}, true);
        }
        int bottom = std::max(ChartRow + (charts + perRow - 1) / perRow * rowsEach, keyRow + 1);
        if (report.grid.rowCount() > 0)
            bottom += writeGrid(sheet, report.grid, bottom) + 1;
        writeDisclaimer(sheet, bottom);
        fitColumns(sheet);
        if (report.keyVisible && !report.key.empty())
            worksheet_set_column(sheet.ws, lxw_col_t(keyCol), lxw_col_t(keyCol), SwatchWidth, nullptr);
    }

    void writeTitle(Sheet& sheet, const QString& caption, int lastCol, bool band) {
        Style style;
        style.bold = true;
        if (band) {
            style.fill = BandColour;
            style.font = WhiteText;
        }
        check(worksheet_merge_range(sheet.ws, TitleRow, 0, TitleRow, lxw_col_t(lastCol),
                                    caption.toUtf8().constData(), format(style)));
    }

    // A missing or unreadable logo leaves the sheet without one.
    void writeLogo(Sheet& sheet) {
        if (look_.logoFile.isEmpty() || !QFileInfo(look_.logoFile).isFile())
            return;
        const QImage logo(look_.logoFile);
        if (logo.isNull())
            return;
        // The workbook shows an image at its own resolution; scale that to the logo's size.
        const double dpi = logo.dotsPerMeterX() > 0 ? logo.dotsPerMeterX() * 0.0254 : 96.0;
        const double shownWidth = logo.width() * 96.0 / dpi;
        const double shownHeight =
            logo.height() * 96.0 / (logo.dotsPerMeterY() > 0 ? logo.dotsPerMeterY() * 0.0254 : 96.0);
        lxw_image_options options{};
        options.x_offset = LogoOffset;
        options.y_offset = LogoOffset;
        options.x_scale = LogoPixels / shownWidth;
        options.y_scale = LogoPixels / shownHeight;
        worksheet_insert_image_opt(sheet.ws, 0, 0, QFile::encodeName(look_.logoFile).constData(), &options);
    }

    void writeDisclaimer(Sheet& sheet, int row) {
        // It runs on over the empty cells beside it; fitting column A to it would push the
        // grid apart.
        text(sheet, row, 0, ReportDisclaimer, Style{}, false);
    }

    // The visible rows from `firstRow` down; returns how many were written.
    int writeGrid(Sheet& sheet, const ReportGrid& grid, int firstRow) {
        int written = 0;
        for (int r = 0; r < grid.rowCount(); ++r) {
            if (grid.row(r).hidden)
                continue;
            const int row = firstRow + written++;
            std::vector<Style> styles;
            for (int c = 0; c < grid.colCount(); ++c) {
                styles.push_back(cellStyle(grid, r, c));
                cell(sheet, row, c, grid.cell(r, c), styles.back(), r == 0);
            }
            if (grid.row(r).merge)
                mergeRuns(sheet, grid, r, row, styles);
        }
        return written;
    }

    static Style cellStyle(const ReportGrid& grid, int r, int c) {
        const ReportCell& cell = grid.cell(r, c);
        Style style;
        style.horizontal = horizontalOf(grid.column(c).alignment);
        style.vertical = verticalOf(grid.column(c).alignment);
        if (r == 0) {
            style.bold = true;
            style.fill = BandColour;
            style.font = WhiteText;
            return style;
        }
        style.bold = cell.bold;
        if (cell.foreColor.isValid())
            style.font = rgbOf(cell.foreColor);
        if (!numberOf(cell))
            return style;
        if (std::holds_alternative<Money>(cell.value))
            style.numFormat = QString::fromUtf8(MoneyFormat);
        else if (std::holds_alternative<Percent>(cell.value))
            style.numFormat = percentFormat(cell.text);
        else
            style.numFormat = QLatin1String(DateFormat);
        return style;
    }

    // A cell by its value: amounts, percents and dates as numbers, anything else as its
    // text. Headings are text whatever they hold.
    void cell(Sheet& sheet, int row, int col, const ReportCell& cell, const Style& style, bool heading) {
        sheet.measure(col, cell.text, style.bold);
        lxw_format* fmt = format(style);
        const auto r = lxw_row_t(row);
        const auto c = lxw_col_t(col);
        if (const std::optional<double> number = numberOf(cell); number && !heading)
            return check(worksheet_write_number(sheet.ws, r, c, *number, fmt));
        if (cell.text.isEmpty())
            check(worksheet_write_blank(sheet.ws, r, c, fmt));
        else
            check(worksheet_write_string(sheet.ws, r, c, cell.text.toUtf8().constData(), fmt));
    }

    // Neighbouring cells of equal text become one, centred, as the grid shows them.
    void mergeRuns(Sheet& sheet, const ReportGrid& grid, int r, int row, const std::vector<Style>& styles) {
        for (int c = 0; c < grid.colCount();) {
            int end = c + 1;
            while (end < grid.colCount() && grid.text(r, end) == grid.text(r, c))
                ++end;
            if (end - c > 1) {
                Style centred = styles[size_t(c)];
                centred.horizontal = LXW_ALIGN_CENTER;
                check(worksheet_merge_range(sheet.ws, lxw_row_t(row), lxw_col_t(c), lxw_row_t(row),
                                            lxw_col_t(end - 1), grid.text(r, c).toUtf8().constData(),
                                            format(centred)));
                // The merge wrote the text; a value goes back over it.
                if (r > 0 && numberOf(grid.cell(r, c)))
                    cell(sheet, row, c, grid.cell(r, c), centred, false);
            }
            c = end;
        }
    }

    void text(Sheet& sheet, int row, int col, const QString& value, const Style& style, bool measure) {
        if (measure)
            sheet.measure(col, value, style.bold);
        check(worksheet_write_string(sheet.ws, lxw_row_t(row), lxw_col_t(col), value.toUtf8().constData(),
                                     format(style)));
    }

    static void fitColumns(const Sheet& sheet) {
        for (int c = 0; c < int(sheet.widths.size()); ++c)
            if (sheet.width(c) > 0)
                worksheet_set_column(sheet.ws, lxw_col_t(c), lxw_col_t(c), sheet.width(c), nullptr);
    }

    // The chart's figures go to a block of the chart data sheet: its title and series
    // labels on the first line, then a line per point (its label, its values; a null
    // point an empty cell). The chart reads its series from there.
    void addChart(Sheet& sheet, const ReportChart& chart, int row, int col, int widthPx, int heightPx) {
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
                    check(
                        worksheet_write_number(data_, lxw_row_t(top + 1 + p), lxw_col_t(s + 1), *v, nullptr));
        }

        const int type = ExcelChartType(chart);
        lxw_chart* out = workbook_add_chart(wb_, lxwChartType(type));
        if (!out)
            return void(fail(QStringLiteral("the chart could not be made")));
        const bool pie = type == XlChart::Pie;
        const auto first = lxw_row_t(top + 1);
        const auto last = lxw_row_t(top + points);
        for (int s = 0; s < (pie ? 1 : chart.seriesCount()); ++s) {
            lxw_chart_series* series = chart_add_series(out, nullptr, nullptr);
            chart_series_set_categories(series, ChartDataSheet, first, 0, last, 0);
            chart_series_set_values(series, ChartDataSheet, first, lxw_col_t(s + 1), last, lxw_col_t(s + 1));
            chart_series_set_name_range(series, ChartDataSheet, lxw_row_t(top), lxw_col_t(s + 1));
            if (pie)
                colourSlices(series, chart);
            else
                colourSeries(series, chart, s, type);
        }
        // A title that starts with "=" would be read as a reference: it is taken from its cell.
        if (chart.title.isEmpty())
            chart_title_off(out);
        else if (chart.title.startsWith(QLatin1Char('=')))
            chart_title_set_name_range(out, ChartDataSheet, lxw_row_t(top), 0);
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
        check(worksheet_insert_chart_opt(sheet.ws, lxw_row_t(row), lxw_col_t(col), out, &options));
    }

    // The report's own colour of a series or slice, else the scheme's table entry.
    QColor colourOf(const ReportChart& chart, int index, bool pie) const {
        if (index < int(chart.seriesColours.size()) && chart.seriesColours[size_t(index)].isValid())
            return chart.seriesColours[size_t(index)];
        if (pie)
            return index < cColours::PieTableSize ? look_.colours.pieEntry(index).toQColor() : QColor();
        return index < cColours::SeriesTableSize ? look_.colours.seriesEntry(index).toQColor() : QColor();
    }

    void colourSeries(lxw_chart_series* series, const ReportChart& chart, int s, int type) const {
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

    void colourSlices(lxw_chart_series* series, const ReportChart& chart) const {
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

    lxw_format* format(const Style& style) {
        auto [it, added] = formats_.try_emplace(style, nullptr);
        if (!added)
            return it->second;
        lxw_format* fmt = workbook_add_format(wb_);
        if (!style.numFormat.isEmpty())
            format_set_num_format(fmt, style.numFormat.toUtf8().constData());
        if (style.bold)
            format_set_bold(fmt);
        if (style.italic)
            format_set_italic(fmt);
        if (style.font >= 0)
            format_set_font_color(fmt, lxw_color_t(style.font));
        if (style.fill >= 0) {
            format_set_pattern(fmt, LXW_PATTERN_SOLID);
            format_set_bg_color(fmt, lxw_color_t(style.fill));
        }
        if (style.horizontal != LXW_ALIGN_NONE)
            format_set_align(fmt, style.horizontal);
        if (style.vertical != LXW_ALIGN_NONE)
            format_set_align(fmt, style.vertical);
        return it->second = fmt;
    }

    void check(lxw_error result) {
        if (result != LXW_NO_ERROR && error_.isEmpty())
            error_ = QString::fromUtf8(lxw_strerror(result));
    }
    bool fail(const QString& why) {
        if (error_.isEmpty())
            error_ = why;
        return false;
    }

    lxw_workbook* wb_;
    const WorkbookLook& look_;
    std::map<Style, lxw_format*> formats_;
    lxw_worksheet* data_ = nullptr;
    int dataRow_ = 0;
    QString error_;
};

std::filesystem::path fsPath(const QString& path) {
    return std::filesystem::path(QFile::encodeName(path).toStdString());
}

bool failWith(QString* error, const QString& why) {
    if (error)
        *error = why;
    return false;
}

// Writes to a scratch file beside `path` and renames it over `path` when complete; on
// any failure the scratch file goes again.
bool writeWorkbook(std::span<const Report> reports, const QStringList& names, const QString& path,
                   const WorkbookLook& look, QString* error) {
    const QFileInfo target(path);
    if (!target.absoluteDir().exists())
        return failWith(error, QStringLiteral("the folder %1 does not exist").arg(target.absolutePath()));
    const QString scratch = target.absoluteDir().filePath(
        QStringLiteral(".%1.%2.tmp")
            .arg(target.fileName())
            .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0')));
    lxw_workbook* workbook = workbook_new(QFile::encodeName(scratch).constData());
    if (!workbook)
        return failWith(error, QStringLiteral("the workbook could not be started"));
    WorkbookWriter writer(workbook, look);
    const bool written = writer.write(reports, names);
    const lxw_error closed = workbook_close(workbook);
    if (!written || closed != LXW_NO_ERROR) {
        QFile::remove(scratch);
        return failWith(error, !written ? writer.error() : QString::fromUtf8(lxw_strerror(closed)));
    }
    std::error_code failed;
    std::filesystem::rename(fsPath(scratch), fsPath(target.absoluteFilePath()), failed);
    if (failed) {
        QFile::remove(scratch);
        return failWith(error, QString::fromLocal8Bit(failed.message().c_str()));
    }
    return true;
}

} // namespace

WorkbookLook workbookLook(const AppContext& ctx) {
    return WorkbookLook{
        ctx.colours, ctx.paths ? ctx.paths->AppFolder + QStringLiteral("/ZandelReportLogo.jpg") : QString()};
}

bool writeReportWorkbook(const Report& report, const QString& path, const WorkbookLook& look,
                         QString* error) {
    // The grid report's sheet keeps the name a new workbook gives it.
    const QString name =
        report.form == ReportForm::Grid ? QStringLiteral("Sheet1") : QStringLiteral("Report");
    return writeWorkbook(std::span<const Report>(&report, 1), {name}, path, look, error);
}

bool writeReportsWorkbook(std::span<const Report> reports, const QString& path, const WorkbookLook& look,
                          QString* error) {
    QStringList captions;
    for (const Report& report : reports)
        captions << report.caption;
    return writeWorkbook(reports, workbookSheetNames(captions, {QString::fromLatin1(ChartDataSheet)}), path,
                         look, error);
}

QString ExcelColumnLetter(int n) {
    const int hi = n / 26;
    const int lo = n - 26 * hi;
    if (hi < 1)
        return QString(QChar(lo + 64));
    return QString(QChar(hi + 64)) + QChar(lo + 64);
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

QStringList workbookSheetNames(const QStringList& captions, const QStringList& taken) {
    constexpr qsizetype Longest = 31;
    QStringList used = taken;
    QStringList names;
    for (const QString& caption : captions) {
        QString base;
        for (const QChar ch : caption)
            base += QStringLiteral("[]:*?/\\").contains(ch) || ch.category() == QChar::Other_Control
                        ? QChar(u' ')
                        : ch;
        // Nor may a name start or end with an apostrophe.
        const auto tidy = [](QString name) {
            name = name.simplified();
            while (name.startsWith(QLatin1Char('\'')) || name.endsWith(QLatin1Char('\'')))
                name = name.remove(name.startsWith(QLatin1Char('\'')) ? 0 : name.size() - 1, 1).trimmed();
            return name;
        };
        base = tidy(base);
        if (base.isEmpty())
            base = QStringLiteral("Report");
        QString name = tidy(base.left(Longest));
        for (int n = 2; used.contains(name, Qt::CaseInsensitive); ++n) {
            const QString suffix = QStringLiteral(" (%1)").arg(n);
            name = tidy(base.left(Longest - suffix.size())) + suffix;
        }
        used << name;
        names << name;
    }
    return names;
}
