#include "data/Project.h"

#include "app/AppContext.h"
#include "data/AccessPassword.h"
#include "data/AccessReader.h"
#include "data/Database.h"
#include "data/FileKind.h"

namespace {

bool fail(QString* error, const QString& text) {
    if (error)
        *error = text;
    return false;
}

} // namespace

bool OpenProjectDatabase(AppContext& ctx, Database* target, const QString& path, const ProgressFn& progress,
                         QString* error) {
    const bool intoTarget = target && !path.isEmpty();
    const QString file = intoTarget ? path : ctx.projectPath;
    const QStringList passwords = projectPasswordList();
    Database db;
    QString password;
    const FileKind kind = detectFileKind(file);
    try {
        if (kind == FileKind::SQLite) {
            // SQLite projects carry no password; they open with the first entry of the list.
            db = Database::open(file, Database::Mode::ReadWrite);
            password = passwords.value(0);
        } else if (isAccessKind(kind)) {
            const std::optional<QString> stored = readAccessPassword(file);
            if (!stored)
                return fail(error, QStringLiteral("%1: the Access header cannot be read").arg(file));
            const std::optional<QString> matched = matchPassword(*stored, passwords);
            if (!matched)
                return fail(error, QStringLiteral("%1: the project's password is not known").arg(file));
            password = *matched;
            db = Database::openMemory();
            QString readError;
            if (!readAccessDatabase(file, db, progress, &readError))
                return fail(error, readError);
        } else if (kind == FileKind::Missing) {
            return fail(error, QStringLiteral("%1 does not exist").arg(file));
        } else {
            return fail(error, QStringLiteral("%1 is not a project database").arg(file));
        }
    } catch (const DbError& e) {
        return fail(error, e.message());
    }
    if (intoTarget) {
        *target = std::move(db);
    } else {
        ctx.projectDb = std::move(db);
        ctx.projectPassword = password;
    }
    return true;
}

QString readBillAccount(Database& project) {
    try {
        Statement st(project, QStringLiteral("SELECT VeloraAccount FROM Tbl50"));
        return st.step() ? st.text(0) : QString();
    } catch (const DbError&) {
        return QString();
    }
}
