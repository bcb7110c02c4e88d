#include "TempDir.h"
#include "TestRegistry.h"
#include "app/cColours.h"
#include "render/ReportImage.h"
#include "reports/Report.h"

#include <QImage>
#include <QTest>

namespace {

ReportChart smallChart(const QString& title, ChartType type) {
    ReportChart chart;
    chart.type = type;
    chart.title = title;
    chart.resize(2, 3);
    chart.setSeriesLabel(0, QStringLiteral("Total Charges / 1000"));
    chart.setSeriesLabel(1, QStringLiteral("Usage Charges / 1000"));
    for (int p = 0; p < 3; ++p) {
        chart.setPointLabel(p, QStringLiteral("%1/01/2012").arg(10 + p));
        chart.setValue(0, p, 1200.0 + 100 * p);
        chart.setValue(1, p, 800.0 - 50 * p);
    }
    return chart;
}

// Pixels that are not white: something was drawn there.
int inkIn(const QImage& image, const QRect& area) {
    int ink = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (image.pixelColor(x, y) != QColor(Qt::white))
                ++ink;
    return ink;
}

} // namespace

class ReportImageTest : public QObject {
    Q_OBJECT
private slots:
    void chartsStandOneUnderTheOther();
    void writesAPngOfThatSize();
    void aReportWithoutChartGivesNoImage();
};

void ReportImageTest::chartsStandOneUnderTheOther() {
    Report report;
    report.charts.push_back(smallChart(QStringLiteral("Lines"), ChartType::Line2d));
    report.charts.push_back(smallChart(QStringLiteral("Bars"), ChartType::Bar2d));
    const QImage image = renderReportCharts(report, cColours(), QSize(600, 400));
    QCOMPARE(image.size(), QSize(600, 800));
    // Each chart's half holds a drawing; the series' own colour shows in each.
    QVERIFY(inkIn(image, QRect(0, 0, 600, 400)) > 5000);
    QVERIFY(inkIn(image, QRect(0, 400, 600, 400)) > 5000);
    const QColor total = cColours().seriesEntry(0).toQColor();
    const auto holds = [&](const QRect& area) {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (image.pixelColor(x, y) == total)
                    return true;
        return false;
    };
    QVERIFY(holds(QRect(0, 0, 600, 400)));
    QVERIFY(holds(QRect(0, 400, 600, 400)));
}

void ReportImageTest::writesAPngOfThatSize() {
    testing::TempDir dir;
    Report report;
    report.charts.push_back(
        smallChart(QStringLiteral("Total Charges Trend for Whole Bill"), ChartType::Line2d));
    const QString path = dir.path(QStringLiteral("chart.png"));
    QString error;
    QVERIFY2(writeReportPng(report, cColours(), path, &error), qPrintable(error));
    QImage written;
    QVERIFY(written.load(path, "PNG"));
    QCOMPARE(written.size(), ReportImageChartSize);
    QCOMPARE(ReportImageChartSize, QSize(1200, 700));
    QVERIFY(inkIn(written, QRect(QPoint(0, 0), ReportImageChartSize)) > 10000);
}

void ReportImageTest::aReportWithoutChartGivesNoImage() {
    testing::TempDir dir;
    Report report;
    QVERIFY(renderReportCharts(report, cColours()).isNull());
    QString error;
    QVERIFY(!writeReportPng(report, cColours(), dir.path(QStringLiteral("none.png")), &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(!QFile::exists(dir.path(QStringLiteral("none.png"))));
}

VANTREL_TEST(ReportImageTest);
#include "tst_reportimage.moc"
