#include "StoreFixture.h"

#include "data/Schema.h"
#include "data/Stores.h"

#include <QDir>
#include <QFile>

StoreFixture::StoreFixture() {
    QDir().mkpath(dir.path(QStringLiteral("prog")));
    QDir().mkpath(dir.path(QStringLiteral("app")));
    QDir().mkpath(dir.path(QStringLiteral("machine")));
    QDir().mkpath(dir.path(QStringLiteral("system")));
    for (const QString& t : {StoreFile::BudgetsTemplate, StoreFile::TrendTemplate})
        QFile::copy(QStringLiteral(VANTREL_SYSTEM_DIR "/") + t, systemFile(t));
    ctx.paths = paths();
}

std::unique_ptr<cPathControl> StoreFixture::paths() const {
    auto p =
        std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")), dir.path(QStringLiteral("machine")),
                                       dir.path(QStringLiteral("system")));
    p->AppFolder = dir.path(QStringLiteral("app"));
    p->DataSystemFolder = dir.path(QStringLiteral("system"));
    return p;
}

void StoreFixture::writeStore(const QString& file, const QString& schema) const {
    createDatabaseFromSchema(appFile(file), schema);
}

void StoreFixture::writeAllStores() const {
    writeStore(StoreFile::Budgets, QStringLiteral("budgets"));
    writeStore(StoreFile::Trend, QStringLiteral("trend"));
    writeStore(StoreFile::CostCentres, QStringLiteral("costcentres"));
    writeStore(StoreFile::Telephones, QStringLiteral("tel"));
}

QStringList StoreFixture::appFilesStartingWith(const QString& prefix) const {
    return QDir(dir.path(QStringLiteral("app")))
        .entryList({prefix + QLatin1Char('*')}, QDir::Files, QDir::Name);
}
