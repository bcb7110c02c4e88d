#include "reports/Report.h"

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
