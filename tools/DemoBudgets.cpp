#include "tools/DemoBudgets.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "budget/BudgetFromTrend.h"
#include "budget/BudgetStatus.h"
#include "budget/clsBudget.h"
#include "data/Project.h"
#include "data/ReferenceData.h"
#include "data/Schema.h"
#include "trend/TrendGathering.h"

#include <QDir>
#include <QHash>
#include <map>
#include <stdexcept>

namespace {

// The Whole Bill master starts each period from the bill before, with these changes.
const char* const WholeBillPercents[] = {"3.0", "-2.0", "5.0", "0.0",  "-4.0", "2.5",
                                         "6.0", "-1.0", "4.0", "-3.0", "1.5",  "2.0"};
// Each cost centre is budgeted on its own bills with a change of its own: below zero the
// bills come in over budget, above zero under it; small ones stay within five per cent.
const int CentrePercents[] = {-12, 8, -4, 15, 3, -20, 10, -7};
// A little movement from period to period.
const int PeriodOffsets[] = {0, 2, -1, 1, -2, 3, 0, -3, 2, 1, -1, 0};

constexpr int LevelMasterBills = 11; // and one period after the last bill
constexpr int ShiftedDays = 2;

[[noreturn]] void fail(const QString& text) {
    throw std::runtime_error(text.toStdString());
}

void save(clsBudget& budget) {
    const int status = budget.SaveBudget(false);
    if (status != BudgetStatus::Ok)
        fail(QStringLiteral("budget '%1' was not saved (status %2)").arg(budget.Name()).arg(status));
}

// The account's cost centres as selecting one of its bills leaves them in the project:
// written from the central store under the full bill account. The copy lives in memory,
// so the bill files keep what the host product left in them.
void selectCostCentres(AppContext& ctx, const QString& account) {
    Database project = Database::openMemory();
    project.execScript(schemaText(QStringLiteral("project")));
    project.exec(QStringLiteral("INSERT INTO Tbl50 (VeloraAccount, Imports) VALUES (?, 'O')"), account);
    ctx.projectDb = std::move(project);
    ctx.billAccount = account;
    LoadCostCentres(ctx);
}

int wholeBillMaster(AppContext& ctx, const QString& account, const QList<Date>& bills) {
    const qsizetype first = std::max<qsizetype>(0, bills.size() - clsBudget::MaxEntries);
    QList<PeriodBasis> periods;
    for (qsizetype k = first; k < bills.size(); ++k)
        periods.append({bills[k > 0 ? k - 1 : k], QString::fromLatin1(WholeBillPercents[(k - first) % 12])});
    const QList<BudgetAmounts> amounts = deriveBudgetAmounts(periods, [&](const Date& trendDate) {
        return GetTrendAmounts(ctx.trendDb, ctx.projectDb, account, 0, QString(), trendDate);
    });
    clsBudget master(ctx.budgetDb, ctx.trendDb);
    master.CreateMaster(account, 0);
    master.setName(demoWholeBillTitle(account));
    for (qsizetype k = first; k < bills.size(); ++k) {
        const BudgetAmounts& a = amounts[k - first];
        master.AddDate(bills[k], a.usage, a.recurring, a.oneOff, a.adjustments);
    }
    save(master);
    return master.ID();
}

} // namespace

QString demoWholeBillTitle(const QString& account) {
    return account + QStringLiteral(" Whole Bill");
}

QString demoLevelMasterTitle(const QString& account) {
    return account + QStringLiteral(" Cost Centres");
}

std::vector<DemoAccountBudgets>
writeDemoTrendsAndBudgets(const DemoSummary& summary,
                          const std::function<void(const DemoAccountBudgets&)>& progress) {
    RecordingDialogService dialogs;
    AppContext ctx(dialogs);
    const QDir app(summary.appFolder);
    ctx.budgetDb = Database::open(app.filePath(QStringLiteral("budgets.mdb")));
    ctx.trendDb = Database::open(app.filePath(QStringLiteral("trend.mdb")));
    ctx.costCentreDb =
        Database::open(app.filePath(QStringLiteral("costcentres2.mdb")), Database::Mode::ReadOnly);

    std::vector<DemoAccountBudgets> result;
    QHash<QString, size_t> byAccount;
    for (const QString& account : summary.accounts) {
        byAccount.insert(account, result.size());
        DemoAccountBudgets entry;
        entry.account = account;
        result.push_back(entry);
    }
    for (const QString& path : summary.bills) {
        Database project;
        QString error;
        if (!OpenProjectDatabase(ctx, &project, path, {}, &error))
            fail(QStringLiteral("%1: %2").arg(path, error));
        const GatherResult gathered = GatherTrend(ctx, project);
        if (!gathered.ok() || !byAccount.contains(gathered.account))
            fail(QStringLiteral("%1: %2").arg(path, gathered.error));
        DemoAccountBudgets& account = result[byAccount.value(gathered.account)];
        ++account.billsGathered;
        account.trendRows += gathered.rowsWritten;
    }

    for (DemoAccountBudgets& out : result) {
        const QString& account = out.account;
        const QList<Date> bills = trendEntryDates(ctx.trendDb, account);
        if (bills.isEmpty())
            continue;
        out.wholeBillMaster = wholeBillMaster(ctx, account, bills);

        // The level master: the last bills, one period two days after its bill, and one a
        // month after the last bill. Each period notes the bill its amounts start from.
        std::map<Date, Date> basis;
        const qsizetype first = std::max<qsizetype>(0, bills.size() - LevelMasterBills);
        for (qsizetype k = first; k < bills.size(); ++k) {
            const bool shifted = bills.size() - first >= 3 && k == bills.size() - 3;
            basis[shifted ? bills[k].addDays(ShiftedDays) : bills[k]] = bills[k];
        }
        basis[bills.last().addMonths(1)] = Date(); // no bill yet: carries the period before
        clsBudget master(ctx.budgetDb, ctx.trendDb);
        master.CreateMaster(account, 1);
        master.setName(demoLevelMasterTitle(account));
        for (const auto& [period, bill] : basis)
            master.AddDate(period, {}, {}, {}, {});
        save(master);
        out.levelMaster = master.ID();

        selectCostCentres(ctx, account);
        const QStringList centres = costCentreChoices(ctx.projectDb, account, 1);
        for (qsizetype j = 0; j < centres.size(); ++j) {
            clsBudget budget(ctx.budgetDb, ctx.trendDb);
            budget.CreateFromMaster(out.levelMaster, centres[j], centres[j]);
            QList<PeriodBasis> periods;
            for (int i = 1; i <= budget.EntryCount(); ++i) {
                const int percent = CentrePercents[j % 8] + PeriodOffsets[(i - 1) % 12];
                periods.append({basis.at(budget.Entry(i).SelectedDate), QString::number(percent)});
            }
            if (!fillBudgetFromTrend(budget, periods, ctx.trendDb, ctx.projectDb).ok())
                fail(QStringLiteral("budget '%1': a percent change was refused").arg(centres[j]));
            save(budget);
            out.costCentres << centres[j];
        }
        if (progress)
            progress(out);
    }
    return result;
}
