#include "reports/FamilyTrend.h"

#include "app/Format.h"

namespace {

const QStringList& rowCaptions() {
    static const QStringList captions{
        QStringLiteral("Date"),
        QStringLiteral("Usage Charges (£)"),
        QStringLiteral("Recurring Charges (£)"),
        QStringLiteral("One Off Charges and Credits (£)"),
        QStringLiteral("Adjustment Charges (£)"),
        ReportText::Totals,
        ReportText::PercentChange,
    };
    return captions;
}

const QStringList& seriesCaptions() {
    static const QStringList captions{
        QStringLiteral("Total Charges"),     QStringLiteral("Usage Charges"),
        QStringLiteral("Recurring Charges"), QStringLiteral("One Off Charges"),
        QStringLiteral("Adjustments"),
    };
    return captions;
}

constexpr int FamilyCount = 4;
constexpr int TotalRow = 5;
constexpr int PercentRow = 6;

} // namespace

void fillFamilyTrend(Report& report, const std::vector<DateSums>& rows, const PercentRule& percent,
                     const QString& chartTitle, const cColours& colours, int& location) {
    ReportGrid& grid = report.grid;
    grid.resize(7, TrendDateWindow + 1);
    for (int r = 0; r < grid.rowCount(); ++r)
        grid.setText(r, 0, rowCaptions()[r]);
    for (int c = 1; c <= 5; ++c)
        grid.column(c).alignment = ValueAlignment;
    for (int r = 1; r < grid.rowCount(); ++r)
        grid.setBold(r, 0);
    grid.column(0).widthTwips = CaptionColumnTwips;

    location = 150;
    // Only the single family cells set the chart's scale, not the totals.
    Money maxValue;
    Money previous;
    int col = 1;
    for (const DateSums& row : rows) {
        Money total;
        grid.setDate(0, col, row.date);
        for (int i = 0; i < FamilyCount; ++i) {
            const Money amount = requireAmount(row.sums.at(size_t(i)));
            grid.setMoney(i + 1, col, amount);
            total += amount;
            if (maxValue < amount)
                maxValue = amount;
        }
        grid.setMoney(TotalRow, col, total);
        if (col > 1) {
            const PercentCell cell = percent(previous, total);
            grid.setBold(PercentRow, col);
            if (cell.ratio)
                grid.setPercentText(PercentRow, col, cell.text, *cell.ratio);
            else
                grid.setText(PercentRow, col, cell.text);
            grid.setForeColor(PercentRow, col, cell.colour);
        }
        previous = total;
        grid.column(col).widthTwips = DateColumnTwips;
        if (++col > TrendDateWindow)
            break;
    }

    grid.setColCount(col);
    for (int c = 0; c < grid.colCount(); ++c) {
        grid.setBold(0, c);
        if (c > 0)
            grid.column(c).alignment = ValueAlignment;
        grid.setBold(TotalRow, c);
        grid.column(c).colData = int(ColumnKind::Value);
    }
    grid.column(0).colData = int(ColumnKind::Caption);

    location = 200;
    const std::int64_t scale = ChartScale(maxValue);
    ReportChart chart;
    chart.type = ChartType::Line2d;
    chart.title = chartTitle;
    chart.resize(1 + FamilyCount, col - 1);
    for (int s = 0; s < chart.seriesCount(); ++s)
        chart.setSeriesLabel(s, scaledLabel(seriesCaptions()[s], scale));
    for (int p = 0; p < chart.pointCount(); ++p) {
        const DateSums& row = rows.at(size_t(p));
        chart.setPointLabel(p, billDateText(row.date));
        // The total is the sum of the scaled families, kept to the four decimals of money.
        Money total;
        for (int i = 0; i < FamilyCount; ++i) {
            const double value = scaledValue(requireAmount(row.sums.at(size_t(i))), scale);
            chart.setValue(i + 1, p, value);
            total = Money::fromDouble(total.toDouble() + value);
        }
        chart.setValue(0, p, total.toDouble());
    }
    chart.seriesColours = graphColours(colours, false, chart.seriesCount());
    report.charts.push_back(std::move(chart));
}
