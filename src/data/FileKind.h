#pragma once
// Tells the database files this program meets apart by their first bytes: its own
// SQLite stores and the Access files of the host product.
#include <QByteArray>
#include <QString>

enum class FileKind { Missing, SQLite, Jet3, Jet4, Ace, Other };

// Missing when no file is at `path` (or it is a folder); Other for anything unreadable,
// too short or of another format.
FileKind detectFileKind(const QString& path);
// The same decision from the start of a file (at least the first 21 bytes).
FileKind fileKindFromHeader(const QByteArray& head);

bool isAccessKind(FileKind kind);
