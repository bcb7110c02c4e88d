// Times the workbook of a 24-column trend report: 24 bill dates, 300 service lines of
// amounts, a percent line and a chart of 30 lines over the 24 dates.
//   bench_outputs
// Prints the median of five runs beside its goal.
#include "app/cColours.h"
#include "output/ReportWorkbook.h"
#include "reports/Report.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int Dates = 24;
constexpr int Lines = 300;
constexpr int ChartLines = 30;
constexpr int Runs = 5;
constexpr double GoalMs = 200;

Report trendReport() {
    Report report;
    report.number = 3;
    report.caption = QStringLiteral("Service Type Trend for Whole Bill");
    ReportGrid& grid = report.grid;
    grid.resize(Lines + 2, Dates + 1);
    grid.setText(0, 0, QStringLiteral("Service Type"));
    for (int d = 0; d < Dates; ++d) {
        grid.setDate(0, d + 1, Date(2010, 1, 28).addMonths(d));
        grid.column(d + 1).alignment = Qt::AlignRight | Qt::AlignVCenter;
    }
    for (int r = 1; r <= Lines; ++r) {
        grid.setText(r, 0, QStringLiteral("Service %1 (£)").arg(r));
        for (int d = 0; d < Dates; ++d)
            grid.setMoney(r, d + 1, Money::fromRaw(std::int64_t(r * 7919 + d * 104729) % 50000000));
    }
    grid.setText(Lines + 1, 0, QStringLiteral("Percent Change (%)"));
    for (int d = 1; d < Dates; ++d)
        grid.setPercent(Lines + 1, d + 1, (d % 7 - 3) / 100.0, QStringLiteral("0.00%"));

    ReportChart chart;
    chart.title = report.caption;
    chart.resize(ChartLines, Dates);
    for (int d = 0; d < Dates; ++d)
        chart.setPointLabel(d, grid.text(0, d + 1));
    for (int s = 0; s < ChartLines; ++s) {
        chart.setSeriesLabel(s, grid.text(s + 1, 0));
        for (int d = 0; d < Dates; ++d)
            chart.setValue(s, d, (s * 31 + d * 17) % 500 * 1.5);
    }
    report.charts.push_back(chart);
    return report;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const Report report = trendReport();
    const cColours colours;
    std::vector<double> times;
    for (int run = 0; run < Runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        QString error;
        if (!writeReportWorkbook(report, dir.filePath(QStringLiteral("trend.xlsx")), {colours, {}}, &error)) {
            std::fprintf(stderr, "bench_outputs: %s\n", qPrintable(error));
            return 1;
        }
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(times.begin(), times.end());
    std::printf("Workbook of a %d-date trend report, %d lines: median %.1f ms (goal under %.0f ms)\n", Dates,
                Lines, times[times.size() / 2], GoalMs);
    return 0;
}
