#include "TestRegistry.h"
#include "app/cColours.h"
#include "render/ChartColours.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QLineSeries>
#include <QPieSeries>
#include <QPieSlice>
#include <QTest>
#include <stdexcept>

// The palette's rules (five families of six laid end to end, light to dark; a number is
// red + 256 green + 65536 blue) and how charts take its colours.
class ColoursTest : public QObject {
    Q_OBJECT
private slots:
    void familiesAreRunsOfThePaletteFromLightToDark();
    void chartsTakeTheSeriesAndPieTablesInOrder();
};

void ColoursTest::familiesAreRunsOfThePaletteFromLightToDark() {
    using Family = ColourNumber (cColours::*)(int) const;
    const Family families[] = {&cColours::Indigo, &cColours::pink, &cColours::Coral, &cColours::Turquoise,
                               &cColours::Grey};
    const cColours c;
    for (int f = 0; f < 5; ++f) {
        for (int m = 1, i = 6 * f; m <= 6; ++m, ++i) {
            QCOMPARE((c.*families[f])(m), c.Colour(i));
            QCOMPARE(c.Colour(i), ColourNumber(c.Red(i) + 256 * c.Green(i) + 65536 * c.Blue(i)));
            if (m > 1)
                QVERIFY(c.Red(i) + c.Green(i) + c.Blue(i) < c.Red(i - 1) + c.Green(i - 1) + c.Blue(i - 1));
        }
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, (c.*families[f])(f % 2 ? 0 : 7));
    }
    // The brand indigo worked out by hand: 85 + 256 * 20 + 65536 * 180.
    QCOMPARE(c.Indigo(5), ColourNumber(11801685));
    QCOMPARE(qColor(c.Indigo(5)), QColor(85, 20, 180));
    for (int outside : {-1, cColours::PaletteSize})
        QVERIFY_THROWS_EXCEPTION(std::out_of_range, c.Red(outside));
    QVERIFY_THROWS_EXCEPTION(std::out_of_range, c.seriesEntry(cColours::SeriesTableSize));
    // The pie table's lightest grey would vanish on a white page: it is written over.
    QCOMPARE(c.pieEntry(20), (ColourRgb{240, 240, 240}));
}

void ColoursTest::chartsTakeTheSeriesAndPieTablesInOrder() {
    // Three bar sets count as three series; a line marked as continuing the one before
    // takes its colour; series beyond the table keep their own.
    QChart chart;
    auto* bars = new QBarSeries;
    for (int i = 0; i < 3; ++i)
        bars->append(new QBarSet(QString::number(i)));
    chart.addSeries(bars);
    QList<QLineSeries*> lines;
    for (int i = 0; i < 19; ++i) {
        lines << new QLineSeries;
        lines.last()->append(0, i);
        lines.last()->setProperty(SeriesContinuesProperty, i == 1);
        chart.addSeries(lines.last());
    }
    const QColor ownColour = lines.last()->color();
    const cColours c;
    SetGraphColours(c, &chart);
    SetGraphColours(c, nullptr);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(bars->barSets()[i]->borderColor(), c.seriesEntry(i).toQColor());
    for (auto [line, entry] : {std::pair{0, 3}, {1, 3}, {2, 4}, {17, 19}})
        QCOMPARE(lines[line]->color(), c.seriesEntry(entry).toQColor());
    QCOMPARE(lines[18]->color(), ownColour);

    QChart pieChart;
    auto* pie = new QPieSeries;
    for (int i = 0; i < 22; ++i)
        pie->append(QString::number(i), i + 1);
    pieChart.addSeries(pie);
    SetGraphColours(c, &pieChart);
    for (int i = 0; i < 22; ++i)
        QCOMPARE(pie->slices()[i]->color(), c.pieEntry(i).toQColor());
}

VANTREL_TEST(ColoursTest);
#include "tst_colours.moc"
