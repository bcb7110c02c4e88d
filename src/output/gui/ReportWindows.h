#pragma once
// Which window shows which kind of report, and the modal run of report windows from a
// menu until the user leaves the reports.
#include "reports/Report.h"

#include <functional>
#include <memory>

class QWidget;
class ReportWindow;
struct AppContext;
struct ReportSession;

using ReportWindowFactory =
    std::function<std::unique_ptr<ReportWindow>(AppContext&, ReportSession&, Report, QWidget* parent)>;

// Lets another window take a kind of report (tests put their own in); the chart-and-grid,
// report-area and grid windows are built in. An empty factory takes a window out again.
void setReportWindowFactory(ReportForm form, ReportWindowFactory factory);

// The window for the report's kind, showing it; null when no window shows that kind.
std::unique_ptr<ReportWindow> makeReportWindow(AppContext& ctx, ReportSession& session, Report report,
                                               QWidget* parent);

// Shows the report modally in its window. When the user moves to a report that another
// kind of window shows, that window follows; returns when the user leaves the reports.
// False when no window shows the report's kind.
bool ShowReportWindows(AppContext& ctx, ReportSession& session, Report report, QWidget* parent);
