#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "output/ReportDetails.h"
#include "output/frmReport.h"
#include "output/gui/ReportGridView.h"
#include "render/ReportChartView.h"
#include "reports/ReportNavigation.h"
#include "reports/frmTrendReports.h"
#include "ui/ClickableLabel.h"
#include "ui/uctFooter.h"
#include "ui/uctHeader.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineSeries>
#include <QPushButton>
#include <QTest>

namespace {

const QColor Rise(255, 0, 0);
const QColor Fall(11, 222, 69);

// Report 1 of fillThreeBills, worked out by hand: the grid as it must show.
const QList<QStringList> TotalChargesGrid = {
    {"Date", "31/01/2012", "29/02/2012", "31/03/2012"},
    {"Usage Charges (£)", "£150.25", "£150.75", "£200.00"},
    {"Recurring Charges (£)", "£30.00", "£30.00", "£30.00"},
    {"One Off Charges and Credits (£)", "£5.00", "£0.00", "£0.00"},
    {"Adjustment Charges (£)", "-£1.00", "£0.00", "£0.00"},
    {"Totals (£)", "£184.25", "£180.75", "£230.00"},
    // 180.75 / 184.25 - 1 = -1.8996%; 230 / 180.75 - 1 = +27.2476%
    {"Percent Change (%)", "", "-1.90%", "+27.25%"},
};

Report startTotalCharges(TrendFixture& f, ReportSession& session) {
    ReportContext rc = f.context();
    ReportResult result = StartReport(rc, session, totalChargesParams(0, QString()));
    if (!result.shown())
        qFatal("report 1 was not built");
    return std::move(*result.report);
}

} // namespace

class FrmReportTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void totalChargesFromTheMenuShowsGridAndChart();
    void windowTextsAndButtons();
    void builtChartsTakeTheSchemesColours();
    void rowClickDrillsDownAndPreviousComesBack_data();
    void rowClickDrillsDownAndPreviousComesBack();
    void rowCaptionClickDrillsDownToo();
    void serviceTrendDrillsDownToTheProduct();
    void clicksThatDoNothing_data();
    void clicksThatDoNothing();
    void failedDrillDownKeepsTheLevel();
    void backForgetsThePathAndCloses();
    void previousReportOfAnotherKindHandsOver();
    void detailsFoldInAndOut();
    void detailsButtonOnlyForTheTotalView();
    void individualChargesGridFollowsItsRowsUpToItsCap_data();
    void individualChargesGridFollowsItsRowsUpToItsCap();
};

