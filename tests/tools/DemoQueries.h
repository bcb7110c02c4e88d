#pragma once
// Small read helpers for checking generated demo files with plain SQL.
#include "data/Database.h"

#include <QDir>
#include <QRegularExpression>
#include <QStringList>
#include <set>

namespace demotest {

template <typename... Args> QStringList textColumn(Database& db, const QString& sql, const Args&... args) {
    QStringList values;
    Statement st = db.prepare(sql);
    st.bindAll(args...);
    while (st.step())
        values << (st.isNull(0) ? QStringLiteral("<null>") : st.text(0));
    return values;
}

inline std::set<int> intSet(Database& db, const QString& sql) {
    std::set<int> values;
    Statement st = db.prepare(sql);
    while (st.step())
        values.insert(st.integer(0));
    return values;
}

// A regular bill project: "<account>_<yyyymmdd>.mdb".
inline const QRegularExpression& regularProjectName() {
    static const QRegularExpression re(QStringLiteral("^([A-Z0-9]+)_(\\d{4})(\\d{2})(\\d{2})\\.mdb$"));
    return re;
}

inline QStringList projectFiles(const QString& folder) {
    return QDir(folder).entryList({QStringLiteral("*.mdb")}, QDir::Files, QDir::Name);
}

inline QStringList regularProjects(const QString& folder, const QString& account = QString()) {
    QStringList names;
    for (const QString& name : projectFiles(folder)) {
        const auto m = regularProjectName().match(name);
        if (m.hasMatch() && (account.isEmpty() || m.captured(1) == account))
            names << name;
    }
    return names;
}

// Every table of a file, every row in insertion order, as text.
inline QString dumpDatabase(const QString& path) {
    Database db = Database::open(path, Database::Mode::ReadOnly);
    QString out;
    for (const QString& table : textColumn(
             db, QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"))) {
        out += QStringLiteral("[%1]\n").arg(table);
        Statement st = db.prepare(QStringLiteral("SELECT * FROM \"%1\" ORDER BY rowid").arg(table));
        while (st.step()) {
            for (int c = 0; c < st.columnCount(); ++c)
                out += (st.isNull(c) ? QStringLiteral("<null>") : st.text(c)) + QLatin1Char('|');
            out += QLatin1Char('\n');
        }
    }
    return out;
}

} // namespace demotest
