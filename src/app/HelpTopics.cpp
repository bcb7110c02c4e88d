#include "app/HelpTopics.h"

#include "BuildInfo.h"
#include "app/cPathControl.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

QStringList helpFolders(const cPathControl* paths) {
    QStringList folders;
    auto add = [&folders](const QString& folder) {
        if (folder.isEmpty())
            return;
        const QString clean = QDir::cleanPath(folder);
        if (!folders.contains(clean))
            folders << clean;
    };
    if (paths && !paths->DataSystemFolder.isEmpty())
        add(paths->DataSystemFolder + QStringLiteral("/help"));
    add(QStringLiteral(VANTREL_BUILD_SYSTEM_DIR "/help"));
    if (QCoreApplication::instance())
        add(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/vantrel/System/help"));
    return folders;
}

QString helpPagePath(const cPathControl* paths, int topic) {
    const QString page = QString::number(topic) + QStringLiteral(".html");
    for (const QString& folder : helpFolders(paths)) {
        const QFileInfo file(folder + QLatin1Char('/') + page);
        if (file.isFile())
            return file.absoluteFilePath();
    }
    return QString();
}
