// The file and folder operations of the path control, and the move of a data folder.
#include "app/cPathControl.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace {

QString childPath(const QString& folder, const QString& name) {
    return QDir(folder).filePath(name);
}

// The file system's own spelling of a path, so that links and "." or ".." compare equal.
QString resolvedPath(const QString& path) {
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath();
    return canonical.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : canonical;
}

bool isInside(const QString& inner, const QString& outer) {
    const QString in = resolvedPath(inner);
    const QString out = resolvedPath(outer);
    return in == out || in.startsWith(out.endsWith(QLatin1Char('/')) ? out : out + QLatin1Char('/'));
}

// Entries of folder whose name matches in any letter case, as the data folders came from a
// file system that ignores case.
QStringList entriesNamed(const QString& folder, const QString& name, QDir::Filters kind) {
    QStringList found;
    const QDir dir(folder);
    for (const QString& entry : dir.entryList(kind | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            found << entry;
    }
    return found;
}

bool isFolderEmpty(const QString& folder) {
    return QDir(folder).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
}

const QStringList kDataExtensions{QStringLiteral("MDB"), QStringLiteral("TXT"), QStringLiteral("INI"),
                                  QStringLiteral("LOG"), QStringLiteral("DAT"), QStringLiteral("CSV")};
// These belong to the installation and stay where they are.
const QStringList kInstallationFiles{QStringLiteral("ORVANETSANDCS.TXT"), QStringLiteral("PATHS.TXT"),
                                     QStringLiteral("ORVANE_ERROR.LOG"), QStringLiteral("IRELAND.INI"),
                                     QStringLiteral("ORVANESPNUM.MDB")};
// Stores, not projects.
const QStringList kStoreNames{
    QStringLiteral("ARG"),     QStringLiteral("BA"),   QStringLiteral("ORVANESPNUM"),
    QStringLiteral("BUDGETS"), QStringLiteral("CCTS"), QStringLiteral("COSTCENTRES2"),
    QStringLiteral("F9TEMP"),  QStringLiteral("TEL"),  QStringLiteral("TREND")};

bool movesInMode(int mode, const QString& name) {
    const QString upper = name.toUpper();
    const QString extension = cPathControl::GetFileExtension(upper);
    if (mode == 0)
        return kDataExtensions.contains(extension) && !kInstallationFiles.contains(upper);
    return extension == QLatin1String("MDB") && !kStoreNames.contains(upper.chopped(4));
}

} // namespace

bool cPathControl::CopyFile(const QString& source, const QString& destination) {
    if (!QFileInfo(source).isFile() || destination.isEmpty())
        return false;
    QString target = destination;
    if (QFileInfo(destination).isDir())
        target = childPath(destination, QFileInfo(source).fileName());
    // Copying a file onto itself would first delete it.
    if (resolvedPath(source) == resolvedPath(target))
        return false;
    if (!QDir().mkpath(QFileInfo(target).absolutePath()))
        return false;
    if (QFileInfo::exists(target) && !QFile::remove(target))
        return false;
    return QFile::copy(source, target);
}

bool cPathControl::CopyFolder(const QString& source, const QString& destination) {
    if (!FolderExists(source) || destination.isEmpty())
        return false;
    // A copy into its own tree would never end.
    if (isInside(destination, source))
        return false;
    if (!QDir().mkpath(destination))
        return false;
    bool ok = true;
    const QDir dir(source);
    for (const QFileInfo& entry :
         dir.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System)) {
        const QString target = childPath(destination, entry.fileName());
        if (entry.isDir()) {
            // A linked folder is not followed: it may lead back up the tree.
            ok = (!entry.isSymLink() && CopyFolder(entry.filePath(), target)) && ok;
        } else {
            ok = CopyFile(entry.filePath(), target) && ok;
        }
    }
    return ok;
}

bool cPathControl::DeleteFolder(const QString& folder) {
    // An empty name would mean the current folder, "/" everything.
    if (folder.isEmpty() || resolvedPath(folder) == QLatin1String("/"))
        return false;
    if (!QFileInfo(folder).isDir())
        return false;
    return QDir(folder).removeRecursively();
}

QStringList cPathControl::ListAllFilesInDirectory(const QString& folder) {
    QStringList files{QString()};
    if (!FolderExists(folder))
        return files;
    // Plain files only, hidden ones left out, in the order the file system gives.
    files << QDir(folder).entryList(QDir::Files | QDir::NoDotAndDotDot, QDir::Unsorted);
    return files;
}

bool cPathControl::CopyFilesAndFolders(const QString& source, const QString& destination, int mode,
                                       bool remove) {
    if (mode >= 0 && mode <= 2) {
        if (!FolderExists(source) || destination.isEmpty())
            return false;
        // Deleting "the copied files" from the folder they were copied to would lose them.
        if (remove && resolvedPath(source) == resolvedPath(destination))
            return false;
        const QStringList files = ListAllFilesInDirectory(source);
        for (qsizetype i = 1; i < files.size(); ++i) {
            if (!movesInMode(mode, files[i]))
                continue;
            const QString from = childPath(source, files[i]);
            // There is no shell error box here, so a failed copy must show in the result before
            // the caller goes on to delete the originals.
            if (remove ? !QFile::remove(from) : !CopyFile(from, childPath(destination, files[i])))
                return false;
        }
    }
    if (mode == 0) {
        for (const QString& name : {QStringLiteral("Log"), QStringLiteral("Archives")}) {
            for (const QString& found : entriesNamed(source, name, QDir::Dirs)) {
                if (remove)
                    DeleteFolder(childPath(source, found));
                else if (!CopyFolder(childPath(source, found), childPath(destination, found)))
                    return false;
            }
        }
        const QByteArray quoted = '"' + destination.toUtf8() + "\"\r\n";
        for (const QString& found : entriesNamed(destination, QStringLiteral("LastPath.csv"), QDir::Files)) {
            QSaveFile out(childPath(destination, found));
            if (!out.open(QIODevice::WriteOnly) || out.write(quoted) != quoted.size() || !out.commit())
                return false;
        }
    } else if (mode == 1 || mode == 2) {
        // Only a folder with nothing at all left in it goes, and never one that holds the destination
        // or lies inside it.
        if (remove && isFolderEmpty(source) &&
            !PathsShareBranch(resolvedPath(source), resolvedPath(destination)))
            DeleteFolder(source);
        (mode == 1 ? ProjectFolder : BackupFolder) = destination;
    }
    return SavePathSettingsFile();
}
