#pragma once
#include <QString>
#include <QTemporaryDir>

namespace testing {

// A scratch folder that is removed with the object; path() joins a name to it.
class TempDir {
public:
    TempDir();
    QString path() const { return dir_.path(); }
    QString path(const QString& name) const;
    // Writes bytes to a file in the folder and returns its full path.
    QString write(const QString& name, const QByteArray& bytes) const;

private:
    QTemporaryDir dir_;
};

QByteArray readAll(const QString& file);

} // namespace testing
