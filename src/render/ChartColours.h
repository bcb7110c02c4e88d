#pragma once
// Paints charts in the program's colours.
class cColours;
class QChart;

// A line that is drawn as several series (one per unbroken run) marks every run after
// the first with this property set to true: it takes the colour of the run before and
// does not count as a series of its own.
inline constexpr char SeriesContinuesProperty[] = "vantrelContinuesSeries";

// Series i of a chart takes entry i - 1 of the series table (bar sets count as series);
// the slices of a pie take the pie table. Outline and fill are both the entry's colour.
// Series beyond the table keep the colours they have. A null chart is passed over.
void SetGraphColours(const cColours& colours, QChart* chart);
