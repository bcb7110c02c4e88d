#include "reports/BudgetReportChoices.h"

#include "data/Database.h"

QList<BudgetChoice> budgetReportChoices(Database& budgetDb, const QString& account) {
    Statement st(
        budgetDb,
        QStringLiteral(
            "SELECT b.BudgetID, ifnull(b.Title, ''), b.MasterID, ifnull(b.CCLevel, 0), "
            "ifnull(CASE WHEN b.MasterID = -1 THEN b.Title "
            "ELSE (SELECT o.Title FROM tblBudget o WHERE o.BudgetID = b.MasterID) END, '') AS MasterTitle, "
            "(SELECT COUNT(*) FROM tblBudget oo WHERE oo.MasterID = b.BudgetID) AS ChildCount "
            "FROM tblBudget b WHERE b.BillAccount = ? "
            "ORDER BY MasterTitle COLLATE NOCASE, b.MasterID <> -1, b.Title COLLATE NOCASE, b.BudgetID"));
    st.bind(1, account);
    QList<BudgetChoice> choices;
    while (st.step()) {
        const bool master = st.integer(2) == -1;
        const int level = st.integer(3);
        if (master && st.integer(5) == 0 && level != 0)
            continue;
        choices.append(
            {st.integer(0), master ? st.text(1) : st.text(4) + QLatin1Char('.') + st.text(1), level});
    }
    return choices;
}

std::optional<int> findBudgetChoice(const QList<BudgetChoice>& choices, const QString& idOrText) {
    bool isId = false;
    const int id = idOrText.toInt(&isId);
    for (const BudgetChoice& c : choices)
        if (isId ? c.budgetId == id : c.text.compare(idOrText, Qt::CaseInsensitive) == 0)
            return c.budgetId;
    return std::nullopt;
}
