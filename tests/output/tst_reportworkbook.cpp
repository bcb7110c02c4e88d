#include "../reports/TrendFixture.h"
#include "TestRegistry.h"
#include "output/ReportDisclaimer.h"
#include "output/ReportWorkbook.h"
#include "output/frmReport3.h"
#include "reports/ReportNavigation.h"
#include "reports/TrendReports.h"
#include "ui/ClickableLabel.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTest>

namespace {

// Headings, a hidden row, a row of every kind of value, a merged bold red row; a line chart
// whose second series misses its middle point.
Report handMade(ReportForm form, const QString& caption) {
    Report r;
    r.form = form;
    r.caption = caption;
    ReportGrid& g = r.grid;
    g.resize(4, 4);
    for (int c = 0; c < 4; ++c) {
        g.setText(0, c, QStringList{"Name", "Amount", "Share", "Date"}[c]);
        g.column(c).alignment = c == 0 ? Qt::AlignLeft : Qt::AlignRight;
    }
    g.row(1).hidden = true;
    g.setText(2, 0, "The \"Big\" Room");
    g.setMoney(2, 1, Money::fromRaw(-12345000));
    g.setPercent(2, 2, 0.125, "0.00%");
    g.setDate(2, 3, Date(2012, 1, 31));
    g.setText(3, 0, "Totals");
    g.setText(3, 1, "Totals");
    g.row(3).merge = true;
    g.setBold(3, 0);
    g.setForeColor(3, 0, QColor(255, 0, 0));
    ReportChart chart;
    chart.resize(2, 3);
    for (int p = 0; p < 3; ++p) {
        chart.setPointLabel(p, QStringList{"Jan", "Feb", "Mar"}[p]);
        chart.setValue(1, p, p == 1 ? std::nullopt : std::optional<double>(5.0));
    }
    r.charts = {chart};
    return r;
}

// Stacked bars with axis titles and a pie beside a key.
Report area() {
    Report r = handMade(ReportForm::ReportArea, "Area");
    r.grid.resize(0, 0);
    r.key = {{"Live", QColor(255, 90, 75)}};
    ReportChart bars = r.charts.front(), pie = bars;
    bars.type = ChartType::Bar2d;
    bars.stacked = true;
    bars.xAxisTitle = "Centres";
    bars.yAxisTitle = "Costs";
    pie.type = ChartType::Pie2d;
    r.charts = {bars, pie, bars};
    return r;
}

} // namespace

class ReportWorkbookTest : public QObject {
    Q_OBJECT
    const cColours colours_;
    testing::TempDir dir_;
    QHash<QString, QString> facts_; // what the independent reader finds in the workbooks

private slots:
    void columnLetter() {
        const std::pair<int, QString> cases[] = {{1, "A"}, {26, "A@"}, {27, "AA"}, {53, "BA"}};
        for (const auto& [n, letters] : cases)
            QCOMPARE(ExcelColumnLetter(n), letters);
    }

    // Writes five workbooks (the report number 1 on a small store among them) and reads them back.
    void initTestCase() {
        TrendFixture f;
        f.add(Date(2012, 1, 31), "0100", {{"Usage Charges", pounds(10.50)}});
        f.add(Date(2012, 1, 31), "0200", {{"Usage Charges", pounds(1000)}});
        f.add(Date(2012, 2, 29), "0100", {{"Usage Charges", pounds(500)}});
        ReportContext rc = f.context();
        const QString logo = dir_.path("logo.jpg");
        QVERIFY(QImage(40, 40, QImage::Format_RGB32).save(logo));
        const std::vector<Report> pack{
            handMade(ReportForm::ChartAndGrid, "Total Charges Trend for Whole Bill"),
            handMade(ReportForm::Grid, "Total Charges Trend for Whole Bill"),
            handMade(ReportForm::Grid, "Costs: a/b")};
        QVERIFY(writeReportsWorkbook(pack, dir_.path("pack.xlsx"), {colours_, {}}));
        QVERIFY(writeReportWorkbook(handMade(ReportForm::ChartAndGrid, "C"), dir_.path("chart.xlsx"),
                                    {colours_, {}}));
        QVERIFY(
            writeReportWorkbook(handMade(ReportForm::Grid, "G"), dir_.path("grid.xlsx"), {colours_, logo}));
        QVERIFY(writeReportWorkbook(area(), dir_.path("area.xlsx"), {colours_, logo + "-missing"}));
        QVERIFY(writeReportWorkbook(*TrendReport_TotalCharges(rc, 0, {}).report, dir_.path("real.xlsx"),
                                    {colours_, {}}));
        QProcess python;
        QStringList args{VANTREL_SOURCE_DIR "/tests/output/read_workbook.py"};
        for (const char* name : {"pack", "chart", "grid", "area", "real"})
            args << dir_.path(QString(name) + ".xlsx");
        python.start("/usr/bin/python3", args);
        if (!python.waitForFinished(60000))
            python.kill();
        QVERIFY2(python.exitCode() == 0, python.readAllStandardError().constData());
        for (const QString& line :
             QString::fromUtf8(python.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts))
            facts_[line.section('\t', 0, 0)] = line.section('\t', 1);
    }

