// Times the budget reports on a large trend store: 24 bills of 50,000 services, and a
// level-1 master of the last twelve bill dates with 500 cost-centre budgets of 100 numbers.
//   bench_budget_reports [STORE]   (STORE is kept and reused when given; else a scratch file;
//                                   the trend report benchmark's store serves as well)
// Each line gives the median of five runs beside its goal.
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "bench/BenchTrendStore.h"
#include "budget/clsBudget.h"
#include "data/Schema.h"
#include "data/Stores.h"
#include "output/GridSort.h"
#include "reports/BudgetReports.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int Centres = 500;
constexpr int Periods = 12;
constexpr int Runs = 5;
using namespace bench;

// The selected project's TblCC: level 1 has 500 centres of 100 numbers.
void fillCostCentres(Database& project) {
    project.execScript(schemaText(QStringLiteral("project")));
    Transaction tx(project);
    Statement insert(project, QStringLiteral("INSERT INTO TblCC (VeloraAccount, TelNo, CostCentre1) "
                                             "VALUES (?, ?, ?)"));
    for (int s = 0; s < Services; ++s) {
        insert.bindAll(Account, serviceNumber(s),
                       QStringLiteral("Centre %1").arg(s / 100, 3, 10, QLatin1Char('0')));
        insert.run();
        insert.reset();
    }
    tx.commit();
}

// The master through the budget model; its 500 children straight into the store, in one
// transaction. A centre bills about £500 a date; its budgets run from about £390 to £620.
int writeBudgets(AppContext& ctx) {
    ctx.budgetDb.execScript(schemaText(QStringLiteral("budgets")));
    clsBudget master(ctx.budgetDb, ctx.trendDb);
    master.CreateMaster(Account, 1);
    master.setName(QStringLiteral("Benchmark level 1"));
    for (int p = 0; p < Periods; ++p)
        master.AddDate(FirstBill.addMonths(Bills - Periods + p), {}, {}, {}, {});
    if (master.SaveBudget(false) != 0)
        return -1;
    Transaction tx(ctx.budgetDb);
    Statement child(ctx.budgetDb,
                    QStringLiteral("INSERT INTO tblBudget (MasterID, BillAccount, Title, CCLevel, CCName, "
                                   "BudgetType, Created) VALUES (?, ?, ?, 1, ?, 0, '2010-01-01')"));
    Statement entry(ctx.budgetDb,
                    QStringLiteral("INSERT INTO tblBudgetEntry (BudgetID, SelectedDate, Usage, "
                                   "Recurring, OneOff, Adjustments) VALUES (?, ?, ?, ?, ?, ?)"));
    for (int c = 0; c < Centres; ++c) {
        const QString name = QStringLiteral("Centre %1").arg(c, 3, 10, QLatin1Char('0'));
        child.bindAll(master.ID(), Account, name, name);
        child.run();
        child.reset();
        const int id = int(ctx.budgetDb.lastInsertRowId());
        for (int p = 0; p < Periods; ++p) {
            const std::int64_t base = 3'000'000 + std::int64_t((c * 37 + p * 11) % 200) * 9'000;
            entry.bindAll(id, FirstBill.addMonths(Bills - Periods + p), Money::fromRaw(base),
                          Money::fromRaw(base / 4), Money::fromRaw(base / 20), Money::fromRaw(-base / 100));
            entry.run();
            entry.reset();
        }
    }
    tx.commit();
    return master.ID();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Runs a step Runs times and prints its median; `prepare` runs before each, untimed.
void timeIt(const char* name, double goalMs, const std::function<int()>& step,
            const std::function<void()>& prepare = {}) {
    std::vector<double> times;
    int status = -1;
    for (int run = 0; run < Runs; ++run) {
        if (prepare)
            prepare();
        QElapsedTimer timer;
        timer.start();
        status = step();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    const double ms = median(times);
    std::printf("%-52s status %d  median %8.1f ms  (goal under %.0f ms)%s\n", name, status, ms, goalMs,
                ms < goalMs ? "" : "  OVER");
    std::fflush(stdout);
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
    QElapsedTimer timer;
    timer.start();
    if (!reuse) {
        fillTrendStore(ctx.trendDb);
        std::printf("trend store: %d bills x %d services written in %.1f s\n", Bills, Services,
                    double(timer.elapsed()) / 1000.0);
    } else {
        std::printf("trend store: reusing %s\n", qPrintable(store));
    }
    ctx.projectDb = Database::openMemory();
    fillCostCentres(ctx.projectDb);
    ctx.budgetDb = Database::openMemory();
    timer.restart();
    const int master = writeBudgets(ctx);
    if (master < 0) {
        std::fprintf(stderr, "bench_budget_reports: the master budget was not saved\n");
        return 1;
    }
    std::printf("budgets: a level-1 master of %d dates with %d cost-centre budgets, written in %.1f s\n",
                Periods, Centres, double(timer.elapsed()) / 1000.0);

    ReportContext rc(ctx);
    // A cost-centre budget: its 100 numbers are looked up by number.
    const int child = int(queryInt(
        ctx.budgetDb, QStringLiteral("SELECT MIN(BudgetID) FROM tblBudget WHERE MasterID = ?"), master));
    timeIt("report 6, periodic deviation, view 5, one centre", 100,
           [&] { return BudgetReport_MonthlyDeviation(rc, child, BudgetView::Total).status; });
    timeIt("report 7, accumulative deviation, view 5, one centre", 100,
           [&] { return BudgetReport_AccumulativeMonthlyDeviation(rc, child, BudgetView::Total).status; });
    // The master: the numbers of all 500 centres, summed in one pass over the dates' rows.
    timeIt("report 6, periodic deviation, view 5, master", 1000,
           [&] { return BudgetReport_MonthlyDeviation(rc, master, BudgetView::Total).status; });
    timeIt("report 7, accumulative deviation, view 5, master", 1000,
           [&] { return BudgetReport_AccumulativeMonthlyDeviation(rc, master, BudgetView::Total).status; });
    timeIt("report 8, top 10 cost centres of 500", 1000,
           [&] { return BudgetReport_Top10CC(rc, master).status; });
    ReportResult financial;
    timeIt("report 10, financial directors report, 500 lines", 1000, [&] {
        financial = BudgetReport_FinancialReport(rc, master);
        return financial.status;
    });
    if (!financial.shown()) {
        std::printf("%-52s skipped: the financial report gave no grid\n", "sort of report 10 on column 1");
        return 0;
    }
    ReportGrid grid;
    GridSortState state;
    const QByteArray sortName = QStringLiteral("sort of report 10 on column 1 (%1 rows)")
                                    .arg(financial.report->grid.rowCount())
                                    .toUtf8();
    timeIt(
        sortName.constData(), 50,
        [&] {
            SortByHeading(grid, state, 1, ctx.colours);
            return financial.status;
        },
        [&] {
            grid = financial.report->grid;
            state = GridSortState();
        });
    return 0;
}
