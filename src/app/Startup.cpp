#include "app/Startup.h"

#include "BuildInfo.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "app/ErrorLog.h"
#include "data/Stores.h"
#include "data/TrendTotals.h"

QString buildVersion(int major, int minor, int revision) {
    return QStringLiteral("%1.%2.%3")
        .arg(major)
        .arg(minor, 2, 10, QLatin1Char('0'))
        .arg(revision, 4, 10, QLatin1Char('0'));
}

QString programVersion() {
    return buildVersion(VANTREL_VERSION_MAJOR, VANTREL_VERSION_MINOR, VANTREL_VERSION_PATCH);
}

QString storesMissingMessage() {
    return QStringLiteral(
        "Required files are missing, please ensure Meridane is installed in the same folder.\n"
        "Program can not continue.");
}

std::unique_ptr<cPathControl> installedPaths(const QString& programFolder, const QString& appFolderOverride) {
    auto paths =
        std::make_unique<cPathControl>(programFolder, QString(), QStringLiteral(VANTREL_BUILD_SYSTEM_DIR));
    if (!appFolderOverride.isEmpty())
        paths->AppFolder = appFolderOverride;
    return paths;
}

bool startInstallation(AppContext& ctx, std::unique_ptr<cPathControl> paths) {
    ctx.version = programVersion();
    ctx.paths = std::move(paths);
    ctx.projectPath.clear();

    const StoreOpenReport report = openStores(ctx);
    for (const QString& aside : report.setAside)
        LogError(*ctx.paths, QStringLiteral("OpenStores"), 0,
                 QStringLiteral("unreadable store kept as %1 and replaced by its template").arg(aside));
    if (!report.ok) {
        // The box says what it always says; which stores failed, and why, go to the error log
        // and to the box's details.
        QStringList details;
        if (!ctx.paths->pathsFileProblem().isEmpty())
            details << ctx.paths->pathsFileProblem();
        details << report.problems;
        for (const QString& problem : details)
            LogError(*ctx.paths, QStringLiteral("OpenStores"), 0, problem);
        ctx.dialogs.message(storesMissingMessage(), MessageIcon::Critical, QString(),
                            details.join(QLatin1Char('\n')));
        return false;
    }
    UpgradeStores(ctx.budgetDb, ctx.trendDb);
    try {
        ZeroNullTrendColumns(ctx.trendDb);
    } catch (const DbError& e) {
        // The repair is retried at the next start; the stores are usable as they are.
        LogError(*ctx.paths, QStringLiteral("ZeroNullTrendColumns"), e.code(), e.message());
    }
    try {
        ensureTrendTotals(ctx.trendDb);
    } catch (const DbError& e) {
        // The whole-bill reports then say they cannot read the totals; the next start tries again.
        LogError(*ctx.paths, QStringLiteral("ensureTrendTotals"), e.code(), e.message());
    }
    return true;
}
