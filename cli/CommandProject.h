#pragma once
// The bill project a command works on.
#include <QString>

struct AppContext;

// Selects the project as the program does when the user picks it: the database is opened
// and its details (account, bill period, cost centres) loaded into the context. Returns
// what went wrong, or an empty text.
QString selectCommandProject(AppContext& ctx, const QString& path);
