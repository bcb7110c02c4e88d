#pragma once
// How a report is named: its number and the parameters its builder was called with, kept
// as one list (element 0 the number) so that it can wait on the report stack and be
// replayed later.
#include <QString>
#include <QVariantList>

using ReportParams = QVariantList;

namespace ReportNumber {
constexpr int TotalCharges = 1;
constexpr int IndividualCharges = 2;
constexpr int Service = 3;
constexpr int ServiceLevel2 = 4;
constexpr int Top10CC = 5;
constexpr int MonthlyDeviation = 6;
constexpr int AccumulativeMonthlyDeviation = 7;
constexpr int BudgetTop10CC = 8;
constexpr int DeviationForCC = 9;
constexpr int FinancialReport = 10;
constexpr int First = 1;
constexpr int Last = 10;
} // namespace ReportNumber

// What a builder returns.
namespace ReportStatus {
constexpr int NotProduced = 0; // no builder ran (or the user stopped it)
constexpr int Shown = 1;
constexpr int NoData = 2;
constexpr int Error = 3;
constexpr int BadView = 4;
constexpr int NoCostCentreLevel = 5; // budget reports on a master without a level
} // namespace ReportStatus

// The filter of a trend report: 0 the whole bill, 1 to 5 a cost centre of that level,
// 6 one service number.
namespace FilterLevel {
constexpr int WholeBill = 0;
constexpr int ServiceNumber = 6;
} // namespace FilterLevel

// The charge families, numbered as the views of the reports.
namespace ChargeView {
constexpr int Usage = 1;
constexpr int Recurring = 2;
constexpr int OneOff = 3;
constexpr int Adjustments = 4;
} // namespace ChargeView

inline int reportNumberOf(const ReportParams& params) {
    return params.isEmpty() ? 0 : params.first().toInt();
}

inline ReportParams totalChargesParams(int level, const QString& value) {
    return {ReportNumber::TotalCharges, level, value};
}
inline ReportParams individualChargesParams(int level, const QString& value, int view) {
    return {ReportNumber::IndividualCharges, level, value, view};
}
inline ReportParams serviceParams(int level, const QString& value) {
    return {ReportNumber::Service, level, value};
}
inline ReportParams serviceLevel2Params(int level, const QString& value, const QString& service) {
    return {ReportNumber::ServiceLevel2, level, value, service};
}
inline ReportParams top10Params(int level, const QString& startDate, int chartType) {
    return {ReportNumber::Top10CC, level, startDate, chartType};
}