void FrmReportTest::cleanup() {
    for (QWidget* w : QApplication::topLevelWidgets())
        w->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void FrmReportTest::totalChargesFromTheMenuShowsGridAndChart() {
    TrendFixture f;
    fillThreeBills(f);
    selectProject(f);
    frmTrendReports menu(f.ctx);
    menu.show();

    QList<QStringList> shown;
    QString title;
    QList<QList<QPointF>> series;
    QStringList seriesNames;
    QColor fallColour, riseColour;
    bool totalsBold = false;
    Qt::Alignment valueAlignment;
    int dateWidth = 0;
    int minimumDateWidth = 0;
    whenModal<frmReport>([&](frmReport* form) {
        title = form->windowTitle();
        ReportGridView* grid = form->grid();
        for (int r = 0; r < 7; ++r) {
            QStringList row;
            for (int c = 0; c < 4; ++c)
                row << grid->shownText(r, c);
            shown << row;
        }
        fallColour = grid->shownItem(6, 2)->foreground().color();
        riseColour = grid->shownItem(6, 3)->foreground().color();
        totalsBold = grid->shownItem(5, 2)->font().bold();
        valueAlignment = Qt::Alignment(grid->shownItem(1, 1)->textAlignment());
        dateWidth = grid->columnWidth(0);
        minimumDateWidth = grid->twipsToPixels(2000);
        for (QAbstractSeries* s : form->chartView()->chart()->series()) {
            auto* line = qobject_cast<QLineSeries*>(s);
            seriesNames << line->name();
            series << line->points();
        }
    });
    menu.trendButton(0)->click();

    QCOMPARE(title, QStringLiteral("Total Charges Trend for Whole Bill"));
    QCOMPARE(shown, TotalChargesGrid);
    QCOMPARE(fallColour, Fall);
    QCOMPARE(riseColour, Rise);
    QVERIFY(totalsBold);
    QVERIFY(valueAlignment & Qt::AlignRight);
    QVERIFY(dateWidth >= minimumDateWidth);
    QCOMPARE(seriesNames, (QStringList{"Total Charges", "Usage Charges", "Recurring Charges",
                                       "One Off Charges", "Adjustments"}));
    // The chart holds the same figures as the grid (below 10,000 the scale is 1).
    const QList<QList<double>> expected = {
        {184.25, 180.75, 230}, {150.25, 150.75, 200}, {30, 30, 30}, {5, 0, 0}, {-1, 0, 0}};
    QCOMPARE(series.size(), expected.size());
    for (int s = 0; s < expected.size(); ++s)
        for (int p = 0; p < 3; ++p) {
            QCOMPARE(series[s][p].x(), double(p));
            QCOMPARE(series[s][p].y(), expected[s][p]);
        }
    // Closing the report brings the menu back with nothing to say.
    QVERIFY(f.dialogs.messages.empty());
    QCOMPARE(menu.session().reportStack.Count(), 0);
}

void FrmReportTest::windowTextsAndButtons() {
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    QCOMPARE(
        form.disclaimerLabel()->text(),
        QStringLiteral("This report reflects information from your Zandel billing data and is indicative "
                       "only.  Totals may differ from the Invoice by less than 5 pence due to rounding"));
    QCOMPARE(form.noteLabel()->text(), QStringLiteral("Click on a line to drill-down"));
    QVERIFY(form.noteLabel()->isVisible());
    QCOMPARE(form.header()->Title(), QStringLiteral("Vantrel"));
    QCOMPARE(form.footer()->ExitButtonText(), QStringLiteral("Back"));
    QCOMPARE(form.previousButton()->text(), QStringLiteral("Previous Report"));
    QVERIFY(!form.previousButton()->isEnabled());
    QVERIFY(form.excelButton()->isEnabled());
    QVERIFY(form.printButton()->isEnabled());
    QVERIFY(form.detailsButton()->isHidden());
    QVERIFY(form.chartView());
    QVERIFY(form.chartView()->isVisible());
}

void FrmReportTest::builtChartsTakeTheSchemesColours() {
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    const Report report = startTotalCharges(f, session);
    // The first five entries of the series table, as the scheme lists them.
    const std::vector<QColor> expected{QColor(113, 45, 194), QColor(228, 56, 40), QColor(30, 200, 230),
                                       QColor(170, 170, 170), QColor(255, 128, 255)};
    QCOMPARE(report.charts.front().seriesColours, expected);
    frmReport form(f.ctx, session, report);
    const QList<QAbstractSeries*> drawn = form.chartView()->chart()->series();
    QCOMPARE(qobject_cast<QLineSeries*>(drawn[3])->color(), QColor(170, 170, 170));
}

void FrmReportTest::rowClickDrillsDownAndPreviousComesBack_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("view");
    QTest::addColumn<QString>("caption");
    QTest::newRow("usage") << 1 << 1 << "Usage Charges for Whole Bill";
    QTest::newRow("recurring") << 2 << 2 << "Recurring Charges for Whole Bill";
    QTest::newRow("one off") << 3 << 3 << "Connection for Whole Bill";
    QTest::newRow("adjustments") << 4 << 4 << "Total Adjustments for Whole Bill";
}

void FrmReportTest::rowClickDrillsDownAndPreviousComesBack() {
    QFETCH(int, row);
    QFETCH(int, view);
    QFETCH(QString, caption);
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    clickCell(form.grid(), row, 2);
    QTRY_COMPARE(form.report().number, ReportNumber::IndividualCharges);
    QCOMPARE(form.report().params, individualChargesParams(0, QString(), view));
    QCOMPARE(form.windowTitle(), caption);
    QCOMPARE(session.reportStack.Count(), 1);
    QVERIFY(form.previousButton()->isEnabled());
    QVERIFY(form.isVisible());

    QTest::mouseClick(form.previousButton(), Qt::LeftButton);
    QCOMPARE(form.report().number, ReportNumber::TotalCharges);
    QCOMPARE(form.windowTitle(), QStringLiteral("Total Charges Trend for Whole Bill"));
    QCOMPARE(form.grid()->shownText(5, 3), QStringLiteral("£230.00"));
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(!form.previousButton()->isEnabled());
    QVERIFY(f.dialogs.messages.empty());
}

