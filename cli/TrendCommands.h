#pragma once
#include <QStringList>

struct AppContext;

// "gather PROJECT...": one trend entry per project.
int gatherCommand(AppContext& ctx, const QStringList& args);
// "trends --project PROJECT": the trend list of the project's account.
int trendsCommand(AppContext& ctx, const QStringList& args);
