#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "app/TextHelpers.h"
#include "output/PagePlan.h"
#include "output/ReportDisclaimer.h"
#include "output/gui/ReportWindow.h"
#include "output/gui/ReportWindows.h"
#include "render/ReportChartPainter.h"
#include "reports/ReportNavigation.h"
#include "ui/ClickableLabel.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

// The financial report's shape: two heading rows, `lines` centres ("Centre 001" ...), a total.
Report financialShape(int lines) {
    Report report;
    report.form = ReportForm::Grid;
    report.caption = QStringLiteral("Financial Directors Report");
    ReportGrid& grid = report.grid;
    grid.resize(lines + 3, 5);
    grid.fixedRows = 2;
    const QStringList headings{"Cost Centre Name", "Total Budget (£)", "Total Trend (£)", "Difference (£)",
                               "% Difference"};
    for (int c = 0; c < 5; ++c)
        grid.setText(0, c, headings[c]);
    for (int r = 2; r < lines + 3; ++r) {
        grid.setText(r, 0, QStringLiteral("Centre %1").arg(r - 1, 3, 10, QLatin1Char('0')));
        for (int c = 1; c < 5; ++c)
            grid.setMoney(r, c, Money::fromDouble(1000 * c + r));
    }
    return report;
}

// A trend of three bills: a line chart ("Quarterly Spend") over a grid of two columns.
Report smallTrend() {
    Report report;
    report.caption = QStringLiteral("Total Charges Trend");
    report.grid.resize(4, 2);
    report.grid.setText(0, 0, QStringLiteral("Bill Date"));
    report.grid.setText(0, 1, QStringLiteral("Total Cost"));
    ReportChart& chart = report.charts.emplace_back();
    chart.title = QStringLiteral("Quarterly Spend");
    chart.resize(1, 3);
    for (int p = 0; p < 3; ++p) {
        chart.setPointLabel(p, QStringLiteral("%1/0%2/2012").arg(28 + p).arg(p + 1));
        chart.setValue(0, p, 1234.5 * (p + 1));
        report.grid.setText(p + 1, 0, chart.pointLabel(p));
        report.grid.setMoney(p + 1, 1, Money::fromDouble(1234.5 * (p + 1)));
    }
    return report;
}

// Six units a bold character, five a plain one, lines ten high, on a page of 800 by 500 points
// whose table may reach down to 500 - 46. A one-line row is 13 high.
const TextMeasure Measure{[](const QString& text, bool bold) { return text.size() * (bold ? 6.0 : 5.0); },
                          10};
const PageFrame Frame{QSizeF(800, 500), 1.0};
constexpr double Limit = 454;

} // namespace