void FrmReportTest::rowCaptionClickDrillsDownToo() {
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QHeaderView* captions = form.grid()->verticalHeader();
    // Section 1 of the row headings is grid row 2, "Recurring Charges (£)".
    const QPoint at(captions->width() / 2,
                    captions->sectionViewportPosition(1) + captions->sectionSize(1) / 2);
    QTest::mouseClick(captions->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTRY_COMPARE(form.report().number, ReportNumber::IndividualCharges);
    QCOMPARE(form.report().params, individualChargesParams(0, QString(), ChargeView::Recurring));
}

void FrmReportTest::serviceTrendDrillsDownToTheProduct() {
    TrendFixture f;
    f.add(Date(2012, 1, 31), "0100", {{"PreTax Cost", pounds(10)}, {"Usage Charges", pounds(10)}}, "ISDN");
    f.add(Date(2012, 1, 31), "0100", {{"PreTax Cost", pounds(4)}, {"Recurring Charges", pounds(4)}}, "PSTN");
    f.add(Date(2012, 2, 29), "0100", {{"PreTax Cost", pounds(6)}, {"Usage Charges", pounds(6)}}, "PSTN");
    ReportSession session;
    ReportContext rc = f.context();
    ReportResult result = StartReport(rc, session, serviceParams(0, QString()));
    QVERIFY(result.shown());
    frmReport form(f.ctx, session, std::move(*result.report));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    QCOMPARE(form.grid()->shownText(0, 0), QStringLiteral("Entry Dates"));
    QCOMPARE(form.grid()->shownText(2, 0), QStringLiteral("PSTN (£)"));
    clickCell(form.grid(), 2, 1);
    QTRY_COMPARE(form.report().number, ReportNumber::ServiceLevel2);
    QCOMPARE(form.report().params, serviceLevel2Params(0, QString(), QStringLiteral("PSTN")));
    QCOMPARE(form.windowTitle(), QStringLiteral("PSTN Service Trend for Whole Bill"));
    // PSTN alone: 4 recurring in January, 6 usage in February.
    QCOMPARE(form.grid()->shownText(5, 1), QStringLiteral("£4.00"));
    QCOMPARE(form.grid()->shownText(5, 2), QStringLiteral("£6.00"));
}

void FrmReportTest::clicksThatDoNothing_data() {
    QTest::addColumn<QString>("where");
    QTest::newRow("totals row") << "totals";
    QTest::newRow("percent row") << "percent";
    QTest::newRow("below the last row") << "below";
    QTest::newRow("right of the last column") << "right";
}

void FrmReportTest::clicksThatDoNothing() {
    QFETCH(QString, where);
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    ReportGridView* grid = form.grid();
    grid->setFixedHeight(grid->fittingHeight(7) + 120); // room below the rows
    QCoreApplication::processEvents();
    const QRect lastCell = grid->cellRect(6, 3);
    QVERIFY(lastCell.isValid());
    QVERIFY(lastCell.right() + 40 < grid->viewport()->width());
    QVERIFY(lastCell.bottom() + 40 < grid->viewport()->height());

    if (where == QLatin1String("totals"))
        clickCell(grid, 5, 1);
    else if (where == QLatin1String("percent"))
        clickCell(grid, 6, 2);
    else if (where == QLatin1String("below"))
        clickGrid(grid, QPoint(grid->cellRect(1, 1).center().x(), lastCell.bottom() + 30));
    else
        clickGrid(grid, QPoint(lastCell.right() + 30, grid->cellRect(1, 1).center().y()));
    QTest::qWait(50);
    QCOMPARE(form.report().number, ReportNumber::TotalCharges);
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(f.dialogs.messages.empty());
}

void FrmReportTest::failedDrillDownKeepsTheLevel() {
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    f.ctx.trendDb.exec(QStringLiteral("DROP TABLE TblSummaryTrend"));
    clickCell(form.grid(), 1, 1);
    QTRY_COMPARE(int(f.dialogs.messages.size()), 1);
    QCOMPARE(f.dialogs.lastText(), QStringLiteral("Error creating report"));
    QCOMPARE(f.dialogs.messages.back().icon, MessageIcon::Critical);
    QCOMPARE(session.reportStack.Count(), 0);
    QCOMPARE(form.report().number, ReportNumber::TotalCharges);
    QVERIFY(form.isVisible());
}

void FrmReportTest::backForgetsThePathAndCloses() {
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    clickCell(form.grid(), 2, 1);
    QTRY_COMPARE(session.reportStack.Count(), 1);
    QTest::mouseClick(form.footer()->exitButton(), Qt::LeftButton);
    QCOMPARE(session.reportStack.Count(), 0);
    QVERIFY(!form.isVisible());
    QCOMPARE(form.result(), int(QDialog::Rejected));
    QVERIFY(!form.takeNextReport());
}

void FrmReportTest::previousReportOfAnotherKindHandsOver() {
    TrendFixture f;
    fillThreeBills(f);
    ReportSession session;
    frmReport form(f.ctx, session, startTotalCharges(f, session));
    form.show();
    // The level behind is the top-10 report, which the report-area window shows.
    session.reportStack.Push(top10Params(1, QString(), 5));
    form.cmdPrevReport_Click();
    QVERIFY(!form.isVisible());
    QCOMPARE(form.result(), int(QDialog::Accepted));
    const std::optional<Report> next = form.takeNextReport();
    QVERIFY(next);
    QCOMPARE(next->number, ReportNumber::Top10CC);
    QCOMPARE(next->form, ReportForm::ReportArea);
    QCOMPARE(session.currentReportNumber, ReportNumber::Top10CC);
}

namespace {

// A periodic deviation report in its total view: budget and live totals in rows 1 and
// 6, the four families of each below them.
Report deviationReport(int number, int view) {
    Report report;
    report.number = number;
    report.params = {number, 12, view};
    report.caption = QStringLiteral("Deviation");
    report.grid.resize(13, 3);
    for (int r = 0; r < 13; ++r)
        report.grid.setText(r, 0, QStringLiteral("Row %1").arg(r));
    for (int r : {2, 3, 4, 5, 7, 8, 9, 10})
        report.grid.row(r).hidden = true;
    report.detailsButton = DetailsText::Show;
    return report;
}

QList<int> shownRows(ReportGridView* grid) {
    QList<int> rows;
    for (int r = 0; r < 13; ++r)
        if (grid->isRowShown(r))
            rows << r;
    return rows;
}

} // namespace

void FrmReportTest::detailsFoldInAndOut() {
    TrendFixture f;
    ReportSession session;
    frmReport form(f.ctx, session, deviationReport(ReportNumber::MonthlyDeviation, 5));
    form.show();
    ClickableLabel* details = form.detailsButton();
    QVERIFY(details->isVisible());
    QCOMPARE(details->text(), QStringLiteral("Show Details"));
    QCOMPARE(shownRows(form.grid()), (QList<int>{0, 1, 6, 11, 12}));

    QTest::mouseClick(details, Qt::LeftButton);
    QCOMPARE(details->text(), QStringLiteral("Hide Details"));
    QVERIFY(details->toolTip().contains(QStringLiteral("Show the simplified report")));
    QCOMPARE(shownRows(form.grid()), (QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));

    QTest::mouseClick(details, Qt::LeftButton);
    QCOMPARE(details->text(), QStringLiteral("Show Details"));
    QVERIFY(details->toolTip().contains(QStringLiteral("Show the full report")));
    QCOMPARE(shownRows(form.grid()), (QList<int>{0, 1, 6, 11, 12}));
}

void FrmReportTest::detailsButtonOnlyForTheTotalView() {
    TrendFixture f;
    ReportSession session;
    frmReport form(f.ctx, session, deviationReport(ReportNumber::MonthlyDeviation, 2));
    form.show();
    form.cmdBudget_Click();
    QCOMPARE(form.report().detailsButton, QStringLiteral("Show Details"));
    QCOMPARE(shownRows(form.grid()), (QList<int>{0, 1, 6, 11, 12}));

    frmReport accumulative(f.ctx, session, deviationReport(ReportNumber::AccumulativeMonthlyDeviation, 5));
    accumulative.cmdBudget_Click();
    QCOMPARE(accumulative.report().detailsButton, QStringLiteral("Hide Details"));
}

void FrmReportTest::individualChargesGridFollowsItsRowsUpToItsCap_data() {
    QTest::addColumn<int>("rows");
    QTest::newRow("a few rows") << 3;
    QTest::newRow("many rows") << 14;
}

// The grid of the individual charges is as tall as its rows, up to 3,500 twips, so the chart
// above keeps room for the legend of many charge types.
void FrmReportTest::individualChargesGridFollowsItsRowsUpToItsCap() {
    QFETCH(int, rows);
    TrendFixture f;
    Report report;
    report.number = ReportNumber::IndividualCharges;
    report.params = individualChargesParams(0, QString(), 1);
    report.grid.resize(rows, 3);
    ReportChart chart;
    chart.resize(1, 2);
    report.charts.push_back(chart);
    ReportSession session;
    frmReport form(f.ctx, session, report);
    form.resize(1366, 800);
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));
    const int cap = 3500 * form.logicalDpiY() / 1440;
    const int contents = form.grid()->fittingHeight(rows);
    QCOMPARE(form.grid()->height(), std::min(contents, cap));
}

VANTREL_TEST(FrmReportTest);
#include "tst_frmreport.moc"
