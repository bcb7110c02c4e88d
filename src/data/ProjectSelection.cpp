#include "data/ProjectSelection.h"

#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Project.h"
#include "data/ProjectHistory.h"
#include "data/ReferenceData.h"

void CloseProject(AppContext& ctx) {
    ctx.projectDb.close();
    ctx.projectPath.clear();
    ctx.projectPassword.clear();
    ctx.billAccount.clear();
    ctx.billStart.clear();
    ctx.billEnd.clear();
    // With no project there is no bill to gather or report on.
    ctx.trendEnabled = false;
}

bool SelectProject(AppContext& ctx, const QString& path, const ProgressFn& progress) {
    if (path.isEmpty()) {
        CloseProject(ctx);
        return true;
    }
    if (path == ctx.projectPath && ctx.projectDb.isOpen())
        return true;
    if (!ctx.projectPath.isEmpty())
        CloseProject(ctx);
    ctx.projectPath = path;

    bool ok = OpenProjectDatabase(ctx, nullptr, QString(), progress);
    ok = LoadProjectDetails(ctx) && ok;

    // A project that cannot be read gives empty header values, and so fails the tests below.
    QString crv;
    QString imports;
    bool hasCallData = false;
    try {
        Statement header(ctx.projectDb, QStringLiteral("SELECT CRV, IMPORTS FROM Tbl50"));
        if (header.step()) {
            crv = header.text(0);
            imports = header.text(1);
        }
        hasCallData = queryInt(ctx.projectDb, QStringLiteral("SELECT COUNT(*) FROM Tbl997")) > 0;
    } catch (const DbError&) {
    }

    // Bills of that region are refused.
    if (crv == QLatin1String("IRE")) {
        ctx.dialogs.information(SelectionText::NotValid);
        ok = false;
    }
    ctx.trendEnabled = imports.toUpper() == QLatin1String("O");
    // The call-data test applies to an exact "O" only.
    if (imports == QLatin1String("O") && !hasCallData)
        ctx.trendEnabled = false;
    if (ok && ctx.paths)
        SaveHistory(ctx.paths->AppFolder, ctx.projectPath, LoadHistory(ctx.paths->AppFolder));
    if (!ctx.trendEnabled)
        ctx.dialogs.information(SelectionText::NoTrends);
    if (!ok)
        CloseProject(ctx);
    return ok;
}
