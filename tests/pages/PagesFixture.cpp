#include "PagesFixture.h"

Report financialShape(int lines) {
    Report report;
    report.form = ReportForm::Grid;
    report.caption = QStringLiteral("Financial Directors Report");
    ReportGrid& grid = report.grid;
    grid.resize(lines + 3, 5);
    grid.fixedRows = 2;
    const QStringList headings{"Cost Centre Name", "Total Budget (£)", "Total Trend (£)", "Difference (£)",
                               "% Difference"};
    for (int c = 0; c < 5; ++c)
        grid.setText(0, c, headings[c]);
    for (int r = 2; r < lines + 3; ++r) {
        grid.setText(r, 0, QStringLiteral("Centre %1").arg(r - 1, 3, 10, QLatin1Char('0')));
        for (int c = 1; c < 5; ++c)
            grid.setMoney(r, c, Money::fromDouble(1000 * c + r));
    }
    return report;
}

Report smallTrend() {
    Report report;
    report.caption = QStringLiteral("Total Charges Trend");
    report.grid.resize(4, 2);
    report.grid.setText(0, 0, QStringLiteral("Bill Date"));
    report.grid.setText(0, 1, QStringLiteral("Total Cost"));
    ReportChart chart;
    chart.title = QStringLiteral("Quarterly Spend");
    chart.resize(1, 3);
    for (int p = 0; p < 3; ++p) {
        report.grid.setText(p + 1, 0, QStringLiteral("%1/0%2/2012").arg(28 + p).arg(p + 1));
        report.grid.setMoney(p + 1, 1, Money::fromDouble(1234.5 * (p + 1)));
        chart.setPointLabel(p, report.grid.text(p + 1, 0));
        chart.setValue(0, p, 1234.5 * (p + 1));
    }
    report.charts.push_back(chart);
    return report;
}
