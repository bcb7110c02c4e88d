// Placeholder: the full path control replaces this file.
#include "app/cPathControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

cPathControl::cPathControl(const QString& programFolder, const QString& machineDataFolder,
                           const QString& fallbackSystemFolder)
    : machineDataFolder_(machineDataFolder) {
    SetDataSystemFolder(fallbackSystemFolder);
    LoadPaths(programFolder);
}

void cPathControl::SetDataSystemFolder(const QString& fallbackSystemFolder) {
    DataSystemFolder = fallbackSystemFolder;
}

void cPathControl::LoadPaths(const QString& programFolder) {
    QFile f(programFolder + QStringLiteral("/Paths.txt"));
    if (!f.open(QIODevice::ReadOnly))
        return;
    while (!f.atEnd()) {
        QString value;
        const int key = ParsePathLine(QString::fromUtf8(f.readLine()), &value);
        if (key == 0)
            AppFolder = value;
        if (key == 3)
            SystemFolder = value;
    }
    pathsFileRead_ = true;
}

int cPathControl::ParsePathLine(const QString& line, QString* value) {
    const int eq = line.indexOf(QLatin1Char('='));
    if (eq < 0)
        return -1;
    const QString key = line.left(eq).trimmed();
    const QStringList keys{QStringLiteral("AppFolder"), QStringLiteral("ProjectFolder"),
                           QStringLiteral("BackupFolder"), QStringLiteral("SystemFolder")};
    const int n = int(keys.indexOf(key));
    if (n >= 0 && value)
        *value = line.mid(eq + 1).trimmed();
    return n;
}
