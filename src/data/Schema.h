#pragma once
#include <QString>

class Database;

// The schema text of one store kind, built into the program: "budgets", "trend",
// "project", "costcentres" or "tel". Empty for an unknown name.
QString schemaText(const QString& name);

// Creates a new database file from a schema; an existing file is replaced.
void createDatabaseFromSchema(const QString& path, const QString& schemaName);
