// Stand-in for the project opening of the core library until it is merged: it opens
// SQLite project files only. Remove this file when src/data provides OpenProjectDatabase.
#include "app/AppContext.h"
#include "data/Database.h"
#include "data/Project.h"

bool OpenProjectDatabase(AppContext& ctx, Database* target, const QString& path, const ProgressFn&,
                         QString* error) {
    const QString file = target ? path : ctx.projectPath;
    try {
        Database db = Database::open(file, Database::Mode::ReadWrite);
        if (!db.tableExists(QStringLiteral("Tbl50"))) {
            if (error)
                *error = QStringLiteral("no project database");
            return false;
        }
        *(target ? target : &ctx.projectDb) = std::move(db);
        return true;
    } catch (const DbError& e) {
        if (error)
            *error = e.message();
        return false;
    }
}
