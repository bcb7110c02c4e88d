#pragma once
// The figures of one budget as the budget editor shows them: four cost types by up to
// twelve periods, the periods in the order their rows were made (DateID), so a date
// added to a master later stands last whatever its date. Saving writes each figure back
// to the row of its period.
#include "app/Date.h"
#include "app/Money.h"

#include <QList>
#include <QString>
#include <array>

class Database;

// The four cost types, in the order of the grid's rows.
enum class BudgetCostType { Usage = 0, Recurring = 1, OneOff = 2, Adjustments = 3 };

struct BudgetCostTypeInfo {
    BudgetCostType type;
    QString label;   // the grid's row caption and the chart's series label
    QString column;  // the column of tblBudgetEntry
    int colourIndex; // the palette entry of its grid row and chart series
};

// Usage, Recurring, One Off and Adjustments, in grid order.
const std::array<BudgetCostTypeInfo, 4>& budgetCostTypes();

struct BudgetGridPeriod {
    int dateId = -1; // the row of tblBudgetEntry the period's figures belong to
    Date date;
    std::array<Money, 4> amounts{}; // by BudgetCostType
};

struct BudgetGrid {
    static constexpr int MaxPeriods = 12;

    int budgetId = -1;
    int masterId = -1;
    QString title;
    Date startDate; // null when the budget has no dates
    Date endDate;
    QList<BudgetGridPeriod> periods; // at most MaxPeriods, in DateID order

    bool isMaster() const { return masterId == -1; }
    Money amount(BudgetCostType type, int period) const { return periods[period].amounts[int(type)]; }
};

// Reads the budget's own rows (a master's stored rows, not its children's sum). Throws
// BudgetNotFoundError for an id without a row; rows past the twelfth are left out.
BudgetGrid loadBudgetGrid(Database& budgetDb, int budgetId);

// Writes every figure to the row of its period, in one transaction: on a failure nothing
// is written. Rows that have gone since the load are passed over. Returns the rows updated.
int saveBudgetGrid(Database& budgetDb, const BudgetGrid& grid);

// "Title  (from dd/mm/yyyy to dd/mm/yyyy)".
QString budgetGridTitle(const BudgetGrid& grid);
// The caption of period column n (1-based): "p" and n, a line break, its date.
QString budgetPeriodCaption(int n, const Date& date);
