#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "output/frmReport.h"
#include "output/frmReport3.h"
#include "output/gui/ReportGridView.h"
#include "reports/ReportNavigation.h"

#include <QTest>

namespace {

const QStringList Headings = {"Cost Centre Name", "Total Budget (£)", "Total Trend (£)", "Difference (£)",
                              "% Difference"};

// Under the two heading rows, budget ids 11 to 13: north 300 -> 270 (-10%), East 100 -> 125
// (+25%), south 20 -> 20 (0%).
Report gridReport() {
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

struct Window {
    TrendFixture f;
    ReportSession session{{}, ReportNumber::FinancialReport, {ReportNumber::FinancialReport, 99}};
    frmReport3 form{f.ctx, session, gridReport()};
    Window() { form.show(); }
};

} // namespace

class FrmReport3Test : public QObject {
    Q_OBJECT
private slots:
    void cleanup();
    void headingClicksSortAndMark_data();
    void headingClicksSortAndMark();
    void lineClick_data();
    void lineClick();
};

void FrmReport3Test::cleanup() {
    setReportBuilder(ReportNumber::AccumulativeMonthlyDeviation, {});
    setReportBuilder(ReportNumber::FinancialReport, {});
}

void FrmReport3Test::headingClicksSortAndMark_data() {
    QTest::addColumn<int>("col");
    QTest::addColumn<QStringList>("ascending");
    QTest::addColumn<QStringList>("descending");
    QTest::addColumn<bool>("markAfter");
    // Names sort by character code, capitals first; amounts by value.
    QTest::newRow("names, left") << 0 << QStringList{"East", "north", "south"}
                                 << QStringList{"south", "north", "East"} << true;
    QTest::newRow("budgets, right") << 1 << QStringList{"south", "East", "north"}
                                    << QStringList{"north", "East", "south"} << false;
    // The last column sorts as text: "-10.0%" < "00.0%" < "25.0%".
    QTest::newRow("percent, as text")
        << 4 << QStringList{"north", "south", "East"} << QStringList{"East", "south", "north"} << false;
}

void FrmReport3Test::headingClicksSortAndMark() {
    QFETCH(int, col);
    QFETCH(QStringList, ascending);
    QFETCH(QStringList, descending);
    QFETCH(bool, markAfter);
    Window w;
    ReportGridView* grid = w.form.grid();
    const QString up = markAfter ? Headings[col] + " ^" : "^ " + Headings[col];
    const QString down = markAfter ? Headings[col] + " v" : "v " + Headings[col];
    for (const auto& [names, heading] : {std::pair{ascending, up}, {descending, down}, {ascending, up}}) {
        clickHeading(grid, 0, col);
        QTRY_COMPARE(grid->shownText(0, col), heading);
        QCOMPARE((QStringList{grid->shownText(2, 0), grid->shownText(3, 0), grid->shownText(4, 0)}), names);
        QCOMPARE(grid->shownText(1, 0), QStringLiteral("to date"));
    }
    // Another heading takes the mark; the old one gets its own text and colour back.
    const int other = col == 2 ? 3 : 2;
    clickHeading(grid, 0, other);
    QTRY_COMPARE(w.form.sortState().column, other);
    QCOMPARE(grid->shownText(0, col), Headings[col]);
    QVERIFY(!w.form.report().grid.cell(0, col).backColor.isValid());
    QCOMPARE(grid->shownText(0, other), QLatin1String("^ ") + Headings[other]);
    // Row 1 is a heading too: a click on it neither sorts nor moves it.
    clickHeading(grid, 1, col);
    QTest::qWait(30);
    QCOMPARE(w.form.sortState().column, other);
    QCOMPARE(grid->shownText(1, 0), QStringLiteral("to date"));
}

void FrmReport3Test::lineClick_data() {
    QTest::addColumn<int>("status");
    QTest::newRow("shown") << int(ReportStatus::Shown);
    QTest::newRow("fails") << int(ReportStatus::Error);
}

void FrmReport3Test::lineClick() {
    QFETCH(int, status);
    Window w;
    ReportParams asked;
    setReportBuilder(ReportNumber::AccumulativeMonthlyDeviation, [&](ReportContext&, const ReportParams& p) {
        asked = p;
        return ReportResult{status,
                            status == ReportStatus::Shown ? std::optional<Report>(Report{}) : std::nullopt};
    });
    setReportBuilder(ReportNumber::FinancialReport, [](ReportContext&, const ReportParams&) {
        return ReportResult{ReportStatus::Shown, gridReport()};
    });
    clickCell(w.form.grid(), 3, 2);
    QTRY_COMPARE(asked, (ReportParams{ReportNumber::AccumulativeMonthlyDeviation, 12, 5}));
    const bool shown = status == ReportStatus::Shown;
    QCOMPARE(w.form.isVisible(), !shown);
    QCOMPARE(w.session.reportStack.Count(), shown ? 1 : 0);
    QCOMPARE(w.f.dialogs.texts(),
             shown ? QStringList{} : QStringList{"There was an error producing the report"});
    std::optional<Report> next = w.form.takeNextReport();
    QCOMPARE(bool(next), shown);
    if (!shown)
        return;
    // Previous Report builds the grid report again and hands it back to its window.
    frmReport deviation(w.f.ctx, w.session, std::move(*next));
    deviation.cmdPrevReport_Click();
    next = deviation.takeNextReport();
    QVERIFY(next && next->form == ReportForm::Grid);
    QCOMPARE(w.session.reportStack.Count(), 0);
}

VANTREL_TEST(FrmReport3Test);
#include "tst_frmreport3.moc"
