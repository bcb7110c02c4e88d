#include "budget/BudgetGrid.h"

#include "app/Format.h"
#include "budget/BudgetErrors.h"
#include "data/Database.h"

const std::array<BudgetCostTypeInfo, 4>& budgetCostTypes() {
    // One colour of each of the four bright palette families.
    static const std::array<BudgetCostTypeInfo, 4> types{{
        {BudgetCostType::Usage, QStringLiteral("Usage"), QStringLiteral("Usage"), 2},
        {BudgetCostType::Recurring, QStringLiteral("Recurring"), QStringLiteral("Recurring"), 8},
        {BudgetCostType::OneOff, QStringLiteral("One Off"), QStringLiteral("OneOff"), 15},
        {BudgetCostType::Adjustments, QStringLiteral("Adjustments"), QStringLiteral("Adjustments"), 20},
    }};
    return types;
}

BudgetGrid loadBudgetGrid(Database& budgetDb, int budgetId) {
    BudgetGrid grid;
    {
        Statement head(
            budgetDb,
            QStringLiteral("SELECT Title, MasterID, "
                           "(SELECT MIN(SelectedDate) FROM tblBudgetEntry e WHERE e.BudgetID = b.BudgetID), "
                           "(SELECT MAX(SelectedDate) FROM tblBudgetEntry e WHERE e.BudgetID = b.BudgetID) "
                           "FROM tblBudget b WHERE b.BudgetID = ?"));
        head.bind(1, budgetId);
        if (!head.step())
            throw BudgetNotFoundError("no budget " + std::to_string(budgetId));
        grid.budgetId = budgetId;
        grid.title = head.text(0);
        grid.masterId = head.isNull(1) ? -1 : head.integer(1);
        grid.startDate = head.date(2);
        grid.endDate = head.date(3);
    }
    Statement rows(budgetDb,
                   QStringLiteral("SELECT DateID, SelectedDate, Usage, Recurring, OneOff, Adjustments "
                                  "FROM tblBudgetEntry WHERE BudgetID = ? ORDER BY DateID"));
    rows.bind(1, budgetId);
    while (rows.step() && grid.periods.size() < BudgetGrid::MaxPeriods) {
        BudgetGridPeriod p;
        p.dateId = rows.integer(0);
        p.date = rows.date(1);
        for (int t = 0; t < 4; ++t)
            p.amounts[t] = rows.money(2 + t);
        grid.periods.append(p);
    }
    return grid;
}

int saveBudgetGrid(Database& budgetDb, const BudgetGrid& grid) {
    Transaction tx(budgetDb);
    int updated = 0;
    Statement st(budgetDb, QStringLiteral("UPDATE tblBudgetEntry SET Usage = ?, Recurring = ?, OneOff = ?, "
                                          "Adjustments = ? WHERE DateID = ?"));
    for (const BudgetGridPeriod& p : grid.periods) {
        st.bindAll(p.amounts[0], p.amounts[1], p.amounts[2], p.amounts[3], p.dateId);
        updated += st.run();
        st.reset();
    }
    tx.commit();
    return updated;
}

QString budgetGridTitle(const BudgetGrid& grid) {
    const QString dayMonthYear = QStringLiteral("dd/mm/yyyy");
    return grid.title + QStringLiteral("  (from ") + formatDate(grid.startDate, dayMonthYear) +
           QStringLiteral(" to ") + formatDate(grid.endDate, dayMonthYear) + QLatin1Char(')');
}

QString budgetPeriodCaption(int n, const Date& date) {
    return QStringLiteral("p%1\n%2").arg(n).arg(formatDate(date, QStringLiteral("dd/mm/yyyy")));
}
