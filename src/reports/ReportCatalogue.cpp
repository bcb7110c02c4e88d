#include "reports/ReportCatalogue.h"

#include "reports/BudgetReports.h"
#include "reports/TrendReports.h"

#include <array>

namespace {

int whole(const ReportParams& p, int i) {
    return p.value(i).toInt();
}
QString text(const ReportParams& p, int i) {
    return p.value(i).toString();
}

ReportCatalogueEntry entry(int number, const char* name, ReportForm form,
                           ReportResult (*build)(ReportContext&, const ReportParams&)) {
    ReportCatalogueEntry e;
    e.number = number;
    e.builderName = QString::fromLatin1(name);
    e.form = form;
    e.build = build;
    e.budgetReport = number >= ReportNumber::MonthlyDeviation;
    e.rowDrillDown = number == ReportNumber::TotalCharges || number == ReportNumber::Service ||
                     number == ReportNumber::FinancialReport;
    e.chartDrillDown = number == ReportNumber::BudgetTop10CC;
    e.sortable = number == ReportNumber::FinancialReport;
    return e;
}

const std::array<ReportCatalogueEntry, ReportNumber::Last>& catalogue() {
    using F = ReportForm;
    static const std::array<ReportCatalogueEntry, ReportNumber::Last> entries{
        entry(1, "TrendReport_TotalCharges", F::ChartAndGrid,
              [](ReportContext& rc, const ReportParams& p) {
                  return TrendReport_TotalCharges(rc, whole(p, 1), text(p, 2));
              }),
        entry(2, "TrendReport_IndividualCharges", F::ChartAndGrid,
              [](ReportContext& rc, const ReportParams& p) {
                  return TrendReport_IndividualCharges(rc, whole(p, 1), text(p, 2), whole(p, 3));
              }),
        entry(3, "TrendReport_Service", F::ChartAndGrid,
              [](ReportContext& rc, const ReportParams& p) {
                  return TrendReport_Service(rc, whole(p, 1), text(p, 2));
              }),
        entry(4, "TrendReport_ServiceLevel2", F::ChartAndGrid,
              [](ReportContext& rc, const ReportParams& p) {
                  return TrendReport_ServiceLevel2(rc, whole(p, 1), text(p, 2), text(p, 3));
              }),
        entry(5, "TrendReport_Top10CC", F::ReportArea,
              [](ReportContext& rc, const ReportParams& p) {
                  return TrendReport_Top10CC(rc, whole(p, 1), text(p, 2), whole(p, 3));
              }),
        entry(6, "BudgetReport_MonthlyDeviation", F::ChartAndGrid,
              [](ReportContext& rc, const ReportParams& p) {
                  return BudgetReport_MonthlyDeviation(rc, whole(p, 1), whole(p, 2));
              }),
        entry(7, "BudgetReport_AccumulativeMonthlyDeviation", F::ChartAndGrid,
              [](ReportContext& rc, const ReportParams& p) {
                  return BudgetReport_AccumulativeMonthlyDeviation(rc, whole(p, 1), whole(p, 2));
              }),
        entry(8, "BudgetReport_Top10CC", F::ReportArea,
              [](ReportContext& rc, const ReportParams& p) { return BudgetReport_Top10CC(rc, whole(p, 1)); }),
        entry(9, "BudgetReport_DeviationForCC", F::ReportArea,
              [](ReportContext& rc, const ReportParams& p) {
                  return BudgetReport_DeviationForCC(rc, whole(p, 1), whole(p, 2));
              }),
        entry(10, "BudgetReport_FinancialReport", F::Grid,
              [](ReportContext& rc, const ReportParams& p) {
                  return BudgetReport_FinancialReport(rc, whole(p, 1));
              }),
    };
    return entries;
}

} // namespace

const ReportCatalogueEntry* catalogueEntry(int number) {
    if (number < ReportNumber::First || number > ReportNumber::Last)
        return nullptr;
    return &catalogue()[size_t(number - 1)];
}
