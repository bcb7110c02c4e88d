#pragma once
// Lists the budgets of the selected project's account and creates, edits, renames and deletes them.
#include <QDialog>

struct AppContext;

class frmBudgetManagement : public QDialog {
    Q_OBJECT
public:
    explicit frmBudgetManagement(AppContext& ctx, QWidget* parent = nullptr);

private:
    AppContext& ctx_;
};