// How a report is laid out on pages, worked out by hand on a page of known measures.
class PagePlanTest : public QObject {
    Q_OBJECT
private slots:
    void wrapsAtThirtyCharacters_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("lines");
        const QString a29(29, QLatin1Char('a')), a30(30, QLatin1Char('a')), a35(35, QLatin1Char('a'));
        QTest::newRow("trimmed") << "  Total  " << QStringList{"Total"};
        QTest::newRow("empty") << "" << QStringList{""};
        QTest::newRow("thirty fit") << a30 << QStringList{a30};
        QTest::newRow("no blank: one more than the limit") << a35 << QStringList{a35.left(31), "aaaa"};
        QTest::newRow("blank at 30") << a29 + " bbb" << QStringList{a29, "bbb"};
        QTest::newRow("blank at 32 is beyond reach") << a30 + "b ccc" << QStringList{a30 + "b", "ccc"};
        QTest::newRow("last blank before the limit")
            << "Mobile phones and data services in the north of the county"
            << QStringList{"Mobile phones and data", "services in the north of the", "county"};
    }
    void wrapsAtThirtyCharacters() {
        QFETCH(QString, text);
        QFETCH(QStringList, lines);
        QCOMPARE(WrapWords(text, CellWrapLimit), lines);
    }

    void tableTakesVisibleCellsAndWidestLines() {
        Report report = financialShape(2);
        report.grid.setText(2, 0, QStringLiteral("Mobile phones and data services in the north"));
        report.grid.setText(3, 0, QStringLiteral("A hidden row, longer than any other line"));
        report.grid.row(3).hidden = true;
        for (int c : {2, 3})
            report.grid.column(c).widthTwips = 0;
        // Equal neighbours of a merged row share one cell and widen neither column.
        for (int c : {0, 1, 4})
            report.grid.setText(4, c, QStringLiteral("Everything that the bill holds"));
        report.grid.row(4).merge = true;

        const PagePlan plan = planReportPages(report, Frame, Measure);
        QCOMPARE(plan.columns, (std::vector<int>{0, 1, 4}));
        // "Mobile phones and data", "Total Budget (£)", "% Difference" in bold, padded 3 a side.
        QCOMPARE(plan.columnWidths, (std::vector<double>{22 * 6 + 6, 16 * 6 + 6, 12 * 6 + 6}));
        QCOMPARE(plan.columnLefts, (std::vector<double>{0, 138, 240}));
        const std::vector<PlannedRow>& rows = plan.pages.at(0).rows;
        QCOMPARE(rows.size(), size_t(4));
        QCOMPARE(rows[2].lines[0], (QStringList{"Mobile phones and data", "services in the north"}));
        QCOMPARE(rows[2].height, 2 * 10 + 3.0);
        QCOMPARE(rows[3].row, 4);
        QCOMPARE(rows[3].span, (std::vector<int>{3, 0, 0}));
    }

    void longTablesRepeatTheFixedRows_data() {
        QTest::addColumn<int>("lines");
        QTest::addColumn<int>("fixedRows");
        QTest::addColumn<int>("pages");
        // Thirty rows fit under the top at 55; later pages repeat the fixed rows.
        QTest::newRow("thirty rows fill one page") << 27 << 2 << 1;
        QTest::newRow("one row more") << 28 << 2 << 2;
        QTest::newRow("120 lines, two heading rows") << 120 << 2 << 5; // 30, 2 + 28 ... 2 + 9
        QTest::newRow("120 lines, one heading row") << 120 << 1 << 5;  // 30, 1 + 29 ... 1 + 6
    }
    void longTablesRepeatTheFixedRows() {
        QFETCH(int, lines);
        QFETCH(int, fixedRows);
        QFETCH(int, pages);
        Report report = financialShape(lines);
        report.grid.fixedRows = fixedRows;
        const PagePlan plan = planReportPages(report, Frame, Measure);
        QCOMPARE(int(plan.pages.size()), pages);
        int next = 0; // every row once, in order, besides the repeated headings
        for (size_t p = 0; p < plan.pages.size(); ++p) {
            const std::vector<PlannedRow>& rows = plan.pages[p].rows;
            QVERIFY(rows.back().top + rows.back().height <= Limit);
            for (size_t i = 0; i < rows.size(); ++i) {
                const bool repeat = p > 0 && int(i) < fixedRows;
                QCOMPARE(rows[i].repeated, repeat);
                QCOMPARE(rows[i].heading, rows[i].row < fixedRows);
                QCOMPARE(rows[i].lines.size(), plan.columns.size());
                QCOMPARE(rows[i].row, repeat ? int(i) : next++);
            }
        }
        QCOMPARE(next, lines + 3);
    }

    void chartStandsAboveTheTableThatShrinksToThePage() {
        const PagePlan plan = planReportPages(smallTrend(), Frame, Measure);
        QCOMPARE(plan.pages[0].chart, QRectF(0, 55, 780, 500 / 3.5 * 2));
        QCOMPARE(plan.pages[0].rows.front().top, 55 + 500 / 3.5 * 2 + 10);
        const PageFrame narrow{QSizeF(300, 500), 1.0};
        QCOMPARE(planReportPages(financialShape(1), narrow, Measure).tableWidth(), 300.0);
    }

    void reportAreaFitsItsChartsBesideTheKey() {
        Report report;
        report.form = ReportForm::ReportArea;
        report.charts.resize(10);
        report.key = {{QStringLiteral("Live Data"), Qt::red}, {QStringLiteral("Budget Data"), Qt::blue}};
        report.periodLabels = {QStringLiteral("01/01/2012 = P1"), QStringLiteral("01/02/2012 = P2")};
        // Charts and the key frame lie on the page, none over another.
        std::vector<QRectF> placed;
        const PagePlan plan = planReportPages(report, Frame, Measure);
        for (const AreaItem& item : plan.pages.at(0).area) {
            QVERIFY(QRectF(0, 55, 800, Limit - 55).contains(item.rect));
            if (item.kind == AreaItem::Kind::KeyFrame || item.kind == AreaItem::Kind::Chart) {
                for (const QRectF& other : placed)
                    QVERIFY(!other.intersects(item.rect));
                placed.push_back(item.rect);
            }
        }
        QCOMPARE(placed.size(), size_t(11));
    }
};

