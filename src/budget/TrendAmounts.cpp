#include "budget/TrendAmounts.h"

#include "data/Database.h"
#include "data/ReferenceData.h"

namespace {

// The column of a cost-centre level; "" for a level the store does not have.
QString levelColumn(int level) {
    if (level < 1 || level > 5)
        return QString();
    return QStringLiteral("CostCentre%1").arg(level);
}

} // namespace

QList<Date> trendEntryDates(Database& trendDb, const QString& account) {
    QList<Date> dates;
    Statement st(trendDb,
                 QStringLiteral("SELECT DISTINCT BillDate FROM TblSummaryTrend WHERE BillAccount = ? "
                                "ORDER BY BillDate"));
    st.bind(1, account);
    while (st.step()) {
        const Date d = st.date(0);
        if (d.isValid() && (dates.isEmpty() || dates.last() != d))
            dates.append(d);
    }
    return dates;
}

QStringList costCentreChoices(Database& projectDb, const QString& account, int level) {
    const QString column = levelColumn(level);
    if (column.isEmpty() || !projectDb.isOpen())
        return {};
    QStringList names;
    // Names that differ in case only are one cost centre: listed once, sorted as one.
    Statement st(projectDb, QStringLiteral("SELECT DISTINCT %1 COLLATE NOCASE AS name FROM TblCC "
                                           "WHERE VeloraAccount = ? ORDER BY name")
                                .arg(column));
    st.bind(1, account);
    while (st.step()) {
        if (!st.isNull(0) && !st.text(0).trimmed().isEmpty())
            names.append(st.text(0));
    }
    return names;
}

Date defaultTrendDate(const QList<Date>& trendDates, const Date& period) {
    if (!period.isValid())
        return Date();
    const Date yearBefore = period.addMonths(-12);
    for (const Date& d : trendDates) {
        if (d.year() == yearBefore.year() && d.month() == yearBefore.month())
            return d;
    }
    return Date();
}

BudgetAmounts GetTrendAmounts(Database& trendDb, Database& projectDb, const QString& account, int level,
                              const QString& costCentre, const Date& trendDate) {
    QStringList services;
    const QString column = levelColumn(level);
    if (!column.isEmpty() && costCentre != NoCostCentreSelected) {
        try {
            Statement st(projectDb, QStringLiteral("SELECT TelNo FROM TblCC WHERE VeloraAccount = ? "
                                                   "AND %1 = ? COLLATE NOCASE")
                                        .arg(column));
            st.bindAll(account, costCentre);
            while (st.step())
                services.append(st.text(0));
        } catch (const DbError&) {
            // A project that cannot answer leaves the whole bill to be summed.
        }
    }
    BudgetAmounts amounts;
    try {
        QString sql =
            QStringLiteral("SELECT SUM(\"Usage Charges\"), SUM(\"Recurring Charges\"), "
                           "SUM(\"One Off Charges and Credits\"), SUM(Adjustments) FROM TblSummaryTrend "
                           "WHERE BillDate = ? AND BillAccount = ?");
        if (!services.isEmpty())
            sql += QStringLiteral(" AND \"Service No\" IN (SELECT value FROM json_each(?))");
        Statement st(trendDb, sql);
        st.bindAll(trendDate, account);
        if (!services.isEmpty())
            st.bind(3, jsonList(services));
        if (st.step()) {
            amounts.usage = st.money(0);
            amounts.recurring = st.money(1);
            amounts.oneOff = st.money(2);
            amounts.adjustments = st.money(3);
        }
    } catch (const DbError&) {
        // As the budget form has it: a failing sum leaves zeros.
    }
    return amounts;
}
