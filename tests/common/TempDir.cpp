#include "TempDir.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace testing {

TempDir::TempDir()
    : dir_(QDir::tempPath() + QStringLiteral("/vantrel-test-XXXXXX")) {}

QString TempDir::path(const QString& name) const {
    return dir_.filePath(name);
}

QString TempDir::write(const QString& name, const QByteArray& bytes) const {
    const QString file = path(name);
    QDir().mkpath(QFileInfo(file).absolutePath());
    QFile f(file);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        f.write(bytes);
    return file;
}

QByteArray readAll(const QString& file) {
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace testing
