#include "render/ReportImage.h"

#include "render/ReportChartBuilder.h"
#include "reports/Report.h"

#include <QChart>
#include <QGraphicsScene>
#include <QPainter>

QImage renderReportCharts(const Report& report, const cColours& colours, QSize chartSize) {
    if (report.charts.empty() || chartSize.isEmpty())
        return {};
    QImage image(chartSize.width(), chartSize.height() * int(report.charts.size()), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    for (size_t i = 0; i < report.charts.size(); ++i) {
        QGraphicsScene scene;
        QChart* chart = buildReportChart(report.charts[i], colours);
        scene.addItem(chart); // the scene owns the chart from here
        const QRectF area(QPointF(0, 0), QSizeF(chartSize));
        chart->setGeometry(area);
        scene.setSceneRect(area);
        const QRectF target(QPointF(0, qreal(chartSize.height()) * qreal(i)), QSizeF(chartSize));
        scene.render(&painter, target, area);
    }
    painter.end();
    return image;
}

bool writeReportPng(const Report& report, const cColours& colours, const QString& path, QString* error,
                    QSize chartSize) {
    const QImage image = renderReportCharts(report, colours, chartSize);
    if (image.isNull()) {
        if (error)
            *error = QStringLiteral("the report has no chart to draw");
        return false;
    }
    if (!image.save(path, "PNG")) {
        if (error)
            *error = QStringLiteral("the file cannot be written");
        return false;
    }
    return true;
}
