#pragma once
// Reads an Access file (Jet 3, Jet 4 or ACE) into a SQLite database with the same
// tables and columns. The Access file is only ever read.
//
// libmdb trusts the file: on a damaged one it may loop for ever, eat memory or crash.
// So the reading runs in a child process (the program vantrel-access-reader beside the
// running executable) that writes a temporary SQLite file, under a time limit that grows
// with the size of the file; a cancel, the time limit or a crash of the child ends it
// at once, and this process never runs libmdb itself.
#include <QList>
#include <QString>
#include <functional>

class Database;

// Rows copied so far and rows in all; returning false cancels the read. It is also called
// about every 50 ms while the reader is busy, with total 0 as long as the number of rows
// is not known yet.
using AccessProgress = std::function<bool(qint64 done, qint64 total)>;

struct AccessTableCount {
    QString name;
    qint64 rows = 0;
};

// Copies every user table of the Access file at `path` into `target`, in catalog order,
// each with all its columns and its rows in physical order, in one transaction: on
// failure or cancel `target` is left as it was, the reason goes to `error` and the
// result is false. `tables`, when given, receives the tables copied with their rows.
//
// Values: currency as INTEGER ten-thousandths, dates as ISO text, booleans 0/1,
// integers as INTEGER, single and double as REAL, text and memo as TEXT,
// OLE and binary as BLOB.
bool readAccessDatabase(const QString& path, Database& target, const AccessProgress& progress, QString* error,
                        QList<AccessTableCount>* tables = nullptr);

// Writes every user table of the Access file into a new SQLite file at `outPath`.
// An existing file there is replaced only once the whole read has succeeded.
bool convertAccessFile(const QString& accessPath, const QString& outPath, const AccessProgress& progress,
                       QString* error, QList<AccessTableCount>* tables = nullptr);

// How long the reader may take on a file of `fileSize` bytes before the file counts as
// damaged: far more than a sound file needs.
qint64 accessReadTimeLimitMs(qint64 fileSize);
