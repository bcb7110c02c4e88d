#pragma once
// Deleting a budget from the store. A master takes all its cost-centre budgets with it.
class Database;

struct BudgetDeleteResult {
    bool found = false;     // the id had a row
    bool wasMaster = false; // its children went with it
    int budgetsDeleted = 0;
    int entriesDeleted = 0;
};

// One transaction: the budget's entries and row, and for a master those of every child too.
BudgetDeleteResult deleteBudget(Database& budgetDb, int budgetId);
