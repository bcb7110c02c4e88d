#pragma once
// The figures of one budget in a four-by-twelve grid beside a chart of them.
#include <QDialog>

struct AppContext;

class frmBudgetEdit : public QDialog {
    Q_OBJECT
public:
    explicit frmBudgetEdit(AppContext& ctx, QWidget* parent = nullptr);
    void Setup(int budgetId);

private:
    AppContext& ctx_;
};
