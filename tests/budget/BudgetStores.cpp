#include "BudgetStores.h"

#include "data/Schema.h"

namespace testing {

Money money(const char* text) {
    const std::optional<Money> m = Money::parse(QString::fromLatin1(text));
    Q_ASSERT_X(m, "money", text);
    return m.value_or(Money());
}

QString amounts(Money usage, Money recurring, Money oneOff, Money adjustments) {
    QStringList parts;
    for (Money m : {usage, recurring, oneOff, adjustments}) {
        QString t = m.toPlainString();
        while (t.contains(QLatin1Char('.')) && (t.endsWith(QLatin1Char('0')) || t.endsWith(QLatin1Char('.'))))
            t.chop(1);
        parts << t;
    }
    return parts.join(QLatin1Char('/'));
}

QStringList entriesOf(const clsBudget& b) {
    QStringList rows;
    for (int i = 1; i <= b.EntryCount(); ++i) {
        const clsBudgetCostEntry& e = b.Entry(i);
        rows << e.SelectedDate.toIso() + QLatin1Char(':') +
                    amounts(e.Usage, e.Recurring, e.OneOff, e.Adjustments);
    }
    return rows;
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
    projectDb.exec(QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1, CostCentre2) "
                                  "VALUES (?, ?, ?, NULLIF(?, ''))"),
                   account, tel, level1, level2);
}

int BudgetStores::master(const QString& title, int level, const QString& account) {
    budgetDb.exec(
        QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, MasterID, "
                       "BudgetType) VALUES (?, ?, ?, '', '2023-01-01', -1, -1)"),
        title, account, level);
    return int(budgetDb.lastInsertRowId());
}

int BudgetStores::child(int masterId, const QString& title, const QString& costCentre, int level) {
    budgetDb.exec(
        QStringLiteral("INSERT INTO tblBudget (Title, BillAccount, CCLevel, CCName, Created, MasterID, "
                       "BudgetType) VALUES (?, ?, ?, ?, '2023-01-02', ?, 0)"),
        title, Account, level, costCentre, masterId);
    return int(budgetDb.lastInsertRowId());
}

void BudgetStores::entry(int budgetId, const Date& date, Money usage, Money recurring, Money oneOff,
                         Money adjustments) {
    budgetDb.exec(
        QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, Recurring, OneOff, "
                       "Adjustments) VALUES (?, ?, ?, ?, ?, ?)"),
        budgetId, date, usage, recurring, oneOff, adjustments);
}

QStringList BudgetStores::entries(int budgetId) {
    QStringList rows;
    Statement st(budgetDb, QStringLiteral("SELECT SelectedDate, Usage, Recurring, OneOff, Adjustments FROM "
                                          "tblBudgetEntry WHERE BudgetID = ? ORDER BY SelectedDate, DateID"));
    st.bind(1, budgetId);
    while (st.step())
        rows << st.text(0) + QLatin1Char(':') + amounts(st.money(1), st.money(2), st.money(3), st.money(4));
    return rows;
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
