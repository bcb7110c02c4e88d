#include "TestRegistry.h"
#include "TrendFixture.h"
#include "reports/ReportCsv.h"
#include "reports/ReportRequest.h"
#include "reports/TrendReports.h"

#include <QTest>

class ReportCsvTest : public QObject {
    Q_OBJECT
private slots:
    void fieldQuoting_data();
    void fieldQuoting();
    void gridRowsThenChartBlocks();
    void totalChargesReportAsWritten();
    void unwritableFileIsReported();
    void chartValuesCarryNoBinaryNoise();
    void requestParsing_data();
    void requestParsing();
    void requestParameters_data();
    void requestParameters();
};

void ReportCsvTest::chartValuesCarryNoBinaryNoise() {
    Report report;
    report.grid.resize(0, 0);
    ReportChart chart;
    chart.resize(1, 3);
    chart.setSeriesLabel(0, QStringLiteral("Usage"));
    for (int p = 0; p < 3; ++p)
        chart.setPointLabel(p, QStringLiteral("P%1").arg(p));
    chart.setValue(0, 0, 28963.6329 / 10); // 2896.3632900000002 as a double
    chart.setValue(0, 1, -0.1 - 0.2);
    chart.setValue(0, 2, -1e-12);
    report.charts.push_back(chart);
    const QString csv = reportToCsv(report);
    QVERIFY2(csv.contains(QStringLiteral("P0,2896.36329")), qPrintable(csv));
    QVERIFY2(csv.contains(QStringLiteral("P1,-0.3")), qPrintable(csv));
    QVERIFY2(csv.contains(QStringLiteral("P2,0")), qPrintable(csv));
}

void ReportCsvTest::fieldQuoting_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    QTest::newRow("comma") << "£1,0"
                           << "\"£1,0\"";
    QTest::newRow("no specials") << "Usage Charges (£)"
                                 << "Usage Charges (£)";
    QTest::newRow("quote") << "The \"Big\" Room"
                           << "\"The \"\"Big\"\" Room\"";
    QTest::newRow("line feed") << "two\nlines"
                               << "\"two\nlines\"";
    QTest::newRow("carriage return") << "a\rb"
                                     << "\"a\rb\"";
    QTest::newRow("apostrophe") << "St John's"
                                << "St John's";
    QTest::newRow("empty") << ""
                           << "";
}

void ReportCsvTest::fieldQuoting() {
    QFETCH(QString, text);
    QFETCH(QString, field);
    QCOMPARE(csvField(text), field);
}

void ReportCsvTest::gridRowsThenChartBlocks() {
    Report r;
    r.grid.resize(3, 2);
    r.grid.setText(0, 0, "Name");
    r.grid.setText(0, 1, "Amount");
    r.grid.setText(1, 0, "hidden");
    r.grid.row(1).hidden = true;
    r.grid.setText(2, 0, "Smith, \"J\"");
    r.grid.setText(2, 1, "£1,234.50");
    ReportChart chart;
    chart.resize(2, 3);
    chart.setSeriesLabel(0, "Total");
    chart.setSeriesLabel(1, "Part, one");
    chart.setPointLabel(0, "31/01/2012");
    chart.setPointLabel(1, "29/02/2012");
    chart.setPointLabel(2, "31/03/2012");
    chart.setValue(0, 0, 1.5);
    chart.setValue(1, 0, 0.1);
    chart.setValue(0, 1, 1234567.0);
    chart.setValue(1, 1, std::nullopt);
    chart.setValue(0, 2, -0.005);
    r.charts.push_back(chart);
    ReportChart second;
    second.resize(1, 1);
    second.title = "2. Sales, North";
    second.setSeriesLabel(0, "Only");
    second.setPointLabel(0, "P1");
    r.charts.push_back(second);

    QCOMPARE(reportToCsv(r), QStringLiteral("Name,Amount\r\n"
                                            "\"Smith, \"\"J\"\"\",\"£1,234.50\"\r\n"
                                            "\r\n"
                                            ",Total,\"Part, one\"\r\n"
                                            "31/01/2012,1.5,0.1\r\n"
                                            "29/02/2012,1234567,\r\n"
                                            "31/03/2012,-0.005,0\r\n"
                                            "\r\n"
                                            "\"2. Sales, North\",Only\r\n"
                                            "P1,0\r\n"));
}

void ReportCsvTest::totalChargesReportAsWritten() {
    TrendFixture f;
    f.number("0100", {"St John's"});
    f.add(Date(2012, 1, 31), "0100", {{"Usage Charges", pounds(1000)}, {"Adjustments", pounds(0.5)}});
    f.add(Date(2012, 2, 29), "0100", {{"Usage Charges", pounds(750)}});
    ReportContext rc = f.context();
    const Report r = *TrendReport_TotalCharges(rc, 1, QStringLiteral("St John's")).report;
    const QString path = f.dir.path("report.csv");
    QVERIFY(writeReportCsv(r, path));
    // 750 against 1,000.50: a fall of 25.04 %.
    QCOMPARE(QString::fromUtf8(testing::readAll(path)),
             QStringLiteral(
                 "Date,31/01/2012,29/02/2012\r\n"
                 "Usage Charges (£),\"£1,000.00\",£750.00\r\n"
                 "Recurring Charges (£),£0.00,£0.00\r\n"
                 "One Off Charges and Credits (£),£0.00,£0.00\r\n"
                 "Adjustment Charges (£),£0.50,£0.00\r\n"
                 "Totals (£),\"£1,000.50\",£750.00\r\n"
                 "Percent Change (%),,-25.04%\r\n"
                 "\r\n"
                 "Total Charges Trend where Cost Centre Level 1 = St John's,Total Charges,Usage Charges,"
                 "Recurring Charges,One Off Charges,Adjustments\r\n"
                 "31/01/2012,1000.5,1000,0,0,0.5\r\n"
                 "29/02/2012,750,750,0,0,0\r\n"));
}

