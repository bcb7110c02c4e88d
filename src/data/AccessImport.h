#pragma once
// The Access reading itself, on libmdb, inside the calling process. libmdb can loop for
// ever or crash on a damaged file, so only the reader child process calls this; the
// program reads Access files through AccessReader.h.
#include "data/AccessReader.h"

// Refuses what is plainly no readable Access file (missing, another format, cut short)
// before libmdb sees it: false, with the message in `error`.
bool checkAccessFile(const QString& path, QString* error);

// As readAccessDatabase, but in this process.
bool importAccessFile(const QString& path, Database& target, const AccessProgress& progress, QString* error,
                      QList<AccessTableCount>* tables = nullptr);
