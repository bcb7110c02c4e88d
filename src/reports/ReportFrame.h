#pragma once
// What the trend report builders share: the service filter, the date window, the chart
// scale, titles, the grid's measures and the error path.
#include "app/Money.h"
#include "app/cColours.h"
#include "data/Database.h"
#include "reports/ReportContext.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <vector>

namespace ReportText {
inline const QString NoCostCentreSelected = QStringLiteral("No Cost Centre Selected");
inline const QString DrillDownNote = QStringLiteral("Click on a line to drill-down");
inline const QString PercentChange = QStringLiteral("Percent Change (%)");
inline const QString Totals = QStringLiteral("Totals (£)");
} // namespace ReportText

// A rise in the percent rows is pure red; a fall takes DecreaseColour.
inline constexpr ColourNumber IncreaseColour = RGB(255, 0, 0);

// The colours of a chart's series from the scheme: the pie table for a pie, else the
// series table. Series beyond the table keep the chart's own (an invalid colour).
std::vector<QColor> graphColours(const cColours& colours, bool pie, int seriesCount);

// Column widths of the trend grids, in twips.
constexpr int CaptionColumnTwips = 3000;
constexpr int DateColumnTwips = 2000;
// Trend reports show the latest this many bill dates.
constexpr int TrendDateWindow = 24;

inline const Qt::Alignment ValueAlignment = Qt::AlignRight | Qt::AlignVCenter;

// "USA"/"USE" 1, "REC" 2, "ONE" 3, "ADJ" 4 by the first three letters in any case; else 0.
int GetChargeView(const QString& name);

// The service numbers a trend filter stands for: the numbers of a cost centre of level
// 1 to 5 (an empty value: those with no cost centre there), or the number itself at
// level 6. Any other level has none.
QStringList FilterServiceNumbers(AppContext& ctx, int level, const QString& value);

// A query with its bound values, in order.
struct BoundQuery {
    QString sql;
    std::vector<DbValue> values;
    BoundQuery& arg(const DbValue& value) {
        values.push_back(value);
        return *this;
    }
};
Statement prepareBound(Database& db, const BoundQuery& query);

// The filter of a trend report as SQL: nothing at the whole-bill level, else the
// numbers as one bound list. An empty list matches no row.
struct ServiceFilter {
    bool active = false;
    QString numbersJson;
    // "FROM TblSummaryTrend", through the number index when there is a list of numbers: the
    // rows of a few numbers are found by number, not among every row of the account's bills
    // in the wider index of the bills' figures, which holds the numbers too.
    QString from() const;
    // Where a date's sums of the money columns come from: for the whole bill, the totals
    // kept per bill, one row a date; else from().
    QString totalsFrom() const;
    // Where a date's pre-tax cost per product code comes from: for the whole bill, the
    // totals kept per bill and product; else from().
    QString productsFrom() const;
    // " AND \"Service No\" IN (...)" or ""; its one value goes in with bindTo().
    QString condition() const;
    void bindTo(BoundQuery& query) const;
    // What a query grouped by bill date groups on. With a list of numbers the quick way in
    // is the index on the numbers, so the date must not offer its own index for the order.
    QString dateGroup() const;
};
ServiceFilter makeServiceFilter(AppContext& ctx, int level, const QString& value);

// The value of a cost-centre filter as titles show it.
QString filterValueText(const QString& value);
// "<words>for Whole Bill", "<words>for <value>" (one number), or
// "<words>where Cost Centre Level <level> = <value>".
QString trendTitle(const QString& words, int level, const QString& value);

// Chart values keep about four digits: 10 to the power of (digits of the whole part of
// the largest amount - 4), or 1 when that is not above 0.
std::int64_t ChartScale(Money maxValue);
// The label with " / <scale>" behind it unless the scale is 1.
QString scaledLabel(const QString& label, std::int64_t scale);
double scaledValue(Money amount, std::int64_t scale);

// A bill date as the grids and chart labels show it.
QString billDateText(const Date& date);

// The last `window` elements, in their order.
template <typename T> std::vector<T> keepLast(std::vector<T> items, int window) {
    if (int(items.size()) > window)
        items.erase(items.begin(), items.end() - window);
    return items;
}

// One bill date's sums, as a trend query grouped by date returns them; a sum over no
// value at all is null.
struct DateSums {
    Date date;
    std::vector<std::optional<Money>> sums;
};
// Reads column 0 as the date and the next `sumCount` columns as sums, in query order.
std::vector<DateSums> readDateSums(Database& db, const BoundQuery& query, int sumCount);

// A run-time failure inside a builder, with a number and description for the log.
class ReportFailure : public std::runtime_error {
public:
    ReportFailure(long number, const QString& description);
    long number() const { return number_; }
    QString description() const { return QString::fromUtf8(what()); }

private:
    long number_;
};
// The failure of using a missing amount in a sum.
[[noreturn]] void throwNullUse();
Money requireAmount(const std::optional<Money>& amount);

// How a builder's failure is told: its call as the log writes it, whether a box with the
// stage and description comes first, and whether the stage goes into the logged text.
struct BuilderTrap {
    QString call;
    bool showLocationBox = false;
    bool locationInLog = false;
};
// The call as text: name(p1, "text", ...), text parameters in double quotes.
QString builderCall(const QString& name, const QVariantList& params);

// Runs a builder's body; `location` is the stage it has reached, in steps of 50. A failure
// is logged (and, for some builders, shown) and gives status Error with no report.
ReportResult runTrapped(ReportContext& rc, const BuilderTrap& trap,
                        const std::function<ReportResult(int& location)>& body);
