#pragma once
// The list of all budgets as the budget management form shows it: each master with its
// cost-centre budgets, a child named after its master so that it sorts right under it.
#include "app/Date.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class Database;

struct BudgetListRow {
    int budgetId = -1;
    QString title;
    QString billAccount;
    int ccLevel = 0;
    QString ccName;
    Date created;
    int budgetType = 0;
    int masterId = -1;
    std::optional<QString> masterTitle; // the master's title; none for a master or an orphan
    Date startDate;                     // null with no dates
    Date endDate;
    int dateCount = 0;

    bool isMaster() const { return masterId == -1; }
    // The id of the row's master, or its own id for a master.
    int familyMasterId() const { return isMaster() ? budgetId : masterId; }
};

// Every budget of the store, whatever its account, sorted by name.
QList<BudgetListRow> budgetListRows(Database& budgetDb);

// Sorts rows by their shown name without regard to case; equal names keep their order.
void sortBudgetListByName(QList<BudgetListRow>& rows);

// A master: its title. A child: its master's title, ".", its title; an orphan's name
// thus begins with ".".
QString budgetListName(const BudgetListRow& row);
// A master: "CC Level=" and its level. A child: its cost centre.
QString budgetListFilter(const BudgetListRow& row);

// The captions of the shown columns: Name, Bill Account, Creation Date, Date Count,
// Start Date, End Date, Filter.
QStringList budgetListHeadings();
// The shown cells of a row, dates as dd/mm/yyyy.
QStringList budgetListCells(const BudgetListRow& row);
