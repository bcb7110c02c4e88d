#pragma once
// A throw-away installation: program, application-data and system folders in a
// temporary directory, with stores made from the real schemas.
#include "TempDir.h"
#include "app/AppContext.h"
#include "app/DialogService.h"

#include <memory>

class StoreFixture {
public:
    StoreFixture();
    QString appFile(const QString& name) const { return dir.path(QStringLiteral("app/") + name); }
    QString systemFile(const QString& name) const { return dir.path(QStringLiteral("system/") + name); }
    // Writes all four stores from their schemas.
    void writeAllStores() const;
    void writeStore(const QString& file, const QString& schema) const;
    std::unique_ptr<cPathControl> paths() const;
    // Files in the application folder whose names start with prefix.
    QStringList appFilesStartingWith(const QString& prefix) const;

    testing::TempDir dir;
    RecordingDialogService dialogs;
    AppContext ctx{dialogs};
};
