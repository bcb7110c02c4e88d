#pragma once
#include <QStringList>

struct AppContext;

// "report NUMBER --project PROJECT [...] --format csv --out FILE" on an open installation:
// selects the project, builds the report as the desktop program would and writes it.
// Returns the process exit code.
int reportCommand(AppContext& ctx, const QStringList& args);
