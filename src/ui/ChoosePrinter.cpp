#include "ui/ChoosePrinter.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>

bool ChoosePrinter(QPrinter& printer, QWidget* parent, const PrintDialogRunner& run) {
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Print"));
    dialog.setOption(QAbstractPrintDialog::PrintToFile, true);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    const bool accepted = run ? run(dialog) : dialog.exec() == QDialog::Accepted;
    if (!accepted)
        return false;
    const bool landscape = printer.pageLayout().orientation() == QPageLayout::Landscape;
    printer.setPageOrientation(landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    return true;
}
