#pragma once
// The chart-and-grid report window: the chart above a grid of the same figures. A click
// on a row of the total charges or service type trends opens the next level; the
// deviation reports fold their detail rows in and out.
#include "output/gui/ReportWindow.h"

class ClickableLabel;
class QVBoxLayout;
class ReportChartView;
class ReportGridView;

class frmReport : public ReportWindow {
    Q_OBJECT
public:
    frmReport(AppContext& ctx, ReportSession& session, Report report, QWidget* parent = nullptr);

    ReportForm form() const override { return ReportForm::ChartAndGrid; }

    // Null while the report has no chart.
    ReportChartView* chartView() const { return chtData_; }
    ReportGridView* grid() const { return grdData_; }
    ClickableLabel* detailsButton() const { return lblBudget_; }

public slots:
    // A click on a cell of the report's grid (row and column of the report).
    void grdData_Click(int row, int col);
    void cmdBudget_Click();

protected:
    void render() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void renderDetailsButton();
    void fitGrid();

    QWidget* chartPlace_;
    QVBoxLayout* chartLayout_;
    ReportChartView* chtData_ = nullptr;
    ReportGridView* grdData_;
    ClickableLabel* lblBudget_;
};
