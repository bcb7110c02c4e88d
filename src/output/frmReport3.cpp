#include "output/frmReport3.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "output/gui/ReportGridView.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportNavigation.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QLabel* keyLabel(const QString& name, const QString& caption, QWidget* parent) {
    auto* label = new QLabel(caption, parent);
    label->setObjectName(name);
    return label;
}

// A key entry: its caption on the colour it stands for.
void paintKey(QLabel* label, const QColor& background, const QColor& text) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, text);
    label->setPalette(palette);
    label->setAutoFillBackground(true);
    label->setContentsMargins(10, 3, 10, 3);
}

const ReportCatalogueEntry noEntry{};

const ReportCatalogueEntry& entryOf(const Report& report) {
    const ReportCatalogueEntry* entry = catalogueEntry(report.number);
    return entry ? *entry : noEntry;
}

} // namespace

frmReport3::frmReport3(AppContext& ctx, ReportSession& session, Report report, QWidget* parent)
    : ReportWindow(ctx, session, parent)
    , grdData_(new ReportGridView(ctx.colours, this))
    , lblKeyTitle_(keyLabel(QStringLiteral("lblKeyTitle"), GridReportText::KeyTitle, this))
    , lblKey1_(keyLabel(QStringLiteral("lblKey1"), GridReportText::UnderBudget, this))
    , lblKey2_(keyLabel(QStringLiteral("lblKey2"), GridReportText::OverBudget, this)) {
    setObjectName(QStringLiteral("frmReport3"));
    grdData_->setObjectName(QStringLiteral("grdData"));
    noteLabel()->setObjectName(QStringLiteral("lblNotes"));
    paintKey(lblKey1_, qColor(ctx.colours.UnderBudgetColour()), Qt::white);
    paintKey(lblKey2_, qColor(ctx.colours.OverBudgetColour()), Qt::black);
    // Queued: a sort or a drill-down fills the grid anew, which must not happen inside
    // its own click.
    connect(grdData_, &ReportGridView::cellChosen, this, &frmReport3::grdData_Click, Qt::QueuedConnection);
    grdData_->installEventFilter(this);

    auto* key = new QHBoxLayout;
    key->setSpacing(10);
    key->addWidget(lblKeyTitle_);
    key->addWidget(lblKey1_);
    key->addWidget(lblKey2_);
    key->addStretch(1);

    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(grdData_, 1);
    layout->addStretch(0);
    layout->addLayout(key);
    setBody(body);
    setReport(std::move(report));
}

void frmReport3::render() {
    // A new report starts unsorted.
    sort_ = GridSortState{};
    const ReportCatalogueEntry& entry = entryOf(report());
    // The note tells how to sort, so it stands only where the table sorts.
    noteLabel()->setVisible(entry.sortable && !report().note.isEmpty());
    grdData_->showGrid(report().grid);
    grdData_->viewport()->setCursor(entry.rowDrillDown ? Qt::PointingHandCursor : Qt::ArrowCursor);
    grdData_->horizontalHeader()->viewport()->setCursor(entry.sortable ? Qt::PointingHandCursor
                                                                       : Qt::ArrowCursor);
    fitGrid();
}

void frmReport3::fitGrid() {
    // The table is no taller than its lines; the key stays at the foot.
    grdData_->setMaximumHeight(grdData_->fittingHeight(grdData_->shownRowCount()));
}

bool frmReport3::eventFilter(QObject* watched, QEvent* event) {
    // A narrower table may need its scroll bar, and so more height.
    if (watched == grdData_ && event->type() == QEvent::Resize)
        fitGrid();
    return ReportWindow::eventFilter(watched, event);
}

void frmReport3::grdData_Click(int row, int col) {
    if (row < 0 || col < 0 || report().grid.rowCount() == 0)
        return;
    const ReportCatalogueEntry& entry = entryOf(report());
    if (row == 0 && entry.sortable)
        sortByHeading(col);
    else if (row > 1 && entry.rowDrillDown)
        drillDown(row);
}

void frmReport3::sortByHeading(int col) {
    SortByHeading(mutableReport().grid, sort_, col, ctx_.colours);
    grdData_->showGrid(report().grid);
}

void frmReport3::drillDown(int row) {
    const std::optional<ReportResult> outcome = drillDownRow(row);
    // A report the user stopped needs no message; the window stays as it was.
    if (outcome && outcome->status != ReportStatus::Shown && outcome->status != ReportStatus::NotProduced)
        ctx_.dialogs.critical(GridReportText::Failed);
}
