#include "budget/BudgetDelete.h"

#include "budget/clsBudget.h"
#include "data/Database.h"

BudgetDeleteResult deleteBudget(Database& budgetDb, int budgetId) {
    BudgetDeleteResult result;
    Transaction tx(budgetDb);
    {
        Statement row(budgetDb, QStringLiteral("SELECT MasterID FROM tblBudget WHERE BudgetID = ?"));
        row.bind(1, budgetId);
        if (!row.step())
            return result;
        result.found = true;
        result.wasMaster = row.isNull(0) || row.integer(0) == clsBudget::NoID;
    }
    if (result.wasMaster) {
        // Entries first: they are found through the children's rows.
        result.entriesDeleted = budgetDb.exec(
            QStringLiteral("DELETE FROM tblBudgetEntry WHERE BudgetID IN "
                           "(SELECT BudgetID FROM tblBudget WHERE MasterID = ?1) OR BudgetID = ?1"),
            budgetId);
        result.budgetsDeleted = budgetDb.exec(
            QStringLiteral("DELETE FROM tblBudget WHERE BudgetID = ?1 OR MasterID = ?1"), budgetId);
    } else {
        result.entriesDeleted =
            budgetDb.exec(QStringLiteral("DELETE FROM tblBudgetEntry WHERE BudgetID = ?"), budgetId);
        result.budgetsDeleted =
            budgetDb.exec(QStringLiteral("DELETE FROM tblBudget WHERE BudgetID = ?"), budgetId);
    }
    tx.commit();
    return result;
}
