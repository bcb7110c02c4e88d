#include "render/ReportChartView.h"

#include "render/ReportChartBuilder.h"

#include <QAbstractBarSeries>
#include <QBarSet>
#include <QMouseEvent>

ReportChartView::ReportChartView(const ReportChart& chart, const cColours& colours, QWidget* parent)
    : QChartView(parent)
    , reportChart_(chart) {
    setChart(buildReportChart(reportChart_, colours));
    setRenderHint(QPainter::Antialiasing);
    setFrameShape(QFrame::NoFrame);
    for (QAbstractSeries* series : this->chart()->series())
        if (auto* bars = qobject_cast<QAbstractBarSeries*>(series))
            connect(bars, &QAbstractBarSeries::clicked, this, [this](int index, QBarSet*) {
                barHit_ = true;
                emit barClicked(index);
            });
}

void ReportChartView::mouseReleaseEvent(QMouseEvent* event) {
    // A bar tells of its click as the button comes up, inside the view's own handling;
    // a click that no bar took is a click on the chart.
    barHit_ = false;
    QChartView::mouseReleaseEvent(event);
    if (!barHit_ && event->button() == Qt::LeftButton)
        emit chartClicked();
}
