#include "PagesFixture.h"
#include "TestRegistry.h"
#include "output/PagePlan.h"

#include <QTest>

namespace {

// Six units a bold character, five a plain one, lines ten high, on a page of 800 by 500 points
// whose table may reach down to 500 - 46. A one-line row is 13 high.
const TextMeasure Measure{[](const QString& text, bool bold) { return text.size() * (bold ? 6.0 : 5.0); },
                          10};
const PageFrame Frame{QSizeF(800, 500), 1.0};
constexpr double Limit = 454;

} // namespace

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
        QCOMPARE(wrapCellText(text), lines);
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

    void chartStandsAboveTheTable() {
        const PagePlan plan = planReportPages(smallTrend(), Frame, Measure);
        QCOMPARE(plan.pages[0].chart, QRectF(0, 55, 780, 500 / 3.5 * 2));
        QCOMPARE(plan.pages[0].rows.front().top, 55 + 500 / 3.5 * 2 + 10);
    }

    void wideTableShrinksToThePage() {
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

VANTREL_TEST(PagePlanTest);
#include "tst_pageplan.moc"
