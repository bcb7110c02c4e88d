#include "data/ProjectHistory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {
const QString Marker = QStringLiteral("More files ..");
}

QString projectHistoryFile(const QString& appFolder) {
    return QDir(appFolder).filePath(QStringLiteral("CallHistory.csv"));
}

QStringList LoadHistory(const QString& appFolder) {
    QStringList history;
    QFile file(projectHistoryFile(appFolder));
    if (!file.open(QIODevice::ReadOnly))
        return history;
    while (!file.atEnd() && history.size() < ProjectHistorySize) {
        QString line = QString::fromUtf8(file.readLine());
        line.remove(QLatin1Char('"'));
        line = line.trimmed();
        if (!line.isEmpty() && line != Marker)
            history << line;
    }
    return history;
}

bool SaveHistory(const QString& appFolder, const QString& path, const QStringList& history) {
    if (path.isEmpty())
        return true;
    QStringList lines{Marker, path};
    for (const QString& entry : history) {
        if (lines.size() > ProjectHistorySize)
            break;
        if (!entry.isEmpty() && entry.compare(path, Qt::CaseInsensitive) != 0)
            lines << entry;
    }
    QSaveFile file(projectHistoryFile(appFolder));
    if (!file.open(QIODevice::WriteOnly))
        return false;
    for (const QString& line : lines)
        file.write(QStringLiteral("\"%1\"\r\n").arg(line).toUtf8());
    return file.commit();
}

bool ProjectExists(const QString& path) {
    if (path.isEmpty())
        return false;
    const QFileInfo info(path);
    if (!info.isFile())
        return false;
    const QString wanted = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    return QDir(info.absolutePath()).entryList(QDir::Files).contains(wanted, Qt::CaseInsensitive);
}

QString shortenPath(const QString& path, const std::function<bool(const QString&)>& fits) {
    if (fits(path) || path.size() <= 3)
        return path;
    const QString head = path.left(3) + QStringLiteral("...");
    int sep = path.indexOf(QLatin1Char('/'), 3);
    if (sep < 0)
        return path;
    QString rest = path.mid(sep);
    while (!fits(head + rest)) {
        const int next = rest.indexOf(QLatin1Char('/'), 1);
        if (next < 0)
            break;
        rest = rest.mid(next);
    }
    return head + rest;
}
