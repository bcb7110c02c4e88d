// Placeholders until each budget report has its builder.
#include "reports/BudgetReports.h"

ReportResult BudgetReport_MonthlyDeviation(ReportContext&, int, int) {
    return {ReportStatus::NotProduced, std::nullopt};
}
ReportResult BudgetReport_AccumulativeMonthlyDeviation(ReportContext&, int, int) {
    return {ReportStatus::NotProduced, std::nullopt};
}
ReportResult BudgetReport_Top10CC(ReportContext&, int) {
    return {ReportStatus::NotProduced, std::nullopt};
}
ReportResult BudgetReport_DeviationForCC(ReportContext&, int, int) {
    return {ReportStatus::NotProduced, std::nullopt};
}
ReportResult BudgetReport_FinancialReport(ReportContext&, int) {
    return {ReportStatus::NotProduced, std::nullopt};
}
