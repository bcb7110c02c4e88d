#pragma once
// What the report windows share: the strips, the note under the header, the disclaimer,
// the way back through the levels (Previous Report) and out of the reports (Back), and
// the hand-over to another window when the user moves to a report that another kind of
// window shows.
#include "output/ReportDisclaimer.h"
#include "reports/Report.h"
#include "reports/ReportContext.h"

#include <QDialog>
#include <functional>
#include <optional>

class ClickableLabel;
class QLabel;
class QVBoxLayout;
class uctFooter;
class uctHeader;
struct AppContext;
struct ReportSession;

namespace ReportWindowText {
inline const QString Disclaimer = ReportDisclaimer;
inline const QString ExcelHint = QStringLiteral("Outputs report to Microsoft Excel spreadsheet");
inline const QString ExcelFailed = QStringLiteral("Error While Outputing to Excel");
} // namespace ReportWindowText

class ReportWindow : public QDialog {
    Q_OBJECT
public:
    ReportWindow(AppContext& ctx, ReportSession& session, QWidget* parent);

    // The kind of report this window shows.
    virtual ReportForm form() const = 0;
    const Report& report() const { return report_; }

    // The report the user moved to that another kind of window must show; this window
    // closed for it. Empty when the user left the reports or the window is open.
    std::optional<Report> takeNextReport();

    uctHeader* header() const { return header_; }
    uctFooter* footer() const { return footer_; }
    QLabel* noteLabel() const { return lblNote_; }
    QLabel* disclaimerLabel() const { return lblDisclaimer_; }
    ClickableLabel* previousButton() const { return lblPrevious_; }
    ClickableLabel* excelButton() const { return lblExcel_; }
    ClickableLabel* printButton() const { return lblPrint_; }

    // Opens a written workbook; by default the desktop's application for it, except off
    // screen, where nobody would see it.
    void setWorkbookOpener(std::function<void(const QString& file)> opener) {
        openWorkbook_ = std::move(opener);
    }

public slots:
    // Goes back one level; the window stays as it is when that report cannot be shown.
    void cmdPrevReport_Click();
    // Writes the report to a workbook the user names, then opens it.
    void cmdOutputExcel_Click();
    // Prints the report where the print dialog says: a printer or a PDF file.
    void cmdOutputPrinter_Click();
    // Leaves the reports: the levels behind are forgotten.
    void cmdExit_Click();
    // Closing the window in any other way (Escape, the window's own close) leaves too.
    void reject() override;

protected:
    // Subclasses put their body between the note and the disclaimer, then call
    // setReport with the first report.
    void setBody(QWidget* body);
    void setReport(Report report);
    // For changes that the window makes to its own report (the details fold).
    Report& mutableReport() { return report_; }
    // Draws report() into the subclass's controls.
    virtual void render() = 0;
    // Shows a report that a move produced: here when this kind of window shows it, else
    // the window closes and hands it over.
    void moveTo(Report report);
    // Runs one move between levels with the hourglass and, for the long reports, a
    // progress dialog that can stop it.
    ReportResult navigate(const std::function<ReportResult(ReportContext&)>& move);
    // A click on grid row `row`: opens the next level, if the row leads to one, and shows it
    // (here or in the window of its kind). nullopt when the row leads nowhere; else the
    // result, which the window answers with its own message when the level failed.
    std::optional<ReportResult> drillDownRow(int row);
    // Registers a strip button left of the output buttons.
    ClickableLabel* addStripButton(const QString& name, const QString& caption, const QString& hint);

    void showEvent(QShowEvent* event) override;
    // Previous Report is offered while a level lies behind.
    void refreshPrevious();

    AppContext& ctx_;
    ReportSession& session_;

private:
    Report report_;
    std::optional<Report> next_;
    uctHeader* header_;
    uctFooter* footer_;
    QLabel* lblNote_;
    QLabel* lblDisclaimer_;
    QVBoxLayout* body_;
    ClickableLabel* lblPrevious_;
    ClickableLabel* lblExcel_;
    ClickableLabel* lblPrint_;
    std::function<void(const QString&)> openWorkbook_;
};
