// Rows per second of the Access reader on the largest table of the given Access files.
//
//   bench_access_import [FILE_OR_FOLDER...]    (default: ../shared/testdata/access)
//
// Each file is read once to find its tables; the file holding the largest table is then
// read again and again for about two seconds. The time of that table runs from the
// progress report at its start to the report at the start of the next table.
#include "data/AccessReader.h"
#include "data/Database.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <cstdio>
#include <vector>

namespace {

struct Largest {
    QString file;
    QString table;
    qint64 rows = -1;
    qint64 offset = 0; // rows of the tables before it
    qint64 fileRows = 0;
};

QStringList accessFiles(const QStringList& args) {
    QStringList files;
    for (const QString& arg : args) {
        const QFileInfo info(arg);
        if (info.isDir()) {
            for (const QFileInfo& f : QDir(arg).entryInfoList({"*.mdb", "*.accdb"}, QDir::Files, QDir::Name))
                files << f.absoluteFilePath();
        } else {
            files << info.absoluteFilePath();
        }
    }
    return files;
}

bool readOnce(const QString& file, QList<AccessTableCount>* tables, const AccessProgress& progress) {
    Database db = Database::openMemory();
    QString error;
    if (!readAccessDatabase(file, db, progress, &error, tables)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty())
        args << QStringLiteral("../shared/testdata/access");
    const QStringList files = accessFiles(args);
    if (files.isEmpty()) {
        std::fprintf(stderr, "bench_access_import: no Access files found\n");
        return 1;
    }

    Largest largest;
    for (const QString& file : files) {
        QList<AccessTableCount> tables;
        if (!readOnce(file, &tables, AccessProgress()))
            return 1;
        qint64 offset = 0;
        qint64 fileRows = 0;
        for (const AccessTableCount& t : tables)
            fileRows += t.rows;
        for (const AccessTableCount& t : tables) {
            if (t.rows > largest.rows)
                largest = {file, t.name, t.rows, offset, fileRows};
            offset += t.rows;
        }
    }
    std::printf("largest table: \"%s\" of %s, %lld rows\n", qPrintable(largest.table),
                qPrintable(QFileInfo(largest.file).fileName()), static_cast<long long>(largest.rows));

    QElapsedTimer clock;
    qint64 tableNs = 0;
    qint64 fileNs = 0;
    int runs = 0;
    clock.start();
    while (runs < 3 || clock.elapsed() < 2000) {
        qint64 start = -1;
        qint64 end = -1;
        QElapsedTimer run;
        run.start();
        const bool ok = readOnce(largest.file, nullptr, [&](qint64 done, qint64) {
            if (done <= largest.offset)
                start = run.nsecsElapsed();
            else if (end < 0 && done >= largest.offset + largest.rows)
                end = run.nsecsElapsed();
            return true;
        });
        if (!ok)
            return 1;
        fileNs += run.nsecsElapsed();
        tableNs += end - start;
        ++runs;
    }
    const double tableRate = double(largest.rows) * runs / (double(tableNs) / 1e9);
    const double fileRate = double(largest.fileRows) * runs / (double(fileNs) / 1e9);
    std::printf("%d runs: %.0f rows/s on that table, %.0f rows/s on the whole file (%lld rows, "
                "%.1f ms a read)\n",
                runs, tableRate, fileRate, static_cast<long long>(largest.fileRows),
                double(fileNs) / runs / 1e6);
    return 0;
}