    // Each row: the fact (its reader's key) and the fields it must hold, tab-separated.
    void workbook_data() {
        QTest::addColumn<QString>("expected");
        QTest::newRow("chart cell Report!A7") << QString("b=1\tc=FFFFFF\tfill=5514B4");
        QTest::newRow("chart merged Report") << QString("A30:B30 A7:D7 C30:D30");
        QTest::newRow("chart cell Report!A29") << QString("v=The \"Big\" Room\tf=General\th=left");
        QTest::newRow("chart cell Report!B29") << QString("v=-1234.5\tf=£#,##0.00");
        QTest::newRow("chart cell Report!C29") << QString("v=0.125\tf=##0.00%");
        QTest::newRow("chart cell Report!D29") << QString("v=2012-01-31\tf=dd/mm/yyyy");
        QTest::newRow("chart cell Report!A30") << QString("v=Totals\tb=1\tc=FF0000\th=center");
        QTest::newRow("chart cell Report!A32") << "v=" + ReportDisclaimer;
        QTest::newRow("chart sheet ChartData") << QString("hidden");
        QTest::newRow("chart chart1")
            << QString("type=lineChart/standard\tseries=2\tcats=Jan,Feb,Mar\tlegend=1\ts0=0,1,2\ts1=0,2");
        QTest::newRow("chart anchor drawing1 1") << QString("chart\tA9");
        QTest::newRow("grid cell Sheet1!A7") << QString("b=1\tfill=-\tc=-");
        QTest::newRow("grid cell Sheet1!A9") << QString("v=Name\tfill=5514B4");
        QTest::newRow("grid anchor drawing1 1") << QString("picture\tA1");
        QTest::newRow("grid sheet ChartData") << QString("absent");
        QTest::newRow("area merged Report") << QString("A7:E7");
        QTest::newRow("area chart1") << QString("type=barChart/stacked\tseries=2\taxes=Centres|Costs");
        QTest::newRow("area chart2") << QString("type=pieChart\tseries=1\tcats=Jan,Feb,Mar");
        QTest::newRow("area anchor drawing1 2") << QString("chart\tJ9");
        QTest::newRow("area anchor drawing1 3") << QString("chart\tA27");
        QTest::newRow("area cell Report!S9") << QString("fill=FF5A4B");
        QTest::newRow("real cell Report!B29") << QString("v=1010.5\tf=£#,##0.00");
        QTest::newRow("real chart1") << QString(
            "type=lineChart/standard\tseries=5\tcats=31/01/2012,29/02/2012");
        QTest::newRow("pack sheet Total Charges Trend for Whole B") << QString("visible");
        QTest::newRow("pack sheet Total Charges Trend for Who (2)") << QString("visible");
        QTest::newRow("pack sheet Costs a b") << QString("visible");
    }

    void workbook() {
        QFETCH(QString, expected);
        const QString fact = facts_.value(QTest::currentDataTag(), "absent");
        for (const QString& field : expected.split('\t'))
            QVERIFY2(fact.split('\t').contains(field), qPrintable(fact));
    }

    // Three clicks on the button: cancelled, written and opened, then where a folder stands in
    // the way: that failure is logged and shown, and its scratch file goes again.
    void windowOutput() {
        TrendFixture f;
        ReportSession session;
        frmReport3 form(f.ctx, session, handMade(ReportForm::Grid, "Fin"));
        QStringList opened;
        form.setWorkbookOpener([&](const QString& file) { opened << file; });
        const QString out = f.dir.path("out");
        QVERIFY(QDir(out).mkpath("in the way.xlsx"));
        f.dialogs.files = {"", out + "/Fin Report", out + "/in the way.xlsx"};
        form.show();
        for (int click = 0; click < 3; ++click)
            QTest::mouseClick(form.excelButton(), Qt::LeftButton);
        QCOMPARE(opened, QStringList{out + "/Fin Report.xlsx"});
        QVERIFY(QFileInfo(opened.value(0)).size() > 0);
        QCOMPARE(QDir(out).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 (QStringList{"Fin Report.xlsx", "in the way.xlsx"}));
        QCOMPARE(f.dialogs.texts(), QStringList{ReportWindowText::ExcelFailed});
        QVERIFY(f.logText().contains("frmReport3.cmdOutputExcel_Click"));
    }
};

VANTREL_TEST(ReportWorkbookTest);
#include "tst_reportworkbook.moc"
