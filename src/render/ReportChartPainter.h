#pragma once
// A report's chart drawn as vectors onto any painter: a page of a printer or a PDF file,
// or an image.
#include "output/ReportPages.h"

class QPainter;
class QRectF;
class ReportChart;
class cColours;

// Draws the chart into `target`. The chart lays itself out as a window of that size on
// the screen would show it, and is scaled to the painter's device; a place smaller than
// a small chart window gets a small window's layout, drawn smaller.
void paintReportChart(QPainter& painter, const QRectF& target, const ReportChart& chart,
                      const cColours& colours);

// The chart painter of the report pages. `colours` must outlive it.
ChartPainter reportChartPainter(const cColours& colours);

// The decor of the report pages printed now from an installation: the moment, the logo
// of the application folder and the charts.
PageDecor reportPageDecor(const QString& appFolder, const cColours& colours);
