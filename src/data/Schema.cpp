#include "data/Schema.h"

#include "data/Database.h"
#include "data/TrendTotals.h"

#include <QFile>

static void initSchemaResource() {
    Q_INIT_RESOURCE(schema);
}

QString schemaText(const QString& name) {
    initSchemaResource();
    QFile file(QStringLiteral(":/schema/%1.sql").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

void createDatabaseFromSchema(const QString& path, const QString& schemaName) {
    const QString sql = schemaText(schemaName);
    if (sql.isEmpty())
        throw DbError(QStringLiteral("No schema named %1").arg(schemaName), 1);
    QFile::remove(path);
    Database db = Database::open(path, Database::Mode::ReadWriteCreate);
    Transaction tx(db);
    db.execScript(sql);
    if (schemaName == QLatin1String("trend"))
        createTrendTotalsTables(db);
    tx.commit();
}
