#pragma once
// A throw-away installation: program, application-data and system folders in a
// temporary directory, with stores made from the real schemas.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"
#include "data/Schema.h"
#include "data/Stores.h"

#include <QDir>
#include <QFile>
#include <memory>

class StoreFixture {
public:
    StoreFixture() {
        for (const char* folder : {"prog", "app", "machine", "system"})
            QDir().mkpath(dir.path(QLatin1String(folder)));
        for (const QString& t : {StoreFile::BudgetsTemplate, StoreFile::TrendTemplate})
            QFile::copy(QStringLiteral(VANTREL_SYSTEM_DIR "/") + t, systemFile(t));
        ctx.paths = paths();
    }
    QString appFile(const QString& name) const { return dir.path(QStringLiteral("app/") + name); }
    QString systemFile(const QString& name) const { return dir.path(QStringLiteral("system/") + name); }
    void writeStore(const QString& file, const QString& schema) const {
        createDatabaseFromSchema(appFile(file), schema);
    }
    // Writes all four stores from their schemas.
    void writeAllStores() const {
        writeStore(StoreFile::Budgets, QStringLiteral("budgets"));
        writeStore(StoreFile::Trend, QStringLiteral("trend"));
        writeStore(StoreFile::CostCentres, QStringLiteral("costcentres"));
        writeStore(StoreFile::Telephones, QStringLiteral("tel"));
    }
    // The system folder stands in for the machine-wide one, which lacks the templates.
    std::unique_ptr<cPathControl> paths() const {
        auto p = std::make_unique<cPathControl>(dir.path(QStringLiteral("prog")),
                                                dir.path(QStringLiteral("machine")),
                                                dir.path(QStringLiteral("system")));
        p->AppFolder = dir.path(QStringLiteral("app"));
        return p;
    }
    // Files in the application folder whose names start with prefix.
    QStringList appFilesStartingWith(const QString& prefix) const {
        return QDir(dir.path(QStringLiteral("app")))
            .entryList({prefix + QLatin1Char('*')}, QDir::Files, QDir::Name);
    }

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};
