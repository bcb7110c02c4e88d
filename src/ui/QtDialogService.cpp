#include "ui/QtDialogService.h"

#include "ui/ChoosePrinter.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrinter>
#include <algorithm>

namespace {

// The box stands over the window the user sees: the active one, else any window that
// is up (the splash during start-up takes no focus, yet a box must not hide behind it).
QWidget* activeParent() {
    if (QWidget* modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget* active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (window->isVisible() && window->isWindow() && !window->inherits("QMenu"))
            return window;
    return nullptr;
}

QString captionOr(const QString& title) {
    return title.isEmpty() ? QStringLiteral("Vantrel") : title;
}

// The dialogs take Qt's filter form ("Project file (*.mdb)"); the host product's form
// "Project file (*.mdb)|*.mdb" is turned into it.
QString qtFilter(const QString& filter) {
    const QStringList parts = filter.split(QLatin1Char('|'));
    if (parts.size() < 2)
        return filter;
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) {
        QString label = parts[i];
        if (!label.contains(QLatin1Char('(')))
            label += QStringLiteral(" (") +
                     QString(parts[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')) + QLatin1Char(')');
        out << label;
    }
    return out.join(QStringLiteral(";;"));
}

} // namespace

void QtDialogService::message(const QString& text, MessageIcon icon, const QString& title,
                              const QString& details) {
    QMessageBox::Icon boxIcon = QMessageBox::NoIcon;
    switch (icon) {
    case MessageIcon::Information:
        boxIcon = QMessageBox::Information;
        break;
    case MessageIcon::Warning:
        boxIcon = QMessageBox::Warning;
        break;
    case MessageIcon::Critical:
        boxIcon = QMessageBox::Critical;
        break;
    case MessageIcon::Question:
        boxIcon = QMessageBox::Question;
        break;
    case MessageIcon::None:
        break;
    }
    QMessageBox box(boxIcon, captionOr(title), text, QMessageBox::Ok, activeParent());
    box.setDetailedText(details);
    box.exec();
}

Answer QtDialogService::question(const QString& text, const QString& title) {
    const auto button = QMessageBox::question(activeParent(), captionOr(title), text,
                                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

QString QtDialogService::openFile(const QString& title, const QString& filter, const QString& folder) {
    return QFileDialog::getOpenFileName(activeParent(), title, folder, qtFilter(filter));
}

QString QtDialogService::saveFile(const QString& title, const QString& filter, const QString& suggested) {
    return QFileDialog::getSaveFileName(activeParent(), title, suggested, qtFilter(filter));
}

PrintChoice QtDialogService::printDialog(const QString& documentName) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(documentName);
    printer.setPageOrientation(QPageLayout::Landscape);
    if (!ChoosePrinter(printer, activeParent()))
        return {};
    PrintChoice choice;
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        if (printer.outputFileName().isEmpty())
            return {};
        choice.target = PrintChoice::Target::PdfFile;
        choice.pdfPath = printer.outputFileName();
    } else {
        choice.target = PrintChoice::Target::Printer;
        choice.printerName = printer.printerName();
    }
    choice.copies = std::max(1, printer.copyCount());
    choice.pageSize = printer.pageLayout().pageSize();
    return choice;
}
