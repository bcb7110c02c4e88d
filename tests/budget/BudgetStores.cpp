#include "BudgetStores.h"

#include "data/Schema.h"

#include <QRegularExpression>

namespace testing {

Money money(const char* text) {
    return Money::parse(QString::fromLatin1(text)).value_or(Money::fromPounds(-999999)); // a typo shows
}

Date d(unsigned month, unsigned day, int year) {
    return Date(year, month, day);
}

QString amounts(Money usage, Money recurring, Money oneOff, Money adjustments) {
    QStringList parts;
    for (Money m : {usage, recurring, oneOff, adjustments})
        parts << m.toPlainString().remove(QRegularExpression(QStringLiteral("\\.?0+$")));
    return parts.join(QLatin1Char('/'));
}

QStringList entriesOf(const clsBudget& b) {
    QStringList rows;
    for (int i = 1; i <= b.EntryCount(); ++i)
        rows << b.Entry(i).SelectedDate.toIso() + QLatin1Char(':') +
                    amounts(b.Entry(i).Usage, b.Entry(i).Recurring, b.Entry(i).OneOff,
                            b.Entry(i).Adjustments);
    return rows;
}

BudgetStores::BudgetStores() {
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
    for (const char* table : {"tblBudget", "tblBudgetEntry", "sqlite_sequence"}) {
        Statement st(budgetDb, QStringLiteral("SELECT * FROM %1 ORDER BY 1").arg(QLatin1String(table)));
        while (st.step())
            for (int c = 0; c < st.columnCount(); ++c)
                dump += st.text(c) + QLatin1Char(c + 1 < st.columnCount() ? '|' : '\n');
    }
    return dump;
}

} // namespace testing
