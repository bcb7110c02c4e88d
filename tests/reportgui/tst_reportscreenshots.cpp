// Pictures of the trend report menu and two reports on a demo installation, for the
// documentation. Runs only when VANTREL_SCREENSHOT_DIR names the folder to write them
// to, best under a real X server: xvfb-run -a env QT_QPA_PLATFORM=xcb
// VANTREL_SCREENSHOT_DIR=... tst_reportgui -class ReportScreenshotTest
#include "TempDir.h"
#include "TestRegistry.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/Startup.h"
#include "app/cPathControl.h"
#include "data/Project.h"
#include "data/ReferenceData.h"
#include "data/Stores.h"
#include "output/frmReport.h"
#include "output/frmReport2.h"
#include "reports/ReportNavigation.h"
#include "reports/frmTrendReports.h"
#include "tools/DemoGenerator.h"
#include "trend/TrendGathering.h"
#include "ui/Branding.h"

#include <QComboBox>
#include <QDir>
#include <QEnterEvent>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

class ReportScreenshotTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void trendReportMenu();
    void totalChargesReport();
    void top10Report();

private:
    bool save(QWidget* window, const QString& name);

    QString out_;
    testing::TempDir dir_;
    RecordingDialogService dialogs_;
    AppContext ctx_{dialogs_};
};

void ReportScreenshotTest::initTestCase() {
    out_ = qEnvironmentVariable("VANTREL_SCREENSHOT_DIR");
    if (out_.isEmpty())
        QSKIP("VANTREL_SCREENSHOT_DIR is not set");
    DemoOptions options;
    options.folder = dir_.path(QStringLiteral("demo"));
    options.accounts = 1;
    options.linesPerBill = 1500;
    const DemoSummary demo = writeDemoInstallation(options);

    for (const char* folder : {"prog", "machine", "system"})
        QDir().mkpath(dir_.path(QString::fromLatin1(folder)));
    for (const QString& t : {StoreFile::BudgetsTemplate, StoreFile::TrendTemplate})
        QFile::copy(QStringLiteral(VANTREL_SYSTEM_DIR "/") + t, dir_.path(QStringLiteral("system/") + t));
    auto paths = std::make_unique<cPathControl>(dir_.path(QStringLiteral("prog")),
                                                dir_.path(QStringLiteral("machine")),
                                                dir_.path(QStringLiteral("system")));
    paths->AppFolder = demo.appFolder;
    paths->DataSystemFolder = dir_.path(QStringLiteral("system"));
    QVERIFY(startInstallation(ctx_, std::move(paths)));

    // Every regular bill is gathered, as the demo start does; the last one is selected.
    QString selected;
    for (const DemoFile& file : demo.files) {
        if (!file.path.startsWith(demo.projectFolder) || file.path.contains(QLatin1String("_IRE")) ||
            file.path.contains(QLatin1String("_ImportsA")))
            continue;
        Database project;
        QString error;
        QVERIFY2(OpenProjectDatabase(ctx_, &project, file.path, {}, &error), qPrintable(error));
        QVERIFY(GatherTrend(ctx_, project).ok());
        selected = file.path;
    }
    QVERIFY(!selected.isEmpty());
    QVERIFY(OpenProjectDatabase(ctx_, &ctx_.projectDb, selected));
    ctx_.projectPath = selected;
    QVERIFY(LoadProjectDetails(ctx_));
    ctx_.trendEnabled = true;

    LoadBrandFont(ctx_.paths->AppFolder);
    ApplyApplicationLook();
}

bool ReportScreenshotTest::save(QWidget* window, const QString& name) {
    if (!QTest::qWaitForWindowExposed(window))
        return false;
    QTest::qWait(400);
    return window->grab().save(out_ + QLatin1Char('/') + name);
}

void ReportScreenshotTest::trendReportMenu() {
    frmTrendReports form(ctx_);
    // The project selector's place shows the selected bill until the selector itself stands there.
    auto* project = new QLabel(QFileInfo(ctx_.projectPath).fileName());
    project->setStyleSheet(
        QStringLiteral("QLabel { background: white; border: 1px solid #d4bfec; border-radius: 4px;"
                       " padding: 6px 10px; }"));
    form.setProjectSelector(project, {}, {});
    form.costCentreLevelList()->setCurrentIndex(1);
    form.show();
    QPushButton* hovered = form.trendButton(0);
    QEnterEvent enter(QPointF(4, 4), QPointF(4, 4), QPointF(4, 4));
    QApplication::sendEvent(hovered, &enter);
    QVERIFY(save(&form, QStringLiteral("trend-reports.png")));
}

void ReportScreenshotTest::totalChargesReport() {
    ReportSession session;
    ReportContext rc(ctx_);
    ReportResult result = StartReport(rc, session, totalChargesParams(0, QString()));
    QVERIFY(result.shown());
    frmReport form(ctx_, session, std::move(*result.report));
    form.resize(1280, 860);
    form.show();
    QVERIFY(save(&form, QStringLiteral("report-total-charges.png")));
}

void ReportScreenshotTest::top10Report() {
    ReportSession session;
    ReportContext rc(ctx_);
    ReportResult result = StartReport(rc, session, top10Params(2, QString(), 5));
    QVERIFY(result.shown());
    frmReport2 form(ctx_, session, std::move(*result.report));
    form.resize(1280, 860);
    form.show();
    QVERIFY(save(&form, QStringLiteral("report-top10.png")));
}

VANTREL_TEST(ReportScreenshotTest);
#include "tst_reportscreenshots.moc"
