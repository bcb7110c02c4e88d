#include "app/OutputFacilities.h"

#include "app/AppContext.h"

namespace {

const QString PdfPrinterMark = QStringLiteral("Adobe PDF");

bool isNetworkPrinterName(const QString& name) {
    return name.contains(QStringLiteral(" on "));
}

} // namespace

OutputFacilities DetectOutputFacilities(const QStringList& printerNames, const QString& defaultPrinterName) {
    OutputFacilities found;
    if (printerNames.isEmpty())
        return found;
    found.hasPrinter = true;
    found.defaultPrinterName = defaultPrinterName;

    QStringList candidates;
    for (const QString& name : printerNames)
        if (name.contains(PdfPrinterMark)) // the name pattern is case-sensitive
            candidates << name;

    QString chosen;
    if (candidates.size() == 1) {
        chosen = candidates.first();
    } else if (candidates.size() > 1) {
        for (const QString& name : candidates) {
            if (name.compare(PdfPrinterMark, Qt::CaseInsensitive) == 0 || isNetworkPrinterName(name)) {
                chosen = name;
                break;
            }
        }
        if (chosen.isEmpty())
            chosen = candidates.first();
    }
    if (!chosen.isEmpty()) {
        found.hasPdfPrinter = true;
        found.pdfPrinterName = chosen;
    }
    return found;
}

void applyOutputFacilities(AppContext& ctx, const OutputFacilities& found) {
    ctx.hasPrinter = found.hasPrinter;
    ctx.defaultPrinterName = found.defaultPrinterName;
    ctx.pdfPrinterName = found.pdfPrinterName;
    ctx.hasPdfPrinter = true;
    ctx.hasExcel = true;
}
