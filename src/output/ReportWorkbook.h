#pragma once
// Reports as .xlsx workbooks. The windows and the command line write through here.
//
// One report gives one sheet laid out as its window shows it: the logo in the rows above
// the title, the title over A7:D7 (A7:E7 for the report area), then
//  - chart and grid: the chart over columns A to J, rows 9 to 25, the grid from row 28;
//  - grid only: the grid from row 9;
//  - report area: the note in row 8, the charts from row 9, several side by side, the key
//    and period labels to their right.
// The grid goes without its hidden rows (the rows below close up), amounts, percents and
// dates as numbers with their formats, text as text; the disclaimer stands one empty row
// under it. Charts are native workbook charts whose data lie on a hidden sheet
// "ChartData".
//
// The file is written whole or not at all: a scratch file beside it is renamed over it
// when complete.
#include <QString>
#include <QStringList>
#include <span>

class cColours;
struct AppContext;
struct Report;
struct ReportChart;

// What the workbook takes from the installation beyond the report.
struct WorkbookLook {
    const cColours& colours;
    QString logoFile; // put above the title when the file exists; empty for none
};

// The logo and colours of an installation: AppFolder/ZandelReportLogo.jpg.
WorkbookLook workbookLook(const AppContext& ctx);

// False, with `error` saying why, when the workbook could not be written; nothing is
// left at `path` or beside it then.
bool writeReportWorkbook(const Report& report, const QString& path, const WorkbookLook& look,
                         QString* error = nullptr);
// Several reports, one sheet each, named after their captions (made unique and cut to the
// 31 characters a sheet name may have).
bool writeReportsWorkbook(std::span<const Report> reports, const QString& path, const WorkbookLook& look,
                          QString* error = nullptr);

// The letters of one-based column n: 1 "A", 27 "AA". Two letters are made as the high and
// low parts of n / 26, so 26 gives "A@"; the grids stay narrower than that.
QString ExcelColumnLetter(int n);

// The workbook chart type, in the spreadsheet program's own numbers, for a chart: bars 3
// (clustered columns) or 52 (stacked), lines 4, areas 1, steps 52, pie 5, XY -4169; 0 for
// anything else.
int ExcelChartType(const ReportChart& chart);

// Sheet names for captions: characters a sheet name cannot hold become blanks, an empty
// name becomes "Report", names are cut to 31 characters and made unique (without regard
// to case) by a number in brackets; `taken` names are avoided too.
QStringList workbookSheetNames(const QStringList& captions, const QStringList& taken = {});
