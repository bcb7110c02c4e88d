#pragma once
// The grid report window: a report that is only a table, under it the key of the
// under- and over-budget colours. Where the report allows it, a click on a heading sorts
// the lines and a click on a line opens the accumulative deviation of its budget.
#include "output/GridSort.h"
#include "output/gui/ReportWindow.h"

class QLabel;
class ReportGridView;

namespace GridReportText {
inline const QString KeyTitle = QStringLiteral("Colour Key:");
inline const QString UnderBudget = QStringLiteral("Under Budget");
inline const QString OverBudget = QStringLiteral("Over Budget");
inline const QString Failed = QStringLiteral("There was an error producing the report");
} // namespace GridReportText

class frmReport3 : public ReportWindow {
    Q_OBJECT
public:
    frmReport3(AppContext& ctx, ReportSession& session, Report report, QWidget* parent = nullptr);

    ReportForm form() const override { return ReportForm::Grid; }

    ReportGridView* grid() const { return grdData_; }
    // The column sorted now (-1: none) and its direction.
    const GridSortState& sortState() const { return sort_; }

public slots:
    // A click on a cell of the report's grid (row and column of the report): a heading
    // sorts, a line below the two heading rows drills down, row 1 does nothing.
    void grdData_Click(int row, int col);

protected:
    void render() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fitGrid();
    void sortByHeading(int col);
    void drillDown(int row);

    ReportGridView* grdData_;
    QLabel* lblKeyTitle_;
    QLabel* lblKey1_;
    QLabel* lblKey2_;
    GridSortState sort_;
};
