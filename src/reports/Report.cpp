#include "reports/Report.h"

#include "app/Format.h"

#include <algorithm>

void ReportGrid::resize(int rows, int cols) {
    rows = std::max(rows, 0);
    cols = std::max(cols, 0);
    cells_.resize(size_t(rows));
    for (auto& line : cells_)
        line.resize(size_t(cols));
    rows_.resize(size_t(rows));
    columns_.resize(size_t(cols));
}

void ReportChart::resize(int series, int points) {
    series = std::max(series, 0);
    points = std::max(points, 0);
    seriesLabels_.resize(series);
    pointLabels_.resize(points);
    values_.resize(size_t(series));
    for (auto& line : values_)
        line.resize(size_t(points), 0.0);
}

void ReportGrid::setMoney(int row, int col, Money amount) {
    ReportCell& c = cell(row, col);
    c.text = formatPounds(amount);
    c.value = amount;
}

void ReportGrid::setPercent(int row, int col, double ratio, const QString& format) {
    ReportCell& c = cell(row, col);
    c.text = formatNumber(ratio, format);
    c.value = Percent{ratio};
}

void ReportGrid::setDate(int row, int col, const Date& date) {
    ReportCell& c = cell(row, col);
    c.text = formatDate(date, QStringLiteral("dd/mm/yyyy"));
    c.value = date;
}
