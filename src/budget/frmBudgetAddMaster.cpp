// Placeholder until the form is built.
#include "budget/frmBudgetAddMaster.h"

#include "app/AppContext.h"

frmBudgetAddMaster::frmBudgetAddMaster(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx) {
    Q_UNUSED(ctx_);
}

void frmBudgetAddMaster::SetupForEdit(int budgetId) {
    Q_UNUSED(budgetId);
}
