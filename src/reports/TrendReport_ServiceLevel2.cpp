#include "app/AppContext.h"
#include "app/Format.h"
#include "reports/FamilyTrend.h"
#include "reports/TrendReports.h"

namespace {

// A rise is positive and a fall negative whatever the sign of the previous total; from
// 0 only "no change" shows.
PercentCell serviceLevel2Percent(Money previous, Money present) {
    if (previous.isZero())
        return present.isZero() ? PercentCell{QStringLiteral("0.00%"), QColor(), 0.0} : PercentCell{};
    double pct = double((present - previous).raw()) / double(previous.raw()) * 100.0;
    if ((present > previous && pct < 0) || (present < previous && pct > 0))
        pct = -pct;
    PercentCell cell;
    cell.text = (pct > 0 ? QStringLiteral("+") : QString()) +
                formatNumber(pct, QStringLiteral("###,###0.00")) + QStringLiteral("%");
    cell.ratio = pct / 100.0;
    if (pct > 0)
        cell.colour = qColor(IncreaseColour);
    else if (pct < 0)
        cell.colour = qColor(DecreaseColour);
    return cell;
}

QString filterName(int level, const QString& value) {
    if (level == FilterLevel::WholeBill)
        return QStringLiteral("Whole Bill");
    if (level == FilterLevel::ServiceNumber)
        return value;
    return filterValueText(value);
}

} // namespace

ReportResult TrendReport_ServiceLevel2(ReportContext& rc, int level, const QString& value,
                                       const QString& service) {
    const BuilderTrap trap{builderCall(QStringLiteral("TrendReport_ServiceLevel2"), {level, value, service}),
                           false, false};
    return runTrapped(rc, trap, [&](int& location) -> ReportResult {
        AppContext& ctx = rc.app;
        const QString name = filterName(level, value);
        const ServiceFilter filter = makeServiceFilter(ctx, level, value);

        location = 100;
        BoundQuery query{
            QStringLiteral("SELECT BillDate, SUM(\"Usage Charges\"), SUM(\"Recurring Charges\"), "
                           "SUM(\"One Off Charges and Credits\"), SUM(\"Adjustments\") ") +
                filter.from() + QStringLiteral(" WHERE BillAccount = ?") + filter.condition() +
                QStringLiteral(" AND \"Product Code\" = ? COLLATE NOCASE GROUP BY ") + filter.dateGroup() +
                QStringLiteral(" ORDER BY BillDate"),
            {}};
        query.arg(ctx.billAccount);
        filter.bindTo(query);
        query.arg(service);
        const std::vector<DateSums> rows = keepLast(readDateSums(ctx.trendDb, query, 4), TrendDateWindow);
        if (rows.empty())
            return {ReportStatus::NoData, std::nullopt};

        Report report;
        report.number = ReportNumber::ServiceLevel2;
        report.params = serviceLevel2Params(level, value, service);
        report.caption = service + QStringLiteral(" Service Trend for ") + name;
        fillFamilyTrend(report, rows, serviceLevel2Percent,
                        name + QStringLiteral(" - ") + service + QStringLiteral(" Service Trend"),
                        ctx.colours, location);
        return {ReportStatus::Shown, std::move(report)};
    });
}
