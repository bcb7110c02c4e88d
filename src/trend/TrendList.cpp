#include "trend/TrendList.h"

#include "app/Format.h"
#include "data/Database.h"
#include "data/TrendTotals.h"

namespace {
const QString AmountFormat = QStringLiteral("£#,###,##0.000");
}

std::vector<TrendListRow> trendList(Database& trendDb, const QString& account) {
    std::vector<TrendListRow> rows;
    if (account.isEmpty())
        return rows;
    // A bill's totals are kept beside its rows.
    Statement st(trendDb,
                 QStringLiteral("SELECT BillDate, \"PreTax Cost\", \"Usage Charges\", "
                                "\"Recurring Charges\", \"One Off Charges and Credits\", Adjustments "
                                "FROM %1 WHERE BillAccount = ? ORDER BY BillDate")
                     .arg(TrendTotals::Table));
    st.bind(1, account);
    while (st.step())
        rows.push_back({st.date(0), st.money(1), st.money(2), st.money(3), st.money(4), st.money(5)});
    return rows;
}

QStringList trendListHeadings() {
    return {QStringLiteral("Bill Date"),
            QStringLiteral("Total Bill Cost (£)"),
            QStringLiteral("Total Usage Costs (£)"),
            QStringLiteral("Total Recurring Costs (£)"),
            QStringLiteral("Total One Off Costs (£)"),
            QStringLiteral("Total Adjustments (£)")};
}

QStringList trendListCells(const TrendListRow& row) {
    return {formatDate(row.billDate, QStringLiteral("dd/mm/yyyy")),
            formatMoney(row.billCost, AmountFormat),
            formatMoney(row.usage, AmountFormat),
            formatMoney(row.recurring, AmountFormat),
            formatMoney(row.oneOff, AmountFormat),
            formatMoney(row.adjustments, AmountFormat)};
}

namespace {

// The rows and the totals kept of them go together.
template <typename... Keys> int deleteRows(Database& trendDb, const QString& where, const Keys&... keys) {
    Transaction tx(trendDb);
    const int deleted = trendDb.exec(QStringLiteral("DELETE FROM tblSummaryTrend WHERE ") + where, keys...);
    for (const QString& table : {TrendTotals::Table, TrendTotals::ProductTable})
        trendDb.exec(QStringLiteral("DELETE FROM %1 WHERE ").arg(table) + where, keys...);
    tx.commit();
    return deleted;
}

} // namespace

int deleteTrendEntry(Database& trendDb, const QString& account, const Date& billDate) {
    return deleteRows(trendDb, QStringLiteral("BillAccount = ? AND BillDate = ?"), account, billDate);
}

int deleteAllTrendEntries(Database& trendDb, const QString& account) {
    return deleteRows(trendDb, QStringLiteral("BillAccount = ?"), account);
}
