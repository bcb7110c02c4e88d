// Placeholder until the form is built.
#include "budget/frmBudgetEdit.h"

#include "app/AppContext.h"

frmBudgetEdit::frmBudgetEdit(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx) {
    Q_UNUSED(ctx_);
}

void frmBudgetEdit::Setup(int budgetId) {
    Q_UNUSED(budgetId);
}
