#include "app/BrowseForFile.h"

#include "app/DialogService.h"

BrowseSetup browseSetupFor(const QString& extension) {
    if (extension.toUpper() == QLatin1String("MDB"))
        return {QStringLiteral("Please select a Project"),
                QStringLiteral("Project File(*.MDB)|*.MDB|All Files|*.*")};
    return {QStringLiteral("Please select a file"), QStringLiteral("All Files|*.*")};
}

QString BrowseForFile(DialogService& dialogs, const QString& extension, const QString& initialFile) {
    const BrowseSetup setup = browseSetupFor(extension);
    return dialogs.openFile(setup.title, setup.filter, initialFile);
}
