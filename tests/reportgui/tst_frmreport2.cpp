#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "output/frmReport2.h"
#include "output/ucReportArea.h"
#include "render/ReportChartView.h"
#include "reports/ReportNavigation.h"
#include "reports/frmTrendReports.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedBarSeries>
#include <QTest>

namespace {

// Three cost centres of level 1 over two bills; by total charges Sales (40 + 50 = 90)
// leads Ops (30 + 35 = 65) and Finance (20 + 0.5 = 20.5).
void fillCostCentres(TrendFixture& f) {
    f.number("0100", {"Sales"});
    f.number("0101", {"Sales"});
    f.number("0200", {"Finance"});
    f.number("0300", {"Ops"});
    const QString usage = QStringLiteral("Usage Charges");
    const QString recurring = QStringLiteral("Recurring Charges");
    f.add(Date(2012, 1, 31), "0100", {{usage, pounds(25)}, {recurring, pounds(5)}});
    f.add(Date(2012, 1, 31), "0101", {{usage, pounds(10)}});
    f.add(Date(2012, 1, 31), "0200", {{usage, pounds(20)}});
    f.add(Date(2012, 1, 31), "0300", {{recurring, pounds(30)}});
    f.add(Date(2012, 2, 29), "0100", {{usage, pounds(50)}});
    f.add(Date(2012, 2, 29), "0200", {{"Adjustments", pounds(0.5)}});
    f.add(Date(2012, 2, 29), "0300", {{recurring, pounds(35)}});
}

// A report of `charts` small charts, each naming budget 100 + its number.
Report budgetCharts(int charts) {
    Report report;
    report.number = ReportNumber::BudgetTop10CC;
    report.params = {ReportNumber::BudgetTop10CC, 100};
    report.form = ReportForm::ReportArea;
    report.caption = QStringLiteral("Top 10 Cost Centres");
    report.key = {{QStringLiteral("Live Data"), QColor(255, 90, 75)},
                  {QStringLiteral("Budget Data"), QColor(85, 20, 180)}};
    report.periodLabels = {QStringLiteral("31/01/2012 = P1"), QStringLiteral("29/02/2012 = P2")};
    for (int i = 0; i < charts; ++i) {
        ReportChart chart;
        chart.type = ChartType::Bar2d;
        chart.title = QStringLiteral("%1. Centre").arg(i + 1);
        chart.resize(2, 2);
        chart.setSeriesLabel(0, QStringLiteral("Budget Data"));
        chart.setSeriesLabel(1, QStringLiteral("Live Data"));
        chart.setPointLabel(0, QStringLiteral("P1"));
        chart.setPointLabel(1, QStringLiteral("P2"));
        chart.setValue(0, 0, 10);
        chart.setValue(1, 0, 12);
        chart.budgetId = 101 + i;
        report.charts.push_back(chart);
    }
    return report;
}

Report deviationShown(int budget) {
    Report report;
    report.number = ReportNumber::MonthlyDeviation;
    report.params = {ReportNumber::MonthlyDeviation, budget, 5};
    report.caption = QStringLiteral("Periodic deviation");
    report.grid.resize(2, 2);
    return report;
}

} // namespace

class FrmReport2Test : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void top10FromTheMenuShowsStackedBars();
    void clickOnATop10BarOpensNothing();
    void chartClickOpensTheBudgetItNames();
    void chartClickWhoseReportFails_data();
    void chartClickWhoseReportFails();
    void manyChartsStandInRowsBesideTheKey();
    void areaMeasuresItsControlsAndScrolls();
    void scrollBarsThatMayNotAppear();
};

