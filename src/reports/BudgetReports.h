#pragma once
// The five budget report builders: a budget's dated figures held against what the bills of
// those dates hold in the trend store. Each returns a status; on ReportStatus::Shown the
// report as well. A view is a ChargeView (1 to 4) or 5, the total with the families as
// details that fold away.
#include "reports/ReportContext.h"

// What the budget report menu and the command line say for a report that is not shown.
namespace BudgetReportStatusText {
inline const QString NoRecords = QStringLiteral("No records found, unable to display report.");
inline const QString WholeBill = QStringLiteral("Whole bill budgets are not compatible with this report.");
inline const QString Failed = QStringLiteral("Error creating the report.");
} // namespace BudgetReportStatusText

namespace BudgetView {
constexpr int Total = 5;
} // namespace BudgetView

// Report 6: per budget date, budget against live amount, their difference and percent.
ReportResult BudgetReport_MonthlyDeviation(ReportContext& rc, int budgetId, int view);
// Report 7: the same grid with a chart of running totals.
ReportResult BudgetReport_AccumulativeMonthlyDeviation(ReportContext& rc, int budgetId, int view);
// Report 8: one small chart for each of the ten cost centres of a master that stray
// furthest from their budgets; a child given reports on its master. A master of the whole
// bill gives ReportStatus::NoCostCentreLevel.
ReportResult BudgetReport_Top10CC(ReportContext& rc, int budgetId);
// Report 9: the same ranking for one charge family, as stacked bars of budget and live.
ReportResult BudgetReport_DeviationForCC(ReportContext& rc, int budgetId, int view);
// Report 10: one line per cost centre with budget and live charges to date, difference and
// percent, and a line of totals.
ReportResult BudgetReport_FinancialReport(ReportContext& rc, int budgetId);

inline ReportParams monthlyDeviationParams(int budgetId, int view) {
    return {ReportNumber::MonthlyDeviation, budgetId, view};
}
inline ReportParams accumulativeDeviationParams(int budgetId, int view) {
    return {ReportNumber::AccumulativeMonthlyDeviation, budgetId, view};
}
inline ReportParams budgetTop10Params(int budgetId) {
    return {ReportNumber::BudgetTop10CC, budgetId};
}
inline ReportParams deviationForCCParams(int budgetId, int view) {
    return {ReportNumber::DeviationForCC, budgetId, view};
}
inline ReportParams financialReportParams(int budgetId) {
    return {ReportNumber::FinancialReport, budgetId};
}
