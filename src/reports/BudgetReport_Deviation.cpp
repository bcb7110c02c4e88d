// The periodic and the accumulative deviation: one grid of budget against live figures per
// budget date, the chart of the periodic report showing each date's figures, that of the
// accumulative report their running totals.
#include "app/AppContext.h"
#include "app/Format.h"
#include "reports/BudgetFigures.h"
#include "reports/BudgetReports.h"

#include <cmath>

namespace {

const QString NoFigure = QStringLiteral(" - ");

constexpr int BudgetRow = 1;
// In the total view the families follow each total row and fold away.
constexpr int TotalViewRows = 13;
constexpr int FamilyViewRows = 5;
constexpr int EntryColumnTwips = 1150;
constexpr int CaptionColumnTwips = 4000;
// A percent above this many per cent is marked.
constexpr double PercentMark = 10.0;

const QStringList& familyWords() {
    static const QStringList words{QStringLiteral("Usage Charges"), QStringLiteral("Recurring Charges"),
                                   QStringLiteral("One Off Charges And Credits"),
                                   QStringLiteral("Adjustments")};
    return words;
}

QString periodicTitle(int view, const QString& name) {
    static const QStringList words{QStringLiteral("Periodic Usage Charges for "),
                                   QStringLiteral("Periodic Recurring Charges for "),
                                   QStringLiteral("Periodic One Off Charges and Credits for "),
                                   QStringLiteral("Periodic Adjustments for ")};
    return (view >= 1 && view <= 4 ? words[view - 1] : QStringLiteral("Periodic Total for ")) + name;
}

QString accumulativeTitle(int view, const QString& name) {
    static const QStringList words{QStringLiteral("Accumulative Usage Charges for "),
                                   QStringLiteral("Accumulative recurring Charges for "),
                                   QStringLiteral("Accumulative One Off Charges and Credits for "),
                                   QStringLiteral("Accumulative Adjustments for ")};
    return (view >= 1 && view <= 4 ? words[view - 1] : QStringLiteral("Accumulative Total Charges for ")) +
           name;
}

// The rows of a view: the budget and live rows of the figure shown, and in the total view
// the four family rows after each.
struct Rows {
    bool total;
    int live() const { return total ? 6 : 2; }
    int difference() const { return total ? 11 : 3; }
    int percent() const { return total ? 12 : 4; }
    int count() const { return total ? TotalViewRows : FamilyViewRows; }
};

void writeCaptions(ReportGrid& grid, const Rows& rows, int view, bool accumulative) {
    if (rows.total) {
        grid.setText(BudgetRow, 0, QStringLiteral("Budget Total (£)"));
        grid.setText(rows.live(), 0, QStringLiteral("Live Data Total (£)"));
        for (int f = 0; f < 4; ++f) {
            grid.setText(BudgetRow + 1 + f, 0,
                         QStringLiteral("Budget ") + familyWords()[f] + QStringLiteral(" (£)"));
            grid.setText(rows.live() + 1 + f, 0,
                         QStringLiteral("Live Data ") + familyWords()[f] + QStringLiteral(" (£)"));
        }
    } else {
        grid.setText(BudgetRow, 0,
                     QStringLiteral("Budget ") + familyWords()[view - 1] + QStringLiteral(" (£)"));
        grid.setText(rows.live(), 0,
                     QStringLiteral("Live Data ") + familyWords()[view - 1] + QStringLiteral(" (£)"));
    }
    grid.setText(rows.difference(), 0, QStringLiteral("Difference (£)"));
    grid.setText(rows.percent(), 0,
                 accumulative ? QStringLiteral("Percentage Difference")
                              : QStringLiteral("Percent Difference"));
}

// A percent is marked when its shown value, to two decimals, is above the mark.
bool percentMarked(double ratio) {
    return std::round(ratio * 10000.0) / 100.0 > PercentMark;
}

ReportResult buildDeviation(ReportContext& rc, int budgetId, int view, bool accumulative) {
    const QString builder = accumulative ? QStringLiteral("BudgetReport_AccumulativeMonthlyDeviation")
                                         : QStringLiteral("BudgetReport_MonthlyDeviation");
    const BuilderTrap trap{builderCall(builder, {budgetId, view}), false, false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const std::unique_ptr<clsBudget> budget = loadBudget(ctx, budgetId);
        if (budget->EntryCount() == 0)
            return {ReportStatus::NoData, std::nullopt};
        const BudgetScope scope = budgetScope(ctx, *budget);

        location = 100;
        const std::vector<std::optional<FamilyAmounts>> live = liveSumsByEntryDate(ctx, *budget, scope);

        location = 150;
        const int entries = budget->EntryCount();
        const Rows rows{view < 1 || view > 4};
        Report report;
        report.number =
            accumulative ? ReportNumber::AccumulativeMonthlyDeviation : ReportNumber::MonthlyDeviation;
        report.params = {report.number, budgetId, view};
        report.caption = accumulative ? accumulativeTitle(view, scope.name) : periodicTitle(view, scope.name);
        ReportGrid& grid = report.grid;
        grid.resize(rows.count(), entries + 1);
        writeCaptions(grid, rows, view, accumulative);
        const QColor marked = qColor(ctx.colours.CoreColour_Coral());

        // The largest amount written, or with running totals the largest running total.
        Money maxValue;
        const auto money = [&](int r, int c, Money amount) {
            grid.setMoney(r, c, amount);
            if (maxValue < amount)
                maxValue = amount;
        };
        std::vector<Money> running(size_t(rows.count()));
        for (int i = 1; i <= entries; ++i) {
            const clsBudgetCostEntry& entry = budget->Entry(i);
            const FamilyAmounts planned{{entry.Usage, entry.Recurring, entry.OneOff, entry.Adjustments}};
            const std::optional<FamilyAmounts>& actual = live[size_t(i - 1)];
            grid.setDate(0, i, entry.SelectedDate);
            const Money b = planned.ofView(view);
            money(BudgetRow, i, b);
            if (actual) {
                const Money l = actual->ofView(view);
                money(rows.live(), i, l);
                money(rows.difference(), i, l - b);
                if (!grid.text(rows.difference(), i).startsWith(QLatin1Char('-')))
                    grid.setForeColor(rows.difference(), i, marked);
                if (b <= Money()) {
                    grid.setText(rows.percent(), i, NoFigure);
                } else {
                    const double ratio = double((l - b).raw()) / double(b.raw());
                    grid.setPercent(rows.percent(), i, ratio, QStringLiteral("0.00%"));
                    if (percentMarked(ratio))
                        grid.setForeColor(rows.percent(), i, marked);
                }
            } else {
                for (int r : {rows.live(), rows.difference(), rows.percent()})
                    grid.setText(r, i, NoFigure);
            }
            if (rows.total) {
                for (int f = 0; f < 4; ++f) {
                    money(BudgetRow + 1 + f, i, planned.family[size_t(f)]);
                    if (actual)
                        money(rows.live() + 1 + f, i, actual->family[size_t(f)]);
                    else
                        grid.setText(rows.live() + 1 + f, i, NoFigure);
                }
            }
            // Only a cell that holds an amount adds to its row's running total.
            for (int r = BudgetRow; r < rows.difference(); ++r) {
                if (const auto* m = std::get_if<Money>(&grid.cell(r, i).value))
                    running[size_t(r)] += *m;
            }
        }

        location = 200;
        for (int c = 0; c < grid.colCount(); ++c)
            grid.setBold(0, c);
        for (int c = 1; c < grid.colCount(); ++c) {
            grid.column(c).alignment = ValueAlignment;
            grid.column(c).colData = int(ColumnKind::Value);
            grid.column(c).widthTwips = EntryColumnTwips;
        }
        for (int r = 1; r < grid.rowCount(); ++r)
            grid.setBold(r, 0);
        grid.column(0).colData = int(ColumnKind::Caption);
        grid.column(0).widthTwips = CaptionColumnTwips;
        if (view == BudgetView::Total) {
            for (int r : {2, 3, 4, 5, 7, 8, 9, 10})
                grid.row(r).hidden = true;
            report.detailsButton = QStringLiteral("Show Details");
        }

        location = 250;
        Money maxRunning;
        for (Money total : running)
            if (maxRunning < total)
                maxRunning = total;
        const std::int64_t scale = ChartScale(accumulative ? maxRunning : maxValue);
        ReportChart chart;
        chart.type = ChartType::Line2d;
        chart.title = report.caption;
        chart.resize(2, entries);
        chart.setSeriesLabel(0, scaledLabel(QStringLiteral("Budget Data"), scale));
        chart.setSeriesLabel(1, scaledLabel(QStringLiteral("Live Data"), scale));
        // Running values are kept as amounts, as the chart's data grid keeps them.
        Money budgetSoFar;
        Money liveSoFar;
        for (int i = 1; i <= entries; ++i) {
            chart.setPointLabel(i - 1, grid.text(0, i));
            const Money b = std::get<Money>(grid.cell(BudgetRow, i).value);
            const auto* l = std::get_if<Money>(&grid.cell(rows.live(), i).value);
            if (accumulative) {
                budgetSoFar = Money::fromDouble(budgetSoFar.toDouble() + scaledValue(b, scale));
                chart.setValue(0, i - 1, budgetSoFar.toDouble());
                if (l) {
                    liveSoFar = Money::fromDouble(liveSoFar.toDouble() + scaledValue(*l, scale));
                    chart.setValue(1, i - 1, liveSoFar.toDouble());
                } else {
                    chart.setValue(1, i - 1, std::nullopt);
                }
            } else {
                chart.setValue(0, i - 1, scaledValue(b, scale));
                chart.setValue(1, i - 1, l ? std::optional(scaledValue(*l, scale)) : std::nullopt);
            }
        }
        chart.seriesColours = graphColours(ctx.colours, false, chart.seriesCount());
        report.charts.push_back(std::move(chart));
        return {ReportStatus::Shown, std::move(report)};
    });
}

} // namespace

ReportResult BudgetReport_MonthlyDeviation(ReportContext& rc, int budgetId, int view) {
    return buildDeviation(rc, budgetId, view, false);
}

ReportResult BudgetReport_AccumulativeMonthlyDeviation(ReportContext& rc, int budgetId, int view) {
    return buildDeviation(rc, budgetId, view, true);
}
