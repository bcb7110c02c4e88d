#include "output/gui/ReportWindow.h"
#include "ui/FormFrame.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/HelpTopics.h"
#include "output/ReportWorkbook.h"
#include "output/gui/ReportPagesPrint.h"
#include "output/gui/ReportProgressDialog.h"
#include "reports/ReportNavigation.h"
#include "ui/Branding.h"
#include "ui/BusyCursor.h"
#include "ui/ClickableLabel.h"
#include "ui/HelpWindow.h"
#include "ui/HoverHints.h"
#include "ui/WindowIcon.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QDesktopServices>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <QVBoxLayout>

namespace {

// The report windows share the help page of the menu they are opened from.
constexpr int ReportHelpTopic = HelpTopic::MainMenu;

ClickableLabel* stripButton(const QString& name, const QString& caption, QWidget* parent) {
    auto* label = new ClickableLabel(caption, parent);
    label->setObjectName(name);
    label->setAlignment(Qt::AlignCenter);
    label->setCursor(Qt::PointingHandCursor);
    return label;
}

} // namespace

ReportWindow::ReportWindow(AppContext& ctx, ReportSession& session, QWidget* parent)
    : QDialog(parent)
    , ctx_(ctx)
    , session_(session)
    , header_(new uctHeader(this))
    , footer_(new uctFooter(this))
    , lblNote_(new QLabel(this))
    , lblDisclaimer_(new QLabel(ReportWindowText::Disclaimer, this))
    , body_(new QVBoxLayout)
    , lblPrevious_(stripButton(QStringLiteral("lblPrevious"), QStringLiteral("Previous Report"), this))
    , lblExcel_(stripButton(QStringLiteral("lblExcel"), QStringLiteral("Output to Excel"), this))
    , lblPrint_(stripButton(QStringLiteral("lblPrint"), QStringLiteral("Output to Printer"), this)) {
    setWindowTitle(QStringLiteral("Vantrel"));
    SetIcon(this);
    header_->setObjectName(QStringLiteral("uctHeader1"));
    footer_->setObjectName(QStringLiteral("uctFooter1"));
    lblNote_->setObjectName(QStringLiteral("lblNote"));
    lblDisclaimer_->setObjectName(QStringLiteral("lblDisclaimer"));

    header_->setHeaderType(uctHeader::Type::Compact);
    header_->setTitle(QStringLiteral("Vantrel"));
    footer_->setExitButtonText(QStringLiteral("Back"));
    footer_->setExitToolTipText(QStringLiteral("Return to menu"));
    footer_->RegisterButton(lblPrevious_);
    footer_->RegisterButton(lblExcel_);
    footer_->RegisterButton(lblPrint_);
    footer_->hints()->watch(lblPrevious_, QStringLiteral("Return to previous level of report"));
    footer_->hints()->watch(lblPrint_, ReportPrintText::Hint);
    connect(lblPrint_, &ClickableLabel::clicked, this, &ReportWindow::cmdOutputPrinter_Click);
    footer_->hints()->watch(lblExcel_, ReportWindowText::ExcelHint);
    connect(lblExcel_, &ClickableLabel::clicked, this, &ReportWindow::cmdOutputExcel_Click);
    openWorkbook_ = [](const QString& file) {
        if (QGuiApplication::platformName() != QLatin1String("offscreen"))
            QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    };
    connect(lblPrevious_, &ClickableLabel::clicked, this, &ReportWindow::cmdPrevReport_Click);
    connect(footer_, &uctFooter::ButtonClicked, this, [this](int value) {
        if (value == uctFooter::ExitButton)
            cmdExit_Click();
    });
    connect(footer_, &uctFooter::HelpClicked, this, [this] { ShowHelp(ctx_, ReportHelpTopic); });

    QFont noteFont = lblNote_->font();
    noteFont.setItalic(true);
    lblNote_->setFont(noteFont);
    lblDisclaimer_->setAlignment(Qt::AlignCenter);
    lblDisclaimer_->setWordWrap(true);
    QPalette muted = lblDisclaimer_->palette();
    muted.setColor(QPalette::WindowText, qColor(ctx_.colours.Grey(5)));
    lblDisclaimer_->setPalette(muted);
    lblNote_->setPalette(muted);

    body_->setContentsMargins(16, 8, 16, 6);
    body_->setSpacing(8);
    body_->addWidget(lblNote_);

    layOutFormPage(this, header_, body_, footer_);

    // Reports read best large: most of the screen, never less than a usable size.
    setMinimumSize(900, 640);
    QSize size(1280, 880);
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        size = size.boundedTo(screen->availableSize() * 0.95).expandedTo(minimumSize());
    resize(size);
}

