// Gathering one large bill: wall time, lines per second and peak memory, beside the
// sqlite3 shell running the plain GROUP BY of the same summary on the same file.
//   bench_gather [LINES] [FOLDER]     (default 1000000 lines in /tmp/vantrel-bench-gather)
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Project.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "tools/DemoGenerator.h"
#include "trend/TrendGathering.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <cstdio>
#include <sys/resource.h>

namespace {

const char* const PlainGroupBy =
    "SELECT ServiceNo, SourceAccountNo, TaxRate, TaxDescription, UsageStartDate, UsageEndDate, RentalStar"
    "tDate, RentalEndDate, Sum(BillCost), Sum(TaxCost), Sum(PreTaxCost), Sum(TotalDiscount), Sum(PreDisco"
    "untCost), Sum(IIf(EventClass=1,PreTaxCost,0)), Sum(IIf(EventClass=3,PreTaxCost,0)), Sum(IIf(EventCla"
    "ss=2,PreTaxCost,0)), Sum(IIf(EventClass=4,PreTaxCost,0)), Sum(CallVolume), Sum(Duration), min(rowid)"
    ", CallType, ProductCode, ServiceType, SourceBillRef, CFBAccountNo, CFBReportNo, AdjustmentDescriptio"
    "n, Description1, Description2, Description3, Sum(IIf(EventSubClass=26,PreTaxCost,0)), Sum(IIf(EventS"
    "ubClass=27,PreTaxCost,0)), Sum(IIf(EventSubClass=28,PreTaxCost,0)), Sum(IIf(EventSubClass=35,PreTaxC"
    "ost,0)), Sum(IIf(EventSubClass=38,PreTaxCost,0)), Sum(IIf(EventSubClass=95,PreTaxCost,0)), Sum(IIf(E"
    "ventSubClass=106,PreTaxCost,0)), Sum(IIf(EventSubClass=241,PreTaxCost,0)), Sum(IIf(EventSubClass=242"
    ",PreTaxCost,0)), Sum(IIf(EventSubClass=244,PreTaxCost,0)), Sum(IIf(EventSubClass=130,PreTaxCost,0)),"
    " Sum(IIf(EventSubClass=131,PreTaxCost,0)), Sum(IIf(EventSubClass=132,PreTaxCost,0)), Sum(IIf(EventSu"
    "bClass=133,PreTaxCost,0)), Sum(IIf(EventSubClass=134,PreTaxCost,0)), Sum(IIf(EventSubClass=135,PreTa"
    "xCost,0)), Sum(IIf(EventSubClass=136,PreTaxCost,0)), Sum(IIf(EventSubClass=210,PreTaxCost,0)), Sum(I"
    "If(EventSubClass=211,PreTaxCost,0)), Sum(IIf(EventSubClass=212,PreTaxCost,0)), Sum(IIf(EventSubClass"
    "=213,PreTaxCost,0)), Sum(IIf(EventSubClass=224,PreTaxCost,0)), Sum(IIf(EventSubClass=225,PreTaxCost,"
    "0)), Sum(IIf(EventSubClass=215,PreTaxCost,0)), Sum(IIf(EventSubClass=221,PreTaxCost,0)), Sum(IIf(Eve"
    "ntSubClass=124,PreTaxCost,0)), Sum(IIf(EventSubClass=125,PreTaxCost,0)), Sum(IIf(EventSubClass=126,P"
    "reTaxCost,0)), Sum(IIf(EventSubClass=127,PreTaxCost,0)), Sum(IIf(EventSubClass=226,PreTaxCost,0)), S"
    "um(IIf(EventSubClass=227,PreTaxCost,0)), Sum(IIf(EventSubClass=128,PreTaxCost,0)), Sum(IIf(EventSubC"
    "lass=129,PreTaxCost,0)), Sum(IIf(EventSubClass=228,PreTaxCost,0)), Sum(IIf(EventSubClass=229,PreTaxC"
    "ost,0)), Sum(IIf(EventSubClass=230,PreTaxCost,0)), Sum(IIf(EventSubClass=231,PreTaxCost,0)), Sum(IIf"
    "(EventSubClass=232,PreTaxCost,0)), Sum(IIf(EventSubClass=246,PreTaxCost,0)), Sum(IIf(EventSubClass=2"
    "37,PreTaxCost,0)), Sum(IIf(EventSubClass=238,PreTaxCost,0)), Sum(IIf(EventSubClass=239,PreTaxCost,0)"
    "), Sum(IIf(EventSubClass=236,PreTaxCost,0)), Sum(IIf(EventClass=1,TotalDiscount,0)), Sum(IIf(EventCl"
    "ass=3,TotalDiscount,0)), Sum(IIf(EventClass=2,TotalDiscount,0)) FROM Tbl307 GROUP BY ServiceNo, Sour"
    "ceAccountNo, TaxRate, TaxDescription, UsageStartDate, UsageEndDate, RentalStartDate, RentalEndDate;";

long peakMegabytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const qint64 lines = argc > 1 ? QByteArray(argv[1]).toLongLong() : 1000000;
    const QString folder =
        argc > 2 ? QString::fromLocal8Bit(argv[2]) : QStringLiteral("/tmp/vantrel-bench-gather");
    QDir().mkpath(folder);
    const QString projectFile = folder + QStringLiteral("/bill-%1.mdb").arg(lines);
    if (!QFileInfo::exists(projectFile)) {
        std::printf("writing %lld charge lines to %s\n", lines, qPrintable(projectFile));
        writeDemoProject(projectFile, QStringLiteral("BENCH01"), Date(2025, 6, 30), lines, 7);
    }
    const QString trendFile = folder + QStringLiteral("/trend.mdb");
    createDatabaseFromSchema(trendFile, QStringLiteral("trend"));

    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    ctx.trendDb = Database::open(trendFile);
    Database project;
    QString error;
    if (!OpenProjectDatabase(ctx, &project, projectFile, {}, &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    const long before = peakMegabytes();
    QElapsedTimer timer;
    timer.start();
    const GatherResult r = GatherTrend(ctx, project);
    const double seconds = timer.nsecsElapsed() / 1e9;
    if (!r.ok()) {
        std::fprintf(stderr, "gathering failed: %s\n", qPrintable(r.error));
        return 1;
    }
    std::printf(
        "gathered %lld lines into %lld trend rows in %.2f s (%.0f lines/s), peak memory %ld MB (%ld MB "
        "before)\n",
        r.linesRead, r.rowsWritten, seconds, r.linesRead / seconds, peakMegabytes(), before);

    QProcess shell;
    shell.setStandardOutputFile(QProcess::nullDevice());
    timer.restart();
    shell.start(QStringLiteral("sqlite3"), {projectFile, QString::fromLatin1(PlainGroupBy)});
    if (!shell.waitForStarted(5000)) {
        std::printf("sqlite3 shell not found: no comparison\n");
        return 0;
    }
    shell.closeWriteChannel();
    shell.waitForFinished(-1);
    const double shellSeconds = timer.nsecsElapsed() / 1e9;
    std::printf("sqlite3 shell, plain GROUP BY of the same summary: %.2f s (gathering takes %.2fx)\n",
                shellSeconds, seconds / shellSeconds);
    return 0;
}
