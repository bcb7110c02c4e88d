// Times the trend reports on a large trend store: 24 bills of 50,000 services.
//   bench_trend_reports [STORE]   (STORE is kept and reused when given; else a scratch file)
// Level 1 has 25 cost centres of 2,000 numbers, level 2 has 500 of 100 numbers.
// With BENCH_MMAP set, the trend store is read through a memory map, for comparison.
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "bench/BenchTrendStore.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "data/TrendTotals.h"
#include "reports/TrendReports.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
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

// The sqlite3 shell's own time for a query on the same file, in ms (to the shell's whole ms);
// -1 when the shell is missing.
double shellMs(const QString& store, const QString& sql) {
    QProcess shell;
    shell.start(QStringLiteral("sqlite3"), {store});
    shell.write(QStringLiteral(".timer on\n%1;\n").arg(sql).toUtf8());
    shell.closeWriteChannel();
    if (!shell.waitForFinished(120000) || shell.exitCode() != 0)
        return -1;
    // "Run Time: real 0.216 user ... sys ..."
    const QRegularExpression time(QStringLiteral("Run Time: real ([0-9.]+)"));
    double best = -1;
    for (const QString& line : QString::fromUtf8(shell.readAllStandardOutput()).split(QLatin1Char('\n')))
        if (const QRegularExpressionMatch m = time.match(line); m.hasMatch())
            best = m.captured(1).toDouble() * 1000.0;
    return best;
}

// Best of three runs of the builder, beside the shell's best of three for the query that
// reads what it reads: the ratio of the two is what this run says.
template <typename Build>
void timeIt(const char* name, double targetMs, const QString& store, const QString& sql, Build build) {
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
    double engine = 1e300;
    for (int run = 0; run < 3 && engine >= 0; ++run)
        engine = std::min(engine, shellMs(store, sql));
    std::printf("%-46s status %d  first %7.1f ms  best %7.1f ms  (target %4.0f ms)  sqlite3 %7.1f ms  "
                "ratio %.2f\n",
                name, status, first, best, targetMs, engine, engine > 0 ? best / engine : 0.0);
    if (best > targetMs)
        std::printf("  over the target\n");
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
    {
        // An older store gets its indexes and bill totals at start, once.
        QElapsedTimer timer;
        timer.start();
        addTrendIndexes(ctx.trendDb);
        ensureTrendTotals(ctx.trendDb);
        std::printf("store brought up to date in %.1f s\n", double(timer.elapsed()) / 1000.0);
    }
    ReportContext rc(ctx);
    const QString account = QStringLiteral("'%1'").arg(Account);
    const QString families = QStringLiteral("SUM(\"Usage Charges\"), SUM(\"Recurring Charges\"), "
                                            "SUM(\"One Off Charges and Credits\"), SUM(\"Adjustments\")");
    timeIt("report 1, whole bill", 20, store,
           QStringLiteral("SELECT BillDate, %1 FROM TblTrendTotals WHERE BillAccount = %2 GROUP BY BillDate")
               .arg(families, account),
           [&] { return TrendReport_TotalCharges(rc, 0, QString()); });
    timeIt("report 2, whole bill, usage", 20, store,
           QStringLiteral(
               "SELECT BillDate, SUM(\"Direct Dialled Local\"), SUM(Operator), SUM(\"Usage Charges\") "
               "FROM TblTrendTotals WHERE BillAccount = %1 GROUP BY BillDate")
               .arg(account),
           [&] { return TrendReport_IndividualCharges(rc, 0, QString(), 1); });
    timeIt("report 3, whole bill", 20, store,
           QStringLiteral("SELECT BillDate, MIN(\"Product Code\"), SUM(\"PreTax Cost\") FROM "
                          "TblTrendProductTotals WHERE BillAccount = %1 GROUP BY BillDate, \"Product Code\" "
                          "COLLATE NOCASE")
               .arg(account),
           [&] { return TrendReport_Service(rc, 0, QString()); });
    std::printf(
        "%-46s sqlite3 %7.1f ms\n", "(report 1's sums from the rows, for comparison)",
        shellMs(store, QStringLiteral("SELECT BillDate, %1 FROM TblSummaryTrend WHERE BillAccount = %2 "
                                      "GROUP BY BillDate")
                           .arg(families, account)));
    QStringList division7;
    for (int s = 14000; s < 16000; ++s)
        division7 << QStringLiteral("\"%1\"").arg(serviceNumber(s));
    timeIt("report 1, cost centre of 2,000 numbers", 300, store,
           QStringLiteral("SELECT BillDate, %1 FROM TblSummaryTrend INDEXED BY idxTrendAccountService WHERE "
                          "BillAccount = %2 AND \"Service No\" IN (SELECT value FROM json_each('[%3]')) "
                          "GROUP BY +BillDate")
               .arg(families, account, division7.join(QLatin1Char(','))),
           [&] { return TrendReport_TotalCharges(rc, 1, QStringLiteral("Division 7")); });
    // The report reads five amounts of every number of the last twelve bills.
    timeIt("report 5, level of 500 centres over 12 dates", 300, store,
           QStringLiteral("SELECT count(\"Service No\"), %1, SUM(Telemarketing) FROM TblSummaryTrend WHERE "
                          "BillAccount = %2 AND BillDate >= (SELECT BillDate FROM TblTrendTotals WHERE "
                          "BillAccount = %2 ORDER BY BillDate DESC LIMIT 1 OFFSET 11)")
               .arg(families, account),
           [&] { return TrendReport_Top10CC(rc, 2, QString(), 5); });
    return 0;
}
