#include "PagesFixture.h"
#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
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

QString run(const QString& tool, const QStringList& args) {
    QProcess process;
    process.start(tool, args);
    if (!process.waitForFinished(30000))
        process.kill();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString pdfText(const QString& pdf, const QStringList& pages = {}) {
    return run(QStringLiteral("pdftotext"), QStringList{"-layout"} + pages + QStringList{pdf, "-"})
        .simplified();
}

QString pdfInfo(const QString& pdf, const QString& pattern) {
    return QRegularExpression(pattern).match(run(QStringLiteral("pdfinfo"), {pdf})).captured(1);
}

} // namespace

class ReportPdfTest : public QObject {
    Q_OBJECT
private slots:
    void smallReportReadsBack() {
        testing::TempDir dir;
        const QString pdf = dir.path(QStringLiteral("trend.pdf"));
        const cColours colours;
        PageDecor decor = reportPageDecor(dir.path(), colours);
        decor.moment = DateTime(Date(2012, 4, 5), 9, 7);
        QVERIFY(writeReportPdf(smallTrend(), pdf, decor));
        QCOMPARE(pdfInfo(pdf, QStringLiteral("Pages:\\s+(\\d+)")), QStringLiteral("1"));
        QCOMPARE(pdfInfo(pdf, QStringLiteral("Page size:\\s+(\\S+ x \\S+) pts")),
                 QStringLiteral("842 x 595"));
        const QString text = pdfText(pdf);
        // The chart's title is text: the chart was drawn as vectors, not as a picture.
        for (const QString& expected :
             {QStringLiteral("Total Charges Trend (05-04-2012 09:07)"),
              QStringLiteral("Bill Date Total Cost"), QStringLiteral("28/01/2012 £1,234.50"),
              QStringLiteral("29/02/2012 £2,469.00"), QStringLiteral("30/03/2012 £3,703.50"),
              QStringLiteral("Quarterly Spend"), ReportDisclaimer.simplified()})
            QVERIFY2(text.contains(expected), qPrintable(expected + QStringLiteral(" not in: ") + text));
    }

    void longTableRepeatsItsHeadings() {
        testing::TempDir dir;
        const QString pdf = dir.path(QStringLiteral("financial.pdf"));
        QVERIFY(writeReportPdf(financialShape(120), pdf, reportPageDecor(dir.path())));
        const int pages = pdfInfo(pdf, QStringLiteral("Pages:\\s+(\\d+)")).toInt();
        QVERIFY(pages >= 3); // second page: the headings again
        QVERIFY(pdfText(pdf, {"-f", "2", "-l", "2"})
                    .contains(QStringLiteral(
                        "Cost Centre Name Total Budget (£) Total Trend (£) Difference (£) % Difference")));
        const QString all = pdfText(pdf);
        QCOMPARE(all.count(QStringLiteral("Cost Centre Name")), pages);
        for (int line = 1; line <= 120; ++line)
            QCOMPARE(all.count(QStringLiteral("Centre %1 ").arg(line, 3, 10, QLatin1Char('0'))), 1);
    }

    void packHasContentsAndNumberedPages() {
        testing::TempDir dir;
        const QString pdf = dir.path(QStringLiteral("pack.pdf"));
        const std::vector<Report> reports{smallTrend(), financialShape(120)};
        QVERIFY(writeReportsPdf(reports, pdf, reportPageDecor(dir.path())));
        const int pages = pdfInfo(pdf, QStringLiteral("Pages:\\s+(\\d+)")).toInt();
        // The contents, the one page of the trend, then the financial report's pages.
        QVERIFY(pages >= 5);
        const QString contents = pdfText(pdf, {"-f", "1", "-l", "1"});
        QVERIFY2(contents.contains(QStringLiteral("1. Total Charges Trend 2")), qPrintable(contents));
        QVERIFY2(contents.contains(QStringLiteral("2. Financial Directors Report 3")), qPrintable(contents));
        QVERIFY(pdfText(pdf, {"-f", "3", "-l", "3"}).contains(QStringLiteral("Page 3 of %1").arg(pages)));
        QVERIFY(pdfText(pdf, {"-f", QString::number(pages), "-l", QString::number(pages)})
                    .contains(QStringLiteral("Page %1 of %1").arg(pages)));
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
        const QString log = QString::fromUtf8(testing::readAll(errorLogPath(*ctx.paths)));
        QCOMPARE(log.contains(window->objectName() + QStringLiteral(".cmdOutputPrinter_Click   Error#")),
                 failed);
        QCOMPARE(dialogs.messages.size(), size_t(failed ? 1 : 0));
        if (failed)
            QCOMPARE(dialogs.messages.front().icon, MessageIcon::Critical);
    }
};

VANTREL_TEST(ReportPdfTest);
#include "tst_reportpdf.moc"
