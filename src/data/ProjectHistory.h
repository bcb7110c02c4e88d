#pragma once
// The list of recent projects, AppFolder/CallHistory.csv: a marker line, then the
// newest project first, ten at the most, each in double quotes.
#include <QString>
#include <QStringList>
#include <functional>

constexpr int ProjectHistorySize = 10;

QString projectHistoryFile(const QString& appFolder);
// The recent projects, newest first; empty when there is no file.
QStringList LoadHistory(const QString& appFolder);
// Writes `path` first, then the other entries that differ from it (ignoring case).
// False when the file cannot be written.
bool SaveHistory(const QString& appFolder, const QString& path, const QStringList& history);

// True when a file stands at `path` under that name.
bool ProjectExists(const QString& path);

// Shortens a path until `fits` accepts it: first "abc..." and the rest from the next
// folder separator, then one leading folder less each round.
QString shortenPath(const QString& path, const std::function<bool(const QString&)>& fits);
