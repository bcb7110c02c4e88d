// Placeholder until the form is built.
#include "budget/frmBudgetAddSlave.h"

#include "app/AppContext.h"

frmBudgetAddSlave::frmBudgetAddSlave(AppContext& ctx, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx) {
    Q_UNUSED(ctx_);
}

void frmBudgetAddSlave::Setup(int masterId, bool wholeBill) {
    Q_UNUSED(masterId);
    Q_UNUSED(wholeBill);
}
