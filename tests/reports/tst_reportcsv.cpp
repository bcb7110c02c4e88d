// A report as comma-separated text, and the report a command line asks for.
#include "TempDir.h"
#include "TestRegistry.h"
#include "reports/Report.h"
#include "reports/ReportCsv.h"
#include "reports/ReportRequest.h"

#include <QProcess>
#include <QTest>

class ReportCsvTest : public QObject {
    Q_OBJECT
private slots:
    void fieldsValuesAndTheFile();
    void requestParameters_data();
    void requestParameters();
};

// The layout of whole reports is checked by the golden files; here the quoting of fields,
// the values of a chart and the file.
void ReportCsvTest::fieldsValuesAndTheFile() {
    Report report;
    ReportChart chart;
    chart.resize(1, 5);
    chart.title = QStringLiteral("Sales, \"North\"");
    chart.setSeriesLabel(0, QStringLiteral("St John's"));
    const QStringList labels{"two\nlines", "a\rb", "", "£1", "x"};
    const double values[] = {28963.6329 / 10, -0.1 - 0.2, -1e-12, 1234567.0, 12.5};
    for (int p = 0; p < 5; ++p) {
        chart.setPointLabel(p, labels[p]);
        chart.setValue(0, p, values[p]);
    }
    report.charts.push_back(chart);
    const testing::TempDir dir;
    QVERIFY(writeReportCsv(report, dir.path("report.csv")));
    // 2896.3632900000002 and -0.30000000000000004 as doubles; never in exponent form.
    QCOMPARE(QString::fromUtf8(testing::readAll(dir.path("report.csv"))),
             QStringLiteral("\r\n\"Sales, \"\"North\"\"\",St John's\r\n\"two\nlines\",2896.36329\r\n"
                            "\"a\rb\",-0.3\r\n,0\r\n£1,1234567\r\nx,12.5\r\n"));
    QString error;
    QVERIFY(!writeReportCsv(report, dir.path("no/such/folder/report.csv"), &error));
    QVERIFY(!error.isEmpty());
}

void ReportCsvTest::requestParameters_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<ReportParams>("params"); // empty: the line is refused
    const ReportParams refused;
    const QString all = QStringLiteral(" --project p --format CSV --out x"); // what every request needs
    QTest::newRow("1, centre") << "1 --level 3 --value \"St John's\"" + all
                               << ReportParams{1, 3, "St John's"};
    QTest::newRow("options first") << all + " --level 2 --value North 1" << ReportParams{1, 2, "North"};
    QTest::newRow("1, number without value") << "1 --level 6" + all << refused;
    QTest::newRow("2, view") << "2 --view 3" + all << ReportParams{2, 0, QString(), 3};
    QTest::newRow("4") << "4 --service P1" + all << ReportParams{4, 0, QString(), "P1"};
    QTest::newRow("4 without service") << "4" + all << refused;
    QTest::newRow("5, level and type")
        << "5 --level 3 --chart-type 6" + all << ReportParams{5, 3, QString(), 6};
    QTest::newRow("6") << "6 --budget 12 --view 5" + all << ReportParams{6, 12, 5};
    QTest::newRow("10 without budget") << "10" + all << refused;
    QTest::newRow("no number") << all.trimmed() << refused;
    QTest::newRow("number 11") << "11" + all << refused;
    QTest::newRow("level not a number") << "1 --level two" + all << refused;
    QTest::newRow("unknown option") << "1 --colour red" + all << refused;
    QTest::newRow("option without value") << all + " --level" << refused;
    QTest::newRow("no project") << "1 --format csv --out x" << refused;
    QTest::newRow("no out") << "1 --project p --format csv" << refused;
}

void ReportCsvTest::requestParameters() {
    QFETCH(QString, line);
    QFETCH(ReportParams, params);
    QString error;
    const std::optional<ReportRequest> request = parseReportRequest(QProcess::splitCommand(line), &error);
    QCOMPARE(error.isEmpty(), request.has_value());
    if (request) {
        QCOMPARE(request->format, QStringLiteral("csv"));
        QCOMPARE(reportParamsOf(*request, &error, 12), params);
    }
    QCOMPARE(error.isEmpty(), !params.isEmpty());
}

VANTREL_TEST(ReportCsvTest);
#include "tst_reportcsv.moc"
