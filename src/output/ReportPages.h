#pragma once
// A report on paper or in a PDF file. One painter draws the pages of a PagePlan onto any
// paged device (a printer in the desktop program, a PDF file here and in the command-line
// tool): the page header (title with the moment, the red rule), the chart, the table, and
// the footer (rule, disclaimer, logo) on every page.
#include "app/Date.h"
#include "output/PagePlan.h"

#include <QFont>
#include <QImage>
#include <QPageSize>
#include <QString>
#include <functional>
#include <span>

class QPagedPaintDevice;
class QPaintDevice;
class QPainter;
class ReportChart;

namespace ReportPageText {
// The footer's logo, in the application folder.
inline const QString LogoFile = QStringLiteral("ZandelReportLogo.jpg");
} // namespace ReportPageText

// Draws one chart of the report into a rectangle of the page.
using ChartPainter = std::function<void(QPainter& painter, const QRectF& target, const ReportChart& chart)>;

// What the pages carry beside the report.
struct PageDecor {
    DateTime moment;         // written after the title
    QImage logo;             // null: the footer has none
    ChartPainter paintChart; // empty: the chart's place stays white
    QPageSize pageSize{QPageSize::A4};
    // In a pack of reports: the number of the report's first page and the pack's page
    // count, written "Page n of N" in every footer; 0 writes none.
    int firstPageNumber = 0;
    int pageCount = 0;
};

// The caption, then " (", the moment as "dd-mm-yyyy hh:mm" and ")".
QString pageTitle(const QString& caption, const DateTime& moment);
// The logo of the application folder; null when it is not there.
QImage loadReportLogo(const QString& appFolder);
// The decor of the pages printed now from an installation: the moment and the logo.
PageDecor reportPageDecor(const QString& appFolder);

// The fonts of the pages, sized in points. They are drawn unshaped, so that every letter
// stays a letter of its own in the PDF and the words can be read back from it.
QFont pageTitleFont();
QFont pageTableFont();

// The printable area of a device, and text measured on it in the table's font.
PageFrame pageFrameOf(const QPaintDevice& device);
TextMeasure pageTextMeasure(const QPaintDevice& device);

// Landscape, with the page size and the margins of the report pages.
void setReportPageLayout(QPagedPaintDevice& device, const QPageSize& pageSize);

// Paints every page of the report on a device whose layout is set. False, and `error`
// says why, when the device cannot be painted on.
bool paintReportPages(QPagedPaintDevice& device, const Report& report, const PageDecor& decor,
                      QString* error = nullptr);

// Writes the pages as a PDF file, whole or not at all.
bool writeReportPdf(const Report& report, const QString& path, const PageDecor& decor,
                    QString* error = nullptr);
// Several reports in one PDF: a contents page naming each report and the page it starts
// on, then each report's pages, every page numbered. Whole or not at all.
bool writeReportsPdf(std::span<const Report> reports, const QString& path, const PageDecor& decor,
                     QString* error = nullptr);
