#pragma once
// A report's charts as one picture: each chart at a fixed size, one under the other, on
// white. For the command-line tool, which has no window to show them in.
#include <QImage>
#include <QSize>
#include <QString>

class cColours;
struct Report;

inline constexpr QSize ReportImageChartSize{1200, 700};

// A null image when the report has no chart.
QImage renderReportCharts(const Report& report, const cColours& colours,
                          QSize chartSize = ReportImageChartSize);

// Writes the picture as PNG; false (and `error` says why) when the report has no chart or
// the file cannot be written.
bool writeReportPng(const Report& report, const cColours& colours, const QString& path,
                    QString* error = nullptr, QSize chartSize = ReportImageChartSize);
