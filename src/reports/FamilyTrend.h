#pragma once
// The layout that the total charges trend and the service drill-down share: bill dates
// across, the four charge families, their total and the change of the total down, and
// a five-series chart (the total, then the families).
#include "reports/ReportFrame.h"

#include <QColor>
#include <functional>

struct PercentCell {
    QString text;
    QColor colour;               // invalid: the grid's own colour
    std::optional<double> ratio; // the change the text shows; none for an empty cell
};

// Turns the previous and the present total into the text and colour of a percent cell.
using PercentRule = std::function<PercentCell(Money previous, Money present)>;

// Fills `report` with grid and chart from rows of (date, usage, recurring, one off,
// adjustments), oldest first and at most one window long. A missing family sum is a
// failure, as using it in the total is. The chart's series take the scheme's colours.
void fillFamilyTrend(Report& report, const std::vector<DateSums>& rows, const PercentRule& percent,
                     const QString& chartTitle, const cColours& colours, int& location);
