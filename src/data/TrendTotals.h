#pragma once
// The bill totals of the trend store: per account and bill date, the sum of every money
// column and the pre-tax cost of each product code. Whole-bill views read these few
// dozen rows instead of summing every service of every bill. The trend rows stay the
// truth: the totals are written in the same transaction as the rows they sum.
#include <QString>

class Database;
class Date;

namespace TrendTotals {
inline const QString Table = QStringLiteral("TblTrendTotals");
inline const QString ProductTable = QStringLiteral("TblTrendProductTotals");
} // namespace TrendTotals

// Creates the totals tables when they are missing, and fills them anew when they do not
// count the rows the trend table holds (a store written by an older version).
void ensureTrendTotals(Database& trendDb);

// Creates the totals tables anew, empty; within the caller's transaction.
void createTrendTotalsTables(Database& trendDb);

// Sums one bill's trend rows into the totals again; within the caller's transaction.
void refreshTrendTotals(Database& trendDb, const QString& account, const Date& billDate);

// Sums every bill anew; within the caller's transaction.
void rebuildTrendTotals(Database& trendDb);
