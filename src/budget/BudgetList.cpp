#include "budget/BudgetList.h"

#include "app/Format.h"
#include "data/Database.h"

#include <algorithm>

QList<BudgetListRow> budgetListRows(Database& budgetDb) {
    QList<BudgetListRow> rows;
    Statement st(
        budgetDb,
        QStringLiteral(
            "SELECT BudgetID, Title, BillAccount, CCLevel, CCName, Created, BudgetType, MasterID, "
            "(SELECT o.Title FROM tblBudget o WHERE o.BudgetID = tblBudget.MasterID LIMIT 1) AS MaterTitle, "
            "(SELECT MIN(SelectedDate) FROM tblBudgetEntry e WHERE e.BudgetID = tblBudget.BudgetID) "
            "AS StartDate, "
            "(SELECT MAX(SelectedDate) FROM tblBudgetEntry e WHERE e.BudgetID = tblBudget.BudgetID) "
            "AS EndDate, "
            "(SELECT COUNT(SelectedDate) FROM tblBudgetEntry e WHERE e.BudgetID = tblBudget.BudgetID) "
            "AS DateCount "
            "FROM tblBudget ORDER BY BudgetID"));
    while (st.step()) {
        BudgetListRow r;
        r.budgetId = st.integer(0);
        r.title = st.text(1);
        r.billAccount = st.text(2);
        r.ccLevel = st.integer(3);
        r.ccName = st.text(4);
        r.created = st.date(5);
        r.budgetType = st.integer(6);
        r.masterId = st.isNull(7) ? -1 : st.integer(7);
        if (!st.isNull(8))
            r.masterTitle = st.text(8);
        r.startDate = st.date(9);
        r.endDate = st.date(10);
        r.dateCount = st.integer(11);
        rows.append(r);
    }
    sortBudgetListByName(rows);
    return rows;
}

void sortBudgetListByName(QList<BudgetListRow>& rows) {
    std::stable_sort(rows.begin(), rows.end(), [](const BudgetListRow& a, const BudgetListRow& b) {
        return QString::compare(budgetListName(a), budgetListName(b), Qt::CaseInsensitive) < 0;
    });
}

QString budgetListName(const BudgetListRow& row) {
    if (row.isMaster())
        return row.title;
    return row.masterTitle.value_or(QString()) + QLatin1Char('.') + row.title;
}

QString budgetListFilter(const BudgetListRow& row) {
    if (row.isMaster())
        return QStringLiteral("CC Level=%1").arg(row.ccLevel);
    return row.ccName;
}

QStringList budgetListHeadings() {
    return {QStringLiteral("Name"),       QStringLiteral("Bill Account"), QStringLiteral("Creation Date"),
            QStringLiteral("Date Count"), QStringLiteral("Start Date"),   QStringLiteral("End Date"),
            QStringLiteral("Filter")};
}

QStringList budgetListCells(const BudgetListRow& row) {
    const QString dayMonthYear = QStringLiteral("dd/mm/yyyy");
    return {budgetListName(row),
            row.billAccount,
            formatDate(row.created, dayMonthYear),
            QString::number(row.dateCount),
            formatDate(row.startDate, dayMonthYear),
            formatDate(row.endDate, dayMonthYear),
            budgetListFilter(row)};
}
