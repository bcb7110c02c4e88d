#include "output/frmReport2.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "output/ucReportArea.h"
#include "render/ReportChartView.h"
#include "reports/BudgetReports.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportNavigation.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int Gap = 16;
constexpr int SwatchSize = 14;

} // namespace

frmReport2::frmReport2(AppContext& ctx, ReportSession& session, Report report, QWidget* parent)
    : ReportWindow(ctx, session, parent)
    , RepArea_(new ucReportArea(this)) {
    setObjectName(QStringLiteral("frmReport2"));
    connect(RepArea_, &ucReportArea::viewResized, this, [this] { layoutArea(); });
    setBody(RepArea_);
    setReport(std::move(report));
}

void frmReport2::render() {
    RepArea_->clearControls();
    charts_.clear();
    FrameKey_ = nullptr;
    const std::vector<ReportChart>& charts = report().charts;
    const ReportCatalogueEntry* entry = catalogueEntry(report().number);
    const bool leadsOn = entry && entry->chartDrillDown;
    for (int i = 0; i < int(charts.size()); ++i) {
        auto* view = new ReportChartView(charts[size_t(i)], ctx_.colours);
        view->setObjectName(QStringLiteral("MSChart1_%1").arg(i));
        if (leadsOn && (charts[size_t(i)].budgetId || !charts[size_t(i)].pointBudgetIds.empty()))
            view->setCursor(Qt::PointingHandCursor);
        // Queued: a click may replace the charts, the clicked one with them.
        connect(
            view, &ReportChartView::barClicked, this, [this, i](int point) { MSChart1_Click(i, point); },
            Qt::QueuedConnection);
        connect(
            view, &ReportChartView::chartClicked, this, [this, i] { MSChart1_Click(i, -1); },
            Qt::QueuedConnection);
        RepArea_->addControl(view, QRect(QPoint(0, 0), SmallChart));
        charts_ << view;
    }
    buildKey();
    layoutArea();
}

void frmReport2::buildKey() {
    if (!report().keyVisible || (report().key.empty() && report().periodLabels.isEmpty()))
        return;
    FrameKey_ = new QFrame;
    FrameKey_->setObjectName(QStringLiteral("FrameKey"));
    FrameKey_->setFrameShape(QFrame::StyledPanel);
    auto* layout = new QGridLayout(FrameKey_);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(6);
    int row = 0;
    for (const ReportKeyEntry& entry : report().key) {
        auto* swatch = new QFrame(FrameKey_);
        swatch->setObjectName(QStringLiteral("Shape%1").arg(row + 1));
        swatch->setFixedSize(SwatchSize, SwatchSize);
        swatch->setStyleSheet(
            QStringLiteral("background-color: %1; border: 1px solid %1;").arg(entry.colour.name()));
        auto* label = new QLabel(entry.label, FrameKey_);
        label->setObjectName(QStringLiteral("Label%1").arg(row + 2));
        layout->addWidget(swatch, row, 0);
        layout->addWidget(label, row, 1);
        ++row;
    }
    for (int i = 0; i < report().periodLabels.size(); ++i) {
        auto* period = new QLabel(report().periodLabels[i], FrameKey_);
        period->setObjectName(QStringLiteral("lblPeriod%1").arg(i + 1));
        layout->addWidget(period, row++, 0, 1, 2);
    }
    RepArea_->addControl(FrameKey_, QRect(QPoint(0, 0), FrameKey_->sizeHint()));
}

void frmReport2::layoutArea() {
    const QSize view = RepArea_->viewport()->size();
    const int margin = ucReportArea::Margin;
    const int keyWidth = FrameKey_ ? FrameKey_->sizeHint().width() + Gap : 0;
    const int room = view.width() - 2 * margin - keyWidth;
    int chartsWidth = 0;
    if (charts_.size() == 1) {
        const QSize size(std::max(room, LargeChart.width()),
                         std::max(view.height() - 2 * margin, LargeChart.height()));
        charts_.front()->setGeometry(QRect(QPoint(margin, margin), size));
        chartsWidth = size.width();
    } else if (!charts_.isEmpty()) {
        const int columns = std::max(1, (room + Gap) / (SmallChart.width() + Gap));
        for (int i = 0; i < charts_.size(); ++i) {
            const QPoint at(margin + (i % columns) * (SmallChart.width() + Gap),
                            margin + (i / columns) * (SmallChart.height() + Gap));
            charts_[i]->setGeometry(QRect(at, SmallChart));
        }
        const int used = std::min(int(charts_.size()), columns);
        chartsWidth = used * SmallChart.width() + (used - 1) * Gap;
    }
    if (FrameKey_)
        FrameKey_->setGeometry(
            QRect(QPoint(margin + chartsWidth + (chartsWidth > 0 ? Gap : 0), margin), FrameKey_->sizeHint()));
    RepArea_->RecalculateBoundries();
}

void frmReport2::MSChart1_Click(int chart, int point) {
    // Only a report whose charts lead on reacts to a click on them.
    const ReportCatalogueEntry* entry = catalogueEntry(report().number);
    if (!entry || !entry->chartDrillDown)
        return;
    if (chart < 0 || chart >= int(report().charts.size()))
        return;
    const ReportChart& clicked = report().charts[size_t(chart)];
    std::optional<int> budget = clicked.budgetId;
    if (point >= 0 && point < int(clicked.pointBudgetIds.size()))
        budget = clicked.pointBudgetIds[size_t(point)];
    if (!budget)
        return;
    PushCurrentReport(session_);
    const ReportParams next = monthlyDeviationParams(*budget, BudgetView::Total);
    ReportResult result = navigate([&](ReportContext& rc) { return OpenReport(rc, session_, next); });
    if (result.shown()) {
        moveTo(std::move(*result.report));
        return;
    }
    if (result.status == ReportStatus::NoData)
        ctx_.dialogs.information(ReportAreaText::NoRecords);
    else if (result.status != ReportStatus::NotProduced)
        ctx_.dialogs.critical(ReportAreaText::Failed);
    // Back through the level pushed for the move: the charts are built again.
    ReportResult back = navigate([&](ReportContext& rc) { return ShowPreviousReport(rc, session_); });
    if (back.shown())
        moveTo(std::move(*back.report));
    refreshPrevious();
}
