#pragma once
// Draws a report's chart with Qt Charts: one picture for the report windows and for
// the images of the command-line tool.
class QChart;
class QAbstractSeries;
class cColours;
class ReportChart;

// A new chart, owned by the caller. Lines break at null points: every unbroken run is a
// series of its own with the line's pen, and only the line's first run shows in the
// legend. A missing bar is drawn as 0 so that every later bar keeps its place. Series
// take the report's colours, and the scheme's where the report gives none. Pies take
// the first series; area, step and XY charts are drawn as lines.
QChart* buildReportChart(const ReportChart& chart, const cColours& colours);

// The report series a drawn series belongs to (-1 for none): a line's runs share it.
int reportSeriesOf(const QAbstractSeries* series);