void ReportCsvTest::unwritableFileIsReported() {
    TrendFixture f;
    Report r;
    QString error;
    QVERIFY(!writeReportCsv(r, f.dir.path("no/such/folder/report.csv"), &error));
    QVERIFY(!error.isEmpty());
}

void ReportCsvTest::requestParsing_data() {
    QTest::addColumn<QStringList>("args");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("format");
    QTest::newRow("full") << QStringList{"1",     "--project", "p.mdb", "--level", "2",    "--value",
                                         "North", "--format",  "CSV",   "--out",   "x.csv"}
                          << true << 1 << "csv";
    QTest::newRow("options first") << QStringList{"--project", "p.mdb", "--format", "png", "--out", "x", "5"}
                                   << true << 5 << "png";
    QTest::newRow("no number") << QStringList{"--project", "p", "--format", "csv", "--out", "x"} << false << 0
                               << QString();
    QTest::newRow("number 11") << QStringList{"11", "--project", "p", "--format", "csv", "--out", "x"}
                               << false << 0 << QString();
    QTest::newRow("no project") << QStringList{"1", "--format", "csv", "--out", "x"} << false << 0
                                << QString();
    QTest::newRow("no out") << QStringList{"1", "--project", "p", "--format", "csv"} << false << 0
                            << QString();
    QTest::newRow("level not a number")
        << QStringList{"1", "--project", "p", "--level", "two", "--format", "csv", "--out", "x"} << false << 0
        << QString();
    QTest::newRow("unknown option") << QStringList{"1",        "--project", "p",     "--colour", "red",
                                                   "--format", "csv",       "--out", "x"}
                                    << false << 0 << QString();
    QTest::newRow("option without value")
        << QStringList{"1", "--project", "p", "--format", "csv", "--out"} << false << 0 << QString();
}

void ReportCsvTest::requestParsing() {
    QFETCH(QStringList, args);
    QFETCH(bool, ok);
    QFETCH(int, number);
    QFETCH(QString, format);
    QString error;
    const std::optional<ReportRequest> request = parseReportRequest(args, &error);
    QCOMPARE(request.has_value(), ok);
    QCOMPARE(error.isEmpty(), ok);
    if (request) {
        QCOMPARE(request->number, number);
        QCOMPARE(request->format, format);
    }
}

void ReportCsvTest::requestParameters_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<ReportParams>("params");
    QTest::newRow("1, whole bill") << QStringList{"1"} << ReportParams{1, 0, QString()};
    QTest::newRow("1, centre") << QStringList{"1", "--level", "3", "--value", "St John's"}
                               << ReportParams{1, 3, QStringLiteral("St John's")};
    QTest::newRow("1, number without value") << QStringList{"1", "--level", "6"} << ReportParams{};
    QTest::newRow("2, view") << QStringList{"2", "--view", "3"} << ReportParams{2, 0, QString(), 3};
    QTest::newRow("2, default view") << QStringList{"2"} << ReportParams{2, 0, QString(), 1};
    QTest::newRow("3, number") << QStringList{"3", "--level", "6", "--value", "0100"}
                               << ReportParams{3, 6, QStringLiteral("0100")};
    QTest::newRow("4") << QStringList{"4", "--service", "P1"}
                       << ReportParams{4, 0, QString(), QStringLiteral("P1")};
    QTest::newRow("4 without service") << QStringList{"4"} << ReportParams{};
    QTest::newRow("5, default level") << QStringList{"5"} << ReportParams{5, 1, QString(), 5};
    QTest::newRow("5, level and type")
        << QStringList{"5", "--level", "3", "--chart-type", "6"} << ReportParams{5, 3, QString(), 6};
    QTest::newRow("6") << QStringList{"6", "--budget", "12", "--view", "5"} << ReportParams{6, 12, 5};
    QTest::newRow("8") << QStringList{"8", "--budget", "12"} << ReportParams{8, 12};
    QTest::newRow("10 without budget") << QStringList{"10"} << ReportParams{};
}

void ReportCsvTest::requestParameters() {
    QFETCH(QStringList, options);
    QFETCH(ReportParams, params);
    QString error;
    const std::optional<ReportRequest> request =
        parseReportRequest(options + QStringList{"--project", "p", "--format", "csv", "--out", "x"}, &error);
    QVERIFY2(request, qPrintable(error));
    QCOMPARE(reportParamsOf(*request, &error, 12), params);
    QCOMPARE(error.isEmpty(), !params.isEmpty());
}

VANTREL_TEST(ReportCsvTest);
#include "tst_reportcsv.moc"
