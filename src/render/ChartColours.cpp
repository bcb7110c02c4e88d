#include "render/ChartColours.h"

#include "app/cColours.h"

#include <QAbstractBarSeries>
#include <QAreaSeries>
#include <QBarSet>
#include <QChart>
#include <QLineSeries>
#include <QPieSeries>
#include <QPieSlice>
#include <QScatterSeries>

namespace {

void paintSeries(QAbstractSeries* series, const QColor& colour) {
    if (auto* area = qobject_cast<QAreaSeries*>(series)) {
        area->setBrush(QBrush(colour, Qt::SolidPattern));
        QPen pen = area->pen();
        pen.setColor(colour);
        area->setPen(pen);
    } else if (auto* scatter = qobject_cast<QScatterSeries*>(series)) {
        scatter->setBrush(QBrush(colour, Qt::SolidPattern));
        scatter->setBorderColor(colour);
    } else if (auto* xy = qobject_cast<QXYSeries*>(series)) {
        QPen pen = xy->pen();
        pen.setColor(colour);
        xy->setPen(pen);
        xy->setBrush(QBrush(colour, Qt::SolidPattern));
    }
}

void paintBarSet(QBarSet* set, const QColor& colour) {
    set->setBrush(QBrush(colour, Qt::SolidPattern));
    QPen pen = set->pen();
    pen.setColor(colour);
    set->setPen(pen);
}

void paintPie(const cColours& colours, QPieSeries* pie) {
    const QList<QPieSlice*> slices = pie->slices();
    for (int i = 0; i < slices.size() && i < cColours::PieTableSize; ++i) {
        const QColor colour = colours.pieEntry(i).toQColor();
        slices[i]->setBrush(QBrush(colour, Qt::SolidPattern));
        QPen pen = slices[i]->pen();
        pen.setColor(colour);
        slices[i]->setPen(pen);
    }
}

} // namespace

void SetGraphColours(const cColours& colours, QChart* chart) {
    if (!chart)
        return;
    const QList<QAbstractSeries*> all = chart->series();
    bool isPie = false;
    for (QAbstractSeries* series : all)
        if (auto* pie = qobject_cast<QPieSeries*>(series)) {
            isPie = true;
            paintPie(colours, pie);
        }
    if (isPie)
        return;

    int number = 0; // series counted so far
    for (QAbstractSeries* series : all) {
        if (auto* bars = qobject_cast<QAbstractBarSeries*>(series)) {
            for (QBarSet* set : bars->barSets()) {
                if (number < cColours::SeriesTableSize)
                    paintBarSet(set, colours.seriesEntry(number).toQColor());
                ++number;
            }
            continue;
        }
        if (series->property(SeriesContinuesProperty).toBool() && number > 0) {
            if (number - 1 < cColours::SeriesTableSize)
                paintSeries(series, colours.seriesEntry(number - 1).toQColor());
            continue;
        }
        if (number < cColours::SeriesTableSize)
            paintSeries(series, colours.seriesEntry(number).toQColor());
        ++number;
    }
}
