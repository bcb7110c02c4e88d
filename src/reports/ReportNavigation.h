#pragma once
// Running reports by number, and moving between report levels: the report on show, the
// stack of the levels behind it, drill-down and the way back.
#include "reports/ReportContext.h"
#include "reports/clsStack.h"

#include <functional>
#include <optional>

// The state that crosses from one report level to the next.
struct ReportSession {
    clsStack reportStack;
    int currentReportNumber = 0;
    ReportParams currentReportParams;
};

// A builder called with the parameters of a report (element 0 its number).
using ReportBuilderFn = std::function<ReportResult(ReportContext&, const ReportParams&)>;

// Puts another builder in the place of a report's own (tests stand in their fakes so); an
// empty function gives the report its own builder back.
void setReportBuilder(int number, ReportBuilderFn builder);

// Calls the builder that element 0 names with the rest, each converted back to a whole
// number or text. A number outside 1 to 10 gives ReportStatus::NotProduced.
ReportResult RunReport(ReportContext& rc, const ReportParams& params);

// Runs a report and, when it is shown, makes it the session's current report.
ReportResult OpenReport(ReportContext& rc, ReportSession& session, const ReportParams& params);
// A fresh start from a menu: forgets the levels behind, then opens the report.
ReportResult StartReport(ReportContext& rc, ReportSession& session, const ReportParams& params);

// Remembers the current report before a deeper level opens.
void PushCurrentReport(ReportSession& session);
// Pops the last remembered report and builds it again; NotProduced with an empty stack
// or a number outside 1 to 10.
ReportResult ShowPreviousReport(ReportContext& rc, ReportSession& session);
// Leaving the reports by Back forgets the whole path.
void LeaveReports(ReportSession& session);
// Previous Report is offered while anything is remembered.
bool CanShowPreviousReport(const ReportSession& session);

// A click on grid row `row` of the report on show. Reports 1 and 3 open the next level for
// rows 1 up to but not including the two total rows; report 10 opens the accumulative
// deviation (total view) of the budget in the row data of a line below its two heading
// rows; anything else does nothing (nullopt). When the next level fails, the stack is as
// it was before the click and the form says so.
std::optional<ReportResult> DrillDown(ReportContext& rc, ReportSession& session, const Report& shown,
                                      int row);

inline const QString DrillDownFailedText = QStringLiteral("Error creating report");