namespace {

// What a poppler tool prints of a PDF.
QString poppler(const QString& tool, const QStringList& args) {
    QProcess process;
    process.start(tool, args);
    if (!process.waitForFinished(30000))
        process.kill();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The text of a PDF, or of its page `page`, blanks run together.
QString pdfText(const QString& pdf, int page = 0) {
    const QString p = QString::number(page);
    return poppler("pdftotext",
                   (page ? QStringList{"-f", p, "-l", p} : QStringList{}) + QStringList{"-layout", pdf, "-"})
        .simplified();
}

} // namespace

// PDFs written, and read back by poppler.
class ReportPdfTest : public QObject {
    Q_OBJECT
private slots:
    // The contents, the trend on page 2, then the financial report's pages, each under the
    // headings again and each centre on one of them.
    void packReadsBack() {
        testing::TempDir dir;
        const QString pdf = dir.path(QStringLiteral("pack.pdf"));
        const cColours colours;
        PageDecor decor = reportPageDecor(dir.path(), colours); // with charts
        decor.moment = DateTime(Date(2012, 4, 5), 9, 7);
        QVERIFY(writeReportsPdf(std::vector<Report>{smallTrend(), financialShape(120)}, pdf, decor));
        const QString info = poppler("pdfinfo", {pdf});
        QVERIFY2(info.contains(QRegularExpression("Page size:\\s+842 x 595 pts")), qPrintable(info));
        const int pages = QRegularExpression("Pages:\\s+(\\d+)").match(info).captured(1).toInt();
        QVERIFY(pages >= 5);
        // The chart's title is text: the chart was drawn as vectors, not as a picture.
        const std::pair<int, QString> onPage[] = {
            {1, "1. Total Charges Trend 2 2. Financial Directors Report 3"},
            {2, "Total Charges Trend (05-04-2012 09:07)"},
            {2, "Quarterly Spend"},
            {2, "Bill Date Total Cost 28/01/2012 £1,234.50 29/02/2012 £2,469.00 30/03/2012 £3,703.50"},
            {2, ReportDisclaimer.simplified()},
            {3, "Page 3 of " + QString::number(pages)},
            {4, "Cost Centre Name Total Budget (£) Total Trend (£) Difference (£) % Difference"}};
        for (const auto& [page, text] : onPage)
            QVERIFY2(pdfText(pdf, page).contains(text), qPrintable(text + " not in: " + pdfText(pdf, page)));
        QVERIFY(pdfText(pdf, pages).contains(QStringLiteral("Page %1 of %1").arg(pages)));
        const QString all = pdfText(pdf);
        QCOMPARE(all.count(QStringLiteral("Cost Centre Name")), pages - 2);
        for (int line = 1; line <= 120; ++line)
            QCOMPARE(all.count(QStringLiteral("Centre %1 ").arg(line, 3, 10, QLatin1Char('0'))), 1);
    }

    void printButtonPrintsWhereTheDialogSays_data() {
        QTest::addColumn<int>("form");
        QTest::addColumn<int>("target");
        QTest::addColumn<QString>("where");
        QTest::addColumn<bool>("failed");
        using T = PrintChoice::Target;
        const int chart = int(ReportForm::ChartAndGrid), area = int(ReportForm::ReportArea),
                  grid = int(ReportForm::Grid);
        QTest::newRow("cancel") << grid << int(T::Cancelled) << "out.pdf" << false;
        QTest::newRow("chart window to pdf") << chart << int(T::PdfFile) << "out.pdf" << false;
        QTest::newRow("area window to pdf") << area << int(T::PdfFile) << "out.pdf" << false;
        QTest::newRow("grid window to pdf") << grid << int(T::PdfFile) << "out.pdf" << false;
        QTest::newRow("missing folder") << grid << int(T::PdfFile) << "no/out.pdf" << true;
        QTest::newRow("unknown printer") << chart << int(T::Printer) << "No Such Printer" << true;
    }
    void printButtonPrintsWhereTheDialogSays() {
        QFETCH(int, form);
        QFETCH(int, target);
        QFETCH(QString, where);
        QFETCH(bool, failed);
        testing::TempDir dir;
        RecordingDialogService dialogs;
        AppContext ctx(dialogs);
        ctx.paths = std::make_unique<cPathControl>(dir.path(), dir.path());
        ctx.paths->AppFolder = dir.path(); // the error log's folder
        ReportSession session;
        Report report = smallTrend();
        report.form = ReportForm(form);
        const std::unique_ptr<ReportWindow> window = makeReportWindow(ctx, session, report, nullptr);
        dialogs.printChoices.push_back({PrintChoice::Target(target), where, dir.path(where)});
        window->show();
        QTest::mouseClick(window->printButton(), Qt::LeftButton);
        QCOMPARE(dialogs.printDocuments, QStringList{report.caption});
        const bool written = target == int(PrintChoice::Target::PdfFile) && !failed;
        QCOMPARE(pdfText(dir.path(where)).contains(report.caption), written);
        // A failure is logged and shown.
        const QString log = QString::fromUtf8(testing::readAll(errorLogPath(*ctx.paths)));
        QCOMPARE(log.contains(window->objectName() + QStringLiteral(".cmdOutputPrinter_Click   Error#")),
                 failed);
        QCOMPARE(dialogs.messages.size(), size_t(failed ? 1 : 0));
        if (failed)
            QCOMPARE(dialogs.messages.front().icon, MessageIcon::Critical);
    }
};

VANTREL_TEST(PagePlanTest);
VANTREL_TEST(ReportPdfTest);
#include "tst_reportpages.moc"
