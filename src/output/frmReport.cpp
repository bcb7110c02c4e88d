#include "output/frmReport.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "output/ReportDetails.h"
#include "output/gui/ReportGridView.h"
#include "render/ReportChartView.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportNavigation.h"
#include "ui/ClickableLabel.h"
#include "ui/HoverHints.h"
#include "ui/uctFooter.h"

#include <QVBoxLayout>

namespace {

// The grid shows this many rows before it scrolls; the individual charges trend, whose
// rows vary with the charge family, follows its rows up to 3,500 twips (a fixed length on
// the screen), so that the chart keeps room for a legend of many charge types.
constexpr int GridRows = 8;
constexpr int IndividualChargesGridTwips = 3500;
constexpr int TwipsPerInch = 1440;
// The grid never takes more of the window's height than this, so the chart keeps room.
constexpr double GridShareLimit = 0.45;

bool drillsDown(int reportNumber) {
    const ReportCatalogueEntry* entry = catalogueEntry(reportNumber);
    return entry && entry->rowDrillDown;
}

} // namespace

frmReport::frmReport(AppContext& ctx, ReportSession& session, Report report, QWidget* parent)
    : ReportWindow(ctx, session, parent)
    , chartPlace_(new QWidget(this))
    , chartLayout_(new QVBoxLayout(chartPlace_))
    , grdData_(new ReportGridView(ctx.colours, this)) {
    setObjectName(QStringLiteral("frmReport"));
    grdData_->setObjectName(QStringLiteral("grdData"));
    chartPlace_->setObjectName(QStringLiteral("chartPlace"));
    chartLayout_->setContentsMargins(0, 0, 0, 0);
    lblBudget_ = addStripButton(QStringLiteral("lblBudget"), DetailsText::Show, QString());
    lblBudget_->hide();
    connect(lblBudget_, &ClickableLabel::clicked, this, &frmReport::cmdBudget_Click);
    // Queued: a drill-down fills the grid anew, which must not happen inside its own click.
    connect(grdData_, &ReportGridView::cellChosen, this, &frmReport::grdData_Click, Qt::QueuedConnection);

    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(chartPlace_, 1);
    layout->addWidget(grdData_, 0);
    setBody(body);
    setReport(std::move(report));
}

void frmReport::render() {
    delete chtData_;
    chtData_ = nullptr;
    if (!report().charts.empty()) {
        chtData_ = new ReportChartView(report().charts.front(), ctx_.colours, chartPlace_);
        chtData_->setObjectName(QStringLiteral("chtData"));
        chartLayout_->addWidget(chtData_);
    }
    chartPlace_->setVisible(chtData_ != nullptr);

    grdData_->showGrid(report().grid);
    grdData_->viewport()->setCursor(drillsDown(report().number) ? Qt::PointingHandCursor : Qt::ArrowCursor);
    renderDetailsButton();
    fitGrid();
}

void frmReport::renderDetailsButton() {
    const QString caption = report().detailsButton;
    lblBudget_->setVisible(!caption.isEmpty());
    if (!caption.isEmpty()) {
        lblBudget_->setText(caption);
        footer()->hints()->watch(lblBudget_, detailsButtonHint(report()));
    }
    footer()->Refresh();
}

void frmReport::fitGrid() {
    int height = grdData_->fittingHeight(GridRows);
    if (report().number == ReportNumber::IndividualCharges)
        height = std::min(grdData_->fittingHeight(report().grid.rowCount()),
                          IndividualChargesGridTwips * logicalDpiY() / TwipsPerInch);
    if (chtData_)
        height = std::min(height, int(GridShareLimit * this->height()));
    grdData_->setFixedHeight(std::max(height, grdData_->fittingHeight(1)));
}

void frmReport::resizeEvent(QResizeEvent* event) {
    ReportWindow::resizeEvent(event);
    fitGrid();
}

void frmReport::grdData_Click(int row, int col) {
    Q_UNUSED(col);
    const std::optional<ReportResult> outcome = drillDownRow(row);
    if (outcome && outcome->status != ReportStatus::Shown)
        ctx_.dialogs.critical(DrillDownFailedText);
}

void frmReport::cmdBudget_Click() {
    if (!ToggleReportDetails(mutableReport()))
        return;
    grdData_->showGrid(report().grid);
    renderDetailsButton();
    fitGrid();
}
