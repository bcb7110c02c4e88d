#pragma once
#include <QStringList>

// Runs one command line (program name first); returns the process exit code.
int runCli(const QStringList& arguments);
