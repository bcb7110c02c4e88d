#include "tools/DemoCommand.h"

#include "data/Database.h"
#include "data/ProjectHistory.h"
#include "tools/DemoBudgets.h"
#include "tools/DemoGenerator.h"

#include <QDir>
#include <QFileInfo>
#include <cstdio>
#include <exception>

namespace {

// The newest regular bill of each account, in the order of the accounts.
QStringList latestBillPerAccount(const DemoSummary& summary) {
    QStringList latest;
    for (const QString& account : summary.accounts) {
        QString newest;
        for (const QString& bill : summary.bills)
            if (QFileInfo(bill).fileName().startsWith(account + QLatin1Char('_')) && bill > newest)
                newest = bill;
        if (!newest.isEmpty())
            latest << newest;
    }
    return latest;
}

const char* const DemoUsage =
    "usage: vantrel-cli demo DIR [--seed S] [--accounts N] [--bills N] [--lines-per-bill N]\n"
    "  writes DIR/AppFolder (budgets.mdb, trend.mdb, costcentres2.mdb, tel.mdb) and\n"
    "  DIR/Projects (one project per monthly bill and account, plus an IRE bill and a\n"
    "  bill of other imports), gathers every regular bill into the trend store and writes\n"
    "  budgets from it: per account a Whole Bill master over its last twelve bills and a\n"
    "  Level 1 master with a budget for each level-1 cost centre.\n"
    "  Defaults: seed 1, 3 accounts, 14 bills, 3000 lines per bill.\n";

int argumentError(const QString& text) {
    std::fprintf(stderr, "vantrel-cli demo: %s\n%s", qPrintable(text), DemoUsage);
    return 2;
}

// "Table rows, Table rows" for one file.
QString describeTables(const TableCounts& tables) {
    QStringList parts;
    for (const auto& [table, rows] : tables)
        parts << QStringLiteral("%1 %2").arg(table).arg(rows);
    return parts.join(QStringLiteral(", "));
}

} // namespace

int demoCommand(const QStringList& args) {
    DemoOptions options;
    for (int i = 0; i < args.size(); ++i) {
        const QString& arg = args[i];
        if (arg == QLatin1String("--help") || arg == QLatin1String("-h")) {
            std::printf("%s", DemoUsage);
            return 0;
        }
        if (!arg.startsWith(QLatin1String("--"))) {
            if (!options.folder.isEmpty())
                return argumentError(QStringLiteral("more than one folder given ('%1')").arg(arg));
            options.folder = arg;
            continue;
        }
        if (i + 1 >= args.size())
            return argumentError(QStringLiteral("%1 needs a value").arg(arg));
        const QString value = args[++i];
        bool ok = false;
        if (arg == QLatin1String("--seed")) {
            options.seed = value.toULongLong(&ok);
        } else if (arg == QLatin1String("--accounts")) {
            options.accounts = value.toInt(&ok);
        } else if (arg == QLatin1String("--bills")) {
            options.bills = value.toInt(&ok);
        } else if (arg == QLatin1String("--lines-per-bill")) {
            options.linesPerBill = value.toInt(&ok);
        } else {
            return argumentError(QStringLiteral("unknown option %1").arg(arg));
        }
        if (!ok)
            return argumentError(QStringLiteral("%1 needs a whole number, not '%2'").arg(arg, value));
    }
    if (options.folder.isEmpty())
        return argumentError(QStringLiteral("no folder given"));
    const QString problem = validateDemoOptions(options);
    if (!problem.isEmpty())
        return argumentError(problem);

    const QDir root(options.folder);
    try {
        const DemoSummary summary = writeDemoInstallation(options, [&](const DemoFile& file) {
            std::printf("%s: %s\n", qPrintable(root.relativeFilePath(file.path)),
                        qPrintable(describeTables(file.tables)));
            std::fflush(stdout);
        });
        std::printf("%d files written for %lld account(s): %s\n", int(summary.files.size()),
                    static_cast<long long>(summary.accounts.size()),
                    qPrintable(summary.accounts.join(QStringLiteral(", "))));
        writeDemoTrendsAndBudgets(summary, [](const DemoAccountBudgets& a) {
            std::printf("%s: %d bills gathered (%lld trend rows); budgets %d (%s), %d (%s) with %lld "
                        "cost centre budgets\n",
                        qPrintable(a.account), a.billsGathered, static_cast<long long>(a.trendRows),
                        a.wholeBillMaster, qPrintable(demoWholeBillTitle(a.account)), a.levelMaster,
                        qPrintable(demoLevelMasterTitle(a.account)),
                        static_cast<long long>(a.costCentres.size()));
            std::fflush(stdout);
        });
        // A first start offers the latest bill of each account under "Select".
        const QStringList latest = latestBillPerAccount(summary);
        if (!latest.isEmpty() && !SaveHistory(summary.appFolder, latest.first(), latest.mid(1)))
            throw std::runtime_error("the list of recent projects could not be written");
    } catch (const std::exception& e) {
        std::fprintf(stderr, "vantrel-cli demo: %s\n", e.what());
        return 1;
    }
    return 0;
}