void ReportWindow::setBody(QWidget* body) {
    body_->addWidget(body, 1);
    body_->addWidget(lblDisclaimer_);
    ApplyBrandFont(this);
}

ClickableLabel* ReportWindow::addStripButton(const QString& name, const QString& caption,
                                             const QString& hint) {
    ClickableLabel* label = stripButton(name, caption, this);
    footer_->RegisterButton(label);
    footer_->hints()->watch(label, hint);
    return label;
}

void ReportWindow::setReport(Report report) {
    report_ = std::move(report);
    setWindowTitle(report_.caption.isEmpty() ? QStringLiteral("Vantrel") : report_.caption);
    header_->setDetail(report_.caption);
    header_->Refresh();
    lblNote_->setText(report_.note);
    lblNote_->setVisible(report_.noteVisible && !report_.note.isEmpty());
    render();
    refreshPrevious();
}

void ReportWindow::moveTo(Report report) {
    if (report.form == form()) {
        setReport(std::move(report));
        return;
    }
    next_ = std::move(report);
    accept();
}

std::optional<Report> ReportWindow::takeNextReport() {
    std::optional<Report> next = std::move(next_);
    next_.reset();
    return next;
}

ReportResult ReportWindow::navigate(const std::function<ReportResult(ReportContext&)>& move) {
    BusyCursor busy;
    ReportProgressDialog progress(QStringLiteral("Creating the report..."), this);
    ReportContext rc(ctx_, progress.progressFn());
    ReportResult result = move(rc);
    refreshPrevious();
    return result;
}

void ReportWindow::cmdPrevReport_Click() {
    if (!CanShowPreviousReport(session_))
        return;
    ReportResult result = navigate([this](ReportContext& rc) { return ShowPreviousReport(rc, session_); });
    if (result.shown())
        moveTo(std::move(*result.report));
}

std::optional<ReportResult> ReportWindow::drillDownRow(int row) {
    std::optional<ReportResult> outcome;
    navigate([&](ReportContext& rc) {
        outcome = DrillDown(rc, session_, report_, row);
        return ReportResult{};
    });
    if (outcome && outcome->shown()) {
        ReportResult shown{outcome->status, std::nullopt};
        moveTo(std::move(*outcome->report));
        return shown;
    }
    return outcome;
}

void ReportWindow::cmdOutputExcel_Click() {
    // The report's title names the file, less what a file name cannot hold.
    QString name = report_.caption.isEmpty() ? QStringLiteral("Report") : report_.caption;
    for (const QChar bad : QStringLiteral("/\\:*?\"<>|"))
        name.replace(bad, QLatin1Char('-'));
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QString file = ctx_.dialogs.saveFile(QStringLiteral("Output to Excel"),
                                         QStringLiteral("Excel Workbook (*.xlsx)|*.xlsx"),
                                         QDir(folder).filePath(name + QStringLiteral(".xlsx")));
    if (file.isEmpty())
        return;
    if (!file.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive))
        file += QStringLiteral(".xlsx");
    QString error;
    bool written = false;
    {
        BusyCursor busy;
        written = writeReportWorkbook(report_, file, workbookLook(ctx_), &error);
    }
    if (!written) {
        if (ctx_.paths)
            LogError(*ctx_.paths, objectName() + QStringLiteral(".cmdOutputExcel_Click"), 0,
                     QStringLiteral("%1: %2").arg(file, error));
        ctx_.dialogs.critical(ReportWindowText::ExcelFailed);
        return;
    }
    if (openWorkbook_)
        openWorkbook_(file);
}

void ReportWindow::cmdOutputPrinter_Click() {
    OutputReportToPrinter(ctx_, report_, objectName());
}

void ReportWindow::cmdExit_Click() {
    reject();
}

void ReportWindow::reject() {
    LeaveReports(session_);
    next_.reset();
    QDialog::reject();
}

void ReportWindow::showEvent(QShowEvent* event) {
    refreshPrevious();
    QDialog::showEvent(event);
}

void ReportWindow::refreshPrevious() {
    lblPrevious_->setEnabled(CanShowPreviousReport(session_));
}