void FrmReport2Test::cleanup() {
    setReportBuilder(ReportNumber::MonthlyDeviation, {});
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void FrmReport2Test::top10FromTheMenuShowsStackedBars() {
    TrendFixture f;
    fillCostCentres(f);
    selectProject(f);
    frmTrendReports menu(f.ctx);
    menu.show();

    QString title;
    QStringList categories;
    QStringList setLabels;
    QList<QList<double>> setValues;
    bool stacked = false;
    int charts = 0;
    bool keyShown = true;
    whenModal<frmReport2>([&](frmReport2* form) {
        title = form->windowTitle();
        charts = form->charts().size();
        keyShown = form->keyFrame() != nullptr;
        QChart* chart = form->charts().first()->chart();
        auto* bars = qobject_cast<QStackedBarSeries*>(chart->series().first());
        stacked = bars != nullptr;
        if (!bars)
            return;
        for (QBarSet* set : bars->barSets()) {
            setLabels << set->label();
            QList<double> values;
            for (int i = 0; i < set->count(); ++i)
                values << set->at(i);
            setValues << values;
        }
        categories = qobject_cast<QBarCategoryAxis*>(chart->axes(Qt::Horizontal).first())->categories();
    });
    menu.topButton(0)->click();

    QCOMPARE(title, QStringLiteral("Top 10 Cost Centres by Total Charges"));
    QCOMPARE(charts, 1);
    QVERIFY(!keyShown);
    QVERIFY(stacked);
    QCOMPARE(categories, (QStringList{"1. Sales", "2. Ops", "3. Finance"}));
    // One bar part per bill date.
    QCOMPARE(setLabels, (QStringList{"31/01/2012", "29/02/2012"}));
    QCOMPARE(setValues, (QList<QList<double>>{{40, 30, 20}, {50, 35, 0.5}}));
    QVERIFY(f.dialogs.messages.empty());
}

void FrmReport2Test::clickOnATop10BarOpensNothing() {
    TrendFixture f;
    fillCostCentres(f);
    ReportSession session;
    ReportContext rc = f.context();
    ReportResult result = StartReport(rc, session, top10Params(1, QString(), 5));
    QVERIFY(result.shown());
    frmReport2 form(f.ctx, session, std::move(*result.report));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    ReportChartView* view = form.charts().first();
    const QPointF bar = view->chart()->mapToPosition(QPointF(1, 10), view->chart()->series().first());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, view->mapFromScene(bar));
    QTest::qWait(50);
    QVERIFY(form.isVisible());
    QCOMPARE(form.report().number, ReportNumber::Top10CC);
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(f.dialogs.messages.empty());
}

