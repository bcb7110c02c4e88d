#include "output/ReportWorkbook.h"

#include "app/AppContext.h"
#include "app/cColours.h"
#include "output/ReportDisclaimer.h"
#include "output/WorkbookCharts.h"
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

constexpr lxw_color_t BandColour = 0x5514B4; // red 85, green 20, blue 180: headings and titles
constexpr lxw_color_t WhiteText = 0xFFFFFF;
constexpr char MoneyFormat[] = "£#,##0.00";
constexpr char DateFormat[] = "dd/mm/yyyy";

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
// A fitted column never grows past this many characters.
constexpr double WidestColumn = 100;

int columnPixels(double width) {
    return width < 1 ? int(width * 12 + 0.5) : int(width * 7 + 0.5) + 5;
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
        , look_(look)
        , charts_(workbook, look.colours) {}

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
                if (chart.seriesCount() > 0 && chart.pointCount() > 0)
                    charts_.addDataSheet();
        for (size_t i = 0; i < reports.size(); ++i)
            writeReport(sheets[i], reports[i]);
        return error().isEmpty();
    }

    const QString& error() const { return error_.isEmpty() ? charts_.error() : error_; }

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
                charts_.add(sheet.ws, report.charts.front(), ChartRow, 0, sheet.pixels(0, ChartColumns - 1),
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
            charts_.add(sheet.ws, report.charts[size_t(i)], ChartRow + (i / perRow) * rowsEach,
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
    WorkbookCharts charts_;
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
    return writeWorkbook(reports,
                         workbookSheetNames(captions, {QString::fromLatin1(WorkbookCharts::DataSheet)}), path,
                         look, error);
}

QString ExcelColumnLetter(int n) {
    const int hi = n / 26;
    const int lo = n - 26 * hi;
    if (hi < 1)
        return QString(QChar(lo + 64));
    return QString(QChar(hi + 64)) + QChar(lo + 64);
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
