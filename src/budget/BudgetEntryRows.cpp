#include "budget/BudgetEntryRows.h"

#include "data/Database.h"

QList<int> childBudgetIds(Database& budgetDb, int masterId) {
    QList<int> ids;
    Statement st(budgetDb,
                 QStringLiteral("SELECT BudgetID FROM tblBudget WHERE MasterID = ? ORDER BY BudgetID"));
    st.bind(1, masterId);
    while (st.step())
        ids.append(st.integer(0));
    return ids;
}

QStringList childCostCentres(Database& budgetDb, int masterId) {
    QStringList names;
    Statement st(budgetDb, QStringLiteral("SELECT CCName FROM tblBudget WHERE MasterID = ? "
                                          "GROUP BY CCName ORDER BY MIN(BudgetID)"));
    st.bind(1, masterId);
    while (st.step())
        names.append(st.text(0));
    return names;
}

std::vector<clsBudgetCostEntry> readBudgetEntries(Database& budgetDb, int budgetId, bool isMaster) {
    // Dates are grouped on their day alone, should a stored value carry a time.
    QString sql;
    if (!isMaster) {
        sql = QStringLiteral("SELECT substr(SelectedDate, 1, 10), Usage, Recurring, OneOff, Adjustments "
                             "FROM tblBudgetEntry WHERE BudgetID = ? ORDER BY SelectedDate, DateID");
    } else {
        // A master's own rows stop counting as soon as it has children.
        const bool hasChildren = !childBudgetIds(budgetDb, budgetId).isEmpty();
        const QString owners = hasChildren
                                   ? QStringLiteral("IN (SELECT BudgetID FROM tblBudget WHERE MasterID = ?)")
                                   : QStringLiteral("= ?");
        sql = QStringLiteral("SELECT substr(SelectedDate, 1, 10) AS Day, SUM(Usage), SUM(Recurring), "
                             "SUM(OneOff), SUM(Adjustments) FROM tblBudgetEntry WHERE BudgetID %1 "
                             "GROUP BY Day ORDER BY Day")
                  .arg(owners);
    }
    std::vector<clsBudgetCostEntry> entries;
    Statement st(budgetDb, sql);
    st.bind(1, budgetId);
    while (st.step()) {
        clsBudgetCostEntry e;
        e.SelectedDate = st.date(0);
        e.Usage = st.money(1);
        e.Recurring = st.money(2);
        e.OneOff = st.money(3);
        e.Adjustments = st.money(4);
        entries.push_back(e);
    }
    return entries;
}
