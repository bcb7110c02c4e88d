#pragma once
// Reading a budget's family and dated rows from the budget store.
#include "budget/clsBudgetCostEntry.h"

#include <QList>
#include <QStringList>
#include <vector>

class Database;

// The BudgetIDs of a master's cost-centre budgets, in the order they were made.
QList<int> childBudgetIds(Database& budgetDb, int masterId);

// The distinct cost centres of a master's cost-centre budgets, in the order they were made.
QStringList childCostCentres(Database& budgetDb, int masterId);

// The dated rows of a budget in ascending date order, with BillDate left null. A master
// shows the sum of its children per date, or its own rows (summed per date) when it has
// no children; a cost-centre budget shows its own rows.
std::vector<clsBudgetCostEntry> readBudgetEntries(Database& budgetDb, int budgetId, bool isMaster);
