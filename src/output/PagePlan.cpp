#include "output/PagePlan.h"

#include "app/TextHelpers.h"
#include "reports/Report.h"

#include <algorithm>

namespace {

// The shape of a report area's chart on screen; on paper the charts keep it.
constexpr double AreaChartAspect = 540.0 / 340.0;
// A key line is this many text lines high.
constexpr double KeyLineSpacing = 1.4;
constexpr double SwatchPoints = 9;

bool columnShown(const ReportGrid& grid, int col) {
    return grid.column(col).widthTwips != 0;
}

// A row with its wrapped lines and its height; placed later.
PlannedRow measureRow(const ReportGrid& grid, int r, const std::vector<int>& columns,
                      const TextMeasure& measure, double padY) {
    PlannedRow row;
    row.row = r;
    row.heading = r < grid.fixedRows;
    row.lines.reserve(columns.size());
    int most = 1;
    for (int c : columns) {
        row.lines.push_back(WrapWords(grid.text(r, c), CellWrapLimit));
        most = std::max(most, int(row.lines.back().size()));
    }
    row.span.assign(columns.size(), 1);
    if (grid.row(r).merge) {
        for (size_t i = 0; i < columns.size();) {
            size_t end = i + 1;
            while (end < columns.size() && grid.text(r, columns[end]) == grid.text(r, columns[i]))
                ++end;
            row.span[i] = int(end - i);
            for (size_t k = i + 1; k < end; ++k)
                row.span[k] = 0;
            i = end;
        }
    }
    row.height = most * measure.lineHeight + 2 * padY;
    return row;
}

struct Table {
    std::vector<PlannedRow> rows; // every visible row, top to bottom
    std::vector<size_t> headings; // indexes in rows of the fixed rows
};

Table measureTable(const Report& report, const PageFrame& frame, const TextMeasure& measure, PagePlan& plan) {
    const ReportGrid& grid = report.grid;
    const double u = frame.unitsPerPoint;
    for (int c = 0; c < grid.colCount(); ++c)
        if (columnShown(grid, c))
            plan.columns.push_back(c);
    Table table;
    if (plan.columns.empty())
        return table;
    std::vector<double> widest(plan.columns.size(), 0.0);
    for (int r = 0; r < grid.rowCount(); ++r) {
        if (grid.row(r).hidden)
            continue;
        PlannedRow row = measureRow(grid, r, plan.columns, measure, PagePoints::CellPadY * u);
        for (size_t i = 0; i < plan.columns.size(); ++i) {
            // A merged cell that spans its neighbours does not widen its column.
            if (row.span[i] != 1)
                continue;
            for (const QString& line : row.lines[i])
                widest[i] = std::max(widest[i], measure.width(line, true));
        }
        if (row.heading)
            table.headings.push_back(table.rows.size());
        table.rows.push_back(std::move(row));
    }
    double total = 0;
    for (double w : widest)
        total += w + 2 * PagePoints::CellPadX * u;
    plan.tableScale = total > frame.size.width() && total > 0 ? frame.size.width() / total : 1.0;
    double left = 0;
    for (double w : widest) {
        const double width = (w + 2 * PagePoints::CellPadX * u) * plan.tableScale;
        plan.columnLefts.push_back(left);
        plan.columnWidths.push_back(width);
        left += width;
    }
    for (PlannedRow& row : table.rows)
        row.height *= plan.tableScale;
    return table;
}

void placeTable(Table& table, const PageFrame& frame, PagePlan& plan, double y, bool pageHasContent) {
    const double u = frame.unitsPerPoint;
    const double top = PagePoints::BodyTop * u;
    const double limit = frame.size.height() - (PagePoints::FooterRule + PagePoints::FooterGap) * u;
    double headingsHeight = 0;
    std::vector<PlannedRow> headings; // kept whole: the rows themselves move onto the pages
    for (size_t h : table.headings) {
        headingsHeight += table.rows[h].height;
        headings.push_back(table.rows[h]);
        headings.back().repeated = true;
    }
    bool pageHasRows = false;
    for (size_t i = 0; i < table.rows.size(); ++i) {
        PlannedRow& row = table.rows[i];
        double need = row.height;
        // The headings stay with the first line under them.
        if (!table.headings.empty() && i == table.headings.front()) {
            need = headingsHeight;
            const size_t after = table.headings.back() + 1;
            if (after < table.rows.size())
                need += table.rows[after].height;
        }
        if (y + need > limit && (pageHasRows || pageHasContent)) {
            plan.pages.emplace_back();
            y = top;
            pageHasContent = false;
            pageHasRows = false;
            if (!row.heading) {
                for (const PlannedRow& heading : headings) {
                    PlannedRow again = heading;
                    again.top = y;
                    y += again.height;
                    plan.pages.back().rows.push_back(std::move(again));
                }
            }
        }
        row.top = y;
        y += row.height;
        pageHasRows = true;
        plan.pages.back().rows.push_back(std::move(row));
    }
}

void planArea(const Report& report, const PageFrame& frame, const TextMeasure& measure, PlannedPage& page) {
    const double u = frame.unitsPerPoint;
    const double gap = PagePoints::Gap * u;
    double top = PagePoints::BodyTop * u;
    const double bottom = frame.size.height() - (PagePoints::FooterRule + PagePoints::FooterGap) * u;
    const double width = frame.size.width();
    if (report.noteVisible && !report.note.isEmpty()) {
        page.area.push_back(
            {AreaItem::Kind::Note, QRectF(0, top, width, measure.lineHeight), -1, report.note, {}});
        top += measure.lineHeight + gap / 2;
    }

    double keyWidth = 0;
    if (report.keyVisible && (!report.key.empty() || !report.periodLabels.isEmpty())) {
        const double pad = PagePoints::CellPadX * 2 * u;
        const double swatch = SwatchPoints * u;
        const double line = measure.lineHeight * KeyLineSpacing;
        double inner = 0;
        for (const ReportKeyEntry& entry : report.key)
            inner = std::max(inner, swatch + pad + measure.width(entry.label, false));
        for (const QString& period : report.periodLabels)
            inner = std::max(inner, measure.width(period, false));
        keyWidth = inner + 2 * pad;
        const int lines = int(report.key.size()) + int(report.periodLabels.size());
        const QRectF frameRect(width - keyWidth, top, keyWidth, lines * line + 2 * pad);
        page.area.push_back({AreaItem::Kind::KeyFrame, frameRect, -1, {}, {}});
        double y = top + pad;
        for (const ReportKeyEntry& entry : report.key) {
            const double x = frameRect.left() + pad;
            page.area.push_back({AreaItem::Kind::Swatch,
                                 QRectF(x, y + (line - swatch) / 2, swatch, swatch),
                                 -1,
                                 {},
                                 entry.colour});
            page.area.push_back({AreaItem::Kind::Label,
                                 QRectF(x + swatch + pad, y, inner - swatch - pad, line),
                                 -1,
                                 entry.label,
                                 {}});
            y += line;
        }
        for (const QString& period : report.periodLabels) {
            page.area.push_back(
                {AreaItem::Kind::Label, QRectF(frameRect.left() + pad, y, inner, line), -1, period, {}});
            y += line;
        }
        keyWidth += gap;
    }

    const int n = int(report.charts.size());
    if (n == 0)
        return;
    const double roomW = std::max(width - keyWidth, width / 2);
    const double roomH = std::max(bottom - top, 0.0);
    if (n == 1) {
        page.area.push_back({AreaItem::Kind::Chart, QRectF(0, top, roomW, roomH), 0, {}, {}});
        return;
    }
    // As many columns as give the charts the most room, each at its screen shape.
    int bestColumns = 1;
    double bestWidth = 0;
    for (int columns = 1; columns <= n; ++columns) {
        const int rows = (n + columns - 1) / columns;
        const double cellW = (roomW - (columns - 1) * gap) / columns;
        const double cellH = (roomH - (rows - 1) * gap) / rows;
        const double w = std::min(cellW, cellH * AreaChartAspect);
        if (w > bestWidth) {
            bestWidth = w;
            bestColumns = columns;
        }
    }
    const double h = bestWidth / AreaChartAspect;
    for (int i = 0; i < n; ++i) {
        const double x = (i % bestColumns) * (bestWidth + gap);
        const double y = top + (i / bestColumns) * (h + gap);
        page.area.push_back({AreaItem::Kind::Chart, QRectF(x, y, bestWidth, h), i, {}, {}});
    }
}

} // namespace

PagePlan planReportPages(const Report& report, const PageFrame& frame, const TextMeasure& measure) {
    PagePlan plan;
    const double u = frame.unitsPerPoint;
    plan.pages.emplace_back();
    double y = PagePoints::BodyTop * u;
    bool pageHasContent = false;
    if (report.form == ReportForm::ReportArea) {
        planArea(report, frame, measure, plan.pages.back());
        pageHasContent = !plan.pages.back().area.empty();
        if (pageHasContent)
            y = frame.size.height(); // a table, if any, starts on a page of its own
    } else if (report.form == ReportForm::ChartAndGrid && !report.charts.empty()) {
        const double height = frame.size.height() / 3.5 * 2;
        plan.pages.back().chart = QRectF(0, y, frame.size.width() - PagePoints::ChartWidthLess * u, height);
        y += height + PagePoints::Gap * u;
        pageHasContent = true;
    }
    Table table = measureTable(report, frame, measure, plan);
    placeTable(table, frame, plan, y, pageHasContent);
    return plan;
}
