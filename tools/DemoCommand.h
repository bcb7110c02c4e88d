#pragma once
#include <QStringList>

// "demo DIR [--seed S] [--accounts N] [--bills N] [--lines-per-bill N]"; returns the exit code.
int demoCommand(const QStringList& args);
