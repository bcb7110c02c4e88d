#include "reports/ReportNavigation.h"

#include "reports/BudgetReports.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportFrame.h"

#include <map>

namespace {

std::map<int, ReportBuilderFn>& registeredBuilders() {
    static std::map<int, ReportBuilderFn> builders;
    return builders;
}

} // namespace

void setReportBuilder(int number, ReportBuilderFn builder) {
    if (builder)
        registeredBuilders()[number] = std::move(builder);
    else
        registeredBuilders().erase(number);
}

ReportResult RunReport(ReportContext& rc, const ReportParams& params) {
    const int number = reportNumberOf(params);
    const auto replaced = registeredBuilders().find(number);
    if (replaced != registeredBuilders().end())
        return replaced->second(rc, params);
    const ReportCatalogueEntry* entry = catalogueEntry(number);
    if (!entry)
        return {ReportStatus::NotProduced, std::nullopt};
    return entry->build(rc, params);
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
    const ReportCatalogueEntry* entry = catalogueEntry(number);
    if (!entry || !entry->rowDrillDown)
        return std::nullopt;
    ReportParams next;
    if (number == ReportNumber::FinancialReport) {
        // Rows 0 and 1 are headings; a line names its budget.
        if (row < 2 || row >= shown.grid.rowCount())
            return std::nullopt;
        next = accumulativeDeviationParams(shown.grid.row(row).rowData.toInt(), BudgetView::Total);
    } else {
        // The limit is taken from the grid as it is now: the last two rows are totals.
        if (row < 1 || row >= shown.grid.rowCount() - 2)
            return std::nullopt;
        const int level = session.currentReportParams.value(1).toInt();
        const QString value = session.currentReportParams.value(2).toString();
        const QString label = shown.grid.text(row, 0);
        if (number == ReportNumber::TotalCharges)
            next = individualChargesParams(level, value, GetChargeView(label));
        else
            next = serviceLevel2Params(level, value, label.left(label.size() - 4)); // less " (£)"
    }
    PushCurrentReport(session);
    ReportResult result = OpenReport(rc, session, next);
    if (!result.shown())
        session.reportStack.Pop();
    return result;
}