void FrmReport2Test::chartClickOpensTheBudgetItNames() {
    TrendFixture f;
    ReportParams asked;
    setReportBuilder(ReportNumber::MonthlyDeviation, [&](ReportContext&, const ReportParams& params) {
        asked = params;
        return ReportResult{ReportStatus::Shown, deviationShown(params.value(1).toInt())};
    });
    ReportSession session;
    session.currentReportNumber = ReportNumber::BudgetTop10CC;
    session.currentReportParams = {ReportNumber::BudgetTop10CC, 100};
    frmReport2 form(f.ctx, session, budgetCharts(3));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    ReportChartView* second = form.charts()[1];
    QTest::mouseClick(second->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTRY_VERIFY(!form.isVisible());
    QCOMPARE(asked, (ReportParams{ReportNumber::MonthlyDeviation, 102, 5}));
    QCOMPARE(form.result(), int(QDialog::Accepted));
    const std::optional<Report> next = form.takeNextReport();
    QVERIFY(next);
    QCOMPARE(next->number, ReportNumber::MonthlyDeviation);
    // The level left behind waits on the stack for Previous Report.
    QCOMPARE(session.reportStack.Count(), 1);
    QCOMPARE(session.reportStack.Pop().toList(), (QVariantList{ReportNumber::BudgetTop10CC, 100}));
}

void FrmReport2Test::chartClickWhoseReportFails_data() {
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    QTest::newRow("no data") << int(ReportStatus::NoData) << "No records found, unable to display report.";
    QTest::newRow("error") << int(ReportStatus::Error) << "There was an error producing the report.";
    QTest::newRow("not produced") << int(ReportStatus::NotProduced) << QString();
}

void FrmReport2Test::chartClickWhoseReportFails() {
    QFETCH(int, status);
    QFETCH(QString, message);
    TrendFixture f;
    setReportBuilder(ReportNumber::MonthlyDeviation, [status](ReportContext&, const ReportParams&) {
        return ReportResult{status, std::nullopt};
    });
    // The way back builds the ten charts again from the level left on the stack.
    ReportParams replayed;
    setReportBuilder(ReportNumber::BudgetTop10CC, [&](ReportContext&, const ReportParams& params) {
        replayed = params;
        Report charts = budgetCharts(2);
        charts.params = params;
        return ReportResult{ReportStatus::Shown, charts};
    });
    ReportSession session;
    session.currentReportNumber = ReportNumber::BudgetTop10CC;
    session.currentReportParams = {ReportNumber::BudgetTop10CC, 100};
    frmReport2 form(f.ctx, session, budgetCharts(2));
    form.show();
    form.MSChart1_Click(0, -1);
    setReportBuilder(ReportNumber::BudgetTop10CC, {});
    QCOMPARE(replayed, (ReportParams{ReportNumber::BudgetTop10CC, 100}));
    QVERIFY(form.isVisible());
    QCOMPARE(form.report().number, ReportNumber::BudgetTop10CC);
    QCOMPARE(session.reportStack.Count(), 0);
    QCOMPARE(f.dialogs.lastText(), message);
}

void FrmReport2Test::manyChartsStandInRowsBesideTheKey() {
    TrendFixture f;
    ReportSession session;
    frmReport2 form(f.ctx, session, budgetCharts(10));
    form.resize(1400, 900);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QCOMPARE(form.charts().size(), 10);
    QFrame* key = form.keyFrame();
    QVERIFY(key);
    QCOMPARE(key->findChild<QLabel*>(QStringLiteral("Label2"))->text(), QStringLiteral("Live Data"));
    QCOMPARE(key->findChild<QLabel*>(QStringLiteral("lblPeriod2"))->text(),
             QStringLiteral("29/02/2012 = P2"));
    // No two charts and no chart and the key overlap; all lie on the surface.
    QList<QRect> placed;
    for (ReportChartView* chart : form.charts())
        placed << chart->geometry();
    placed << key->geometry();
    for (int i = 0; i < placed.size(); ++i) {
        QVERIFY(form.area()->surface()->rect().contains(placed[i]));
        for (int j = i + 1; j < placed.size(); ++j)
            QVERIFY2(!placed[i].intersects(placed[j]), qPrintable(QStringLiteral("%1 and %2").arg(i).arg(j)));
    }
    // Ten charts of 340 pixels in rows of at most three cannot fit 900 pixels: the area scrolls.
    QVERIFY(form.area()->verticalScrollBar()->maximum() > 0);
    QCOMPARE(form.charts()[0]->geometry().size(), frmReport2::SmallChart);
}

void FrmReport2Test::areaMeasuresItsControlsAndScrolls() {
    ucReportArea area;
    area.resize(400, 300);
    area.show();
    auto* a = new QLabel(QStringLiteral("a"));
    auto* b = new QLabel(QStringLiteral("b"));
    auto* hidden = new QLabel(QStringLiteral("hidden"));
    area.addControl(a, QRect(-30, 40, 100, 20));
    area.addControl(b, QRect(500, 600, 80, 30));
    area.addControl(hidden, QRect(2000, 2000, 10, 10));
    hidden->hide();
    area.RecalculateBoundries();
    // Everything moves right by the 30 that stuck out and the margin; nothing moves down,
    // as nothing lies above the margin. The hidden control counts for nothing.
    const int m = ucReportArea::Margin;
    QCOMPARE(a->geometry(), QRect(m, 40, 100, 20));
    QCOMPARE(b->geometry(), QRect(530 + m, 600, 80, 30));
    QCOMPARE(area.extent(), QRect(QPoint(m, 40), QPoint(530 + m + 79, 629)));
    QCOMPARE(area.surface()->size(), QSize(530 + m + 80 + m, 630 + m));
    QCoreApplication::processEvents();
    QVERIFY(area.horizontalScrollBar()->maximum() > 0);
    QVERIFY(area.verticalScrollBar()->maximum() > 0);

    b->hide();
    area.RecalculateBoundries();
    QCOMPARE(area.surface()->size(), QSize(m + 100 + m, 40 + 20 + m));
    QCoreApplication::processEvents();
    QCOMPARE(area.horizontalScrollBar()->maximum(), 0);
    QCOMPARE(area.verticalScrollBar()->maximum(), 0);
}

void FrmReport2Test::scrollBarsThatMayNotAppear() {
    ucReportArea area;
    QVERIFY(area.ScrollBarH());
    QVERIFY(area.ScrollBarV());
    area.setScrollBarH(false);
    QCOMPARE(area.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    area.setBackColor(QColor(1, 2, 3));
    QCOMPARE(area.BackColor(), QColor(1, 2, 3));
}

VANTREL_TEST(FrmReport2Test);
#include "tst_frmreport2.moc"
