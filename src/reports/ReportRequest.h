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
    int view = ChargeView::Usage;
    QString service;
    int chartType = 5; // the total charges
    std::optional<int> budget;
    QString format;
    QString out;
};

// Reads "NUMBER --project P [--level L --value V --view N --service S --chart-type T
// --budget ID] --format F --out FILE". For report 5 the value is its start date. nullopt and `error` on a
// malformed line.
std::optional<ReportRequest> parseReportRequest(const QStringList& args, QString* error);

// The parameters the report's builder is called with; `error` (and an empty list) when the
// request lacks one that the report needs.
ReportParams reportParamsOf(const ReportRequest& request, QString* error);

// The message a menu shows for a builder's status; empty for a report that was shown.
QString reportStatusText(int status);
