#pragma once
// Opening a bill project: a SQLite file with the host product's tables, or one of the
// host product's own Access files, which is read into an in-memory copy and never written.
#include "app/Progress.h"

#include <QString>

struct AppContext;
class Database;

// With a target and a path: opens that file into *target and leaves the selection
// alone. Otherwise opens ctx.projectPath into ctx.projectDb and sets ctx.projectPassword
// to the list entry that matched. False when the file is no project database, is
// damaged, or carries a password that is not in the list; `error` then says why.
bool OpenProjectDatabase(AppContext& ctx, Database* target, const QString& path,
                         const ProgressFn& progress = {}, QString* error = nullptr);

// The project's bill account from its header row; "" when it has none or no header.
QString readBillAccount(Database& project);
