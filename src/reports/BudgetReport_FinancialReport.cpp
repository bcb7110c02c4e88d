// The financial directors report: per cost centre of a master, the budget and the live
// charges summed over the dates that have both, their difference and its percent, and a
// line of totals. A date without a bill adds on neither side, so like is held against like.
#include "app/AppContext.h"
#include "reports/BudgetFigures.h"
#include "reports/BudgetReports.h"

namespace {

constexpr int FirstLine = 2;
constexpr int NameColumnTwips = 4000;
constexpr int FigureColumnTwips = 2000;
// Up to five per cent over budget is not marked.
constexpr double Tolerance = 0.05;

const QStringList& headings() {
    static const QStringList texts{QStringLiteral("Cost Centre Name"), QStringLiteral("Total Budget (£)"),
                                   QStringLiteral("Total Trend (£)"), QStringLiteral("Difference (£)"),
                                   QStringLiteral("% Difference")};
    return texts;
}

void writeLine(ReportGrid& grid, int row, const QString& name, Money budget, Money trend,
               const cColours& colours) {
    grid.setText(row, 0, name);
    grid.setMoney(row, 1, budget);
    grid.setMoney(row, 2, trend);
    grid.setMoney(row, 3, trend - budget);
    if (budget <= Money()) {
        grid.setText(row, 4, QStringLiteral("-"));
        grid.setForeColor(row, 4, QColor(Qt::black));
        return;
    }
    // The percent is kept as an amount is, to four decimals.
    const Money p = Money::fromDouble(double((trend - budget).raw()) / double(budget.raw()));
    grid.setPercent(row, 4, p.toDouble(), QStringLiteral("00.0%"));
    if (p < Money())
        grid.setForeColor(row, 4, qColor(colours.UnderBudgetColour()));
    else if (p > Money::fromDouble(Tolerance))
        grid.setForeColor(row, 4, qColor(colours.OverBudgetColour()));
}

} // namespace

ReportResult BudgetReport_FinancialReport(ReportContext& rc, int budgetId) {
    const BuilderTrap trap{builderCall(QStringLiteral("BudgetReport_FinancialReport"), {budgetId}), false,
                           false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const std::unique_ptr<clsBudget> master = loadMaster(ctx, budgetId);
        if (master->CCLevel() == 0)
            return {ReportStatus::NoCostCentreLevel, std::nullopt};

        location = 100;
        // Every budget of a centre's name counts on its line; an empty name looks up the
        // numbers that have no cost centre at the level.
        const std::optional<std::vector<CentreFigures>> centres =
            centreFigures(ctx, *master, CentreOptions{true, QString(), true}, rc.progress);
        if (!centres)
            return {ReportStatus::NotProduced, std::nullopt};
        if (centres->empty())
            return {ReportStatus::NoData, std::nullopt};

        location = 150;
        Report report;
        report.number = ReportNumber::FinancialReport;
        report.params = financialReportParams(budgetId);
        report.form = ReportForm::Grid;
        report.caption = QStringLiteral("Financial Directors Report");
        report.note = QStringLiteral("Click on a column header to sort.");
        report.noteVisible = true;
        ReportGrid& grid = report.grid;
        const int lines = int(centres->size());
        grid.resize(FirstLine + lines + 1, int(headings().size()));
        grid.fixedRows = 2;
        grid.fixedCols = 1;
        for (int c = 0; c < grid.colCount(); ++c) {
            grid.setText(0, c, headings()[c]);
            grid.setBold(0, c);
            grid.setBold(1, c);
            grid.column(c).colData = int(c == 0 ? ColumnKind::Caption : ColumnKind::Value);
            grid.column(c).alignment = c == 0 ? Qt::AlignLeft | Qt::AlignVCenter : ValueAlignment;
            grid.column(c).widthTwips = c == 0 ? NameColumnTwips : FigureColumnTwips;
        }

        location = 200;
        Money grandBudget;
        Money grandTrend;
        int row = FirstLine;
        for (const CentreFigures& centre : *centres) {
            Money lineBudget;
            Money lineTrend;
            for (size_t i = 0; i < centre.budget.size(); ++i) {
                // A date counts only when it has both a budget and a live amount.
                if (!centre.budget[i] || !centre.livePreTax[i])
                    continue;
                lineBudget += centre.budget[i]->total();
                lineTrend += *centre.livePreTax[i];
            }
            grandBudget += lineBudget;
            grandTrend += lineTrend;
            grid.row(row).rowData = centre.budgetId;
            writeLine(grid, row, centre.costCentre, lineBudget, lineTrend, ctx.colours);
            ++row;
        }
        writeLine(grid, row, QStringLiteral("Total To Date"), grandBudget, grandTrend, ctx.colours);
        grid.row(row).rowData = 0;
        for (int c = 0; c < grid.colCount(); ++c)
            grid.setBold(row, c);
        return {ReportStatus::Shown, std::move(report)};
    });
}
