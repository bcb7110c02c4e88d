#include "TestRegistry.h"
#include "app/cColours.h"
#include "ui/ControlColours.h"

#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QHeaderView>
#include <QLineSeries>
#include <QPieSeries>
#include <QPieSlice>
#include <QTableWidget>
#include <QTest>
#include <QTreeWidget>

class ChartColoursTest : public QObject {
    Q_OBJECT
private slots:
    void seriesTakeTheTableInOrderAndTheRestKeepTheirs();
    void barSetsCountAsSeries();
    void pieSlicesTakeThePieTable();
    void runsOfOneLineShareItsColour();
    void noChartIsPassedOver();
    void gridsTakeHeaderAndSelectionColours();
};

void ChartColoursTest::seriesTakeTheTableInOrderAndTheRestKeepTheirs() {
    QChart chart;
    QList<QLineSeries*> lines;
    for (int i = 0; i < 22; ++i) {
        auto* s = new QLineSeries;
        s->append(0, i);
        s->append(1, i + 1);
        chart.addSeries(s);
        lines << s;
    }
    const QColor before21 = lines[20]->color();
    const QColor before22 = lines[21]->color();
    const cColours colours;
    SetGraphColours(colours, &chart);
    QCOMPARE(lines[0]->color(), QColor(113, 45, 194));
    QCOMPARE(lines[1]->color(), QColor(228, 56, 40));
    QCOMPARE(lines[5]->color(), QColor(85, 20, 180));
    QCOMPARE(lines[19]->color(), QColor(126, 0, 145));
    QCOMPARE(lines[20]->color(), before21);
    QCOMPARE(lines[21]->color(), before22);
}

void ChartColoursTest::barSetsCountAsSeries() {
    QChart chart;
    auto* bars = new QBarSeries;
    QList<QBarSet*> sets;
    for (const char* name : {"Usage", "Recurring", "One Off"}) {
        auto* set = new QBarSet(QString::fromLatin1(name));
        *set << 1 << 2;
        bars->append(set);
        sets << set;
    }
    chart.addSeries(bars);
    auto* budget = new QLineSeries;
    budget->append(0, 1);
    chart.addSeries(budget);
    SetGraphColours(cColours(), &chart);
    QCOMPARE(sets[0]->color(), QColor(113, 45, 194));
    QCOMPARE(sets[0]->borderColor(), QColor(113, 45, 194));
    QCOMPARE(sets[2]->color(), QColor(30, 200, 230));
    // The line after three bar sets is the fourth series.
    QCOMPARE(budget->color(), QColor(170, 170, 170));
}

void ChartColoursTest::pieSlicesTakeThePieTable() {
    QChart chart;
    auto* pie = new QPieSeries;
    for (int i = 0; i < 22; ++i)
        pie->append(QStringLiteral("slice %1").arg(i), i + 1);
    chart.addSeries(pie);
    SetGraphColours(cColours(), &chart);
    QCOMPARE(pie->slices()[0]->color(), QColor(239, 229, 247));
    QCOMPARE(pie->slices()[3]->color(), QColor(113, 45, 194));
    QCOMPARE(pie->slices()[20]->color(), QColor(240, 240, 240));
    QCOMPARE(pie->slices()[21]->color(), QColor(219, 219, 219));
    QCOMPARE(pie->slices()[21]->borderColor(), QColor(219, 219, 219));
}

void ChartColoursTest::runsOfOneLineShareItsColour() {
    QChart chart;
    auto* first = new QLineSeries;
    auto* firstAgain = new QLineSeries;
    firstAgain->setProperty(SeriesContinuesProperty, true);
    auto* second = new QLineSeries;
    for (QLineSeries* s : {first, firstAgain, second}) {
        s->append(0, 1);
        chart.addSeries(s);
    }
    SetGraphColours(cColours(), &chart);
    QCOMPARE(firstAgain->color(), first->color());
    QCOMPARE(second->color(), QColor(228, 56, 40));
}

void ChartColoursTest::noChartIsPassedOver() {
    SetGraphColours(cColours(), nullptr);
    SetMSFlexGrid(cColours(), nullptr);
}

void ChartColoursTest::gridsTakeHeaderAndSelectionColours() {
    const cColours colours;
    QTableWidget table(3, 3);
    SetMSFlexGrid(colours, &table);
    QCOMPARE(table.palette().color(QPalette::Active, QPalette::Highlight), QColor(50, 0, 138));
    QCOMPARE(table.palette().color(QPalette::Inactive, QPalette::Highlight), QColor(50, 0, 138));
    QCOMPARE(table.palette().color(QPalette::Active, QPalette::HighlightedText), QColor(255, 255, 255));
    QCOMPARE(table.horizontalHeader()->palette().color(QPalette::Button), QColor(212, 191, 236));
    QVERIFY(table.horizontalHeader()->styleSheet().contains(QStringLiteral("#d4bfec")));

    QTreeWidget list;
    SetMSFlexGrid(colours, &list);
    QCOMPARE(list.header()->palette().color(QPalette::Button), QColor(212, 191, 236));

    QTableWidget editor(2, 2);
    SetTDBGrid(colours, &editor);
    QCOMPARE(editor.verticalHeader()->palette().color(QPalette::Button), QColor(212, 191, 236));
}

VANTREL_TEST(ChartColoursTest);
#include "tst_chartcolours.moc"
