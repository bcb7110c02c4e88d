#include "budget/MatchBillDates.h"

#include "data/Database.h"

#include <cstdlib>

namespace {

// Reads distinct dates into a set; a value that is no date is passed over.
std::set<Date> readDates(Statement& st) {
    std::set<Date> dates;
    while (st.step()) {
        const Date d = st.date(0);
        if (d.isValid())
            dates.insert(d);
    }
    return dates;
}

// The bill dates of one account in [from, to], whole days. The upper bound is exclusive
// on the next day, so a stored time cannot push a date out.
std::set<Date> accountBillDates(Database& trendDb, const QString& account, const Date& from, const Date& to) {
    Statement st(trendDb,
                 QStringLiteral("SELECT DISTINCT BillDate FROM TblSummaryTrend WHERE BillAccount = ? "
                                "AND BillDate >= ? AND BillDate < ?"));
    st.bindAll(account, from, to.addDays(1));
    return readDates(st);
}

// The bill dates of every account in [from, to]. The trend table is large and indexed on
// (BillAccount, BillDate) only: rather than scan it, walk that index from account to
// account and from date to date, one seek per distinct pair.
std::set<Date> anyBillDates(Database& trendDb, const Date& from, const Date& to) {
    Statement st(
        trendDb,
        QStringLiteral(
            "WITH RECURSIVE "
            "account(a) AS (SELECT MIN(BillAccount) FROM TblSummaryTrend "
            "  UNION ALL SELECT (SELECT MIN(BillAccount) FROM TblSummaryTrend WHERE BillAccount > account.a) "
            "  FROM account WHERE account.a IS NOT NULL), "
            "bill(a, d) AS (SELECT a, (SELECT MIN(BillDate) FROM TblSummaryTrend "
            "    WHERE BillAccount = account.a AND BillDate >= ?1) FROM account WHERE a IS NOT NULL "
            "  UNION ALL SELECT a, (SELECT MIN(BillDate) FROM TblSummaryTrend "
            "    WHERE BillAccount = bill.a AND BillDate > bill.d) FROM bill WHERE d IS NOT NULL AND d < ?2) "
            "SELECT d FROM bill WHERE d IS NOT NULL AND d < ?2 "
            "UNION SELECT BillDate FROM TblSummaryTrend WHERE BillAccount IS NULL "
            "AND BillDate >= ?1 AND BillDate < ?2"));
    st.bindAll(from, to.addDays(1));
    return readDates(st);
}

} // namespace

void matchBillDates(std::vector<clsBudgetCostEntry>& entries, const std::set<Date>& accountDates,
                    const std::set<Date>& anyDates) {
    std::set<Date> taken;
    for (clsBudgetCostEntry& e : entries) {
        if (e.SelectedDate.isValid() && accountDates.count(e.SelectedDate)) {
            e.BillDate = e.SelectedDate;
            taken.insert(e.SelectedDate);
        } else {
            e.BillDate = Date();
        }
    }
    for (clsBudgetCostEntry& e : entries) {
        if (e.BillDate.isValid())
            continue;
        e.BillDate = e.SelectedDate;
        if (!e.SelectedDate.isValid())
            continue;
        long long best = BillDateTolerance + 1;
        // The set is ascending, so on a tie the earlier date stays.
        for (auto it = anyDates.lower_bound(e.SelectedDate.addDays(-BillDateTolerance));
             it != anyDates.end() && *it <= e.SelectedDate.addDays(BillDateTolerance); ++it) {
            if (taken.count(*it))
                continue;
            const long long distance = std::llabs(it->daysTo(e.SelectedDate));
            if (distance < best) {
                best = distance;
                e.BillDate = *it;
            }
        }
    }
}

void MatchBillDates(Database& trendDb, const QString& account, std::vector<clsBudgetCostEntry>& entries) {
    Date first;
    Date last;
    for (const clsBudgetCostEntry& e : entries) {
        if (!e.SelectedDate.isValid())
            continue;
        if (!first.isValid() || e.SelectedDate < first)
            first = e.SelectedDate;
        if (!last.isValid() || last < e.SelectedDate)
            last = e.SelectedDate;
    }
    if (!first.isValid()) {
        matchBillDates(entries, {}, {});
        return;
    }
    const std::set<Date> accountDates = accountBillDates(trendDb, account, first, last);
    const std::set<Date> anyDates =
        anyBillDates(trendDb, first.addDays(-BillDateTolerance), last.addDays(BillDateTolerance));
    matchBillDates(entries, accountDates, anyDates);
}
