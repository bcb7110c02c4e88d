#pragma once
// The process-wide state of the running program: folders, the open stores, the
// selected project and the output facilities. One object, passed to those who need it.
#include "app/cColours_Orvane.h"
#include "app/cPathControl.h"
#include "data/Database.h"

#include <QString>
#include <memory>

class DialogService;

struct AppContext {
    explicit AppContext(DialogService& dialogService)
        : dialogs(dialogService) {}

    DialogService& dialogs;
    QString version;
    std::unique_ptr<cPathControl> paths;
    cColours_Orvane colours;

    // The four installed stores, open for the whole run.
    Database budgetDb;
    Database trendDb;
    Database costCentreDb;
    Database telDb;

    // The selected project.
    Database projectDb;
    QString projectPath;
    QString projectPassword;
    QString billAccount;
    QString billStart;
    QString billEnd;
    bool hasImports = false;
    bool trendEnabled = false;

    // The budget created last in the budget forms, so the management list can select it.
    int lastBudgetId = -1;

    // Output facilities found at start.
    bool hasPrinter = false;
    bool hasPdfPrinter = true; // PDF is written directly, so it is always there
    QString pdfPrinterName;
    QString defaultPrinterName;
    bool hasExcel = true; // workbooks can always be written
};
