#include "BudgetStores.h"

#include "data/Schema.h"

#include <stdexcept>

namespace testing {

Money money(const char* text) {
    const std::optional<Money> m = Money::parse(QString::fromLatin1(text));
    if (!m)
        throw std::invalid_argument(text);
    return *m;
}

BudgetStores::BudgetStores()
    : budgetDb(Database::openMemory())
    , trendDb(Database::openMemory())
    , projectDb(Database::openMemory()) {
    budgetDb.execScript(schemaText(QStringLiteral("budgets")));
    trendDb.execScript(schemaText(QStringLiteral("trend")));
    projectDb.execScript(schemaText(QStringLiteral("project")));
}

void BudgetStores::trendRow(const QString& account, const Date& billDate, const QString& service, Money usage,
                            Money recurring, Money oneOff, Money adjustments) {
    trendDb.exec(QStringLiteral("INSERT INTO TblSummaryTrend (BillDate, BillAccount, \"Service No\", "
                                "\"Usage Charges\", \"Recurring Charges\", \"One Off Charges and Credits\", "
                                "Adjustments) VALUES (?, ?, ?, ?, ?, ?, ?)"),
                 billDate, account, service, usage, recurring, oneOff, adjustments);
}

void BudgetStores::costCentre(const QString& account, const QString& tel, const QString& level1,
                              const QString& level2) {
    Statement st(projectDb,
                 QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1, CostCentre2) "
                                "VALUES (?, ?, ?, ?)"));
    st.bindAll(account, tel, level1);
    if (level2.isNull())
        st.bindNull(4);
    else
        st.bind(4, level2);
    st.run();
}

int BudgetStores::master(const QString& title, const QString& account, int level) {
    budgetDb.exec(
        QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, MasterID, "
                       "BudgetType) VALUES (?, ?, ?, '', '2023-01-01', -1, -1)"),
        title, account, level);
    return int(budgetDb.lastInsertRowId());
}

int BudgetStores::child(int masterId, const QString& title, const QString& account, int level,
                        const QString& costCentre) {
    budgetDb.exec(
        QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, MasterID, "
                       "BudgetType) VALUES (?, ?, ?, ?, '2023-01-02', ?, 0)"),
        title, account, level, costCentre, masterId);
    return int(budgetDb.lastInsertRowId());
}

void BudgetStores::entry(int budgetId, const Date& date, Money usage, Money recurring, Money oneOff,
                         Money adjustments) {
    budgetDb.exec(
        QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, OneOff, "
                       "Adjustments) VALUES (?, ?, ?, ?, ?, ?)"),
        budgetId, date, usage, recurring, oneOff, adjustments);
}

int BudgetStores::budgetRows(int budgetId) {
    return int(
        queryInt(budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudget WHERE BudgetID = ?"), budgetId));
}

int BudgetStores::entryRows(int budgetId) {
    return int(queryInt(budgetDb, QStringLiteral("SELECT COUNT(*) FROM tblBudgetEntry WHERE BudgetID = ?"),
                        budgetId));
}

QString BudgetStores::budgetDump() {
    QString dump;
    for (const char* sql :
         {"SELECT * FROM tblBudget ORDER BY BudgetID", "SELECT * FROM tblBudgetEntry ORDER BY DateID",
          "SELECT seq FROM sqlite_sequence ORDER BY name"}) {
        Statement st(budgetDb, QString::fromLatin1(sql));
        while (st.step()) {
            for (int c = 0; c < st.columnCount(); ++c)
                dump += st.text(c) + QLatin1Char('|');
            dump += QLatin1Char('\n');
        }
    }
    return dump;
}

} // namespace testing
