#pragma once
// The heading sort of the grid report: a click on a heading sorts the lines below the two
// heading rows on that column, marks the heading with the direction and recolours the
// deviation column, whose colours belong to the figures and not to the place.
#include "reports/Report.h"

class cColours;

// The column sorted now (-1: none) and its direction.
struct GridSortState {
    int column = -1;
    bool ascending = false;
};

// Rows 0 and 1 are headings; the lines start at row 2. Column 4 holds the deviation.
constexpr int GridSortFirstRow = 2;
constexpr int GridSortDeviationColumn = 4;

// -1, 0 or 1. Numeric: by the cells' values, a cell without one ("-") below every number;
// otherwise by the texts' character codes, case counting. Descending negates.
int CompareCells(const ReportCell& a, const ReportCell& b, bool numeric, bool ascending);

// Sorts rows firstRow to lastRow on one column, moving whole rows (text, values, colours,
// row data). Equal keys keep their order.
void SortFlexGrid(ReportGrid& grid, int column, int firstRow, int lastRow, bool ascending, bool numeric);

// A click on heading `column`: the old heading loses its mark and colour; the same column
// turns its direction, another starts ascending; a value column sorts by value, except the
// last, which sorts as text; the heading gets " ^"/" v" behind a left-aligned text and
// "^ "/"v " before any other, and the sort colour; the deviation column is recoloured:
// black for "-", the over-budget colour above 0, else the under-budget colour.
void SortByHeading(ReportGrid& grid, GridSortState& state, int column, const cColours& colours);
