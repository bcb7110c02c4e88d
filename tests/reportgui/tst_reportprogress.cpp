#include "ReportGuiHelpers.h"
#include "TestRegistry.h"
#include "output/gui/ReportProgressDialog.h"
#include "reports/TrendReports.h"

#include <QProgressDialog>
#include <QTest>

class ReportProgressTest : public QObject {
    Q_OBJECT
private slots:
    void barFollowsTheWorkUntilCancelled();
    void cancelStopsTheTop10Report();
};

void ReportProgressTest::barFollowsTheWorkUntilCancelled() {
    QWidget owner;
    ReportProgressDialog progress(QStringLiteral("Creating the report..."), &owner);
    const ProgressFn report = progress.progressFn();
    QVERIFY(report(1, 4));
    QCOMPARE(progress.dialog()->value(), 25);
    QVERIFY(report(3, 4));
    QCOMPARE(progress.dialog()->value(), 75);
    QVERIFY(!progress.wasCancelled());
    progress.dialog()->cancel();
    QVERIFY(!report(4, 4));
    QVERIFY(progress.wasCancelled());
    // Once asked to stop, the answer stays no.
    QVERIFY(!report(4, 4));
}

void ReportProgressTest::cancelStopsTheTop10Report() {
    TrendFixture f;
    fillThreeBills(f);
    QWidget owner;
    ReportProgressDialog progress(QStringLiteral("Creating the report..."), &owner);
    ReportContext rc = f.context(progress.progressFn());
    progress.dialog()->cancel();
    const ReportResult result = TrendReport_Top10CC(rc, 1, QString(), 5);
    QCOMPARE(result.status, int(ReportStatus::NotProduced));
    QVERIFY(!result.report);
}

VANTREL_TEST(ReportProgressTest);
#include "tst_reportprogress.moc"
