#include "budget/MasterPeriods.h"

#include "data/Database.h"

QList<Date> cascadeByMonth(const Date& from, int count) {
    QList<Date> dates;
    Date date = from;
    for (int i = 0; i < count && date.isValid(); ++i) {
        dates.append(date);
        date = date.addMonths(1);
    }
    return dates;
}

Date firstPeriodStart(Database& trendDb, const QString& account, const Date& today) {
    try {
        Statement st(trendDb,
                     QStringLiteral("SELECT MAX(BillDate) FROM TblSummaryTrend WHERE BillAccount = ?"));
        st.bind(1, account);
        if (st.step() && !st.isNull(0)) {
            const Date latest = st.date(0);
            if (latest.isValid())
                return latest;
        }
    } catch (const DbError&) {
        // A trend store that cannot answer gives no start: today it is.
    }
    return today;
}
