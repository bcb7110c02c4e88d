// One query per bill date reads the amounts of the account's numbers straight from the
// figures index, in number order; they are summed per cost centre and date in memory by
// walking the numbers of the level's centres, sorted the same way, beside them. The
// centres are ranked in memory too. So no work table in the trend store is needed, there
// is no query per centre and date, and no lookup per row. (Summing in memory measured
// faster here than grouping by number in SQL, and the walk faster than a hash lookup of
// each row's number, whose memory is all over the place.)
#include "app/AppContext.h"
#include "app/Format.h"
#include "data/RawText.h"
#include "data/TrendTotals.h"
#include "reports/ReportFrame.h"
#include "reports/TrendReports.h"

#include <QHash>
#include <algorithm>
#include <array>

namespace {

constexpr int DateCount = 12;
constexpr int TopCount = 10;

enum Part { Usage, Recurring, OneOff, Adjustments, Telemarketing, PartCount };
using Parts = std::array<Money, PartCount>;

QString captionOf(int chartType) {
    switch (chartType) {
    case 1:
        return QStringLiteral("Top 10 Cost Centres by Usage Charges - Telemarketing");
    case 2:
        return QStringLiteral("Top 10 Cost Centres by Recurring Charges");
    case 3:
        return QStringLiteral("Top 10 Cost Centres by One Off Charges and Credits");
    case 4:
        return QStringLiteral("Top 10 Cost Centres by Adjustments");
    case 6:
        return QStringLiteral("Top 10 Cost Centres by Telemarketing");
    default:
        return QStringLiteral("Top 10 Cost Centres by Total Charges");
    }
}

Money costOf(int chartType, const Parts& p) {
    switch (chartType) {
    case 1:
        return p[Usage] - p[Telemarketing];
    case 2:
        return p[Recurring];
    case 3:
        return p[OneOff];
    case 4:
        return p[Adjustments];
    case 6:
        return p[Telemarketing];
    default:
        return p[Usage] + p[Recurring] + p[OneOff] + p[Adjustments];
    }
}

struct CostCentre {
    QString name;
    std::vector<Parts> perDate;
    std::vector<Money> costs; // per date, by the chart type
    Money total;
};

// The last twelve bill dates of the account, from the start date on when one is given.
std::vector<Date> reportDates(AppContext& ctx, const QString& startDate) {
    BoundQuery query{QStringLiteral("SELECT BillDate FROM %1 WHERE BillAccount = ?").arg(TrendTotals::Table),
                     {}};
    query.arg(ctx.billAccount);
    if (!startDate.isEmpty()) {
        query.sql += QStringLiteral(" AND BillDate >= ?");
        query.arg(parseDateText(startDate).toIso());
    }
    query.sql += QStringLiteral(" ORDER BY BillDate");
    std::vector<Date> dates;
    Statement st = prepareBound(ctx.trendDb, query);
    while (st.step())
        dates.push_back(st.date(0));
    return keepLast(std::move(dates), DateCount);
}

// A number of the level and one centre it belongs to.
struct NumberCentre {
    std::string number; // as the stores hold it, so that it orders as they do
    int centre;
    auto operator<=>(const NumberCentre&) const = default;
};

// The centres of a level by name, with the centres each number belongs to, sorted by
// number. A missing name and an empty one are one centre, "No Cost Centre Selected".
std::vector<CostCentre> costCentres(AppContext& ctx, int level, std::vector<NumberCentre>* numbers) {
    if (level < 1 || level > 5)
        throw ReportFailure(3265, QStringLiteral("There is no cost-centre level %1").arg(level));
    // The level's column name comes from the check above, never from the caller's text.
    Statement st(ctx.projectDb, QStringLiteral("SELECT ifnull(CostCentre%1, ''), TelNo FROM TblCC "
                                               "WHERE VeloraAccount = ? ORDER BY rowid")
                                    .arg(level));
    st.bind(1, ctx.billAccount);
    std::vector<CostCentre> centres;
    QHash<QString, int> indexOfName;
    while (st.step()) {
        const QString name = st.text(0).isEmpty() ? ReportText::NoCostCentreSelected : st.text(0);
        // Names that differ only in case are one cost centre.
        const QString key = name.toCaseFolded();
        auto found = indexOfName.constFind(key);
        int index = 0;
        if (found == indexOfName.constEnd()) {
            index = int(centres.size());
            indexOfName.insert(key, index);
            centres.push_back({name, {}, {}, Money()});
        } else {
            index = *found;
        }
        numbers->push_back({std::string(viewOf(st.rawBytes(1))), index});
    }
    // A number listed twice under one centre counts once, as a list of numbers does.
    std::sort(numbers->begin(), numbers->end());
    numbers->erase(std::unique(numbers->begin(), numbers->end()), numbers->end());
    return centres;
}

// Accumulated cost highest first; ties by name, as text is ordered without regard to case.
bool ranksBefore(const CostCentre& a, const CostCentre& b) {
    if (a.total != b.total)
        return a.total > b.total;
    const int byName = a.name.compare(b.name, Qt::CaseInsensitive);
    if (byName != 0)
        return byName < 0;
    return a.name < b.name;
}

bool hasCost(const CostCentre& centre) {
    return std::any_of(centre.costs.begin(), centre.costs.end(), [](Money m) { return !m.isZero(); });
}

// The largest accumulated cost among the ranked centres that carry any cost, as the
// scale takes it: up to ten of them, and never the last centre of all.
Money largestAccumulated(const std::vector<CostCentre>& ranked) {
    Money maxValue;
    int rank = 0;
    for (size_t i = 0; i + 1 < ranked.size(); ++i) {
        if (!hasCost(ranked[i]))
            continue;
        if (++rank > TopCount)
            break;
        if (maxValue < ranked[i].total)
            maxValue = ranked[i].total;
    }
    return maxValue;
}

} // namespace

