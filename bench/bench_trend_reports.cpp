// Times the trend reports on a large trend store: 24 bills of 50,000 services.
//   bench_trend_reports [STORE]   (STORE is kept and reused when given; else a scratch file)
// Level 1 has 25 cost centres of 2,000 numbers, level 2 has 500 of 100 numbers.
// With BENCH_MMAP set, the trend store is read through a memory map, for comparison.
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "bench/BenchTrendStore.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "reports/TrendReports.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

namespace {

using namespace bench;

void fillCostCentres(Database& project) {
    project.execScript(schemaText(QStringLiteral("project")));
    Transaction tx(project);
    Statement insert(project,
                     QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1, CostCentre2) "
                                    "VALUES (?, ?, ?, ?)"));
    for (int s = 0; s < Services; ++s) {
        insert.bindAll(Account, serviceNumber(s), QStringLiteral("Division %1").arg(s / 2000),
                       QStringLiteral("Team %1").arg(s / 100));
        insert.run();
        insert.reset();
    }
    tx.commit();
}

template <typename Build> void timeIt(const char* name, double targetMs, Build build) {
    double best = 1e300;
    double first = 0;
    int status = -1;
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        timer.start();
        status = build().status;
        const double ms = double(timer.nsecsElapsed()) / 1e6;
        if (run == 0)
            first = ms;
        best = std::min(best, ms);
    }
    std::printf("%-48s status %d  first %8.1f ms  best %8.1f ms  (target %.0f ms)\n", name, status, first,
                best, targetMs);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QTemporaryDir scratch;
    const QString store =
        argc > 1 ? QString::fromLocal8Bit(argv[1]) : scratch.filePath(QStringLiteral("trend.mdb"));
    const bool reuse = QFileInfo::exists(store);

    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    ctx.billAccount = Account;
    ctx.trendDb = Database::open(store, Database::Mode::ReadWriteCreate);
    if (!reuse) {
        QElapsedTimer timer;
        timer.start();
        fillTrendStore(ctx.trendDb);
        std::printf("trend store: %d bills x %d services written in %.1f s\n", Bills, Services,
                    double(timer.elapsed()) / 1000.0);
    } else {
        std::printf("trend store: reusing %s\n", qPrintable(store));
    }
    ctx.projectDb = Database::openMemory();
    fillCostCentres(ctx.projectDb);

    if (qEnvironmentVariableIsSet("BENCH_MMAP"))
        ctx.trendDb.execScript(QStringLiteral("PRAGMA mmap_size = 1073741824"));
    ReportContext rc(ctx);
    timeIt("report 1, whole bill (1,200,000 rows)", 300,
           [&] { return TrendReport_TotalCharges(rc, 0, QString()); });
    timeIt("report 1, cost centre of 2,000 numbers", 300,
           [&] { return TrendReport_TotalCharges(rc, 1, QStringLiteral("Division 7")); });
    timeIt("report 5, level of 500 centres over 12 dates", 2000,
           [&] { return TrendReport_Top10CC(rc, 2, QString(), 5); });
    return 0;
}
