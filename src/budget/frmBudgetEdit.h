#pragma once
// The figures of one budget in a four-by-twelve grid beside a chart of them.
#include <QDialog>

class BudgetGridModel;
class ClickableLabel;
class HoverHints;
class QChart;
class QChartView;
class QLabel;
class QLineEdit;
class QTableView;
class uctFooter;
class uctHeader;
struct AppContext;

class frmBudgetEdit : public QDialog {
    Q_OBJECT
public:
    explicit frmBudgetEdit(AppContext& ctx, QWidget* parent = nullptr);

    // Loads the budget into the grid and the chart; unsaved edits are dropped.
    void Setup(int budgetId);
    // Draws the chart again from the grid's figures.
    void SetupChart();

    int budgetId() const { return budgetId_; }
    bool isLoaded() const { return loaded_; }
    bool isChanged() const { return changed_; }
    int periodCount() const;

    QTableView* grid() const { return grdBudget_; }
    BudgetGridModel* gridModel() const { return model_; }
    QChart* chart() const;
    QLineEdit* titleBox() const { return txtTitle_; }
    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }
    ClickableLabel* saveButton() const { return lblSave_; }
    ClickableLabel* cancelButton() const { return lblCancel_; }
    ClickableLabel* datesButton() const { return lblEdit_; }

public slots:
    void cmdSave_Click();
    void cmdCancel_Click();
    void cmdDates_Click();
    void cmdExit_Click();
    void cmdHelp_Click();
    // Closing the window or Escape: asks as Back does.
    void reject() override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void figureEdited();
    void commitPendingFigure();
    void sizeGridToRows();
    bool mayLoseChanges();

    AppContext& ctx_;
    uctHeader* header_;
    uctFooter* footer_;
    HoverHints* hints_;
    QLabel* lblHint_;
    QLineEdit* txtTitle_;
    QTableView* grdBudget_;
    BudgetGridModel* model_;
    QChartView* chtBudget_;
    ClickableLabel* lblSave_;
    ClickableLabel* lblCancel_;
    ClickableLabel* lblEdit_;
    int budgetId_ = -1;
    bool loaded_ = false;
    bool changed_ = false;
};
