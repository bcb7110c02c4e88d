#include "app/cPathControl.h"

#include "app/TextHelpers.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QStringDecoder>

namespace {

const char* const kKeys[] = {"AppFolder", "ProjectFolder", "BackupFolder", "SystemFolder"};

QByteArray pathsFileText(const QString& app, const QString& project, const QString& backup,
                         const QString& system) {
    const QString values[] = {app, project, backup, system};
    QByteArray text;
    for (int i = 0; i < 4; ++i)
        text += QByteArray(kKeys[i]) + '=' + values[i].toUtf8() + "\r\n";
    return text;
}

// The whole file is replaced; on failure *error says why.
bool writePathsFile(const QString& file, const QByteArray& text, QString* error) {
    if (QFileInfo(file).isDir()) {
        *error = QStringLiteral("it is a folder");
        return false;
    }
    if (QFile::exists(file) && !QFile::remove(file)) {
        *error = QStringLiteral("the old file cannot be deleted");
        return false;
    }
    QSaveFile out(file);
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit()) {
        *error = out.errorString();
        return false;
    }
    return true;
}

// A line that is not UTF-8 was most likely saved by an editor in a one-byte code page.
QString decodeLine(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : text;
}

} // namespace

cPathControl::cPathControl(const QString& programFolder, const QString& machineDataFolder,
                           const QString& fallbackSystemFolder)
    : machineDataFolder_(machineDataFolder) {
    SetDataSystemFolder(fallbackSystemFolder);
    LoadPaths(programFolder);
}

QString cPathControl::MachineDataFolder() const {
    QString folder = machineDataFolder_.isEmpty()
                         ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
                         : machineDataFolder_;
    if (folder.endsWith(QChar(u'\0')))
        folder.chop(1);
    return folder;
}

void cPathControl::SetDataSystemFolder(const QString& fallbackSystemFolder) {
    DataSystemFolder = JoinPath(MachineDataFolder(), QStringLiteral("Orvane/System"));
    // A build tree or an install without the machine-wide folder still finds its templates.
    const QDir system(DataSystemFolder);
    const bool hasTemplates = QFileInfo(system.filePath(QStringLiteral("budgets.bak"))).isFile() &&
                              QFileInfo(system.filePath(QStringLiteral("trend.bak"))).isFile();
    if (!hasTemplates && !fallbackSystemFolder.isEmpty())
        DataSystemFolder = fallbackSystemFolder;
}

QString cPathControl::GetDefaultDataPath() const {
    const QString folder = MachineDataFolder();
    return FolderExists(folder) ? JoinPath(folder, QStringLiteral("Orvane")) : folder;
}

void cPathControl::LoadPaths(const QString& programFolder) {
    if (programFolder.isEmpty()) {
        pathsFileProblem_ =
            QStringLiteral("The paths file %1 cannot be found: the program's folder is unknown.")
                .arg(QLatin1String(PathsFileName));
        return;
    }
    const QString file = JoinPath(programFolder, QLatin1String(PathsFileName));
    if (!QFileInfo::exists(file)) {
        // A new file gets the machine's data folder for all three data keys, the project and
        // backup keys included: the sub-folders are only the intended layout, not what is written.
        const QString data = GetDefaultDataPath();
        QString error;
        if (!writePathsFile(file, pathsFileText(data, data, data, programFolder), &error)) {
            pathsFileProblem_ = QStringLiteral("The paths file %1 cannot be created: %2.").arg(file, error);
            return;
        }
    }
    pathsFileRead_ = readPathsFile(file);
}

bool cPathControl::readPathsFile(const QString& file) {
    QFile in(file);
    if (QFileInfo(file).isDir()) {
        pathsFileProblem_ = QStringLiteral("The paths file %1 cannot be read: it is a folder.").arg(file);
        return false;
    }
    if (!in.open(QIODevice::ReadOnly)) {
        pathsFileProblem_ =
            QStringLiteral("The paths file %1 cannot be read: %2.").arg(file, in.errorString());
        return false;
    }
    QByteArray bytes = in.readAll();
    if (in.error() != QFileDevice::NoError) {
        pathsFileProblem_ =
            QStringLiteral("The paths file %1 cannot be read: %2.").arg(file, in.errorString());
        return false;
    }
    // An editor may have put a byte order mark before the first key.
    if (bytes.startsWith("\xEF\xBB\xBF"))
        bytes.remove(0, 3);
    // CR LF, LF and CR all end a line; the blank lines this leaves are skipped.
    bytes.replace('\r', '\n');
    QString* const fields[] = {&AppFolder, &ProjectFolder, &BackupFolder, &SystemFolder};
    for (const QByteArray& line : bytes.split('\n')) {
        QString value;
        const int key = ParsePathLine(decodeLine(line), &value);
        if (key >= 0)
            *fields[key] = value;
    }
    return true;
}

int cPathControl::ParsePathLine(const QString& line, QString* value) {
    const qsizetype eq = line.indexOf(QLatin1Char('='));
    if (eq < 0)
        return -1;
    const QString key = line.left(eq).trimmed();
    for (int n = 0; n < 4; ++n) {
        if (key == QLatin1String(kKeys[n])) {
            if (value)
                *value = line.mid(eq + 1).trimmed();
            return n;
        }
    }
    return -1;
}

bool cPathControl::SavePathSettingsFile() {
    // With no folder known the file would land at the root of the file system.
    if (SystemFolder.isEmpty())
        return false;
    QString error;
    return writePathsFile(JoinPath(SystemFolder, QLatin1String(PathsFileName)),
                          pathsFileText(AppFolder, ProjectFolder, BackupFolder, SystemFolder), &error);
}

bool cPathControl::CanWriteToOrvaneAppPath(const QString& folder) const {
    if (folder.isEmpty())
        return false;
    QFile probe(JoinPath(folder, QStringLiteral("Test.dat")));
    if (!probe.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    const bool written = probe.write("Test\r\n") == 6 && probe.flush();
    probe.close();
    return probe.remove() && written;
}

QString cPathControl::GetFileExtension(const QString& name) {
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.mid(dot + 1);
}

bool cPathControl::FolderExists(const QString& path) {
    // Every caller wants a folder, so a plain file of that name does not count.
    return !path.isEmpty() && QFileInfo(path).isDir();
}

bool cPathControl::PathsShareBranch(const QString& a, const QString& b) {
    // cleanPath drops doubled and trailing separators, so "/a/b/" is the same folder as "/a/b".
    const QStringList left = QDir::cleanPath(a).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    const QStringList right = QDir::cleanPath(b).split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (a.startsWith(QLatin1Char('/')) != b.startsWith(QLatin1Char('/')))
        return false;
    const qsizetype shared = std::min(left.size(), right.size());
    for (qsizetype i = 0; i < shared; ++i) {
        if (left[i] != right[i])
            return false;
    }
    return true;
}
