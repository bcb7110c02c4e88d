#include "reports/ReportNavigation.h"

#include "reports/ReportFrame.h"
#include "reports/TrendReports.h"

#include <map>

namespace {

std::map<int, ReportBuilderFn>& registeredBuilders() {
    static std::map<int, ReportBuilderFn> builders;
    return builders;
}

} // namespace

void setReportBuilder(int number, ReportBuilderFn builder) {
    registeredBuilders()[number] = std::move(builder);
}

ReportResult RunReport(ReportContext& rc, const ReportParams& params) {
    const int number = reportNumberOf(params);
    const auto whole = [&](int i) { return params.value(i).toInt(); };
    const auto text = [&](int i) { return params.value(i).toString(); };
    switch (number) {
    case ReportNumber::TotalCharges:
        return TrendReport_TotalCharges(rc, whole(1), text(2));
    case ReportNumber::IndividualCharges:
        return TrendReport_IndividualCharges(rc, whole(1), text(2), whole(3));
    case ReportNumber::Service:
        return TrendReport_Service(rc, whole(1), text(2));
    case ReportNumber::ServiceLevel2:
        return TrendReport_ServiceLevel2(rc, whole(1), text(2), text(3));
    case ReportNumber::Top10CC:
        return TrendReport_Top10CC(rc, whole(1), text(2), whole(3));
    default:
        break;
    }
    const auto found = registeredBuilders().find(number);
    if (number < ReportNumber::First || number > ReportNumber::Last || found == registeredBuilders().end())
        return {ReportStatus::NotProduced, std::nullopt};
    return found->second(rc, params);
}

ReportResult OpenReport(ReportContext& rc, ReportSession& session, const ReportParams& params) {
    ReportResult result = RunReport(rc, params);
    if (result.shown()) {
        session.currentReportNumber = result.report->number;
        session.currentReportParams = result.report->params;
    }
    return result;
}

ReportResult StartReport(ReportContext& rc, ReportSession& session, const ReportParams& params) {
    session.reportStack.Clear();
    return OpenReport(rc, session, params);
}

void PushCurrentReport(ReportSession& session) {
    session.reportStack.Push(session.currentReportParams);
}

ReportResult ShowPreviousReport(ReportContext& rc, ReportSession& session) {
    if (session.reportStack.Count() <= 0)
        return {ReportStatus::NotProduced, std::nullopt};
    const ReportParams params = session.reportStack.Pop().toList();
    const int number = reportNumberOf(params);
    if (number < ReportNumber::First || number > ReportNumber::Last)
        return {ReportStatus::NotProduced, std::nullopt};
    return OpenReport(rc, session, params);
}

void LeaveReports(ReportSession& session) {
    session.reportStack.Clear();
}

bool CanShowPreviousReport(const ReportSession& session) {
    return session.reportStack.Count() > 0;
}

std::optional<ReportResult> DrillDown(ReportContext& rc, ReportSession& session, const Report& shown,
                                      int row) {
    const int number = session.currentReportNumber;
    if (number != ReportNumber::TotalCharges && number != ReportNumber::Service)
        return std::nullopt;
    // The limit is taken from the grid as it is now: the last two rows are totals.
    if (row < 1 || row >= shown.grid.rowCount() - 2)
        return std::nullopt;
    const int level = session.currentReportParams.value(1).toInt();
    const QString value = session.currentReportParams.value(2).toString();
    const QString label = shown.grid.text(row, 0);

    PushCurrentReport(session);
    ReportParams next;
    if (number == ReportNumber::TotalCharges)
        next = individualChargesParams(level, value, GetChargeView(label));
    else
        next = serviceLevel2Params(level, value, label.left(label.size() - 4)); // less " (£)"
    ReportResult result = OpenReport(rc, session, next);
    if (!result.shown())
        session.reportStack.Pop();
    return result;
}
