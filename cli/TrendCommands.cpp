#include "cli/TrendCommands.h"

#include "app/AppContext.h"
#include "app/Format.h"
#include "data/Project.h"
#include "trend/TrendGathering.h"
#include "trend/TrendList.h"

#include <cstdio>

namespace {

bool openProject(AppContext& ctx, const QString& path, Database& project) {
    QString error;
    if (!OpenProjectDatabase(ctx, &project, path, {}, &error)) {
        std::fprintf(stderr, "vantrel-cli: %s\n", qPrintable(error));
        return false;
    }
    return true;
}

} // namespace

int gatherCommand(AppContext& ctx, const QStringList& args) {
    if (args.isEmpty()) {
        std::fprintf(stderr, "vantrel-cli: gather needs at least one project file\n");
        return 2;
    }
    int failures = 0;
    for (const QString& path : args) {
        Database project;
        if (!openProject(ctx, path, project)) {
            ++failures;
            continue;
        }
        const GatherResult r = GatherTrend(ctx, project);
        if (!r.ok()) {
            std::fprintf(stderr, "vantrel-cli: %s: %s\n", qPrintable(path),
                         qPrintable(r.error.isEmpty() ? QStringLiteral("gathering stopped") : r.error));
            ++failures;
            continue;
        }
        std::printf("%s\t%s\t%lld rows\n", qPrintable(r.account),
                    qPrintable(formatDate(r.billDate, QStringLiteral("dd/mm/yyyy"))), r.rowsWritten);
    }
    return failures == 0 ? 0 : 1;
}

int trendsCommand(AppContext& ctx, const QStringList& args) {
    if (args.size() != 2 || args[0] != QLatin1String("--project")) {
        std::fprintf(stderr, "vantrel-cli: usage: trends --project PROJECT\n");
        return 2;
    }
    Database project;
    if (!openProject(ctx, args[1], project))
        return 1;
    const QString account = readBillAccount(project);
    if (account.isEmpty()) {
        std::fprintf(stderr, "vantrel-cli: %s has no bill account\n", qPrintable(args[1]));
        return 1;
    }
    std::printf("%s\n", qPrintable(trendListHeadings().join(QLatin1Char('\t'))));
    for (const TrendListRow& row : trendList(ctx.trendDb, account))
        std::printf("%s\n", qPrintable(trendListCells(row).join(QLatin1Char('\t'))));
    return 0;
}
