#include "app/AppContext.h"
#include "app/Format.h"
#include "reports/ReportFrame.h"
#include "reports/TrendReports.h"

namespace {

// One report row: the trend columns it sums, and its caption.
struct ChargeItem {
    QStringList columns;
    QString caption;
};

std::vector<ChargeItem> itemsOf(int view) {
    auto single = [](const QString& column, const QString& caption = QString()) {
        return ChargeItem{{column}, caption.isEmpty() ? column : caption};
    };
    switch (view) {
    case ChargeView::Usage:
        return {
            // The misspelt column is the trend table's own name.
            {{"Zandel Chargecard Local", "Zandel Chargecard National", "ZandelChargecard Inernational",
              "Zandel Chargecard Mobile and Premium Rate", "Zandel Chargecard Other"},
             "Zandel Chargecard"},
            {{"Direct Dialled Local", "Direct Dialled National", "Direct Dialled International",
              "Direct Dialled Mobile and Premium Rate", "Direct Dialled National Rate",
              "Direct Dialled Local Rate", "Direct Dialled Other"},
             "Direct Dialled"},
            {{"Network Services Local", "Network Services National", "Network Services International",
              "Network Services Mobile and Premium Rate", "Network Services National Rate",
              "Network Services Local Rate", "Network Services Other", "Network Services Facilities"},
             "Network Services"},
            {{"Mobile Direct Dialled", "Mobile Data", "Mobile Fax", "Mobile SMS", "Mobile Roamed",
              "Mobile Internet", "Mobile Usage Discounts", "Mobile One Off Discounts",
              "Mobile Recurring Discounts", "Mobile Inclusive Calls", "Mobile Other"},
             "From Mobile"},
            single("Operator"),
            single("Telemarketing"),
            single("Information Services"),
            single("Usage Other"),
            single("Usage Discount"),
            single("Usage Charges", "Total Usage Charges"),
        };
    case ChargeView::Recurring:
        return {
            single("Line Rental"),
            single("Apparatus Rental"),
            single("Network Rental"),
            single("Equipment Rental"),
            single("Broken Period Rental"),
            single("Maintenance"),
            single("Network Advance Charges"),
            single("Service Charge"),
            single("Cessation Credit"),
            single("Recurring Other"),
            single("Recurring Discount"),
            single("Recurring Charges", "Total Recurring Charges"),
        };
    case ChargeView::OneOff:
        return {
            single("Connection"),
            single("One Off Other"),
            single("One Off Discount"),
            single("One Off Charges and Credits", "Total One Off Charges and Credits"),
        };
    case ChargeView::Adjustments:
        return {single("Adjustments", "Total Adjustments")};
    default:
        return {};
    }
}

// The first caption stands for the family in the titles of views 3 and 4, and at the
// service-number level in every view.
QString titleOf(int level, const QString& value, int view, const QString& firstCaption) {
    QString words = firstCaption;
    if (level != FilterLevel::ServiceNumber) {
        if (view == ChargeView::Usage)
            words = QStringLiteral("Usage Charges");
        else if (view == ChargeView::Recurring)
            words = QStringLiteral("Recurring Charges");
    }
    return trendTitle(words + QLatin1Char(' '), level, value);
}

// A Null part of a row counts as nothing, so that the sum of a row's parts and the sum of
// the bill totals' parts agree; one column alone keeps its Null.
QString sumExpression(const QStringList& columns) {
    if (columns.size() == 1)
        return QStringLiteral("SUM(\"%1\")").arg(columns.front());
    QStringList parts;
    for (const QString& c : columns)
        parts << QStringLiteral("ifnull(\"%1\", 0)").arg(c);
    return QStringLiteral("SUM(") + parts.join(QLatin1Char('+')) + QLatin1Char(')');
}

// A rise is positive and a fall negative whatever the sign of the previous total; the
// change is held to the four decimals of money. None for a change away from 0.
std::optional<Money> percentChange(Money previous, Money present) {
    if (previous.isZero())
        return present.isZero() ? std::optional(Money()) : std::nullopt;
    Money pct = Money::fromDouble(double((present - previous).raw()) / double(previous.raw()) * 100.0);
    if ((present > previous && pct < Money()) || (present < previous && pct > Money()))
        pct = -pct;
    return pct;
}

// The change as its text shows it, to two decimals (half away from zero): a change that
// shows as 0.00% takes no colour.
Money shownHundredths(Money pct) {
    const std::int64_t raw = pct.raw();
    const std::int64_t hundredths = raw >= 0 ? (raw + 50) / 100 : -((-raw + 50) / 100);
    return Money::fromRaw(hundredths * 100);
}

QString percentText(Money pct) {
    return (pct > Money() ? QStringLiteral("+") : QString()) +
           formatMoney(pct, QStringLiteral("###,###0.00")) + QStringLiteral("%");
}

} // namespace

