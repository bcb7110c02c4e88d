#pragma once
// The large trend store the report benchmarks share: 24 monthly bills of 50,000 services
// of one account, every money column filled, so that either benchmark can reuse the
// other's store.
#include "data/Database.h"
#include "data/Stores.h"

#include <QString>
#include <QStringList>

namespace bench {

constexpr int Bills = 24;
constexpr int Services = 50000;
inline const QString Account = QStringLiteral("BENCH01");
inline const Date FirstBill(2010, 1, 28);

inline QString serviceNumber(int i) {
    return QStringLiteral("01%1").arg(i, 9, 10, QLatin1Char('0'));
}

inline void fillTrendStore(Database& db) {
    CreateTrendTable(db);
    const QStringList money = trendMoneyColumns(db);
    QStringList columns{QStringLiteral("\"BillDate\""), QStringLiteral("\"BillAccount\""),
                        QStringLiteral("\"Service No\""), QStringLiteral("\"Product Code\"")};
    QStringList marks(4, QStringLiteral("?"));
    for (const QString& c : money) {
        columns << QLatin1Char('"') + c + QLatin1Char('"');
        marks << QStringLiteral("?");
    }
    Transaction tx(db);
    Statement insert(db, QStringLiteral("INSERT INTO TblSummaryTrend (%1) VALUES (%2)")
                             .arg(columns.join(QLatin1Char(',')), marks.join(QLatin1Char(','))));
    for (int b = 0; b < Bills; ++b) {
        const Date billDate = FirstBill.addMonths(b);
        for (int s = 0; s < Services; ++s) {
            insert.bindAll(billDate, Account, serviceNumber(s),
                           QStringLiteral("P%1").arg(s % 40, 5, 10, QLatin1Char('0')));
            for (int m = 0; m < money.size(); ++m)
                insert.bind(5 + m, Money::fromRaw(std::int64_t((s * 7 + b * 13 + m * 31) % 100000)));
            insert.run();
            insert.reset();
        }
    }
    tx.commit();
}

} // namespace bench
