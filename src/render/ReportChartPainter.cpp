#include "render/ReportChartPainter.h"

#include "render/ReportChartBuilder.h"

#include <QChart>
#include <QGraphicsScene>
#include <QGuiApplication>
#include <QPaintDevice>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace {

// The least layout a chart gets, in screen pixels: that of a small chart window.
constexpr QSizeF LeastLayout{540, 340};

// The resolution at which the chart measures its text: the screen's, as fonts without a
// device take it.
double screenDpi() {
    if (QCoreApplication::testAttribute(Qt::AA_Use96Dpi))
        return 96;
    if (const QScreen* screen = QGuiApplication::primaryScreen())
        return std::round(screen->logicalDotsPerInchY());
    return 96;
}

} // namespace

void paintReportChart(QPainter& painter, const QRectF& target, const ReportChart& chart,
                      const cColours& colours) {
    if (target.isEmpty())
        return;
    const QPaintDevice* device = painter.device();
    const double deviceDpi = device ? device->logicalDpiY() : screenDpi();
    QSizeF layout = target.size() * (screenDpi() / deviceDpi);
    if (layout.width() < LeastLayout.width() || layout.height() < LeastLayout.height())
        layout *= std::max(LeastLayout.width() / layout.width(), LeastLayout.height() / layout.height());

    QGraphicsScene scene;
    QChart* drawn = buildReportChart(chart, colours);
    scene.addItem(drawn); // the scene owns the chart from here
    const QRectF area(QPointF(0, 0), layout);
    drawn->setGeometry(area);
    scene.setSceneRect(area);
    scene.render(&painter, target, area, Qt::IgnoreAspectRatio);
}

ChartPainter reportChartPainter(const cColours& colours) {
    const cColours* scheme = &colours;
    return [scheme](QPainter& painter, const QRectF& target, const ReportChart& chart) {
        paintReportChart(painter, target, chart, *scheme);
    };
}

PageDecor reportPageDecor(const QString& appFolder, const cColours& colours) {
    PageDecor decor = reportPageDecor(appFolder);
    decor.paintChart = reportChartPainter(colours);
    return decor;
}
