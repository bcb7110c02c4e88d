#pragma once
// "Output to Printer" of the report windows: the print dialog, then the report's pages on
// the chosen printer or in the chosen PDF file.
#include "app/DialogService.h"
#include "output/ReportPages.h"

struct AppContext;
struct Report;

namespace ReportPrintText {
inline const QString Failed = QStringLiteral("Error While Printing");
inline const QString Hint = QStringLiteral("Output report to printer");
} // namespace ReportPrintText

// The pages on a printer, or in a PDF file, as `choice` says. False, and `error` says
// why, when they could not be made; a cancelled choice prints nothing and answers true.
bool printReportPages(const Report& report, const PrintChoice& choice, const PageDecor& decor,
                      QString* error = nullptr);

// Runs the print dialog and prints there. A cancel does nothing. A failure is written to
// the error log under formName + ".cmdOutputPrinter_Click" and the user is told.
void OutputReportToPrinter(AppContext& ctx, const Report& report, const QString& formName);