ReportResult TrendReport_IndividualCharges(ReportContext& rc, int level, const QString& value, int view) {
    const std::vector<ChargeItem> items = itemsOf(view);
    if (items.empty())
        return {ReportStatus::BadView, std::nullopt};
    const BuilderTrap trap{builderCall(QStringLiteral("TrendReport_IndividualCharges"), {level, value, view}),
                           false, true};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const int itemCount = int(items.size());
        const QString title = titleOf(level, value, view, items.front().caption);
        const ServiceFilter filter = makeServiceFilter(ctx, level, value);

        location = 100;
        QString sql = QStringLiteral("SELECT BillDate");
        for (int i = 0; i < itemCount; ++i)
            sql += QStringLiteral(", ") + sumExpression(items[size_t(i)].columns) +
                   QStringLiteral(" AS Value%1").arg(i);
        BoundQuery query{sql + QLatin1Char(' ') + filter.totalsFrom() +
                             QStringLiteral(" WHERE BillAccount = ?") + filter.condition() +
                             QStringLiteral(" GROUP BY ") + filter.dateGroup() +
                             QStringLiteral(" ORDER BY BillDate"),
                         {}};
        query.arg(ctx.billAccount);
        filter.bindTo(query);
        const std::vector<DateSums> rows =
            keepLast(readDateSums(ctx.trendDb, query, itemCount), TrendDateWindow);
        if (rows.empty())
            return {ReportStatus::NoData, std::nullopt};

        location = 150;
        Report report;
        report.number = ReportNumber::IndividualCharges;
        report.params = individualChargesParams(level, value, view);
        report.caption = title;
        ReportGrid& grid = report.grid;
        grid.resize(itemCount + 2, TrendDateWindow + 1);
        const int totalRow = grid.rowCount() - 2;
        const int percentRow = grid.rowCount() - 1;
        grid.setText(0, 0, QStringLiteral("Date"));
        for (int i = 0; i < itemCount; ++i) {
            grid.setText(i + 1, 0, items[size_t(i)].caption + QStringLiteral(" (£)"));
            grid.column(i + 1).alignment = ValueAlignment;
        }
        for (int r = 1; r < grid.rowCount(); ++r)
            grid.setBold(r, 0);
        grid.column(0).widthTwips = CaptionColumnTwips;

        // Every amount cell, the family total included, sets the chart's scale.
        Money maxValue;
        Money previous;
        int col = 1;
        for (const DateSums& row : rows) {
            grid.setDate(0, col, row.date);
            for (int i = 0; i < itemCount; ++i) {
                const Money amount = row.sums[size_t(i)].value_or(Money());
                grid.setMoney(i + 1, col, amount);
                if (maxValue < amount)
                    maxValue = amount;
            }
            // The family total as stored; a missing one cannot be compared.
            const Money total = requireAmount(row.sums.back());
            if (col > 1)
                if (const std::optional<Money> pct = percentChange(previous, total))
                    grid.setPercentText(percentRow, col, percentText(*pct), pct->toDouble() / 100.0);
            previous = total;
            grid.column(col).widthTwips = DateColumnTwips;
            if (++col > TrendDateWindow)
                break;
        }
        grid.setColCount(col);
        for (int c = 0; c < grid.colCount(); ++c) {
            grid.setBold(0, c);
            grid.setBold(totalRow, c);
            grid.setBold(percentRow, c);
            grid.column(c).colData = int(ColumnKind::Value);
        }
        grid.column(0).colData = int(ColumnKind::Caption);
        for (int c = 1; c < grid.colCount(); ++c)
            grid.column(c).alignment = ValueAlignment;

        location = 200;
        const std::int64_t scale = ChartScale(maxValue);
        ReportChart chart;
        chart.type = ChartType::Line2d;
        chart.title = title;
        chart.resize(itemCount, col - 1);
        for (int i = 0; i < itemCount; ++i)
            chart.setSeriesLabel(i, scaledLabel(items[size_t(i)].caption, scale));
        for (int p = 0; p < chart.pointCount(); ++p) {
            const DateSums& row = rows[size_t(p)];
            chart.setPointLabel(p, billDateText(row.date));
            for (int i = 0; i < itemCount; ++i)
                chart.setValue(i, p, scaledValue(row.sums[size_t(i)].value_or(Money()), scale));
        }
        chart.seriesColours = graphColours(ctx.colours, false, chart.seriesCount());
        report.charts.push_back(std::move(chart));

        // Colours follow the last percent read: a column without a percent text still
        // takes the colour of the change before it.
        location = 250;
        grid.setText(percentRow, 0, ReportText::PercentChange);
        grid.setBold(percentRow, 0);
        Money pct;
        for (int c = 1; c < grid.colCount(); ++c) {
            if (grid.text(totalRow, c).isEmpty())
                continue;
            if (const auto* shown = std::get_if<Percent>(&grid.cell(percentRow, c).value))
                pct = shownHundredths(Money::fromDouble(shown->ratio * 100.0));
            grid.setBold(percentRow, c);
            if (pct < Money())
                grid.setForeColor(percentRow, c, qColor(DecreaseColour));
            else if (pct > Money())
                grid.setForeColor(percentRow, c, qColor(IncreaseColour));
        }
        return {ReportStatus::Shown, std::move(report)};
    });
}
