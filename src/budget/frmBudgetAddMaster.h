#pragma once
// Defines a master budget: its title, level and dated periods; also edits the dates of an existing master.
#include <QDialog>

struct AppContext;

class frmBudgetAddMaster : public QDialog {
    Q_OBJECT
public:
    explicit frmBudgetAddMaster(AppContext& ctx, QWidget* parent = nullptr);
    // Fills the form with an existing master for editing its dates.
    void SetupForEdit(int budgetId);

private:
    AppContext& ctx_;
};
