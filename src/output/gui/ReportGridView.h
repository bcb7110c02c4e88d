#pragma once
// A report's grid on screen. The first fixed row heads the columns and the first fixed
// column heads the rows, so both stay in view while the figures scroll; every other
// cell shows its text, weight, colour and its column's alignment. Widths come from the
// report (in twips), hidden rows are hidden, and equal neighbours in a merged row show
// as one cell. Rows and columns in the signals and look-ups are the report grid's.
#include "reports/Report.h"

#include <QTableWidget>

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
    int headingRows() const { return grid_.fixedRows > 0 && grid_.rowCount() > 0 ? 1 : 0; }
    int headingCols() const { return grid_.fixedCols > 0 && grid_.colCount() > 0 ? 1 : 0; }
    QTableWidgetItem* makeItem(const ReportCell& cell, Qt::Alignment alignment) const;
    void paintCorner(QWidget* corner);

    const cColours& colours_;
    QWidget* corner_ = nullptr;
    ReportGrid grid_;
};
