#pragma once
// A report's grid on screen. The fixed rows (one or two) head the columns and the first
// fixed column heads the rows, so both stay in view while the figures scroll; every cell
// shows its text, weight, colours and its column's alignment. Widths come from the
// report (in twips), hidden rows are hidden, and equal neighbours in a merged row show
// as one cell. Rows and columns in the signals and look-ups are the report grid's.
#include "reports/Report.h"

#include <QTableWidget>
#include <algorithm>

class ReportHeadingView;
class cColours;

class ReportGridView : public QTableWidget {
    Q_OBJECT
public:
    explicit ReportGridView(const cColours& colours, QWidget* parent = nullptr);

    void showGrid(const ReportGrid& grid);

    // The text shown at a cell of the report grid ("" outside it).
    QString shownText(int row, int col) const;
    // The item that shows a cell, a heading's included; null outside the grid.
    QTableWidgetItem* shownItem(int row, int col) const;
    bool isRowShown(int row) const;
    // Where a cell of the report grid's body shows, in the viewport's coordinates;
    // invalid for a heading, a hidden row or a cell outside the grid.
    QRect cellRect(int row, int col) const;
    // Where a cell of a heading row shows, in the coordinates of headingSurface(col);
    // invalid for any other cell.
    QRect headingRect(int row, int col) const;
    // What shows the headings of a column: the corner for the row headings' column, else
    // the viewport of the column headings.
    QWidget* headingSurface(int col) const;

    // The height that shows the headings and up to `rows` of the shown rows, with the
    // scroll bar when the columns are wider than the view.
    int fittingHeight(int rows) const;
    int shownRowCount() const;

    // Pixels of a width in twips on this screen.
    int twipsToPixels(int twips) const;

signals:
    // A cell or a row heading was clicked; a click beside or below the cells is none.
    void cellChosen(int row, int col);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // At most two rows head the columns.
    int headingRows() const { return std::clamp(std::min(grid_.fixedRows, 2), 0, grid_.rowCount()); }
    int headingCols() const { return grid_.fixedCols > 0 && grid_.colCount() > 0 ? 1 : 0; }
    QTableWidgetItem* makeItem(const ReportCell& cell, Qt::Alignment alignment) const;
    void paintCorner(QWidget* corner);

    const cColours& colours_;
    ReportGrid grid_; // the grid shown; the headings paint from it
    ReportHeadingView* headings_;
    QWidget* corner_ = nullptr;
};
