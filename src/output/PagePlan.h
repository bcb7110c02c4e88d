#pragma once
// The plan of a report's printed pages: which table rows go on which page and where,
// the columns and their widths, the wrapped lines of every cell, the place of the chart
// and of the report area's charts and labels. It is worked out from the report, the page
// and a way of measuring text alone, so it can be checked as plain data; the painter
// (ReportPages.h) draws it onto paper or a PDF file.
//
// Lengths are in page units (the paint device's pixels); PageFrame says how many of them
// make a point. y runs down from the top of the printable area.
#include <QColor>
#include <QRectF>
#include <QSizeF>
#include <QStringList>
#include <functional>
#include <vector>

struct Report;

// Cell texts are wrapped at this many characters (by WrapWords).
inline constexpr int CellWrapLimit = 30;

// The width of a text in the table's font, bold or not, and the height of one line.
struct TextMeasure {
    std::function<double(const QString& text, bool bold)> width;
    double lineHeight = 0;
};

// The printable area of a page.
struct PageFrame {
    QSizeF size;
    double unitsPerPoint = 1.0;
};

// Fixed places on every page, in points (PageFrame turns them into page units).
namespace PagePoints {
constexpr double HeaderRule = 45;     // the red rule under the title
constexpr double BodyTop = 55;        // where the chart, the table or the area starts
constexpr double FooterRule = 40;     // the footer's rule, measured up from the bottom
constexpr double FooterGap = 6;       // kept clear above the footer's rule
constexpr double ChartWidthLess = 20; // the chart is this much narrower than the page
constexpr double Gap = 10;            // between the chart and the table
constexpr double CellPadX = 3;
constexpr double CellPadY = 1.5;
} // namespace PagePoints

// One row of the table as it is drawn.
struct PlannedRow {
    int row = 0;           // the report grid's row
    bool heading = false;  // a fixed row: drawn bold
    bool repeated = false; // a fixed row drawn again at the top of a later page
    double top = 0;
    double height = 0;
    // Per planned column: the wrapped lines, and how many columns the cell spans (0 for a
    // cell that the merged cell on its left covers).
    std::vector<QStringList> lines;
    std::vector<int> span;
};

// Something placed on the page of a report area.
struct AreaItem {
    enum class Kind { Chart, Swatch, Label, Note, KeyFrame };
    Kind kind = Kind::Label;
    QRectF rect;
    int chart = -1; // for a chart, its index in the report
    QString text;
    QColor colour; // for a swatch
};

struct PlannedPage {
    QRectF chart; // null when the page shows no chart
    std::vector<PlannedRow> rows;
    std::vector<AreaItem> area;
};

struct PagePlan {
    // The report's visible columns, left to right, with their left edges and widths.
    std::vector<int> columns;
    std::vector<double> columnLefts;
    std::vector<double> columnWidths;
    // A table wider than the page is drawn smaller: the table's font at this share of its
    // size, and every length of the table with it.
    double tableScale = 1.0;
    std::vector<PlannedPage> pages;

    double tableWidth() const { return columns.empty() ? 0.0 : columnLefts.back() + columnWidths.back(); }
};

// The pages of a report: a chart-and-grid report has its first chart at 2/3.5 of the
// page's height over the width of the page, then its table; a grid report has its table
// alone; a report area has its charts, key, periods and note laid out to fit one page.
// The table takes the visible rows and columns; each page that the table reaches after
// the first starts with the visible fixed rows again. A row goes to a new page when it
// would reach into the footer.
PagePlan planReportPages(const Report& report, const PageFrame& frame, const TextMeasure& measure);
