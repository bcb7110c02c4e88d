#include "output/ReportDetails.h"

#include "reports/Report.h"

namespace {

// Rows 1 and 6 (budget total and live total) always stay.
constexpr int DetailRows[] = {2, 3, 4, 5, 7, 8, 9, 10};
constexpr int TotalView = 5;

} // namespace

bool hasDetailsFold(const Report& report) {
    return (report.number == ReportNumber::MonthlyDeviation ||
            report.number == ReportNumber::AccumulativeMonthlyDeviation) &&
           report.params.value(2).toInt() == TotalView;
}

bool ToggleReportDetails(Report& report) {
    if (!hasDetailsFold(report))
        return false;
    const bool fold = report.detailsButton.startsWith(QLatin1String("Hide"));
    for (int row : DetailRows)
        if (row < report.grid.rowCount())
            report.grid.row(row).hidden = fold;
    report.detailsButton = fold ? DetailsText::Show : DetailsText::Hide;
    return true;
}

QString detailsButtonHint(const Report& report) {
    return report.detailsButton.startsWith(QLatin1String("Hide"))
               ? QStringLiteral("Show the simplified report")
               : QStringLiteral("Show the full report");
}
