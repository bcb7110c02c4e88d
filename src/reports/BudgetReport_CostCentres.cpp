// The deviation of a master's cost-centre budgets from the live bills: the ten centres that
// stray furthest, as one small chart each (report 8) or as stacked bars of one charge family
// (report 9). The centres are ranked in memory on figures read by grouped queries.
#include "app/AppContext.h"
#include "app/Format.h"
#include "reports/BudgetFigures.h"
#include "reports/BudgetReports.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int TopCount = 10;

// One centre's budget and live figures per date of the master, by the report's measure.
struct RankedCentre {
    const CentreFigures* figures = nullptr;
    QString name;
    std::vector<Money> budget;
    std::vector<Money> live;
    Money deviation; // |sum of budget - live| over the dates
    Money budgetTotal;
    Money liveTotal;
};

QString top10Caption(int view) {
    switch (view) {
    case ChargeView::Usage:
        return QStringLiteral("Top 10 Cost Centres by Usage Charges");
    case ChargeView::Recurring:
        return QStringLiteral("Top 10 Cost Centres by Recurring Charges");
    case ChargeView::OneOff:
        return QStringLiteral("Top 10 Cost Centres by One Off Charges and Credits");
    case ChargeView::Adjustments:
        return QStringLiteral("Top 10 Cost Centres by Adjustments");
    default:
        return QStringLiteral("Top 10 Cost Centres by Total Charges");
    }
}

// The measure of a view: one family, or (any other view) all four for the budget and the
// bill's pre-tax cost for the live side. A missing figure counts 0.
std::vector<RankedCentre> rankCentres(const std::vector<CentreFigures>& centres, int view) {
    const bool family = view >= 1 && view <= 4;
    std::vector<RankedCentre> ranked;
    for (const CentreFigures& c : centres) {
        RankedCentre r;
        r.figures = &c;
        r.name = c.costCentre.isEmpty() ? ReportText::NoCostCentreSelected : c.costCentre;
        Money sum;
        for (size_t i = 0; i < c.budget.size(); ++i) {
            const Money b = c.budget[i] ? c.budget[i]->ofView(view) : Money();
            const Money l =
                family ? (c.live[i] ? c.live[i]->ofView(view) : Money()) : c.livePreTax[i].value_or(Money());
            r.budget.push_back(b);
            r.live.push_back(l);
            r.budgetTotal += b;
            r.liveTotal += l;
            sum += b - l;
        }
        r.deviation = sum < Money() ? -sum : sum;
        ranked.push_back(std::move(r));
    }
    // Furthest first; ties by name without regard to case, then as written.
    std::stable_sort(ranked.begin(), ranked.end(), [](const RankedCentre& a, const RankedCentre& b) {
        if (a.deviation != b.deviation)
            return a.deviation > b.deviation;
        const int byName = a.name.compare(b.name, Qt::CaseInsensitive);
        return byName != 0 ? byName < 0 : a.name < b.name;
    });
    if (int(ranked.size()) > TopCount)
        ranked.resize(TopCount);
    return ranked;
}

std::int64_t rankingScale(const std::vector<RankedCentre>& ranked) {
    Money maxValue;
    for (const RankedCentre& r : ranked)
        maxValue = std::max({maxValue, r.budgetTotal, r.liveTotal});
    return ChartScale(maxValue);
}

// The master and the figures of its centres; a status when there is nothing to report.
struct MasterFigures {
    std::unique_ptr<clsBudget> master;
    std::vector<CentreFigures> centres;
    int status = ReportStatus::Shown;
};

MasterFigures readMasterFigures(ReportContext& rc, int budgetId) {
    MasterFigures out;
    out.master = loadMaster(rc.app, budgetId);
    if (out.master->CCLevel() == 0) {
        out.status = ReportStatus::NoCostCentreLevel;
        return out;
    }
    const std::optional<std::vector<CentreFigures>> centres = centreFigures(
        rc.app, *out.master, CentreOptions{false, ReportText::NoCostCentreSelected, false}, rc.progress);
    if (!centres)
        out.status = ReportStatus::NotProduced;
    else if (centres->empty())
        out.status = ReportStatus::NoData;
    else
        out.centres = std::move(*centres);
    return out;
}

} // namespace

