#include "cli/CommandProject.h"

#include "app/AppContext.h"
#include "data/Project.h"
#include "data/ReferenceData.h"

QString selectCommandProject(AppContext& ctx, const QString& path) {
    QString error;
    if (!OpenProjectDatabase(ctx, &ctx.projectDb, path, {}, &error))
        return QStringLiteral("cannot open %1: %2").arg(path, error);
    ctx.projectPath = path;
    if (!LoadProjectDetails(ctx))
        return QStringLiteral("The selected project file is not valid for use with this application");
    return QString();
}
