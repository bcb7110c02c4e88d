#pragma once
#include <QStringList>

struct AppContext;

// "pack --project P [--budget ID|TITLE] --out FILE.pdf|FILE.xlsx": every trend report of the
// project's account and, with a budget, every budget report, in one PDF (a contents page,
// numbered pages) or one workbook (a sheet per report). Returns the process exit code.
int packCommand(AppContext& ctx, const QStringList& args);