ReportResult BudgetReport_Top10CC(ReportContext& rc, int budgetId) {
    const BuilderTrap trap{builderCall(QStringLiteral("BudgetReport_Top10CC"), {budgetId}), false, false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        MasterFigures figures = readMasterFigures(rc, budgetId);
        if (figures.status != ReportStatus::Shown)
            return {figures.status, std::nullopt};
        const clsBudget& master = *figures.master;

        location = 100;
        const std::vector<RankedCentre> ranked = rankCentres(figures.centres, BudgetView::Total);
        const std::int64_t scale = rankingScale(ranked);

        location = 150;
        Report report;
        report.number = ReportNumber::BudgetTop10CC;
        report.params = budgetTop10Params(budgetId);
        report.form = ReportForm::ReportArea;
        report.caption = QStringLiteral("Top 10 Cost Centres");
        report.note = QStringLiteral("Click on a chart to drill-down");
        report.noteVisible = true;
        report.key = {{QStringLiteral("Live Data"), qColor(ctx.colours.CoreColour_Coral())},
                      {QStringLiteral("Budget Data"), qColor(ctx.colours.CoreColour_Indigo())}};
        for (int i = 1; i <= master.EntryCount(); ++i)
            report.periodLabels << formatDate(master.Entry(i).SelectedDate, QStringLiteral("dd/mm/yyyy")) +
                                       QStringLiteral(" = P%1").arg(i);
        for (size_t rank = 0; rank < ranked.size(); ++rank) {
            const RankedCentre& r = ranked[rank];
            ReportChart chart;
            chart.type = ChartType::Bar2d;
            chart.showLegend = false;
            chart.title = QStringLiteral("%1. ").arg(rank + 1) + r.name;
            if (scale != 1)
                chart.title += QStringLiteral(" (Cost / %1)").arg(scale);
            chart.budgetId = r.figures->budgetId;
            chart.resize(2, int(r.budget.size()));
            chart.setSeriesLabel(0, QStringLiteral("Budget Data"));
            chart.setSeriesLabel(1, QStringLiteral("Live Data"));
            for (int p = 0; p < chart.pointCount(); ++p) {
                chart.setPointLabel(p, QStringLiteral("P%1").arg(p + 1));
                chart.setValue(0, p, scaledValue(r.budget[size_t(p)], scale));
                chart.setValue(1, p, scaledValue(r.live[size_t(p)], scale));
            }
            chart.seriesColours = graphColours(ctx.colours, false, chart.seriesCount());
            report.charts.push_back(std::move(chart));
        }
        return {ReportStatus::Shown, std::move(report)};
    });
}

ReportResult BudgetReport_DeviationForCC(ReportContext& rc, int budgetId, int view) {
    const BuilderTrap trap{builderCall(QStringLiteral("BudgetReport_DeviationForCC"), {budgetId, view}),
                           false, false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        MasterFigures figures = readMasterFigures(rc, budgetId);
        if (figures.status != ReportStatus::Shown)
            return {figures.status, std::nullopt};
        const clsBudget& master = *figures.master;

        location = 100;
        const std::vector<RankedCentre> ranked = rankCentres(figures.centres, view);
        const std::int64_t scale = rankingScale(ranked);

        location = 150;
        Report report;
        report.number = ReportNumber::DeviationForCC;
        report.params = deviationForCCParams(budgetId, view);
        report.form = ReportForm::ReportArea;
        report.caption = top10Caption(view);
        report.keyVisible = false;
        for (int side = 0; side < 2; ++side) {
            ReportChart chart;
            chart.type = ChartType::Bar2d;
            chart.stacked = true;
            chart.showLegend = true;
            chart.title = report.caption +
                          (side == 0 ? QStringLiteral(" (Budget Data)") : QStringLiteral(" (Live Data)"));
            chart.xAxisTitle = QStringLiteral("Cost Centres");
            chart.yAxisTitle =
                scale == 1 ? QStringLiteral("Costs (£)") : QStringLiteral("Costs (£/%1)").arg(scale);
            chart.resize(master.EntryCount(), int(ranked.size()));
            for (int d = 0; d < master.EntryCount(); ++d)
                chart.setSeriesLabel(
                    d, formatDate(master.Entry(d + 1).SelectedDate, QStringLiteral("dd/mm/yyyy")));
            for (size_t rank = 0; rank < ranked.size(); ++rank) {
                const RankedCentre& r = ranked[rank];
                chart.setPointLabel(int(rank), QStringLiteral("%1. ").arg(rank + 1) + r.name);
                const std::vector<Money>& amounts = side == 0 ? r.budget : r.live;
                for (int d = 0; d < master.EntryCount(); ++d)
                    chart.setValue(d, int(rank), scaledValue(amounts[size_t(d)], scale));
            }
            chart.seriesColours = graphColours(ctx.colours, false, chart.seriesCount());
            report.charts.push_back(std::move(chart));
        }
        return {ReportStatus::Shown, std::move(report)};
    });
}