ReportResult TrendReport_Top10CC(ReportContext& rc, int level, const QString& startDate, int chartType) {
    const BuilderTrap trap{builderCall(QStringLiteral("TrendReport_Top10CC"), {level, startDate, chartType}),
                           false, false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const std::vector<Date> dates = reportDates(ctx, startDate);
        if (dates.empty())
            return {ReportStatus::NoData, std::nullopt};

        location = 100;
        std::vector<NumberCentre> numbers;
        std::vector<CostCentre> centres = costCentres(ctx, level, &numbers);
        for (CostCentre& c : centres)
            c.perDate.assign(dates.size(), Parts{});

        location = 150;
        const qint64 steps = qint64(dates.size());
        if (!reportProgress(rc.progress, 0, steps))
            return {ReportStatus::NotProduced, std::nullopt};
        if (!numbers.empty()) {
            Statement amounts(
                ctx.trendDb,
                QStringLiteral("SELECT \"Service No\", \"Usage Charges\", \"Recurring Charges\", "
                               "\"One Off Charges and Credits\", \"Adjustments\", "
                               "\"Telemarketing\" FROM TblSummaryTrend "
                               "WHERE BillAccount = ? AND BillDate = ? ORDER BY \"Service No\""));
            for (size_t d = 0; d < dates.size(); ++d) {
                amounts.reset();
                amounts.bindAll(ctx.billAccount, dates[d]);
                // Both sides are in the stores' order of texts, the order of their bytes.
                size_t next = 0;
                while (amounts.step()) {
                    const std::string_view number = viewOf(amounts.rawBytes(0));
                    while (next < numbers.size() && std::string_view(numbers[next].number) < number)
                        ++next;
                    if (next == numbers.size() || numbers[next].number != number)
                        continue;
                    Parts parts{};
                    for (int p = 0; p < PartCount; ++p)
                        parts[size_t(p)] = amounts.money(p + 1);
                    for (size_t i = next; i < numbers.size() && numbers[i].number == number; ++i)
                        for (int p = 0; p < PartCount; ++p)
                            centres[size_t(numbers[i].centre)].perDate[d][size_t(p)] += parts[size_t(p)];
                }
                if (!reportProgress(rc.progress, qint64(d) + 1, steps))
                    return {ReportStatus::NotProduced, std::nullopt};
            }
        }

        location = 200;
        for (CostCentre& c : centres) {
            for (const Parts& p : c.perDate) {
                c.costs.push_back(costOf(chartType, p));
                c.total += c.costs.back();
            }
        }
        std::stable_sort(centres.begin(), centres.end(), ranksBefore);

        // Centres whose costs are all 0 never show; a zero total made of non-zero parts does.
        location = 250;
        const std::int64_t scale = ChartScale(largestAccumulated(centres));
        std::vector<const CostCentre*> shown;
        for (const CostCentre& c : centres) {
            if (int(shown.size()) == TopCount)
                break;
            if (hasCost(c))
                shown.push_back(&c);
        }

        location = 300;
        Report report;
        report.number = ReportNumber::Top10CC;
        report.params = top10Params(level, startDate, chartType);
        report.form = ReportForm::ReportArea;
        report.caption = captionOf(chartType);
        report.keyVisible = false;
        ReportChart chart;
        chart.type = ChartType::Bar2d;
        chart.stacked = true;
        chart.showLegend = true;
        chart.resize(int(dates.size()), int(shown.size()));
        for (size_t d = 0; d < dates.size(); ++d)
            chart.setSeriesLabel(int(d), billDateText(dates[d]));
        for (size_t rank = 0; rank < shown.size(); ++rank) {
            chart.setPointLabel(int(rank), QStringLiteral("%1. ").arg(rank + 1) + shown[rank]->name);
            for (size_t d = 0; d < dates.size(); ++d)
                chart.setValue(int(d), int(rank), scaledValue(shown[rank]->costs[d], scale));
        }
        chart.title = report.caption;
        chart.xAxisTitle = QStringLiteral("Cost Centres");
        chart.yAxisTitle = QStringLiteral("Costs (£)");
        if (scale != 1) {
            chart.title += QStringLiteral(" (£ / %1)").arg(scale);
            chart.yAxisTitle = QStringLiteral("Costs (£/%1)").arg(scale);
        }
        chart.seriesColours = graphColours(ctx.colours, false, chart.seriesCount());
        report.charts.push_back(std::move(chart));
        return {ReportStatus::Shown, std::move(report)};
    });
}
