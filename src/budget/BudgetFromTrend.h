#pragma once
// First amounts of a new budget, taken from the trend store: per period a bill date
// (or none, to carry the period before) and a percent change.
#include "budget/TrendAmounts.h"

#include <functional>
#include <optional>

class clsBudget;

struct PeriodBasis {
    Date trendDate; // null: carry the amounts of the period before
    QString percent = QStringLiteral("0.0");
};

// The largest change either way that a period may ask for.
constexpr double MaxPercentChange = 1000.0;

// The value of a percent text, or nothing when it is no number.
std::optional<double> percentNumber(const QString& text);

struct PercentCheck {
    int index = -1;          // the first period refused, or -1
    bool notNumeric = false; // refused for being no number rather than too large
    bool ok() const { return index < 0; }
};
// Every percent must be a number of at most 1000 either way.
PercentCheck checkPercents(const QList<PeriodBasis>& periods);

using TrendAmountSource = std::function<BudgetAmounts(const Date& trendDate)>;

// The amounts of each period. A period without a trend date takes the unscaled amounts of
// the period before (zeros for the first); each period then has its own percent applied,
// the product rounded half to even at the fourth decimal. -100 % gives zeros without asking
// the trend store; 0 % keeps the amounts exactly. Percents must have passed checkPercents.
QList<BudgetAmounts> deriveBudgetAmounts(const QList<PeriodBasis>& periods, const TrendAmountSource& source);

// Fills the entries of a budget from the trend store, period i from periods[i], by the
// budget's account, level and cost centre (its services from the project's TblCC);
// periods beyond the list carry the one before. Nothing changes when a percent is refused.
PercentCheck fillBudgetFromTrend(clsBudget& budget, const QList<PeriodBasis>& periods, Database& trendDb,
                                 Database& projectDb);
