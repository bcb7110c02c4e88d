#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "output/frmReport.h"
#include "output/frmReport2.h"
#include "output/frmReport3.h"
#include "render/ReportChartView.h"
#include "ui/ClickableLabel.h"
#include "ui/uctFooter.h"

#include <QHeaderView>

namespace {

// A window of class W, shown: on report 1 of fillThreeBills, or on a hand-made report.
template <typename W> struct Window {
    TrendFixture f;
    ReportSession session;
    std::unique_ptr<W> form;
    Window() {
        fillThreeBills(f);
        ReportContext rc = f.context();
        ReportResult result = StartReport(rc, session, totalChargesParams(0, {}));
        if (!result.shown())
            qFatal("report 1 was not built");
        show(std::move(*result.report));
    }
    explicit Window(Report report) {
        session.currentReportNumber = report.number;
        session.currentReportParams = report.params;
        show(std::move(report));
    }
    void show(Report report) {
        form = std::make_unique<W>(f.ctx, session, std::move(report));
        form->show();
        if (!QTest::qWaitForWindowExposed(form.get()))
            qWarning("the report window was not shown");
    }
};

// A report of `charts` small charts, each naming budget 101 + its place, each of its two
// bars budget 201 or 202.
Report budgetCharts(int charts) {
    Report report;
    report.number = ReportNumber::BudgetTop10CC;
    report.params = {report.number, 100};
    report.form = ReportForm::ReportArea;
    for (int i = 0; i < charts; ++i) {
        ReportChart& chart = report.charts.emplace_back();
        chart.type = ChartType::Bar2d;
        chart.resize(1, 2);
        chart.setValue(0, 0, 10);
        chart.setValue(0, 1, 20);
        chart.setPointLabel(0, QStringLiteral("P1"));
        chart.setPointLabel(1, QStringLiteral("P2"));
        chart.budgetId = 101 + i;
        chart.pointBudgetIds = {201, 202}; // a bar names its own
    }
    return report;
}

const QStringList Headings = {"Cost Centre Name", "Total Budget (£)", "Total Trend (£)", "Difference (£)",
                              "% Difference"};

// The financial report: under the two heading rows, budget ids 11 to 13: north 300 -> 270
// (-10%), East 100 -> 125 (+25%), south 20 -> 20 (0%).
Report financialReport() {
    Report report;
    report.number = ReportNumber::FinancialReport;
    report.params = {report.number, 99};
    report.form = ReportForm::Grid;
    ReportGrid& g = report.grid;
    g.resize(5, 5);
    g.fixedRows = 2;
    for (int c = 0; c < 5; ++c) {
        g.setText(0, c, Headings[c]);
        g.column(c) = {-1, c == 0 ? Qt::AlignLeft : Qt::AlignRight, c == 0 ? 0 : 2};
    }
    g.setText(1, 0, QStringLiteral("to date"));
    const QStringList names = {"north", "East", "south"};
    const int budget[] = {300, 100, 20}, trend[] = {270, 125, 20};
    for (int i = 0; i < 3; ++i) {
        g.row(i + 2).rowData = 11 + i;
        g.setText(i + 2, 0, names[i]);
        g.setMoney(i + 2, 1, Money::fromPounds(budget[i]));
        g.setPercent(i + 2, 4, double(trend[i] - budget[i]) / budget[i], QStringLiteral("00.0%"));
    }
    return report;
}

void clickHeading(ReportGridView* grid, int row, int col) {
    QTest::mouseClick(grid->headingSurface(col), Qt::LeftButton, Qt::NoModifier,
                      grid->headingRect(row, col).center());
}

} // namespace

