#include "output/gui/ReportPagesPrint.h"

#include "app/AppContext.h"
#include "app/ErrorLog.h"
#include "render/ReportChartPainter.h"
#include "reports/Report.h"
#include "ui/BusyCursor.h"

#include <QPrinter>

bool printReportPages(const Report& report, const PrintChoice& choice, const PageDecor& decor,
                      QString* error) {
    switch (choice.target) {
    case PrintChoice::Target::Cancelled:
        return true;
    case PrintChoice::Target::PdfFile:
        return writeReportPdf(report, choice.pdfPath, decor, error);
    case PrintChoice::Target::Printer:
        break;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(choice.printerName);
    // An unknown name leaves the printer unnamed, or turns it into a PDF writer.
    if (!printer.isValid() || printer.outputFormat() != QPrinter::NativeFormat ||
        printer.printerName() != choice.printerName) {
        if (error)
            *error = QStringLiteral("the printer %1 is not available").arg(choice.printerName);
        return false;
    }
    printer.setDocName(report.caption);
    printer.setCopyCount(choice.copies);
    setReportPageLayout(printer, choice.pageSize);
    return paintReportPages(printer, report, decor, error);
}

void OutputReportToPrinter(AppContext& ctx, const Report& report, const QString& formName) {
    const PrintChoice choice = ctx.dialogs.printDialog(report.caption);
    if (choice.cancelled())
        return;
    QString error;
    BusyCursor busy;
    const QString folder = ctx.paths ? ctx.paths->AppFolder : QString();
    if (printReportPages(report, choice, reportPageDecor(folder, ctx.colours), &error))
        return;
    busy.release();
    if (ctx.paths)
        LogError(*ctx.paths, formName + QStringLiteral(".cmdOutputPrinter_Click"), 0, error);
    ctx.dialogs.critical(ReportPrintText::Failed);
}
