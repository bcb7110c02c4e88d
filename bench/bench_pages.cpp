// The PDF of a financial report of 500 lines: the page plan, the table and the file.
// Prints the median of a few runs; the goal is under a second.
#include "app/Money.h"
#include "output/ReportPages.h"
#include "reports/Report.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

constexpr int Lines = 500;
constexpr int Runs = 7;

Report financialReport() {
    Report report;
    report.number = ReportNumber::FinancialReport;
    report.form = ReportForm::Grid;
    report.caption = QStringLiteral("Financial Directors Report");
    ReportGrid& grid = report.grid;
    grid.resize(Lines + 3, 5);
    grid.fixedRows = 2;
    const QStringList headings{QStringLiteral("Cost Centre Name"), QStringLiteral("Total Budget (£)"),
                               QStringLiteral("Total Trend (£)"), QStringLiteral("Difference (£)"),
                               QStringLiteral("% Difference")};
    for (int c = 0; c < 5; ++c) {
        grid.setText(0, c, headings[c]);
        grid.setBold(0, c);
        grid.column(c).colData = int(c == 0 ? ColumnKind::Caption : ColumnKind::Value);
    }
    for (int r = 2; r < Lines + 3; ++r) {
        grid.setText(r, 0, QStringLiteral("Regional sales office number %1 of the northern division").arg(r));
        const Money budget = Money::fromDouble(10000 + 37.25 * r);
        const Money trend = Money::fromDouble(9800 + 41.5 * r);
        grid.setMoney(r, 1, budget);
        grid.setMoney(r, 2, trend);
        grid.setMoney(r, 3, trend - budget);
        grid.setPercent(r, 4, (trend - budget).toDouble() / budget.toDouble(), QStringLiteral("00.0%"));
        grid.setForeColor(r, 4, r % 3 ? QColor(Qt::darkGreen) : QColor(Qt::red));
    }
    return report;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const Report report = financialReport();
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("financial.pdf"));
    std::vector<double> times;
    for (int run = 0; run < Runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        QString error;
        if (!writeReportPdf(report, file, reportPageDecor(QString()), &error)) {
            std::fprintf(stderr, "bench_pages: %s\n", qPrintable(error));
            return 1;
        }
        times.push_back(double(timer.nsecsElapsed()) / 1e9);
    }
    std::sort(times.begin(), times.end());
    std::printf("PDF of a %d-line financial report (%lld bytes): median %.3f s, best %.3f s over %d runs\n",
                Lines, QFileInfo(file).size(), times[times.size() / 2], times.front(), Runs);
    return 0;
}
