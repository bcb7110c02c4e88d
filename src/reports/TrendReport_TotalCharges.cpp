#include "app/AppContext.h"
#include "app/Format.h"
#include "reports/FamilyTrend.h"
#include "reports/TrendReports.h"

#include <cmath>

namespace {

// A rise is red with a plus sign and a fall green; a change away from 0 shows nothing.
// The sign is not normalised on a fall, so a fall from a negative total reads positive.
PercentCell totalChargesPercent(Money previous, Money present) {
    const auto pct = [&] { return double((present - previous).raw()) / double(previous.raw()) * 100.0; };
    if (present == previous)
        return {QStringLiteral("0.00%"), QColor(), 0.0};
    if (previous.isZero())
        return {};
    if (present > previous) {
        const double rise = std::abs(pct());
        return {QStringLiteral("+") + formatNumber(rise, QStringLiteral("#0.00")) + QStringLiteral("%"),
                qColor(IncreaseColour), rise / 100.0};
    }
    return {formatNumber(pct(), QStringLiteral("#0.00")) + QStringLiteral("%"), qColor(DecreaseColour),
            pct() / 100.0};
}

} // namespace

ReportResult TrendReport_TotalCharges(ReportContext& rc, int level, const QString& value) {
    const BuilderTrap trap{builderCall(QStringLiteral("TrendReport_TotalCharges"), {level, value}), true,
                           false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const QString title = trendTitle(QStringLiteral("Total Charges Trend "), level, value);
        const ServiceFilter filter = makeServiceFilter(ctx, level, value);

        location = 100;
        BoundQuery query{
            QStringLiteral("SELECT BillDate, SUM(\"Usage Charges\"), SUM(\"Recurring Charges\"), "
                           "SUM(\"One Off Charges and Credits\"), SUM(\"Adjustments\") ") +
                filter.totalsFrom() + QStringLiteral(" WHERE BillAccount = ?") + filter.condition() +
                QStringLiteral(" GROUP BY ") + filter.dateGroup() + QStringLiteral(" ORDER BY BillDate"),
            {}};
        query.arg(ctx.billAccount);
        filter.bindTo(query);
        const std::vector<DateSums> rows = keepLast(readDateSums(ctx.trendDb, query, 4), TrendDateWindow);
        if (rows.empty())
            return {ReportStatus::NoData, std::nullopt};

        Report report;
        report.number = ReportNumber::TotalCharges;
        report.params = totalChargesParams(level, value);
        report.caption = title;
        report.note = ReportText::DrillDownNote;
        report.noteVisible = true;
        fillFamilyTrend(report, rows, totalChargesPercent, title, ctx.colours, location);
        return {ReportStatus::Shown, std::move(report)};
    });
}
