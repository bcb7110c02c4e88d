#pragma once
// A report asked for on the command line: its number, parameters and output.
#include "reports/ReportParams.h"

#include <QString>
#include <QStringList>
#include <optional>

struct ReportRequest {
    int number = 0;
    QString project;
    std::optional<int> level; // the whole bill, or cost-centre level 1 for report 5
    QString value;
    std::optional<int> view; // usage for report 2, the total for the budget reports
    QString service;
    int chartType = 5; // the total charges
    QString budget;    // an id, a master's title or "Master.Child"
    // Report 10: the grid as a click on this heading leaves it (descending: a second click).
    std::optional<int> sortColumn;
    bool sortDescending = false;
    QString format;
    QString out;
};

// Reads "NUMBER --project P [--level L --value V --view N --service S --chart-type T
// --budget ID|TITLE --sort COL[:desc]] --format F --out FILE". For report 5 the value is its start
// date. nullopt and `error` on a malformed line.
std::optional<ReportRequest> parseReportRequest(const QStringList& args, QString* error);

// The parameters the report's builder is called with, the budget reports with `budgetId`;
// `error` (and an empty list) when the request lacks one that the report needs.
ReportParams reportParamsOf(const ReportRequest& request, QString* error, int budgetId = -1);

// The message a menu shows for a builder's status (the budget report menu has its own);
// empty for a report that was shown.
QString reportStatusText(int status, bool budgetReport = false);
