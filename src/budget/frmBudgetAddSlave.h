#pragma once
// Derives a cost-centre budget (or a whole-bill master's figures) from trend entries with a percent change.
#include <QDialog>

struct AppContext;

class frmBudgetAddSlave : public QDialog {
    Q_OBJECT
public:
    explicit frmBudgetAddSlave(AppContext& ctx, QWidget* parent = nullptr);
    // masterId: the master the budget hangs under; wholeBill: fill the master itself.
    void Setup(int masterId, bool wholeBill);

private:
    AppContext& ctx_;
};
