// Placeholder until the form is built.
#include "budget/frmBudgetManagement.h"

#include "app/AppContext.h"

frmBudgetManagement::frmBudgetManagement(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx) {
    Q_UNUSED(ctx_);
}
