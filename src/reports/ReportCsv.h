#pragma once
// A report as comma-separated text: the grid as it shows (one line per visible row,
// every cell as its text), then for each chart a blank line, a line of its series labels
// behind an empty first field, and one line per point: its label and its values, a null
// point an empty field. Fields are quoted when they hold a comma, a quote or a line
// break; lines end in CR LF.
#include <QString>

struct Report;

QString reportToCsv(const Report& report);
// Writes UTF-8 text; false (and `error` says why) when the file cannot be written.
bool writeReportCsv(const Report& report, const QString& path, QString* error = nullptr);

// One field as it goes into a line.
QString csvField(const QString& text);
