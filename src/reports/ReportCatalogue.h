#pragma once
// The one table of the ten reports: number, builder, the window that shows it, how its
// parameters are read, and what its window lets the user do with it. The menus, the moves
// between levels, the command line and the tests all go through it.
#include "reports/ReportContext.h"

#include <QString>

struct ReportCatalogueEntry {
    int number = 0;
    QString builderName; // as the error log names it
    ReportForm form = ReportForm::ChartAndGrid;
    // Calls the builder with the parameters of a report (element 0 its number), each
    // converted back to a whole number or text.
    ReportResult (*build)(ReportContext&, const ReportParams&) = nullptr;
    bool budgetReport = false;
    // A click on a grid line opens the next level (reports 1 and 3: rows 1 up to the two
    // total rows; report 10: the lines below the two heading rows).
    bool rowDrillDown = false;
    // A click on a chart opens the periodic deviation of the budget it names (report 8).
    bool chartDrillDown = false;
    // A click on a heading sorts the grid (report 10).
    bool sortable = false;
};

// The entry of a report number; null outside 1 to 10.
const ReportCatalogueEntry* catalogueEntry(int number);
