#pragma once
// What the trend store offers a new budget: the bill dates of an account, the cost
// centres of a level, and the four budget amounts of a bill, of a cost centre or whole.
// Cost centres come from the selected project's TblCC, which selection fills under the
// full bill account (the central store keeps an "...AC01" account under a shorter one).
#include "app/Date.h"
#include "app/Money.h"

#include <QList>
#include <QString>
#include <QStringList>

class Database;

struct BudgetAmounts {
    Money usage;
    Money recurring;
    Money oneOff;
    Money adjustments;
    bool operator==(const BudgetAmounts&) const = default;
};

// The first entry of the cost-centre list, which stands for none.
inline const QString NoCostCentreSelected = QStringLiteral("No Cost Centre Selected");
// The first entry of each trend-date list, which stands for none.
inline const QString NoTrendEntry = QStringLiteral("No Trend Entry");

// The distinct bill dates that the trend store holds for an account, ascending.
QList<Date> trendEntryDates(Database& trendDb, const QString& account);

// The distinct, non-blank cost centres of a level (1 to 5) of an account in the project's
// TblCC, in text order; names that differ in case only are one, and sort as one. Empty for
// any other level, and when no project is open.
QStringList costCentreChoices(Database& projectDb, const QString& account, int level);

// The trend date a period starts from: the first bill date in the same month of the year
// before, whatever its day; null when there is none.
Date defaultTrendDate(const QList<Date>& trendDates, const Date& period);

// The sums of usage, recurring, one-off and adjustment charges of one bill of an account.
// At a level of 1 or more and with a cost centre, only the services that the project's
// TblCC puts under it (in any case of its name) count, unless it puts none there, when the
// whole bill counts. The project is not read at level 0. Missing rows count 0, and a store
// failure leaves what was summed so far.
BudgetAmounts GetTrendAmounts(Database& trendDb, Database& projectDb, const QString& account, int level,
                              const QString& costCentre, const Date& trendDate);
