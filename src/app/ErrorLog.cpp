#include "app/ErrorLog.h"

#include "app/cPathControl.h"

#include <QDateTime>
#include <QFile>
#include <QTextStream>

QString errorLogPath(const cPathControl& paths) {
    return paths.AppFolder + QStringLiteral("/VantrelError.log");
}

bool LogError(const cPathControl& paths, const QString& source, long number, const QString& description) {
    QFile file(errorLogPath(paths));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return false;
    QTextStream out(&file);
    out << QDateTime::currentDateTime().toString(QStringLiteral("dd/MM/yyyy hh:mm")) << "   " << source
        << "   Error#" << number << ":" << description << "\n";
    return out.status() == QTextStream::Ok;
}
