#include "trend/TrendList.h"

#include "app/Format.h"
#include "data/Database.h"

namespace {
const QString AmountFormat = QStringLiteral("£#,###,##0.000");
}

std::vector<TrendListRow> trendList(Database& trendDb, const QString& account) {
    std::vector<TrendListRow> rows;
    if (account.isEmpty())
        return rows;
    Statement st(trendDb, QStringLiteral("SELECT BillDate, SUM(\"PreTax Cost\"), SUM(\"Usage Charges\"), "
                                         "SUM(\"Recurring Charges\"), SUM(\"One Off Charges and Credits\"), "
                                         "SUM(Adjustments) FROM tblSummaryTrend WHERE BillAccount = ? "
                                         "GROUP BY BillDate ORDER BY BillDate"));
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

int deleteTrendEntry(Database& trendDb, const QString& account, const Date& billDate) {
    return trendDb.exec(QStringLiteral("DELETE FROM tblSummaryTrend WHERE BillAccount = ? AND BillDate = ?"),
                        account, billDate);
}

int deleteAllTrendEntries(Database& trendDb, const QString& account) {
    return trendDb.exec(QStringLiteral("DELETE FROM tblSummaryTrend WHERE BillAccount = ?"), account);
}
