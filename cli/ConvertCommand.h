#pragma once
#include <QStringList>

// vantrel-cli convert ACCESS_FILE OUT.sqlite: every user table of an Access file into a
// new SQLite file. `args` are the words after "convert"; returns the exit code.
int convertCommand(const QStringList& args);
