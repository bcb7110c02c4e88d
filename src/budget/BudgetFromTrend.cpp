#include "budget/BudgetFromTrend.h"

#include "budget/clsBudget.h"

#include <cmath>

namespace {

Money scaled(Money amount, double multiplier) {
    return Money::fromDouble(amount.toDouble() * multiplier);
}

} // namespace

std::optional<double> percentNumber(const QString& text) {
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

PercentCheck checkPercents(const QList<PeriodBasis>& periods) {
    for (int i = 0; i < periods.size(); ++i) {
        const std::optional<double> value = percentNumber(periods[i].percent);
        if (!value)
            return {i, true};
        if (std::fabs(*value) > MaxPercentChange)
            return {i, false};
    }
    return {};
}

QList<BudgetAmounts> deriveBudgetAmounts(const QList<PeriodBasis>& periods, const TrendAmountSource& source) {
    QList<BudgetAmounts> result;
    BudgetAmounts carried;
    for (const PeriodBasis& period : periods) {
        const double multiplier = (percentNumber(period.percent).value_or(0.0) + 100.0) / 100.0;
        BudgetAmounts row;
        if (multiplier != 0.0) {
            row = period.trendDate.isValid() ? source(period.trendDate) : carried;
        }
        // Carried before scaling: a period without a trend entry starts from the plain amounts.
        carried = row;
        if (multiplier != 0.0 && multiplier != 1.0) {
            row.usage = scaled(row.usage, multiplier);
            row.recurring = scaled(row.recurring, multiplier);
            row.oneOff = scaled(row.oneOff, multiplier);
            row.adjustments = scaled(row.adjustments, multiplier);
        }
        result.append(row);
    }
    return result;
}

PercentCheck fillBudgetFromTrend(clsBudget& budget, const QList<PeriodBasis>& periods, Database& trendDb,
                                 Database& projectDb) {
    // Periods beyond the list carry the one before, unchanged.
    QList<PeriodBasis> used = periods.mid(0, budget.EntryCount());
    while (used.size() < budget.EntryCount())
        used.append(PeriodBasis());
    const PercentCheck check = checkPercents(used);
    if (!check.ok())
        return check;
    const QString account = budget.BillAccount();
    const int level = budget.CCLevel();
    const QString costCentre = budget.CostCentre();
    const QList<BudgetAmounts> amounts = deriveBudgetAmounts(used, [&](const Date& trendDate) {
        return GetTrendAmounts(trendDb, projectDb, account, level, costCentre, trendDate);
    });
    for (int i = 0; i < amounts.size(); ++i) {
        clsBudgetCostEntry& e = budget.Entry(i + 1);
        e.Usage = amounts[i].usage;
        e.Recurring = amounts[i].recurring;
        e.OneOff = amounts[i].oneOff;
        e.Adjustments = amounts[i].adjustments;
    }
    return check;
}
