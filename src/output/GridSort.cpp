#include "output/GridSort.h"

#include "app/cColours.h"

#include <algorithm>

namespace {

const QString AscendingAfter = QStringLiteral(" ^");
const QString DescendingAfter = QStringLiteral(" v");
const QString AscendingBefore = QStringLiteral("^ ");
const QString DescendingBefore = QStringLiteral("v ");

bool leftAligned(const ReportGrid& grid, int column) {
    return grid.column(column).alignment.testFlag(Qt::AlignLeft);
}

// An amount compares exactly; a percent by its ratio.
std::optional<double> numberOf(const CellValue& value) {
    if (const auto* m = std::get_if<Money>(&value))
        return double(m->raw());
    if (const auto* p = std::get_if<Percent>(&value))
        return p->ratio;
    return std::nullopt;
}

int numericOrder(const ReportCell& a, const ReportCell& b) {
    const auto* ma = std::get_if<Money>(&a.value);
    const auto* mb = std::get_if<Money>(&b.value);
    if (ma && mb)
        return *ma < *mb ? -1 : (*mb < *ma ? 1 : 0);
    const std::optional<double> x = numberOf(a.value);
    const std::optional<double> y = numberOf(b.value);
    if (!x || !y)
        return int(bool(x)) - int(bool(y));
    return *x < *y ? -1 : (*y < *x ? 1 : 0);
}

} // namespace

int CompareCells(const ReportCell& a, const ReportCell& b, bool numeric, bool ascending) {
    int order = 0;
    if (numeric) {
        order = numericOrder(a, b);
    } else {
        const int byCode = QString::compare(a.text, b.text, Qt::CaseSensitive);
        order = byCode < 0 ? -1 : (byCode > 0 ? 1 : 0);
    }
    return ascending ? order : -order;
}

void SortFlexGrid(ReportGrid& grid, int column, int firstRow, int lastRow, bool ascending, bool numeric) {
    if (firstRow >= lastRow || firstRow < 0 || lastRow >= grid.rowCount())
        return;
    struct Line {
        std::vector<ReportCell> cells;
        ReportRow row;
    };
    std::vector<Line> lines;
    lines.reserve(size_t(lastRow - firstRow + 1));
    for (int r = firstRow; r <= lastRow; ++r) {
        Line line{{}, grid.row(r)};
        for (int c = 0; c < grid.colCount(); ++c)
            line.cells.push_back(grid.cell(r, c));
        lines.push_back(std::move(line));
    }
    std::stable_sort(lines.begin(), lines.end(), [&](const Line& a, const Line& b) {
        return CompareCells(a.cells[size_t(column)], b.cells[size_t(column)], numeric, ascending) < 0;
    });
    for (int r = firstRow; r <= lastRow; ++r) {
        Line& line = lines[size_t(r - firstRow)];
        grid.row(r) = line.row;
        for (int c = 0; c < grid.colCount(); ++c)
            grid.cell(r, c) = std::move(line.cells[size_t(c)]);
    }
}

void SortByHeading(ReportGrid& grid, GridSortState& state, int column, const cColours& colours) {
    if (column < 0 || column >= grid.colCount() || grid.rowCount() < 1)
        return;
    if (state.column >= 0 && state.column < grid.colCount()) {
        ReportCell& old = grid.cell(0, state.column);
        old.text = leftAligned(grid, state.column) ? old.text.chopped(std::min<qsizetype>(2, old.text.size()))
                                                   : old.text.mid(2);
        old.backColor = QColor();
    }
    if (column == state.column) {
        state.ascending = !state.ascending;
    } else {
        state.column = column;
        state.ascending = true;
    }
    // The last column sorts as text even when it holds figures.
    const bool numeric =
        grid.column(column).colData == int(ColumnKind::Value) && column < grid.colCount() - 1;
    SortFlexGrid(grid, column, GridSortFirstRow, grid.rowCount() - 1, state.ascending, numeric);

    ReportCell& heading = grid.cell(0, column);
    if (leftAligned(grid, column))
        heading.text += state.ascending ? AscendingAfter : DescendingAfter;
    else
        heading.text.prepend(state.ascending ? AscendingBefore : DescendingBefore);
    heading.backColor = qColor(colours.GridSortColour());

    if (GridSortDeviationColumn >= grid.colCount())
        return;
    for (int r = GridSortFirstRow; r < grid.rowCount(); ++r) {
        ReportCell& cell = grid.cell(r, GridSortDeviationColumn);
        const auto* p = std::get_if<Percent>(&cell.value);
        if (!p) {
            cell.foreColor = QColor(Qt::black);
            continue;
        }
        // The percent is kept to four decimals, as an amount is.
        const bool over = Money::fromDouble(p->ratio) > Money();
        cell.foreColor = qColor(over ? colours.OverBudgetColour() : colours.UnderBudgetColour());
    }
}
