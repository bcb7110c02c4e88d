#pragma once
// The help topics of the forms. Each topic is one page, help/<topic>.html, in the
// data system folder.
#include <QString>
#include <QStringList>

class cPathControl;

namespace HelpTopic {
inline constexpr int TrendManagement = 10002; // creating and deleting trend entries
inline constexpr int TrendReports = 10003;    // choosing a trend report
inline constexpr int BudgetForms = 10004;     // budget management, budget forms and budget reports
inline constexpr int MainMenu = 10006;        // the main menu
inline constexpr int ReportViewer = 10007;    // the report windows: charts, grids, drill-down and output

// Every topic that has a page, in the order of the contents.
inline constexpr int All[] = {MainMenu, TrendManagement, TrendReports, BudgetForms, ReportViewer};
} // namespace HelpTopic

// The folders searched for help pages, first match wins: the data system folder, the
// build tree's system folder, and the install tree's beside the program.
QStringList helpFolders(const cPathControl* paths);

// The page of a topic; "" when no folder holds it.
QString helpPagePath(const cPathControl* paths, int topic);
