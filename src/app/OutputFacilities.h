#pragma once
// Which printers the program can offer, decided from the names the system reports.
#include <QString>
#include <QStringList>

struct AppContext;

struct OutputFacilities {
    bool hasPrinter = false;
    bool hasPdfPrinter = false; // a printer driver that makes PDF files was found
    QString pdfPrinterName;
    QString defaultPrinterName;
};

// printerNames in the order the system lists them. A PDF printer is one whose name
// holds "Adobe PDF"; among several, the one named exactly so (in any case) or a
// network one ("... on server") wins, else the first.
OutputFacilities DetectOutputFacilities(const QStringList& printerNames, const QString& defaultPrinterName);

// Writes the facilities into the context. PDF files are written by the program
// itself, so PDF output stays available whatever printers exist, and workbooks can
// always be written.
void applyOutputFacilities(AppContext& ctx, const OutputFacilities& found);