// The three report windows: a chart over a grid, an area of charts, a grid alone.
class ReportWindowsTest : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { resetReports(); }

    void gridClickDrillsDownAndPreviousComesBack_data() {
        QTest::addColumn<QString>("where");
        QTest::addColumn<int>("row");
        QTest::addColumn<int>("view"); // 0: the click opens nothing; below 0: then Back
        QTest::newRow("usage") << "cell" << 1 << int(ChargeView::Usage);
        QTest::newRow("recurring, its caption") << "caption" << 2 << int(ChargeView::Recurring);
        QTest::newRow("adjustments, then Back") << "cell" << 4 << -ChargeView::Adjustments;
        QTest::newRow("totals row") << "cell" << 5 << 0;
        QTest::newRow("percent row") << "cell" << 6 << 0;
        QTest::newRow("below the last row") << "below" << 1 << 0;
        QTest::newRow("right of the last column") << "right" << 1 << 0;
    }
    void gridClickDrillsDownAndPreviousComesBack() {
        QFETCH(QString, where);
        QFETCH(int, row);
        QFETCH(int, view);
        Window<frmReport> w;
        ReportGridView* grid = w.form->grid();
        grid->setFixedHeight(grid->fittingHeight(7) + 120); // room below the rows
        QCoreApplication::processEvents();
        const QRect last = grid->cellRect(6, 3), cell = grid->cellRect(row, 1);
        QVERIFY(last.right() + 40 < grid->viewport()->width() &&
                last.bottom() + 40 < grid->viewport()->height());
        QHeaderView* captions = grid->verticalHeader(); // its section 0 is row 1
        if (where == QLatin1String("caption"))
            QTest::mouseClick(captions->viewport(), Qt::LeftButton, Qt::NoModifier,
                              QPoint(captions->width() / 2, captions->sectionViewportPosition(row - 1) +
                                                                captions->sectionSize(row - 1) / 2));
        else if (where == QLatin1String("cell"))
            QVERIFY(clickCell(grid, row, 2));
        else
            QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier,
                              where == QLatin1String("below") ? QPoint(cell.center().x(), last.bottom() + 30)
                                                              : QPoint(last.right() + 30, cell.center().y()));
        if (view == 0) {
            QTest::qWait(50);
        } else {
            QTRY_COMPARE(w.form->report().params, individualChargesParams(0, QString(), std::abs(view)));
            QCOMPARE(w.session.reportStack.Count(), 1);
            QWidget* leave =
                view > 0 ? static_cast<QWidget*>(w.form->previousButton()) : w.form->footer()->exitButton();
            QTest::mouseClick(leave, Qt::LeftButton);
        }
        QCOMPARE(w.session.reportStack.Count(), 0);
        // Back forgets the path and leaves the reports.
        QCOMPARE(w.form->isVisible(), view >= 0);
        QCOMPARE(bool(w.form->takeNextReport()), false);
        if (view < 0) {
            QCOMPARE(w.form->result(), int(QDialog::Rejected));
            return;
        }
        QCOMPARE(w.form->report().number, ReportNumber::TotalCharges);
        // The last totals, 100 + 20 of 0100, and the percents risen and fallen since the bill before:
        // 229 to 240, then to 120.
        QCOMPARE(w.form->grid()->shownText(5, 3), QStringLiteral("£120.00"));
        QCOMPARE(w.form->grid()->shownItem(6, 2)->foreground().color(), riseColour());
        QCOMPARE(w.form->grid()->shownItem(6, 3)->foreground().color(), fallColour());
        QVERIFY(!w.form->previousButton()->isEnabled());
        QVERIFY(w.f.dialogs.messages.empty());
    }

    void failedDrillDownKeepsTheLevel() {
        Window<frmReport> w;
        w.f.ctx.trendDb = Database::openMemory(); // a store without its tables
        QVERIFY(clickCell(w.form->grid(), 1, 1));
        QTRY_COMPARE(w.f.dialogs.texts(), QStringList{DrillDownFailedText});
        QCOMPARE(w.f.dialogs.messages.back().icon, MessageIcon::Critical);
        QCOMPARE(w.session.reportStack.Count(), 0);
        QCOMPARE(w.form->report().number, ReportNumber::TotalCharges);
        QVERIFY(w.form->isVisible());
    }

    void previousReportOfAnotherKindHandsOver() {
        Window<frmReport> w;
        // The level behind is the top-10 report, which the report-area window shows.
        w.session.reportStack.Push(top10Params(1, QString(), 5));
        w.form->cmdPrevReport_Click();
        QVERIFY(!w.form->isVisible());
        QCOMPARE(w.form->result(), int(QDialog::Accepted));
        const std::optional<Report> next = w.form->takeNextReport();
        QVERIFY(next && next->form == ReportForm::ReportArea);
        QCOMPARE(w.session.currentReportNumber, ReportNumber::Top10CC);
    }

    void chartClickOpensTheBudgetItNames_data() {
        QTest::addColumn<bool>("onBar"); // else on the chart's corner
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("message");
        QTest::newRow("shown") << false << int(ReportStatus::Shown) << QString();
        QTest::newRow("a bar, shown") << true << int(ReportStatus::Shown) << QString();
        QTest::newRow("no data") << false << int(ReportStatus::NoData) << ReportAreaText::NoRecords;
        QTest::newRow("a bar, error") << true << int(ReportStatus::Error) << ReportAreaText::Failed;
        QTest::newRow("not produced") << false << int(ReportStatus::NotProduced) << QString();
    }
    void chartClickOpensTheBudgetItNames() {
        QFETCH(bool, onBar);
        QFETCH(int, status);
        QFETCH(QString, message);
        const bool shown = status == ReportStatus::Shown;
        ReportParams asked, replayed;
        setReportBuilder(ReportNumber::MonthlyDeviation, [&](ReportContext&, const ReportParams& params) {
            asked = params;
            Report report;
            report.number = ReportNumber::MonthlyDeviation;
            return ReportResult{status, shown ? std::optional(report) : std::nullopt};
        });
        // The way back builds the charts again from the level left on the stack.
        setReportBuilder(ReportNumber::BudgetTop10CC, [&](ReportContext&, const ReportParams& params) {
            replayed = params;
            return ReportResult{ReportStatus::Shown, budgetCharts(2)};
        });
        Window<frmReport2> w(budgetCharts(3));
        ReportChartView* view = w.form->charts()[1];
        // The middle of the second bar, or a corner above every bar.
        const QPointF bar =
            view->mapFromScene(view->chart()->mapToPosition({1, 10}, view->chart()->series()[0]));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                          onBar ? bar.toPoint() : QPoint(20, 20));
        QTRY_COMPARE(asked, (ReportParams{ReportNumber::MonthlyDeviation, onBar ? 202 : 102, 5}));
        QTRY_COMPARE(w.form->isVisible(), !shown);
        QCOMPARE(w.f.dialogs.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
        QCOMPARE(replayed, (shown ? ReportParams{} : ReportParams{ReportNumber::BudgetTop10CC, 100}));
        QCOMPARE(w.form->report().number, ReportNumber::BudgetTop10CC);
        const std::optional<Report> next = w.form->takeNextReport();
        QCOMPARE(next ? next->number : 0, shown ? ReportNumber::MonthlyDeviation : 0);
        // The level left behind waits on the stack for Previous Report.
        QCOMPARE(w.session.reportStack.Count(), shown ? 1 : 0);
        if (shown)
            QCOMPARE(w.session.reportStack.Pop().toList(), (QVariantList{ReportNumber::BudgetTop10CC, 100}));
    }

    void headingClicksSortAndMark_data() {
        QTest::addColumn<int>("col");
        QTest::addColumn<QStringList>("ascending");
        QTest::addColumn<QStringList>("descending");
        QTest::addColumn<bool>("markAfter");
        // Names sort by character code, capitals first; amounts by value.
        QTest::newRow("names, left") << 0 << QStringList{"East", "north", "south"}
                                     << QStringList{"south", "north", "East"} << true;
        QTest::newRow("budgets, right")
            << 1 << QStringList{"south", "East", "north"} << QStringList{"north", "East", "south"} << false;
        // The last column sorts as text: "-10.0%" < "00.0%" < "25.0%".
        QTest::newRow("percent, as text")
            << 4 << QStringList{"north", "south", "East"} << QStringList{"East", "south", "north"} << false;
    }
    void headingClicksSortAndMark() {
        QFETCH(int, col);
        QFETCH(QStringList, ascending);
        QFETCH(QStringList, descending);
        QFETCH(bool, markAfter);
        Window<frmReport3> w(financialReport());
        ReportGridView* grid = w.form->grid();
        const QString up = markAfter ? Headings[col] + " ^" : "^ " + Headings[col];
        const QString down = markAfter ? Headings[col] + " v" : "v " + Headings[col];
        for (const auto& [names, heading] : {std::pair{ascending, up}, {descending, down}, {ascending, up}}) {
            clickHeading(grid, 0, col);
            QTRY_COMPARE(grid->shownText(0, col), heading);
            QCOMPARE((QStringList{grid->shownText(2, 0), grid->shownText(3, 0), grid->shownText(4, 0)}),
                     names);
            QCOMPARE(grid->shownText(1, 0), QStringLiteral("to date"));
        }
        // Another heading takes the mark; the old one gets its own text and colour back.
        const int other = col == 2 ? 3 : 2;
        clickHeading(grid, 0, other);
        QTRY_COMPARE(w.form->sortState().column, other);
        QCOMPARE(grid->shownText(0, col), Headings[col]);
        QVERIFY(!w.form->report().grid.cell(0, col).backColor.isValid());
        QCOMPARE(grid->shownText(0, other), QLatin1String("^ ") + Headings[other]);
        // Row 1 is a heading too: a click on it neither sorts nor moves it.
        clickHeading(grid, 1, col);
        QTest::qWait(30);
        QCOMPARE(w.form->sortState().column, other);
        QCOMPARE(grid->shownText(1, 0), QStringLiteral("to date"));
    }

    void financialLineOpensItsBudget_data() {
        QTest::addColumn<int>("status");
        QTest::newRow("shown") << int(ReportStatus::Shown);
        QTest::newRow("fails") << int(ReportStatus::Error);
    }
    void financialLineOpensItsBudget() {
        QFETCH(int, status);
        const bool shown = status == ReportStatus::Shown;
        Window<frmReport3> w(financialReport());
        ReportParams asked;
        setReportBuilder(
            ReportNumber::AccumulativeMonthlyDeviation, [&](ReportContext&, const ReportParams& p) {
                asked = p;
                return ReportResult{status, shown ? std::optional<Report>(Report{}) : std::nullopt};
            });
        setReportBuilder(ReportNumber::FinancialReport, [](ReportContext&, const ReportParams&) {
            return ReportResult{ReportStatus::Shown, financialReport()};
        });
        QVERIFY(clickCell(w.form->grid(), 3, 2));
        // The line of East, budget 12, opens its accumulative deviation in the total view.
        QTRY_COMPARE(asked, (ReportParams{ReportNumber::AccumulativeMonthlyDeviation, 12, 5}));
        QCOMPARE(w.form->isVisible(), !shown);
        QCOMPARE(w.session.reportStack.Count(), shown ? 1 : 0);
        QCOMPARE(w.f.dialogs.texts(), shown ? QStringList{} : QStringList{GridReportText::Failed});
        QCOMPARE(bool(w.form->takeNextReport()), shown);
    }
};

VANTREL_TEST(ReportWindowsTest);
#include "tst_reportwindows.moc"
